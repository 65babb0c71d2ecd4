// The behaviour tree reader: the document of a saved tree as the backend gets it, the content filter on
// node properties, the lookups that fail, and the tool row.
#include "BehaviorTreeTestTrees.h"
#include "ObjectTestSupport.h"
#include "Agent/Agent.h"
#include "Agent/BlueprintUtils.h"
#include "Agent/TavrineInterface.h"
#include "AssetRegistry/AssetRegistryModule.h"
#include "Modules/ModuleManager.h"
#include "Serialization/JsonReader.h"
#include "Serialization/JsonSerializer.h"
#include "TavrineSettings.h"
#include "CoreTestPrinters.h"
#include <gtest/gtest.h>

using namespace BehaviorTreeTestTrees;

namespace
{
	const FString TempRoot(TEXT(BEHAVIOR_TREE_TESTS_TEMP_DIR));

	TArray<FString> KeysOf(const TSharedPtr<FJsonObject>& Object)
	{
		TArray<FString> Keys;
		for (const auto& Field : Object->Values)
		{
			Keys.Add(Field.Key);
		}
		return Keys;
	}

	TSharedPtr<FJsonObject> Read(const FString& Name)
	{
		TSharedPtr<FJsonObject> Document;
		FJsonSerializer::Deserialize(TJsonReaderFactory<>::Create(FTavrineBlueprintUtils::ReadBehaviorTree(Name)), Document);
		return Document;
	}

	TSharedPtr<FJsonObject> At(const TSharedPtr<FJsonObject>& Object, const TCHAR* ArrayKey, int32 Index)
	{
		return Object->GetArrayField(ArrayKey)[Index]->AsObject();
	}

	class ReadBehaviorTreeTest : public ::testing::Test
	{
	protected:
		ReadBehaviorTreeTest()
			: Project(TempRoot, *FString(::testing::UnitTest::GetInstance()->current_test_info()->name()))
		{
		}

		void SetUp() override
		{
			Guard = MakeGuardTree();
			ASSERT_TRUE(SaveTestPackage(Guard.Blackboard->GetOutermost(), Guard.Blackboard));
			ASSERT_TRUE(SaveTestPackage(Guard.Tree->GetOutermost(), Guard.Tree));
			FModuleManager::LoadModuleChecked<FAssetRegistryModule>(TEXT("AssetRegistry")).Get().SearchAllAssets(true);
		}

		void TearDown() override
		{
			GetMutableDefault<UTavrineSettings>()->BlueprintContentFilter = ETavrineBlueprintContentFilter::UseOnlyBlueprintVisibleContent;
		}

		FObjectTestProject Project;
		FGuardTree Guard;
	};
}

