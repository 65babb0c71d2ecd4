// Creating, compiling and saving Blueprints: the result texts, round trips through disk and GC, save-all.
#include "Agent/Agent.h"
#include "BlueprintUtilsTestSupport.h"
#include "BlueprintUtilsTestTypes.h"
#include "GameFramework/Actor.h"
#include "EdGraph/EdGraph.h"
#include "EdGraph/EdGraphNode.h"
#include "EdGraphSchema_K2.h"
#include "HAL/FileManager.h"
#include "K2Node_VariableGet.h"
#include "K2Node_VariableSet.h"
#include "Kismet2/BlueprintEditorUtils.h"

namespace
{
	/** Links a Boolean into a real input without asking the schema, as a broken asset could hold it. */
	void BreakShowcase(UBlueprint* Blueprint)
	{
		UEdGraph* Graph = FBlueprintEditorUtils::FindEventGraph(Blueprint);
		UEdGraphNode* Get = GetDefault<UEdGraphSchema_K2>()->SpawnVariableGetNode(FVector2D(0, 600), Graph, TEXT("bIsAlive"), Blueprint->SkeletonGeneratedClass);
		UEdGraphNode* Set = GetDefault<UEdGraphSchema_K2>()->SpawnVariableSetNode(FVector2D(300, 600), Graph, TEXT("Health"), Blueprint->SkeletonGeneratedClass);
		Get->FindPin(TEXT("bIsAlive"))->MakeLinkTo(Set->FindPin(TEXT("Health"), EGPD_Input));
		FBlueprintEditorUtils::MarkBlueprintAsModified(Blueprint);
	}

	TArray<TSharedPtr<FJsonValue>> ResultsOf(const TSharedPtr<FJsonObject>& Document)
	{
		return Document.IsValid() ? Document->GetArrayField(TEXT("BlueprintResults")) : TArray<TSharedPtr<FJsonValue>>();
	}
}

TEST_F(FBlueprintUtilsTest, CreateBlueprintFromNativeOrBlueprintParents)
{
	EXPECT_EQ(FTavrineBlueprintUtils::CreateBlueprintAsset(TEXT("/Game/Made"), TEXT("BP_Made"), TEXT("actor")), TEXT("Success: Blueprint 'BP_Made' created at '/Game/Made'."));
	UBlueprint* Made = FTavrineBlueprintUtils::GetBlueprintFromtBlueprintName(TEXT("BP_Made"));
	ASSERT_NE(Made, nullptr);
	EXPECT_EQ(Made->ParentClass.Get(), AActor::StaticClass());
	EXPECT_EQ(Made->GetPathName(), TEXT("/Game/Made/BP_Made.BP_Made"));
	EXPECT_EQ(FTavrineBlueprintUtils::CreateBlueprintAsset(TEXT("/Game/Made"), TEXT("BP_Made"), TEXT("Actor")), TEXT("Error: Failed to create Blueprint 'BP_Made' at '/Game/Made'. Check if the path is valid and the name is unique."));
	EXPECT_EQ(FTavrineBlueprintUtils::CreateBlueprintAsset(TEXT("/Game/Made"), TEXT("BP_Orphan"), TEXT("NoSuchParent")), TEXT("Error: Parent class 'NoSuchParent' not found or could not be loaded."));
	// A name that would break the asset's object path is refused, not made under a folder of its own.
	EXPECT_EQ(FTavrineBlueprintUtils::CreateBlueprintAsset(TEXT("/Game/Made"), TEXT("Doors/BP_Door"), TEXT("Actor")), TEXT("Error: Failed to create Blueprint 'Doors/BP_Door' at '/Game/Made'. Check if the path is valid and the name is unique."));
	EXPECT_EQ(FTavrineBlueprintUtils::CreateBlueprintAsset(TEXT("/Game/Made"), TEXT("BP:Door"), TEXT("Actor")), TEXT("Error: Failed to create Blueprint 'BP:Door' at '/Game/Made'. Check if the path is valid and the name is unique."));

	// A Blueprint parent named by its asset, saved and no longer in memory: found through the registry's tag.
	UBlueprint* Showcase = FSampleBlueprintBuilder::MakeShowcase(Asset(TEXT("BP_Showcase")));
	ASSERT_NE(Showcase, nullptr);
	ASSERT_TRUE(FSampleBlueprintBuilder::Save(Showcase));
	Forget(Showcase);
	EXPECT_EQ(FTavrineBlueprintUtils::CreateBlueprintAsset(TEXT("/Game/Made"), TEXT("BP_Derived"), TEXT("bp_showcase")), TEXT("Success: Blueprint 'BP_Derived' created at '/Game/Made'."));
	UBlueprint* Derived = FTavrineBlueprintUtils::GetBlueprintFromtBlueprintName(TEXT("BP_Derived"));
	ASSERT_NE(Derived, nullptr);
	EXPECT_EQ(Derived->ParentClass->GetName(), TEXT("BP_Showcase_C"));
	EXPECT_EQ(Condensed(FTavrineBlueprintUtils::CompileBlueprint(Derived)), TEXT(R"({"Success":"Blueprint '/Game/Made/BP_Derived.BP_Derived' compiled successfully."})"));
	SetFilter(ETavrineBlueprintContentFilter::UseOnlyBlueprintClassContent);
	EXPECT_TRUE(ParseJson(FTavrineBlueprintUtils::ReadBlueprint(TEXT("BP_Derived"), TEXT("Variables")))->GetObjectField(TEXT("Variables"))->HasField(TEXT("Health")));
}

