// The modification frame and the "Variables" section: answers, flags, replication, failures per entry.
#include "BlueprintModifyTestSupport.h"
#include "Agent/Agent.h"
#include "UObject/UnrealType.h"

namespace
{
	const TCHAR* const Unchanged = TEXT(R"({"Message":"No modifications were made to the Blueprint."})");
}

TEST_F(FBlueprintModifyTest, SampleDocumentMakesAReplicatedVariableAndAFunction)
{
	UBlueprint* Blueprint = MakeEmpty(TEXT("BP_Target"));
	ASSERT_NE(Blueprint, nullptr);
	EXPECT_EQ(Modify(TEXT("bp_target"), Seed(TEXT("variables-sample.json"))),
		TEXT(R"({"VariableModifications":["Created new variable: Health"],"FunctionModifications":["Created new function: Heal","Modified existing function: Heal"],"Success":"Blueprint modified, compiled, and saved successfully."})"));

	// One transaction, named for the conversation's undo.
	const FTransaction* Last = GEditor->Trans->GetTransaction(GEditor->Trans->GetQueueLength() - 1);
	ASSERT_NE(Last, nullptr);
	EXPECT_EQ(Last->GetTitle().ToString(), TEXT("Tavrine Transaction ") + FAgent::Get().GetConversationId());

	const FBPVariableDescription* Health = FindVariable(Blueprint, TEXT("Health"));
	ASSERT_NE(Health, nullptr);
	const uint64 Wanted = CPF_Edit | CPF_BlueprintVisible | CPF_Net | CPF_RepNotify | CPF_ExposeOnSpawn | CPF_SaveGame;
	EXPECT_EQ(Health->PropertyFlags & Wanted, Wanted);
	EXPECT_EQ(Health->PropertyFlags & CPF_DisableEditOnInstance, 0u);
	EXPECT_EQ(Health->Category.ToString(), TEXT("Stats"));
	EXPECT_EQ(Health->GetMetaData(TEXT("Tooltip")), TEXT("Current health"));
	EXPECT_EQ(Health->DefaultValue, TEXT("100.0"));
	EXPECT_EQ(Health->RepNotifyFunc, FName(TEXT("OnRep_Health")));
	EXPECT_NE(FindGraph(Blueprint->FunctionGraphs, TEXT("OnRep_Health")), nullptr);
	EXPECT_NE(FindGraph(Blueprint->FunctionGraphs, TEXT("Heal")), nullptr);

	// Compiled and saved: the class has the property with its default, and the file is up to date.
	EXPECT_TRUE(Blueprint->IsUpToDate());
	EXPECT_FALSE(Blueprint->GetOutermost()->IsDirty());
	EXPECT_FALSE(SavedFile(Blueprint).IsEmpty());
	const FProperty* Property = Blueprint->GeneratedClass->FindPropertyByName(TEXT("Health"));
	ASSERT_NE(Property, nullptr);
	EXPECT_EQ(FBlueprintUtilsTestAccess::ValueText(Blueprint->GeneratedClass->GetDefaultObject(), Property), TEXT("100.000000"));

	// The same document again changes the existing variable only: no creation message, and the
	// notification function is left as it is.
	UEdGraph* OnRep = FindGraph(Blueprint->FunctionGraphs, TEXT("OnRep_Health"));
	const int32 OnRepNodes = CountNodes(OnRep);
	EXPECT_EQ(Modify(TEXT("BP_Target"), Seed(TEXT("variables-sample.json"))),
		TEXT(R"({"FunctionModifications":["Modified existing function: Heal"],"Success":"Blueprint modified, compiled, and saved successfully."})"));
	EXPECT_EQ(FindGraph(Blueprint->FunctionGraphs, TEXT("OnRep_Health")), OnRep);
	EXPECT_EQ(CountNodes(OnRep), OnRepNodes);
}

TEST_F(FBlueprintModifyTest, FrameAnswersWithoutTouchingTheBlueprint)
{
	UBlueprint* Blueprint = MakeShowcase();
	ASSERT_NE(Blueprint, nullptr);
	const int32 QueueBefore = GEditor->Trans->GetQueueLength();
	const FString Saved = SavedFile(Blueprint);

	EXPECT_EQ(Modify(TEXT("BP_Showcase"), TEXT("{ not json")), TEXT(R"({"Error":"Failed to parse modification JSON."})"));
	EXPECT_EQ(Modify(TEXT("BP_Showcase"), TEXT("[1, 2]")), TEXT(R"({"Error":"Failed to parse modification JSON."})"));
	EXPECT_EQ(Modify(TEXT("BP_Nowhere"), TEXT("{}")), TEXT(R"({"Error":"Blueprint 'BP_Nowhere' not found."})"));
	EXPECT_EQ(GEditor->Trans->GetQueueLength(), QueueBefore);

	// Sections of the wrong kind, empty sections and unknown keys change nothing: nothing is compiled or saved.
	EXPECT_EQ(Modify(TEXT("BP_Showcase"), TEXT("{}")), Unchanged);
	EXPECT_EQ(Modify(TEXT("BP_Showcase"), TEXT(R"({"Variables": [], "Functions": {}, "Graphs": "EventGraph", "Components": [ { "Name": "Mesh" } ]})")), Unchanged);
	EXPECT_EQ(Modify(TEXT("BP_Showcase"), TEXT(R"({"Variables": {}, "Functions": [], "Graphs": []})")), Unchanged);
	EXPECT_EQ(Modify(TEXT("BP_Showcase"), TEXT(R"({"Variables": { "Health": {} }})")), Unchanged);
	EXPECT_EQ(SavedFile(Blueprint), Saved);

	// An existing function without nodes is reported, but is no change either.
	EXPECT_EQ(Modify(TEXT("BP_Showcase"), TEXT(R"({"Functions": [ { "Name": "applydamage", "InParams": [ { "Name": "Extra", "Type": "IntProperty" } ] } ]})")),
		TEXT(R"({"FunctionModifications":["Modified existing function: applydamage"],"Message":"No modifications were made to the Blueprint."})"));

}

