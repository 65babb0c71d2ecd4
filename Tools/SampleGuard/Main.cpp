// make-sample-guard PROJECT.uproject: writes the guard of the sample project, made by the editor
// stand-in itself. Content/AI: BB_Guard, BT_Guard and the Blueprint nodes the tree uses (a task, a
// decorator and a service); Content/Blueprints: BP_Guard, whose Health the tree watches. Together with
// the game module's HealthPool they give a search for Health matches of every kind.
#include "CoreMinimal.h"
#include "AssetRegistry/AssetRegistryModule.h"
#include "BehaviorTreeAssembly.h"
#include "BehaviorTree/BehaviorTree.h"
#include "BehaviorTree/BehaviorTreeTypes.h"
#include "BehaviorTree/BlackboardData.h"
#include "BehaviorTree/Blackboard/BlackboardKeyType_Bool.h"
#include "BehaviorTree/Blackboard/BlackboardKeyType_Enum.h"
#include "BehaviorTree/Blackboard/BlackboardKeyType_Float.h"
#include "BehaviorTree/Blackboard/BlackboardKeyType_Object.h"
#include "BehaviorTree/Blackboard/BlackboardKeyType_Vector.h"
#include "BehaviorTree/Composites/BTComposite_Selector.h"
#include "BehaviorTree/Composites/BTComposite_Sequence.h"
#include "BehaviorTree/Decorators/BTDecorator_Blackboard.h"
#include "BehaviorTree/Decorators/BTDecorator_BlueprintBase.h"
#include "BehaviorTree/Decorators/BTDecorator_Cooldown.h"
#include "BehaviorTree/Decorators/BTDecorator_Loop.h"
#include "BehaviorTree/Services/BTService_BlueprintBase.h"
#include "BehaviorTree/Services/BTService_DefaultFocus.h"
#include "BehaviorTree/Tasks/BTTask_BlueprintBase.h"
#include "BehaviorTree/Tasks/BTTask_MoveTo.h"
#include "BehaviorTree/Tasks/BTTask_Wait.h"
#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "K2Node_VariableGet.h"
#include "GameFramework/Actor.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Kismet2/KismetEditorUtilities.h"
#include "Misc/PackageName.h"
#include "Misc/StandInProject.h"
#include "SampleBlueprintBuilder.h"
#include "UObject/Package.h"
#include "UObject/SavePackage.h"

#include <cstdio>

using namespace BehaviorTreeAssembly;

namespace
{
	template<class T>
	T* MakeAsset(const TCHAR* PackageName)
	{
		UPackage* Package = CreatePackage(PackageName);
		T* Asset = NewObject<T>(Package, FName(*FPackageName::GetShortName(PackageName)), RF_Public | RF_Standalone | RF_Transactional);
		FAssetRegistryModule::AssetCreated(Asset);
		return Asset;
	}

	bool SaveAsset(UObject* Asset)
	{
		UPackage* Package = Asset->GetOutermost();
		FSavePackageArgs Args;
		Args.TopLevelFlags = RF_Standalone;
		const FString FileName = FPackageName::LongPackageNameToFilename(Package->GetName(), FPackageName::GetAssetPackageExtension());
		return UPackage::Save(Package, Asset, *FileName, Args).IsSuccessful();
	}

	/** A Blueprint node class: a Blueprint of the given base with one float variable, compiled. */
	UBlueprint* MakeNodeBlueprint(const TCHAR* PackageName, UClass* BaseClass, const TCHAR* Variable)
	{
		UBlueprint* Blueprint = FSampleBlueprintBuilder::CreateBlueprint(PackageName, BaseClass);
		if (Blueprint != nullptr)
		{
			FBlueprintEditorUtils::AddMemberVariable(Blueprint, FName(Variable), FSampleBlueprintBuilder::MakeRealPinType(), TEXT("30.0"));
			FKismetEditorUtilities::CompileBlueprint(Blueprint);
		}
		return Blueprint;
	}

