// The AIModule stand-in: trees and blackboards saved as text packages, loaded back whole, found by the
// asset registry; the engine's default node names and the texts of its type helpers.
#include "BehaviorTreeTestTrees.h"
#include "ObjectTestSupport.h"
#include "AssetRegistry/AssetRegistryModule.h"
#include "BehaviorTree/BehaviorTreeTypes.h"
#include "BehaviorTree/Composites/BTComposite_SimpleParallel.h"
#include "BehaviorTree/Decorators/BTDecorator_Loop.h"
#include "BehaviorTree/Tasks/BTTask_RunBehavior.h"
#include "Modules/ModuleManager.h"
#include "UObject/UObjectHash.h"
#include "CoreTestPrinters.h"
#include <gtest/gtest.h>

using namespace BehaviorTreeTestTrees;

namespace
{
	const FString TempRoot(TEXT(BEHAVIOR_TREE_TESTS_TEMP_DIR));

	void Unload(UObject* Asset)
	{
		TArray<UObject*> Inners;
		GetObjectsWithOuter(Asset->GetOutermost(), Inners);
		for (UObject* Inner : Inners)
		{
			Inner->ClearFlags(RF_Standalone);
		}
	}
}

TEST(BehaviorTreeAssets, GuardTreeSavesAsTextAndLoadsBackWhole)
{
	FObjectTestProject Project(TempRoot, TEXT("RoundTrip"));
	FGuardTree Guard = MakeGuardTree();
	ASSERT_TRUE(SaveTestPackage(Guard.Blackboard->GetOutermost(), Guard.Blackboard));
	ASSERT_TRUE(SaveTestPackage(Guard.Tree->GetOutermost(), Guard.Tree));
	const FString TreeText = FObjectTestProject::ReadFile(Project.ContentFile(TEXT("AI/BT_Guard.uasset")));
	EXPECT_TRUE(TreeText.Contains(TEXT("Asset Name=BT_Guard Class=/Script/AIModule.BehaviorTree")));
	EXPECT_TRUE(TreeText.Contains(TEXT("NodeName=\"Chase\"")));

	Unload(Guard.Tree);
	Unload(Guard.Blackboard);
	CollectGarbage(RF_NoFlags);
	ASSERT_EQ(FindObject<UBehaviorTree>(nullptr, TEXT("/Game/AI/BT_Guard.BT_Guard")), nullptr);

	IAssetRegistry& Registry = FModuleManager::LoadModuleChecked<FAssetRegistryModule>(TEXT("AssetRegistry")).Get();
	Registry.SearchAllAssets(true);
	TArray<FAssetData> Trees;
	Registry.GetAssetsByClass(UBehaviorTree::StaticClass()->GetClassPathName(), Trees);
	ASSERT_EQ(Trees.Num(), 1);
	TArray<FAssetData> Blackboards;
	Registry.GetAssetsByClass(UBlackboardData::StaticClass()->GetClassPathName(), Blackboards);
	ASSERT_EQ(Blackboards.Num(), 1);

	UBehaviorTree* Tree = Cast<UBehaviorTree>(Trees[0].GetAsset());
	ASSERT_NE(Tree, nullptr);
	UBlackboardData* Blackboard = Tree->GetBlackboardAsset();
	ASSERT_NE(Blackboard, nullptr);
	EXPECT_EQ(Blackboard->GetPathName(), TEXT("/Game/AI/BB_Guard.BB_Guard"));

	// Keys keep their types, the types' settings and the synced flag; a key without a type stays so.
	ASSERT_EQ(Blackboard->Keys.Num(), 6);
	const UBlackboardKeyType_Object* Target = Cast<UBlackboardKeyType_Object>(Blackboard->Keys[0].KeyType);
	ASSERT_NE(Target, nullptr);
	EXPECT_EQ(Target->GetOuter(), Blackboard);
	EXPECT_EQ(Target->BaseClass, AActor::StaticClass());
	const UBlackboardKeyType_Enum* Alertness = Cast<UBlackboardKeyType_Enum>(Blackboard->Keys[1].KeyType);
	ASSERT_NE(Alertness, nullptr);
	EXPECT_EQ(Alertness->EnumType, StaticEnum<EGuardAlertness>());
	EXPECT_TRUE(Blackboard->Keys[1].bInstanceSynced);
	EXPECT_FALSE(Blackboard->Keys[0].bInstanceSynced);
	ASSERT_NE(Cast<UBlackboardKeyType_Enum>(Blackboard->Keys[2].KeyType), nullptr);
	EXPECT_EQ(Cast<UBlackboardKeyType_Enum>(Blackboard->Keys[2].KeyType)->EnumType, nullptr);
	EXPECT_EQ(Cast<UBlackboardKeyType_NativeEnum>(Blackboard->Keys[3].KeyType)->EnumName, TEXT("EGuardAlertness"));
	EXPECT_NE(Cast<UBlackboardKeyType_Bool>(Blackboard->Keys[4].KeyType), nullptr);
	EXPECT_EQ(Blackboard->Keys[5].KeyType, nullptr);

	// The node tree: children in order, decorators on the child entries, services on the composites,
	// changed values and the links to parents.
	const UBTComposite_Selector* Root = Cast<UBTComposite_Selector>(Tree->RootNode);
	ASSERT_NE(Root, nullptr);
	ASSERT_EQ(Root->Children.Num(), 2);
	ASSERT_EQ(Root->Services.Num(), 1);
	EXPECT_NE(Cast<UBTService_DefaultFocus>(Root->Services[0]), nullptr);
	const UBTComposite_Sequence* Chase = Cast<UBTComposite_Sequence>(Root->Children[0].ChildComposite);
	ASSERT_NE(Chase, nullptr);
	EXPECT_EQ(Root->Children[0].ChildTask, nullptr);
	EXPECT_EQ(Chase->GetNodeName(), TEXT("Chase"));
	EXPECT_EQ(Chase->GetParentNode(), Root);
	ASSERT_EQ(Root->Children[0].Decorators.Num(), 2);
	const UBTDecorator* HasTarget = Root->Children[0].Decorators[0];
	EXPECT_FALSE(HasTarget->IsInversed());
	EXPECT_EQ(HasTarget->GetFlowAbortMode(), EBTFlowAbortMode::LowerPriority);
	const UBTDecorator_TestCanSee* CanSee = Cast<UBTDecorator_TestCanSee>(Root->Children[0].Decorators[1]);
	ASSERT_NE(CanSee, nullptr);
	EXPECT_TRUE(CanSee->IsInversed());
	EXPECT_EQ(CanSee->GetFlowAbortMode(), EBTFlowAbortMode::Both);
	EXPECT_EQ(CanSee->SightRange, 2000.f);
	ASSERT_EQ(Chase->Children.Num(), 2);
	EXPECT_NE(Cast<UBTTask_MoveTo>(Chase->GetChildNode(0)), nullptr);
	EXPECT_NE(Cast<UBTTask_Wait>(Chase->GetChildNode(1)), nullptr);
	EXPECT_EQ(Chase->GetChildNode(1)->GetParentNode(), Chase);
	EXPECT_EQ(Chase->GetChildNode(2), nullptr);
	ASSERT_EQ(Chase->Services.Num(), 1);
	EXPECT_NE(Cast<UBTService_TestScan>(Chase->Services[0]), nullptr);
	const UBTTask_TestPatrol* Patrol = Cast<UBTTask_TestPatrol>(Root->Children[1].ChildTask);
	ASSERT_NE(Patrol, nullptr);
	EXPECT_EQ(Patrol->PatrolRadius, 450.f);
	EXPECT_EQ(Patrol->GetParentNode(), Root);
	ASSERT_EQ(Root->Children[1].Decorators.Num(), 1);
	EXPECT_NE(Cast<UBTDecorator_Cooldown>(Root->Children[1].Decorators[0]), nullptr);
	for (const UBTNode* Node : TArray<const UBTNode*>{Root, Chase, Patrol, HasTarget})
	{
		EXPECT_EQ(Node->GetOuter(), Tree);
	}
}