TEST_F(FBlueprintUtilsTest, DocumentSurvivesSaveGarbageCollectionAndLoad)
{
	UBlueprint* Showcase = FSampleBlueprintBuilder::MakeShowcase(Asset(TEXT("BP_Showcase")));
	ASSERT_NE(Showcase, nullptr);
	ASSERT_NE(FSampleBlueprintBuilder::MakeChild(Asset(TEXT("BP_ShowcaseChild")), Showcase), nullptr);
	const FString Before = FTavrineBlueprintUtils::ReadBlueprint(TEXT("BP_Showcase"), TEXT("All"));
	const FString ChildBefore = FTavrineBlueprintUtils::ReadBlueprint(TEXT("BP_ShowcaseChild"), TEXT("All"));

	EXPECT_EQ(Condensed(FTavrineBlueprintUtils::SaveBlueprint(Showcase)), TEXT(R"({"Success":"Blueprint '/Game/Blueprints/BP_Showcase.BP_Showcase' saved successfully."})"));
	UBlueprint* Child = FTavrineBlueprintUtils::GetBlueprintFromtBlueprintName(TEXT("BP_ShowcaseChild"));
	EXPECT_TRUE(ParseJson(FTavrineBlueprintUtils::SaveBlueprint(Child))->HasField(TEXT("Success")));
	// One collection for both: the first would free the parent that the second still names.
	Forget(Child, false);
	Forget(Showcase);
	ASSERT_EQ(FindObject<UBlueprint>(nullptr, TEXT("/Game/Blueprints/BP_Showcase.BP_Showcase")), nullptr);

	// Loaded afresh (the child loads its parent through its class chain), the documents are the same.
	EXPECT_EQ(FTavrineBlueprintUtils::ReadBlueprint(TEXT("BP_ShowcaseChild"), TEXT("All")), ChildBefore);
	EXPECT_EQ(FTavrineBlueprintUtils::ReadBlueprint(TEXT("BP_Showcase"), TEXT("All")), Before);
	CollectGarbage(RF_NoFlags);
	EXPECT_EQ(FTavrineBlueprintUtils::ReadBlueprint(TEXT("BP_Showcase"), TEXT("All")), Before);
}