	/** BP_Guard: Health and MaxHealth, a function GetHealth that returns Health, an event graph that warns about it. */
	UBlueprint* MakeGuardBlueprint()
	{
		UBlueprint* Guard = FSampleBlueprintBuilder::CreateBlueprint(TEXT("/Game/Blueprints/BP_Guard"), AActor::StaticClass());
		if (Guard == nullptr)
		{
			return nullptr;
		}
		FBlueprintEditorUtils::AddMemberVariable(Guard, FName(TEXT("Health")), FSampleBlueprintBuilder::MakeRealPinType(), TEXT("100.0"));
		FBlueprintEditorUtils::AddMemberVariable(Guard, FName(TEXT("MaxHealth")), FSampleBlueprintBuilder::MakeRealPinType(), TEXT("100.0"));

		UEdGraphNode* Entry = nullptr;
		UEdGraphNode* Result = nullptr;
		UEdGraph* GetHealth = FSampleBlueprintBuilder::AddFunction(Guard, FName(TEXT("GetHealth")), {}, { { FName(TEXT("Health")), FSampleBlueprintBuilder::MakeRealPinType() } }, Entry, Result);
		UEdGraphNode* Get = GetDefault<UEdGraphSchema_K2>()->SpawnVariableGetNode(FVector2D(200, 100), GetHealth, FName(TEXT("Health")), Guard->SkeletonGeneratedClass);
		Get->NodeComment = TEXT("Health left before the guard gives up the chase");
		if (Entry != nullptr && Result != nullptr)
		{
			FSampleBlueprintBuilder::Link(Entry, UEdGraphSchema_K2::PN_Then, Result, UEdGraphSchema_K2::PN_Execute);
			FSampleBlueprintBuilder::Link(Get, FName(TEXT("Health")), Result, FName(TEXT("Health")));
		}

		UEdGraph* EventGraph = FBlueprintEditorUtils::FindEventGraph(Guard);
		UEdGraphNode* BeginPlay = FSampleBlueprintBuilder::AddEvent(Guard, EventGraph, FName(TEXT("ReceiveBeginPlay")), 0, 0);
		UEdGraphNode* Print = FSampleBlueprintBuilder::AddPrintString(EventGraph, TEXT("The guard is on duty"), 300, 0);
		Print->NodeComment = TEXT("Tells the log that the guard's health is full");
		if (BeginPlay != nullptr)
		{
			FSampleBlueprintBuilder::Link(BeginPlay, UEdGraphSchema_K2::PN_Then, Print, UEdGraphSchema_K2::PN_Execute);
		}
		FKismetEditorUtilities::CompileBlueprint(Guard);
		return Guard;
	}

	UBlackboardData* MakeBlackboard()
	{
		UBlackboardData* Blackboard = MakeAsset<UBlackboardData>(TEXT("/Game/AI/BB_Guard"));
		UBlackboardKeyType_Object* Target = NewObject<UBlackboardKeyType_Object>(Blackboard);
		Target->BaseClass = AActor::StaticClass();
		Blackboard->Keys.Add(MakeKey(TEXT("Target"), Target));
		Blackboard->Keys.Add(MakeKey(TEXT("HomeLocation"), NewObject<UBlackboardKeyType_Vector>(Blackboard)));
		Blackboard->Keys.Add(MakeKey(TEXT("HasSeenPlayer"), NewObject<UBlackboardKeyType_Bool>(Blackboard)));
		Blackboard->Keys.Add(MakeKey(TEXT("Health"), NewObject<UBlackboardKeyType_Float>(Blackboard)));
		UBlackboardKeyType_Enum* LastResult = NewObject<UBlackboardKeyType_Enum>(Blackboard);
		LastResult->EnumType = StaticEnum<EBTNodeResult::Type>();
		Blackboard->Keys.Add(MakeKey(TEXT("LastResult"), LastResult));
		// An enum key whose enum was never picked; shared by every guard.
		Blackboard->Keys.Add(MakeKey(TEXT("Mood"), NewObject<UBlackboardKeyType_Enum>(Blackboard), true));
		return Blackboard;
	}

	template<class T>
	T* NewNode(UBehaviorTree* Tree, UClass* Class = T::StaticClass())
	{
		T* Node = NewObject<T>(Tree, Class);
		Node->InitializeFromAsset(*Tree);
		return Node;
	}