TEST(BehaviorTreeAssets, NodesNameThemselvesAsTheEngineDoes)
{
	UObject* Outer = GetTransientPackage();
	// Defaults of the engine's own nodes; a name set on the node wins.
	const TArray<TPair<UBTNode*, FString>> Expected = {
		{ NewObject<UBTComposite_Selector>(Outer), TEXT("Selector") },
		{ NewObject<UBTComposite_Sequence>(Outer), TEXT("Sequence") },
		{ NewObject<UBTComposite_SimpleParallel>(Outer), TEXT("Simple Parallel") },
		{ NewObject<UBTTask_Wait>(Outer), TEXT("Wait") },
		{ NewObject<UBTTask_MoveTo>(Outer), TEXT("Move To") },
		{ NewObject<UBTTask_RunBehavior>(Outer), TEXT("Run Behavior") },
		{ NewObject<UBTDecorator_Blackboard>(Outer), TEXT("Blackboard Based Condition") },
		{ NewObject<UBTDecorator_Cooldown>(Outer), TEXT("Cooldown") },
		{ NewObject<UBTDecorator_Loop>(Outer), TEXT("Loop") },
		{ NewObject<UBTService_DefaultFocus>(Outer), TEXT("Set default focus") },
		// Without a name of its own a node is named after its class, past the first underscore.
		{ NewObject<UBTTask_TestPatrol>(Outer), TEXT("TestPatrol") },
	};
	for (const TPair<UBTNode*, FString>& Entry : Expected)
	{
		EXPECT_EQ(Entry.Key->GetNodeName(), Entry.Value) << TCHAR_TO_UTF8(*Entry.Key->GetClass()->GetName());
	}
	UBTTask_Wait* Renamed = NewObject<UBTTask_Wait>(Outer);
	Renamed->NodeName = TEXT("Catch Breath");
	EXPECT_EQ(Renamed->GetNodeName(), TEXT("Catch Breath"));

	EXPECT_EQ(UBehaviorTreeTypes::DescribeFlowAbortMode(EBTFlowAbortMode::None), TEXT("None"));
	EXPECT_EQ(UBehaviorTreeTypes::DescribeFlowAbortMode(EBTFlowAbortMode::LowerPriority), TEXT("Lower Priority"));
	EXPECT_EQ(UBehaviorTreeTypes::DescribeFlowAbortMode(EBTFlowAbortMode::Self), TEXT("Self"));
	EXPECT_EQ(UBehaviorTreeTypes::DescribeFlowAbortMode(EBTFlowAbortMode::Both), TEXT("Both"));

	// Only the properties meant for the details panel are editable, and Blueprint-visible only where
	// the engine makes them so.
	const FProperty* Inverse = UBTDecorator::StaticClass()->FindPropertyByName(FName(TEXT("bInverseCondition")));
	ASSERT_NE(Inverse, nullptr);
	EXPECT_TRUE(Inverse->HasAnyPropertyFlags(CPF_Edit));
	EXPECT_FALSE(Inverse->HasAnyPropertyFlags(CPF_BlueprintVisible));
	const FProperty* Parent = UBTNode::StaticClass()->FindPropertyByName(FName(TEXT("ParentNode")));
	ASSERT_NE(Parent, nullptr);
	EXPECT_FALSE(Parent->HasAnyPropertyFlags(CPF_Edit | CPF_BlueprintVisible | CPF_BlueprintReadOnly));
}

