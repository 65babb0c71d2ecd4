// A guard's tree and blackboard for the tests, built as the behaviour tree editor would leave them.
#pragma once

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
#include "UObject/UnrealType.h"

namespace BehaviorTreeTestTrees
{
	template<class T>
	T* MakeAsset(const TCHAR* PackageName)
	{
		UPackage* Package = CreatePackage(PackageName);
		return NewObject<T>(Package, FName(*FPackageName::GetShortName(PackageName)), RF_Public | RF_Standalone | RF_Transactional);
	}

	inline FBlackboardEntry MakeKey(UBlackboardData* Blackboard, const TCHAR* Name, UBlackboardKeyType* KeyType, bool bInstanceSynced = false)
	{
		FBlackboardEntry Entry;
		Entry.EntryName = FName(Name);
		Entry.KeyType = KeyType;
		Entry.bInstanceSynced = bInstanceSynced;
		return Entry;
	}

	// The decorator's abort mode is not public in the engine either; its details panel sets it by reflection.
	inline void SetFlowAbortMode(UBTDecorator* Decorator, EBTFlowAbortMode::Type Mode)
	{
		FProperty* Property = UBTDecorator::StaticClass()->FindPropertyByName(FName(TEXT("FlowAbortMode")));
		*Property->ContainerPtrToValuePtr<uint8>(Decorator) = static_cast<uint8>(Mode);
	}

	inline FBTCompositeChild& AddChild(UBTCompositeNode* Parent, UBTNode* Child)
	{
		FBTCompositeChild& Entry = Parent->Children.AddDefaulted_GetRef();
		if (UBTCompositeNode* Composite = Cast<UBTCompositeNode>(Child))
		{
			Entry.ChildComposite = Composite;
		}
		else
		{
			Entry.ChildTask = Cast<UBTTaskNode>(Child);
		}
		Child->InitializeNode(Parent, 0, 0, 0);
		return Entry;
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
		Blackboard->Keys.Add(MakeKey(Blackboard, TEXT("Target"), TargetType));
		UBlackboardKeyType_Enum* AlertnessType = NewObject<UBlackboardKeyType_Enum>(Blackboard);
		AlertnessType->EnumType = StaticEnum<EGuardAlertness>();
		Blackboard->Keys.Add(MakeKey(Blackboard, TEXT("Alertness"), AlertnessType, true));
		Blackboard->Keys.Add(MakeKey(Blackboard, TEXT("Mood"), NewObject<UBlackboardKeyType_Enum>(Blackboard)));
		UBlackboardKeyType_NativeEnum* NativeType = NewObject<UBlackboardKeyType_NativeEnum>(Blackboard);
		NativeType->EnumName = TEXT("EGuardAlertness");
		NativeType->EnumType = StaticEnum<EGuardAlertness>();
		Blackboard->Keys.Add(MakeKey(Blackboard, TEXT("NativeAlertness"), NativeType));
		Blackboard->Keys.Add(MakeKey(Blackboard, TEXT("HasSeenPlayer"), NewObject<UBlackboardKeyType_Bool>(Blackboard)));
		Blackboard->Keys.Add(MakeKey(Blackboard, TEXT("Untyped"), nullptr));

		Guard.Tree = MakeAsset<UBehaviorTree>(*FString::Printf(TEXT("%s/BT_Guard"), Folder));
		UBehaviorTree* Tree = Guard.Tree;
		Tree->BlackboardAsset = Blackboard;
		UBTComposite_Selector* Root = NewObject<UBTComposite_Selector>(Tree);
		Tree->RootNode = Root;

		UBTComposite_Sequence* Chase = NewObject<UBTComposite_Sequence>(Tree);
		Chase->NodeName = TEXT("Chase");
		FBTCompositeChild& ChaseEntry = AddChild(Root, Chase);
		UBTDecorator_Blackboard* HasTarget = NewObject<UBTDecorator_Blackboard>(Tree);
		SetFlowAbortMode(HasTarget, EBTFlowAbortMode::LowerPriority);
		ChaseEntry.Decorators.Add(HasTarget);
		UBTDecorator_TestCanSee* CanSee = NewObject<UBTDecorator_TestCanSee>(Tree);
		CanSee->SetIsInversed(true);
		SetFlowAbortMode(CanSee, EBTFlowAbortMode::Both);
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
