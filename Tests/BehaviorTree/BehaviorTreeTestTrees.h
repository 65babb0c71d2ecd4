// A guard's tree and blackboard for the tests, built as the behaviour tree editor would leave them.
#pragma once

#include "BehaviorTreeAssembly.h"
#include "BehaviorTreeTestTypes.h"
#include "BehaviorTree/BehaviorTree.h"
#include "BehaviorTree/BlackboardData.h"
#include "BehaviorTree/Blackboard/BlackboardKeyType_Bool.h"
#include "BehaviorTree/Blackboard/BlackboardKeyType_Enum.h"
#include "BehaviorTree/Blackboard/BlackboardKeyType_NativeEnum.h"
#include "BehaviorTree/Blackboard/BlackboardKeyType_Object.h"
#include "BehaviorTree/Composites/BTComposite_Selector.h"
#include "BehaviorTree/Composites/BTComposite_Sequence.h"
#include "BehaviorTree/Decorators/BTDecorator_Blackboard.h"
#include "BehaviorTree/Decorators/BTDecorator_Cooldown.h"
#include "BehaviorTree/Services/BTService_DefaultFocus.h"
#include "BehaviorTree/Tasks/BTTask_MoveTo.h"
#include "BehaviorTree/Tasks/BTTask_Wait.h"
#include "GameFramework/Actor.h"
#include "Misc/PackageName.h"
#include "UObject/Package.h"

namespace BehaviorTreeTestTrees
{
	using namespace BehaviorTreeAssembly;

	template<class T>
	T* MakeAsset(const TCHAR* PackageName)
	{
		UPackage* Package = CreatePackage(PackageName);
		return NewObject<T>(Package, FName(*FPackageName::GetShortName(PackageName)), RF_Public | RF_Standalone | RF_Transactional);
	}

	struct FGuardTree
	{
		UBehaviorTree* Tree = nullptr;
		UBlackboardData* Blackboard = nullptr;
	};

	/**
	 * BT_Guard with BB_Guard: a selector over a sequence that chases the target (a blackboard condition and
	 * a Blueprint condition on it, a Blueprint scan service on the sequence, move then wait) and a Blueprint
	 * patrol under a cooldown.
	 */
	inline FGuardTree MakeGuardTree(const TCHAR* Folder = TEXT("/Game/AI"))
	{
		FGuardTree Guard;
		Guard.Blackboard = MakeAsset<UBlackboardData>(*FString::Printf(TEXT("%s/BB_Guard"), Folder));
		UBlackboardData* Blackboard = Guard.Blackboard;
		UBlackboardKeyType_Object* TargetType = NewObject<UBlackboardKeyType_Object>(Blackboard);
		TargetType->BaseClass = AActor::StaticClass();
		Blackboard->Keys.Add(MakeKey(TEXT("Target"), TargetType));
		UBlackboardKeyType_Enum* AlertnessType = NewObject<UBlackboardKeyType_Enum>(Blackboard);
		AlertnessType->EnumType = StaticEnum<EGuardAlertness>();
		Blackboard->Keys.Add(MakeKey(TEXT("Alertness"), AlertnessType, true));
		Blackboard->Keys.Add(MakeKey(TEXT("Mood"), NewObject<UBlackboardKeyType_Enum>(Blackboard)));
		UBlackboardKeyType_NativeEnum* NativeType = NewObject<UBlackboardKeyType_NativeEnum>(Blackboard);
		NativeType->EnumName = TEXT("EGuardAlertness");
		NativeType->EnumType = StaticEnum<EGuardAlertness>();
		Blackboard->Keys.Add(MakeKey(TEXT("NativeAlertness"), NativeType));
		Blackboard->Keys.Add(MakeKey(TEXT("HasSeenPlayer"), NewObject<UBlackboardKeyType_Bool>(Blackboard)));
		Blackboard->Keys.Add(MakeKey(TEXT("Untyped"), nullptr));

		Guard.Tree = MakeAsset<UBehaviorTree>(*FString::Printf(TEXT("%s/BT_Guard"), Folder));
		UBehaviorTree* Tree = Guard.Tree;
		Tree->BlackboardAsset = Blackboard;
		UBTComposite_Selector* Root = NewObject<UBTComposite_Selector>(Tree);
		Tree->RootNode = Root;

		UBTComposite_Sequence* Chase = NewObject<UBTComposite_Sequence>(Tree);
		Chase->NodeName = TEXT("Chase");
		FBTCompositeChild& ChaseEntry = AddChild(Root, Chase);
		UBTDecorator_Blackboard* HasTarget = NewObject<UBTDecorator_Blackboard>(Tree);
		SetPropertyText(HasTarget, TEXT("FlowAbortMode"), TEXT("LowerPriority"));
		ChaseEntry.Decorators.Add(HasTarget);
		UBTDecorator_TestCanSee* CanSee = NewObject<UBTDecorator_TestCanSee>(Tree);
		CanSee->SetIsInversed(true);
		SetPropertyText(CanSee, TEXT("FlowAbortMode"), TEXT("Both"));
		CanSee->SightRange = 2000.f;
		ChaseEntry.Decorators.Add(CanSee);
		Chase->Services.Add(NewObject<UBTService_TestScan>(Tree));
		AddChild(Chase, NewObject<UBTTask_MoveTo>(Tree));
		AddChild(Chase, NewObject<UBTTask_Wait>(Tree));

		UBTTask_TestPatrol* Patrol = NewObject<UBTTask_TestPatrol>(Tree);
		Patrol->PatrolRadius = 450.f;
		AddChild(Root, Patrol).Decorators.Add(NewObject<UBTDecorator_Cooldown>(Tree));
		Root->Services.Add(NewObject<UBTService_DefaultFocus>(Tree));
		return Guard;
	}
}