TEST(BehaviorTreeAssets, BlackboardParentsGiveTheirKeysFirstAndALoopEnds)
{
	UBlackboardData* Base = NewObject<UBlackboardData>();
	UBlackboardData* Middle = NewObject<UBlackboardData>();
	UBlackboardData* Child = NewObject<UBlackboardData>();
	Base->Keys.Add(MakeKey(TEXT("SelfActor"), NewObject<UBlackboardKeyType_Object>(Base)));
	Middle->Keys.Add(MakeKey(TEXT("Home"), nullptr));
	Child->Keys.Add(MakeKey(TEXT("Target"), nullptr));
	Middle->Parent = Base;
	Child->Parent = Middle;
	Child->UpdateParentKeys();
	ASSERT_EQ(Child->ParentKeys.Num(), 2);
	EXPECT_EQ(Child->ParentKeys[0].EntryName, FName(TEXT("SelfActor")));
	EXPECT_EQ(Child->GetNumKeys(), 3);
	EXPECT_NE(Child->FindKey(FName(TEXT("selfactor"))), nullptr);
	EXPECT_EQ(Child->FindKey(FName(TEXT("Nothing"))), nullptr);
	EXPECT_TRUE(Child->IsChildOf(*Base));
	EXPECT_FALSE(Base->IsChildOf(*Child));

	// A blackboard that is its own grandparent must not hang the editor.
	Base->Parent = Child;
	Child->UpdateParentKeys();
	EXPECT_EQ(Child->ParentKeys.Num(), 2);
	EXPECT_FALSE(Child->IsChildOf(*NewObject<UBlackboardData>()));
}