TEST_F(FBlueprintModifyTest, BadVariableEntriesEndOnlyThemselves)
{
	UBlueprint* Blueprint = MakeShowcase();
	ASSERT_NE(Blueprint, nullptr);
	const FEdGraphPinType ScoreType = FindVariable(Blueprint, TEXT("Score"))->VarType;
	EXPECT_EQ(Modify(TEXT("BP_Showcase"), Seed(TEXT("variables-bad-entries.json"))),
		TEXT(R"({"VariableModifications":["Invalid JSON format for variable: Broken","Invalid variable type for variable: Untyped","Failed to create variable: ","Created new variable: Flags"],"Success":"Blueprint modified, compiled, and saved successfully."})"));

	// An existing variable keeps its type; a boolean "Value" is stored as its text; unknown flag words pass.
	const FBPVariableDescription* Score = FindVariable(Blueprint, TEXT("Score"));
	EXPECT_EQ(Score->VarType, ScoreType);
	EXPECT_NE(Score->PropertyFlags & CPF_DisableEditOnInstance, 0u);
	const FBPVariableDescription* Flags = FindVariable(Blueprint, TEXT("Flags"));
	ASSERT_NE(Flags, nullptr);
	EXPECT_EQ(Flags->DefaultValue, TEXT("true"));
	EXPECT_TRUE(Flags->VarType.bIsConst && Flags->VarType.bIsWeakPointer);
}

TEST_F(FBlueprintModifyTest, ReplicationWordsSetAndClearTheNetFlags)
{
	UBlueprint* Blueprint = MakeShowcase();
	ASSERT_NE(Blueprint, nullptr);
	auto Flags = [Blueprint]()
	{
		return FindVariable(Blueprint, TEXT("Score"))->PropertyFlags & (CPF_Net | CPF_RepNotify);
	};

	EXPECT_EQ(Modify(TEXT("BP_Showcase"), TEXT(R"({"Variables": { "Score": { "Replication": "rEpNoTiFy" } }})")),
		TEXT(R"({"Success":"Blueprint modified, compiled, and saved successfully."})"));
	EXPECT_EQ(Flags(), uint64(CPF_Net | CPF_RepNotify));
	EXPECT_NE(FindGraph(Blueprint->FunctionGraphs, TEXT("OnRep_Score")), nullptr);

	EXPECT_EQ(Modify(TEXT("BP_Showcase"), TEXT(R"({"Variables": { "Score": { "Replication": "REPLICATED" } }})")),
		TEXT(R"({"Success":"Blueprint modified, compiled, and saved successfully."})"));
	EXPECT_EQ(Flags(), uint64(CPF_Net));

	// "None" clears the flags in memory but alone is no change: nothing is compiled or saved, and the
	// notification function's name stays.
	const FString Saved = SavedFile(Blueprint);
	EXPECT_EQ(Modify(TEXT("BP_Showcase"), TEXT(R"({"Variables": { "Score": { "Replication": "None" } }})")), Unchanged);
	EXPECT_EQ(Flags(), 0u);
	EXPECT_EQ(FindVariable(Blueprint, TEXT("Score"))->RepNotifyFunc, FName(TEXT("OnRep_Score")));
	EXPECT_EQ(SavedFile(Blueprint), Saved);
}

TEST_F(FBlueprintModifyTest, ToolRowChecksItsArguments)
{
	ASSERT_NE(MakeShowcase(), nullptr);
	auto Run = [](const TCHAR* Input)
	{
		FString Out;
		FAgent::Get().RunTool(Out, TEXT("Modify_Blueprint_Variables"), TEXT("id"), ParseJson(Input));
		return Out;
	};
	EXPECT_EQ(Run(TEXT(R"({"updates": "{}"})")), TEXT("Error: Missing required fields - blueprint_name"));
	EXPECT_EQ(Run(TEXT(R"({"blueprint_name": "BP_Showcase", "updates": {}})")), TEXT("Error: Missing required fields: updates"));
	EXPECT_EQ(Condensed(Run(TEXT(R"({"blueprint_name": "BP_Showcase", "updates": "{}"})"))), Unchanged);
}