TEST_F(FBlueprintUtilsTest, CompileAndSaveReportFailures)
{
	UObject* NotABlueprint = NewObject<UBlueprintUtilsTestMarker>();
	EXPECT_EQ(Condensed(FTavrineBlueprintUtils::CompileBlueprint(NotABlueprint)), TEXT(R"({"Error":"Provided asset is not a valid Blueprint."})"));
	EXPECT_EQ(Condensed(FTavrineBlueprintUtils::SaveBlueprint(nullptr)), TEXT(R"({"Error":"Provided asset is not a valid Blueprint."})"));

	UBlueprint* Showcase = FSampleBlueprintBuilder::MakeShowcase(Asset(TEXT("BP_Showcase")));
	ASSERT_NE(Showcase, nullptr);
	BreakShowcase(Showcase);
	EXPECT_EQ(Condensed(FTavrineBlueprintUtils::CompileBlueprint(Showcase)), TEXT(R"({"Error":"Failed to compile Blueprint '/Game/Blueprints/BP_Showcase.BP_Showcase'."})"));
	EXPECT_NE(Showcase->Status, BS_UpToDate);

	// Warnings are a failure too: a default value that doesn't read as its type.
	UBlueprint* Warned = FSampleBlueprintBuilder::CreateBlueprint(Asset(TEXT("BP_Warned")), AActor::StaticClass());
	ASSERT_NE(Warned, nullptr);
	FBlueprintEditorUtils::AddMemberVariable(Warned, TEXT("Count"), FSampleBlueprintBuilder::MakePinType(UEdGraphSchema_K2::PC_Int), TEXT("lots"));
	EXPECT_EQ(Condensed(FTavrineBlueprintUtils::CompileBlueprint(Warned)), TEXT(R"({"Error":"Failed to compile Blueprint '/Game/Blueprints/BP_Warned.BP_Warned'."})"));
	EXPECT_EQ(Warned->Status, BS_UpToDateWithWarnings);

	// A folder where the file should go makes the save fail.
	UBlueprint* Blocked = FSampleBlueprintBuilder::MakeChild(Asset(TEXT("BP_Blocked")), Showcase);
	ASSERT_NE(Blocked, nullptr);
	IFileManager::Get().MakeDirectory(*Project->ContentFile(TEXT("Blueprints/BP_Blocked.uasset")), true);
	EXPECT_EQ(Condensed(FTavrineBlueprintUtils::SaveBlueprint(Blocked)), TEXT(R"({"Error":"Failed to save Blueprint asset: /Game/Blueprints/BP_Blocked.BP_Blocked"})"));

	// A package under no mounted root has no file to go to: the save fails and writes nothing anywhere.
	UBlueprint* Stray = FSampleBlueprintBuilder::CreateBlueprint(TEXT("/TavrineUnmounted/BP_Stray"), AActor::StaticClass());
	ASSERT_NE(Stray, nullptr);
	EXPECT_EQ(Condensed(FTavrineBlueprintUtils::SaveBlueprint(Stray)), TEXT(R"({"Error":"Failed to save Blueprint asset: /TavrineUnmounted/BP_Stray.BP_Stray"})"));
	EXPECT_FALSE(IFileManager::Get().DirectoryExists(TEXT("/TavrineUnmounted")));
	Forget(Stray);
}