TEST_F(ReadBehaviorTreeTest, GuardTreeDocumentWithBlackboardKeysAndNodes)
{
	const TSharedPtr<FJsonObject> Document = Read(TEXT("bt_guard"));
	ASSERT_TRUE(Document.IsValid());
	EXPECT_EQ(KeysOf(Document), (TArray<FString>{TEXT("Name"), TEXT("Path"), TEXT("Blackboard"), TEXT("RootNode")}));
	EXPECT_EQ(Document->GetStringField(TEXT("Name")), TEXT("BT_Guard"));
	EXPECT_EQ(Document->GetStringField(TEXT("Path")), TEXT("/Game/AI/BT_Guard.BT_Guard"));

	const TSharedPtr<FJsonObject> Blackboard = Document->GetObjectField(TEXT("Blackboard"));
	EXPECT_EQ(KeysOf(Blackboard), (TArray<FString>{TEXT("Name"), TEXT("Path"), TEXT("Keys")}));
	EXPECT_EQ(Blackboard->GetStringField(TEXT("Path")), TEXT("/Game/AI/BB_Guard.BB_Guard"));
	const TArray<TSharedPtr<FJsonValue>>& Keys = Blackboard->GetArrayField(TEXT("Keys"));
	ASSERT_EQ(Keys.Num(), 6);
	const TSharedPtr<FJsonObject> Target = Keys[0]->AsObject();
	EXPECT_EQ(KeysOf(Target), (TArray<FString>{TEXT("Name"), TEXT("IsInstanceSynced"), TEXT("Type"), TEXT("BaseClass")}));
	EXPECT_EQ(Target->GetStringField(TEXT("Type")), TEXT("BlackboardKeyType_Object"));
	EXPECT_EQ(Target->GetStringField(TEXT("BaseClass")), TEXT("Actor"));
	EXPECT_FALSE(Target->GetBoolField(TEXT("IsInstanceSynced")));
	EXPECT_TRUE(Keys[1]->AsObject()->GetBoolField(TEXT("IsInstanceSynced")));
	EXPECT_EQ(Keys[1]->AsObject()->GetStringField(TEXT("EnumType")), TEXT("EGuardAlertness"));
	// An enum key without an enum says so; a native enum key without one would say nothing.
	EXPECT_EQ(Keys[2]->AsObject()->GetStringField(TEXT("EnumType")), TEXT("None"));
	EXPECT_EQ(Keys[3]->AsObject()->GetStringField(TEXT("Type")), TEXT("BlackboardKeyType_NativeEnum"));
	EXPECT_EQ(Keys[3]->AsObject()->GetStringField(TEXT("EnumType")), TEXT("EGuardAlertness"));
	EXPECT_EQ(KeysOf(Keys[4]->AsObject()), (TArray<FString>{TEXT("Name"), TEXT("IsInstanceSynced"), TEXT("Type")}));
	EXPECT_EQ(KeysOf(Keys[5]->AsObject()), (TArray<FString>{TEXT("Name"), TEXT("IsInstanceSynced")}));

	// The root: decorators of its children, child by child, then its own service; then the children.
	const TSharedPtr<FJsonObject> Root = Document->GetObjectField(TEXT("RootNode"));
	EXPECT_EQ(KeysOf(Root), (TArray<FString>{TEXT("Type"), TEXT("NodeName"), TEXT("Properties"), TEXT("NodeType"), TEXT("AuxiliaryNodes"), TEXT("Children")}));
	EXPECT_EQ(Root->GetStringField(TEXT("Type")), TEXT("BTComposite_Selector"));
	EXPECT_EQ(Root->GetStringField(TEXT("NodeName")), TEXT("Selector"));
	EXPECT_EQ(Root->GetStringField(TEXT("NodeType")), TEXT("Composite"));
	const TArray<TSharedPtr<FJsonValue>>& Auxiliary = Root->GetArrayField(TEXT("AuxiliaryNodes"));
	ASSERT_EQ(Auxiliary.Num(), 4);
	const TSharedPtr<FJsonObject> HasTarget = Auxiliary[0]->AsObject();
	EXPECT_EQ(KeysOf(HasTarget), (TArray<FString>{TEXT("Type"), TEXT("NodeName"), TEXT("Properties")}));
	EXPECT_EQ(HasTarget->GetStringField(TEXT("NodeName")), TEXT("Blackboard Based Condition"));
	const TSharedPtr<FJsonObject> CanSee = Auxiliary[1]->AsObject();
	EXPECT_EQ(KeysOf(CanSee), (TArray<FString>{TEXT("Type"), TEXT("NodeName"), TEXT("NodeType"), TEXT("IsInversed"), TEXT("FlowAbortMode"), TEXT("Properties")}));
	EXPECT_EQ(CanSee->GetStringField(TEXT("NodeType")), TEXT("Decorator"));
	EXPECT_TRUE(CanSee->GetBoolField(TEXT("IsInversed")));
	EXPECT_EQ(CanSee->GetStringField(TEXT("FlowAbortMode")), TEXT("Both"));
	EXPECT_EQ(Auxiliary[2]->AsObject()->GetStringField(TEXT("Type")), TEXT("BTDecorator_Cooldown"));
	EXPECT_EQ(Auxiliary[3]->AsObject()->GetStringField(TEXT("NodeName")), TEXT("Set default focus"));

	const TArray<TSharedPtr<FJsonValue>>& Children = Root->GetArrayField(TEXT("Children"));
	ASSERT_EQ(Children.Num(), 2);
	const TSharedPtr<FJsonObject> Chase = Children[0]->AsObject();
	EXPECT_EQ(Chase->GetStringField(TEXT("NodeName")), TEXT("Chase"));
	ASSERT_EQ(Chase->GetArrayField(TEXT("AuxiliaryNodes")).Num(), 1);
	const TSharedPtr<FJsonObject> Scan = At(Chase, TEXT("AuxiliaryNodes"), 0);
	EXPECT_EQ(KeysOf(Scan), (TArray<FString>{TEXT("Type"), TEXT("NodeName"), TEXT("NodeType"), TEXT("ServiceName"), TEXT("Properties")}));
	EXPECT_EQ(Scan->GetStringField(TEXT("ServiceName")), TEXT("TestScan"));
	ASSERT_EQ(Chase->GetArrayField(TEXT("Children")).Num(), 2);
	const TSharedPtr<FJsonObject> MoveTo = At(Chase, TEXT("Children"), 0);
	EXPECT_EQ(KeysOf(MoveTo), (TArray<FString>{TEXT("Type"), TEXT("NodeName"), TEXT("Properties")}));
	EXPECT_EQ(MoveTo->GetStringField(TEXT("NodeName")), TEXT("Move To"));
	EXPECT_EQ(At(Chase, TEXT("Children"), 1)->GetStringField(TEXT("Type")), TEXT("BTTask_Wait"));

	// A Blueprint task names its parent composite.
	const TSharedPtr<FJsonObject> Patrol = Children[1]->AsObject();
	EXPECT_EQ(KeysOf(Patrol), (TArray<FString>{TEXT("Type"), TEXT("NodeName"), TEXT("NodeType"), TEXT("ParentNode"), TEXT("Properties")}));
	EXPECT_EQ(Patrol->GetStringField(TEXT("NodeType")), TEXT("Task"));
	EXPECT_EQ(Patrol->GetStringField(TEXT("ParentNode")), TEXT("Selector"));

	// The node's own values, under the default filter: what the details panel or a Blueprint sees.
	const TSharedPtr<FJsonObject> Properties = Patrol->GetObjectField(TEXT("Properties"));
	ASSERT_TRUE(Properties->HasField(TEXT("PatrolRadius")));
	EXPECT_EQ(Properties->GetObjectField(TEXT("PatrolRadius"))->GetStringField(TEXT("Value")), TEXT("450.000000"));
	EXPECT_TRUE(Properties->GetObjectField(TEXT("PatrolRadius"))->HasField(TEXT("Type")));
	EXPECT_TRUE(Properties->HasField(TEXT("NodeName")));
	EXPECT_FALSE(Properties->HasField(TEXT("VisitedPoints")));
	EXPECT_FALSE(Properties->HasField(TEXT("ParentNode")));
}