	/**
	 * BT_Guard: a selector that chases a seen target while the guard is healthy (a blackboard condition
	 * and an inversed Blueprint health check, a Blueprint service that watches health, move then wait),
	 * and otherwise patrols in a loop (the Blueprint patrol task, then a look around), with a cooldown.
	 */
	UBehaviorTree* MakeTree(UBlackboardData* Blackboard, UClass* Patrol, UClass* IsHealthLow, UClass* WatchHealth)
	{
		UBehaviorTree* Tree = MakeAsset<UBehaviorTree>(TEXT("/Game/AI/BT_Guard"));
		Tree->BlackboardAsset = Blackboard;
		UBTComposite_Selector* Root = NewNode<UBTComposite_Selector>(Tree);
		Tree->RootNode = Root;
		UBTService_DefaultFocus* Focus = NewNode<UBTService_DefaultFocus>(Tree);
		SetPropertyText(Focus, TEXT("BlackboardKey"), TEXT("(SelectedKeyName=\"Target\")"));
		Root->Services.Add(Focus);

		UBTComposite_Sequence* Chase = NewNode<UBTComposite_Sequence>(Tree);
		Chase->NodeName = TEXT("Chase");
		FBTCompositeChild& ChaseEntry = AddChild(Root, Chase);
		UBTDecorator_Blackboard* HasSeenPlayer = NewNode<UBTDecorator_Blackboard>(Tree);
		SetPropertyText(HasSeenPlayer, TEXT("BlackboardKey"), TEXT("(SelectedKeyName=\"HasSeenPlayer\")"));
		SetPropertyText(HasSeenPlayer, TEXT("FlowAbortMode"), TEXT("LowerPriority"));
		ChaseEntry.Decorators.Add(HasSeenPlayer);
		UBTDecorator* Healthy = NewNode<UBTDecorator>(Tree, IsHealthLow);
		Healthy->SetIsInversed(true);
		SetPropertyText(Healthy, TEXT("FlowAbortMode"), TEXT("Self"));
		ChaseEntry.Decorators.Add(Healthy);
		Chase->Services.Add(NewNode<UBTService>(Tree, WatchHealth));
		UBTTask_MoveTo* MoveTo = NewNode<UBTTask_MoveTo>(Tree);
		SetPropertyText(MoveTo, TEXT("BlackboardKey"), TEXT("(SelectedKeyName=\"Target\")"));
		AddChild(Chase, MoveTo);
		AddChild(Chase, NewNode<UBTTask_Wait>(Tree));

		UBTComposite_Sequence* PatrolSequence = NewNode<UBTComposite_Sequence>(Tree);
		PatrolSequence->NodeName = TEXT("Patrol");
		FBTCompositeChild& PatrolEntry = AddChild(Root, PatrolSequence);
		PatrolEntry.Decorators.Add(NewNode<UBTDecorator_Loop>(Tree));
		PatrolEntry.Decorators.Add(NewNode<UBTDecorator_Cooldown>(Tree));
		AddChild(PatrolSequence, NewNode<UBTTaskNode>(Tree, Patrol));
		UBTTask_Wait* LookAround = NewNode<UBTTask_Wait>(Tree);
		LookAround->NodeName = TEXT("Look Around");
		AddChild(PatrolSequence, LookAround);
		return Tree;
	}
}

int main(int ArgC, char** ArgV)
{
	if (ArgC != 2)
	{
		std::fprintf(stderr, "usage: make-sample-guard PROJECT.uproject\n");
		return 2;
	}
	FStandInProject::SetProjectFile(FString(UTF8_TO_TCHAR(ArgV[1])));

	UBlueprint* Patrol = MakeNodeBlueprint(TEXT("/Game/AI/BTT_Patrol"), UBTTask_BlueprintBase::StaticClass(), TEXT("PatrolRadius"));
	UBlueprint* IsHealthLow = MakeNodeBlueprint(TEXT("/Game/AI/BTD_IsHealthLow"), UBTDecorator_BlueprintBase::StaticClass(), TEXT("HealthThreshold"));
	UBlueprint* WatchHealth = MakeNodeBlueprint(TEXT("/Game/AI/BTS_WatchHealth"), UBTService_BlueprintBase::StaticClass(), TEXT("LastHealth"));
	UBlueprint* Guard = MakeGuardBlueprint();
	int32 Failures = 0;
	for (UBlueprint* Blueprint : { Patrol, IsHealthLow, WatchHealth, Guard })
	{
		if (Blueprint == nullptr || !Blueprint->IsUpToDate() || !FSampleBlueprintBuilder::Save(Blueprint))
		{
			std::fprintf(stderr, "failed: %s\n", Blueprint != nullptr ? TCHAR_TO_UTF8(*Blueprint->GetPathName()) : "(not created)");
			return 1;
		}
		std::printf("saved %s\n", TCHAR_TO_UTF8(*Blueprint->GetPathName()));
	}

	UBlackboardData* Blackboard = MakeBlackboard();
	UBehaviorTree* Tree = MakeTree(Blackboard, Patrol->GeneratedClass, IsHealthLow->GeneratedClass, WatchHealth->GeneratedClass);
	for (UObject* Asset : { static_cast<UObject*>(Blackboard), static_cast<UObject*>(Tree) })
	{
		if (!SaveAsset(Asset))
		{
			std::fprintf(stderr, "failed: %s\n", TCHAR_TO_UTF8(*Asset->GetPathName()));
			++Failures;
			continue;
		}
		std::printf("saved %s\n", TCHAR_TO_UTF8(*Asset->GetPathName()));
	}
	return Failures == 0 ? 0 : 1;
}