TEST_F(FBlueprintUtilsTest, SaveAndCompileAllDirtyBlueprints)
{
	EXPECT_EQ(Condensed(FTavrineBlueprintUtils::SaveAndCompileAllDirtyBlueprints()), TEXT(R"({"BlueprintResults":[],"Success":"All dirty Blueprints were processed successfully."})"));

	UBlueprint* Showcase = FSampleBlueprintBuilder::MakeShowcase(Asset(TEXT("BP_Showcase")));
	ASSERT_NE(Showcase, nullptr);
	ASSERT_NE(FSampleBlueprintBuilder::MakeAnimBlueprint(Asset(TEXT("ABP_Hero"))), nullptr);
	const TSharedPtr<FJsonObject> AllGood = ParseJson(FTavrineBlueprintUtils::SaveAndCompileAllDirtyBlueprints());
	ASSERT_EQ(ResultsOf(AllGood).Num(), 1);
	EXPECT_EQ(Condensed(ResultsOf(AllGood)[0]->AsObject()), TEXT(R"({"BlueprintPath":"/Game/Blueprints/BP_Showcase.BP_Showcase","SaveResult":"Blueprint '/Game/Blueprints/BP_Showcase.BP_Showcase' saved successfully.","CompileResult":"Blueprint '/Game/Blueprints/BP_Showcase.BP_Showcase' compiled successfully."})"));
	EXPECT_TRUE(AllGood->HasField(TEXT("Success")));
	// Saved now: nothing left to do.
	EXPECT_EQ(ResultsOf(ParseJson(FTavrineBlueprintUtils::SaveAndCompileAllDirtyBlueprints())).Num(), 0);

	// One saves but won't compile, one won't save but compiles: both are reported, and the document fails.
	BreakShowcase(Showcase);
	Showcase->GetOutermost()->MarkPackageDirty();
	UBlueprint* Blocked = FSampleBlueprintBuilder::MakeChild(Asset(TEXT("BP_Blocked")), FSampleBlueprintBuilder::MakeShowcase(Asset(TEXT("BP_Healthy"))));
	ASSERT_NE(Blocked, nullptr);
	IFileManager::Get().MakeDirectory(*Project->ContentFile(TEXT("Blueprints/BP_Blocked.uasset")), true);
	const TSharedPtr<FJsonObject> Mixed = ParseJson(FTavrineBlueprintUtils::SaveAndCompileAllDirtyBlueprints());
	ASSERT_TRUE(Mixed.IsValid());
	EXPECT_EQ(Mixed->GetStringField(TEXT("Error")), TEXT("Some Blueprints failed to save or compile."));
	EXPECT_FALSE(Mixed->HasField(TEXT("Success")));
	TMap<FString, TArray<FString>> KeysByPath;
	for (const TSharedPtr<FJsonValue>& Entry : ResultsOf(Mixed))
	{
		TArray<FString> Keys;
		Entry->AsObject()->Values.GetKeys(Keys);
		KeysByPath.Add(Entry->AsObject()->GetStringField(TEXT("BlueprintPath")), Keys);
	}
	EXPECT_EQ(KeysByPath.FindRef(TEXT("/Game/Blueprints/BP_Showcase.BP_Showcase")), TArray<FString>({ TEXT("BlueprintPath"), TEXT("SaveResult"), TEXT("CompileError") }));
	EXPECT_EQ(KeysByPath.FindRef(TEXT("/Game/Blueprints/BP_Blocked.BP_Blocked")), TArray<FString>({ TEXT("BlueprintPath"), TEXT("SaveError"), TEXT("CompileResult") }));
	EXPECT_TRUE(KeysByPath.Contains(TEXT("/Game/Blueprints/BP_Healthy.BP_Healthy")));
}

TEST_F(FBlueprintUtilsTest, ToolRowsCheckTheirArguments)
{
	ASSERT_NE(FSampleBlueprintBuilder::MakeShowcase(Asset(TEXT("BP_Showcase"))), nullptr);
	FAgent& Agent = FAgent::Get();
	auto Run = [&Agent](const TCHAR* Tool, const TCHAR* Input)
	{
		FString Out;
		Agent.RunTool(Out, Tool, TEXT("id"), ParseJson(Input));
		return Out;
	};
	EXPECT_EQ(Run(TEXT("create_blueprint"), TEXT(R"({"BPPath": "/Game/Made", "BPName": "BP_Made"})")), TEXT("Error: Missing required fields"));
	EXPECT_EQ(Run(TEXT("read_blueprint"), TEXT(R"({"data_subset": "All"})")), TEXT("Error: Missing required fields: blueprint_name"));
	EXPECT_EQ(Run(TEXT("read_blueprint"), TEXT(R"({"blueprint_name": "BP_Showcase"})")), TEXT("Error: Missing required fields: data_subset"));
	EXPECT_EQ(Run(TEXT("Read_Blueprint"), TEXT(R"({"blueprint_name": "BP_Showcase", "data_subset": "Variables"})")), FTavrineBlueprintUtils::ReadBlueprint(TEXT("BP_Showcase"), TEXT("Variables")));
	EXPECT_EQ(Run(TEXT("create_blueprint"), TEXT(R"({"BPPath": "/Game/Made", "BPName": "BP_Made", "BPParentClassName": "BP_Showcase"})")), TEXT("Success: Blueprint 'BP_Made' created at '/Game/Made'."));
	EXPECT_EQ(ResultsOf(ParseJson(Run(TEXT("save_and_compile_all_dirty_blueprints"), TEXT("{}")))).Num(), 2);
}