TEST_F(ReadBehaviorTreeTest, ContentFilterDecidesWhichNodePropertiesShow)
{
	auto PatrolProperties = []()
	{
		return Read(TEXT("BT_Guard"))->GetObjectField(TEXT("RootNode"))->GetArrayField(TEXT("Children"))[1]->AsObject()->GetObjectField(TEXT("Properties"));
	};
	GetMutableDefault<UTavrineSettings>()->BlueprintContentFilter = ETavrineBlueprintContentFilter::UseAllContent;
	const TSharedPtr<FJsonObject> All = PatrolProperties();
	EXPECT_TRUE(All->HasField(TEXT("VisitedPoints")));
	EXPECT_TRUE(All->HasField(TEXT("ParentNode")));
	// Classes not made from a Blueprint show nothing under the class filter, but the member stays.
	GetMutableDefault<UTavrineSettings>()->BlueprintContentFilter = ETavrineBlueprintContentFilter::UseOnlyBlueprintClassContent;
	EXPECT_EQ(PatrolProperties()->Values.Num(), 0);
}

TEST_F(ReadBehaviorTreeTest, MissingTreesAndBareTreesKeepToTheirKeys)
{
	EXPECT_EQ(FTavrineBlueprintUtils::ReadBehaviorTree(TEXT("BT_Nobody")), FTavrineBlueprintUtils::SerializeJson(Read(TEXT("BT_Nobody"))));
	EXPECT_EQ(Read(TEXT("BT_Nobody"))->GetStringField(TEXT("Error")), TEXT("BehaviorTree 'BT_Nobody' not found."));
	// A path or an object path is not a name.
	EXPECT_TRUE(Read(TEXT("/Game/AI/BT_Guard"))->HasField(TEXT("Error")));
	EXPECT_TRUE(Read(TEXT("BT_Guard.BT_Guard"))->HasField(TEXT("Error")));

	UBehaviorTree* Bare = MakeAsset<UBehaviorTree>(TEXT("/Game/AI/BT_Bare"));
	ASSERT_TRUE(SaveTestPackage(Bare->GetOutermost(), Bare));
	UBehaviorTree* Leaf = MakeAsset<UBehaviorTree>(TEXT("/Game/AI/BT_Leaf"));
	Leaf->RootNode = NewObject<UBTComposite_Sequence>(Leaf);
	ASSERT_TRUE(SaveTestPackage(Leaf->GetOutermost(), Leaf));
	FModuleManager::LoadModuleChecked<FAssetRegistryModule>(TEXT("AssetRegistry")).Get().SearchAllAssets(true);
	EXPECT_EQ(KeysOf(Read(TEXT("BT_Bare"))), (TArray<FString>{TEXT("Name"), TEXT("Path")}));
	// A composite without children, decorators or services has neither array.
	const TSharedPtr<FJsonObject> LeafRoot = Read(TEXT("BT_Leaf"))->GetObjectField(TEXT("RootNode"));
	EXPECT_EQ(KeysOf(LeafRoot), (TArray<FString>{TEXT("Type"), TEXT("NodeName"), TEXT("Properties"), TEXT("NodeType")}));

	// The tool row: its status first, then the key it needs.
	TArray<FString> Chat;
	const FDelegateHandle ChatHandle = FTavrineInterface::Get().OnAddStatusMessageDelegate.AddLambda([&Chat](const FString& Text, const FLinearColor&, const FName&, float)
	{
		Chat.Add(Text);
	});
	FString Out;
	FAgent::Get().RunTool(Out, TEXT("read_behavior_tree"), TEXT("t1"), MakeShared<FJsonObject>());
	EXPECT_EQ(Out, TEXT("Error: Missing required fields"));
	const TSharedRef<FJsonObject> Input = MakeShared<FJsonObject>();
	Input->SetStringField(TEXT("behavior_tree_name"), TEXT("BT_Leaf"));
	FAgent::Get().RunTool(Out, TEXT("READ_BEHAVIOR_TREE"), TEXT("t2"), Input);
	FTavrineInterface::Get().OnAddStatusMessageDelegate.Remove(ChatHandle);
	EXPECT_EQ(Out, FTavrineBlueprintUtils::ReadBehaviorTree(TEXT("BT_Leaf")));
	EXPECT_EQ(Chat, (TArray<FString>{TEXT("Reading Behavior Tree File ..."), TEXT("Reading Behavior Tree File ...")}));
}
