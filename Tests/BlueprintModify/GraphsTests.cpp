// The "Graphs" section, and undoing a whole modification.
#include "BlueprintModifyTestSupport.h"

TEST_F(FBlueprintModifyTest, SampleGraphSectionAddsAnEventGraphPage)
{
	UBlueprint* Blueprint = MakeShowcase();
	ASSERT_NE(Blueprint, nullptr);
	EXPECT_EQ(Modify(TEXT("BP_Showcase"), Seed(TEXT("graphs-sample.json"))),
		TEXT(R"({"GraphModifications":["Created new graph: DoorLogic of type EventGraph"],"Success":"Blueprint modified, compiled, and saved successfully."})"));
	const UEdGraph* DoorLogic = FindGraph(Blueprint->UbergraphPages, TEXT("DoorLogic"));
	ASSERT_NE(DoorLogic, nullptr);
	ASSERT_EQ(CountNodes(DoorLogic), 1);
	EXPECT_EQ(DoorLogic->Nodes[0]->NodePosY, 200);
	EXPECT_TRUE(FindEntry(ReadAll(TEXT("BP_Showcase"))->GetArrayField(TEXT("Graphs")), TEXT("Name"), TEXT("DoorLogic")).IsValid());

	// An existing page is found in any case; nodes under "EdGraph" are not read here; only "EventGraph"
	// is a type; function graphs are not searched, so a function's name gives a new page.
	EXPECT_EQ(Modify(TEXT("BP_Showcase"), TEXT(R"({"Graphs": [
			{ "Name": "doorlogic", "Type": "eventGRAPH", "EdGraph": { "Nodes": [ { "Class": "UK2Node_VariableGet", "Properties": { "VariableName": "Health" } } ] } },
			{ "Name": "Anim", "Type": "AnimGraph" },
			{ "Name": "NoType" },
			"DoorLogic",
			{ "Name": "ApplyDamage", "Type": "EventGraph" }
		]})")),
		TEXT(R"({"GraphModifications":["Modified existing graph: doorlogic","Invalid graph type: AnimGraph","Graph entry missing 'Name' or 'Type' field.","Graph entry missing 'Name' or 'Type' field.","Failed to create graph: ApplyDamage"],"Message":"No modifications were made to the Blueprint."})"));
	EXPECT_EQ(CountNodes(DoorLogic), 1);
	EXPECT_EQ(FindGraph(Blueprint->UbergraphPages, TEXT("Anim")), nullptr);
}

TEST_F(FBlueprintModifyTest, UndoGivesBackTheBlueprintBeforeTheModification)
{
	UBlueprint* Blueprint = MakeShowcase();
	ASSERT_NE(Blueprint, nullptr);
	const FString Before = Condensed(ReadAll(TEXT("BP_Showcase")));

	const FString Answer = Modify(TEXT("BP_Showcase"), Seed(TEXT("all-sections.json")));
	ASSERT_EQ(ParseJson(Answer)->GetStringField(TEXT("Success")), TEXT("Blueprint modified, compiled, and saved successfully."));
	ASSERT_NE(Condensed(ReadAll(TEXT("BP_Showcase"))), Before);

	ASSERT_TRUE(GEditor->UndoTransaction());
	EXPECT_EQ(Condensed(ReadAll(TEXT("BP_Showcase"))), Before);
	EXPECT_EQ(FindVariable(Blueprint, TEXT("Shield")), nullptr);
	EXPECT_EQ(FindGraph(Blueprint->FunctionGraphs, TEXT("Recharge")), nullptr);
	EXPECT_EQ(FindGraph(Blueprint->UbergraphPages, TEXT("Shields")), nullptr);

	// The undone state is unsaved; saving all dirty Blueprints writes it, and it loads as it was.
	const TSharedPtr<FJsonObject> SaveAll = ParseJson(FTavrineBlueprintUtils::SaveAndCompileAllDirtyBlueprints());
	ASSERT_TRUE(SaveAll.IsValid());
	EXPECT_TRUE(FindEntry(SaveAll->GetArrayField(TEXT("BlueprintResults")), TEXT("BlueprintPath"), TEXT("/Game/Blueprints/BP_Showcase.BP_Showcase")).IsValid());
	Forget(Blueprint);
	EXPECT_EQ(Condensed(ReadAll(TEXT("BP_Showcase"))), Before);
}
