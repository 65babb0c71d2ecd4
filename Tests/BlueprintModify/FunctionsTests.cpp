// The "Functions" section and its nodes: the sample, a function that really compiles and reloads, and
// entries that end only themselves.
#include "BlueprintModifyTestSupport.h"
#include "K2Node_CallFunction.h"
#include "K2Node_FunctionResult.h"
#include "UObject/UnrealType.h"

TEST_F(FBlueprintModifyTest, SampleFunctionSectionMakesTheFunctionAndItsNodes)
{
	UBlueprint* Blueprint = MakeShowcase();
	ASSERT_NE(Blueprint, nullptr);
	EXPECT_EQ(Modify(TEXT("BP_Showcase"), Seed(TEXT("functions-sample.json"))),
		TEXT(R"({"FunctionModifications":["Created new function: Heal","Modified existing function: Heal"],"Success":"Blueprint modified, compiled, and saved successfully."})"));

	const UEdGraph* Heal = FindGraph(Blueprint->FunctionGraphs, TEXT("Heal"));
	ASSERT_NE(Heal, nullptr);
	const UK2Node_FunctionResult* Result = nullptr;
	for (const UEdGraphNode* Node : Heal->Nodes)
	{
		Result = Result != nullptr ? Result : Cast<const UK2Node_FunctionResult>(Node);
	}
	ASSERT_NE(Result, nullptr);
	EXPECT_EQ(Result->NodePosX, 600);
	EXPECT_EQ(Result->NodePosY, 0);
	EXPECT_NE(Result->FindPin(TEXT("NewHealth"), EGPD_Input), nullptr);

	const TSharedPtr<FJsonObject> Function = FindEntry(ReadAll(TEXT("BP_Showcase"))->GetArrayField(TEXT("Functions")), TEXT("Name"), TEXT("Heal"));
	ASSERT_TRUE(Function.IsValid());
	const TArray<TSharedPtr<FJsonValue>>& Nodes = Function->GetObjectField(TEXT("EdGraph"))->GetArrayField(TEXT("Nodes"));
	const TSharedPtr<FJsonObject> SetHealth = FindEntry(Nodes, TEXT("Class"), TEXT("K2Node_VariableSet"));
	ASSERT_TRUE(SetHealth.IsValid());
	EXPECT_EQ(FindEntry(SetHealth->GetArrayField(TEXT("Pins")), TEXT("Name"), TEXT("Health"))->GetStringField(TEXT("Value")), TEXT("100.0"));
	EXPECT_TRUE(FindEntry(Nodes, TEXT("Class"), TEXT("K2Node_VariableGet")).IsValid());
}

TEST_F(FBlueprintModifyTest, ModifiedBlueprintCompilesReadsAndReloadsAsWritten)
{
	UBlueprint* Blueprint = MakeEmpty(TEXT("BP_Medic"));
	ASSERT_NE(Blueprint, nullptr);
	EXPECT_EQ(Modify(TEXT("BP_Medic"), Seed(TEXT("functions-linked.json"))),
		TEXT(R"({"VariableModifications":["Created new variable: Armor"],"FunctionModifications":["Created new function: Repair","Modified existing function: Repair"],"Success":"Blueprint modified, compiled, and saved successfully."})"));
	ASSERT_TRUE(Blueprint->IsUpToDate());

	// The class: the property with its default on the class default object, the function with its parameters.
	UClass* Class = Blueprint->GeneratedClass;
	const FProperty* Armor = Class->FindPropertyByName(TEXT("Armor"));
	ASSERT_NE(Armor, nullptr);
	EXPECT_EQ(FBlueprintUtilsTestAccess::ValueText(Class->GetDefaultObject(), Armor), TEXT("7"));
	const UFunction* Repair = Class->FindFunctionByName(TEXT("Repair"));
	ASSERT_NE(Repair, nullptr);
	TArray<FString> Parameters;
	for (TFieldIterator<FProperty> It(Repair); It; ++It)
	{
		Parameters.Add(It->GetName() + (It->HasAnyPropertyFlags(CPF_OutParm) ? TEXT(" out") : TEXT("")));
	}
	EXPECT_EQ(Parameters, TArray<FString>({ TEXT("Amount"), TEXT("Healer"), TEXT("Points"), TEXT("NewArmor out") }));

	// The document: titles, pins, values and links, by the titles the reader writes.
	const TSharedPtr<FJsonObject> Before = ReadAll(TEXT("BP_Medic"));
	const TSharedPtr<FJsonObject> Function = FindEntry(Before->GetArrayField(TEXT("Functions")), TEXT("Name"), TEXT("Repair"));
	ASSERT_TRUE(Function.IsValid());
	const TArray<TSharedPtr<FJsonValue>>& Nodes = Function->GetObjectField(TEXT("EdGraph"))->GetArrayField(TEXT("Nodes"));
	const TSharedPtr<FJsonObject> Print = FindEntry(Nodes, TEXT("Title"), TEXT("Print String"));
	ASSERT_TRUE(Print.IsValid());
	EXPECT_EQ(Condensed(Print->GetObjectField(TEXT("Properties"))), TEXT(R"({"FunctionName":"PrintString"})"));
	EXPECT_EQ(FindEntry(Print->GetArrayField(TEXT("Pins")), TEXT("Name"), TEXT("InString"))->GetStringField(TEXT("Value")), TEXT("Repairing"));
	EXPECT_EQ(Condensed(FindEntry(Print->GetArrayField(TEXT("Pins")), TEXT("Name"), TEXT("execute"))->GetArrayField(TEXT("Connections"))[0]->AsObject()),
		TEXT(R"({"Node":"Repair","Pin":"then"})"));
	const TSharedPtr<FJsonObject> Setter = FindEntry(Nodes, TEXT("Class"), TEXT("K2Node_VariableSet"));
	ASSERT_TRUE(Setter.IsValid());
	const TSharedPtr<FJsonObject> SetterThen = FindEntry(Setter->GetArrayField(TEXT("Pins")), TEXT("Name"), TEXT("then"));
	ASSERT_EQ(SetterThen->GetArrayField(TEXT("Connections")).Num(), 1);
	EXPECT_EQ(SetterThen->GetArrayField(TEXT("Connections"))[0]->AsObject()->GetStringField(TEXT("Pin")), TEXT("execute"));
	EXPECT_EQ(Condensed(FindEntry(Setter->GetArrayField(TEXT("Pins")), TEXT("Name"), TEXT("Armor"))->GetArrayField(TEXT("Connections"))[0]->AsObject()),
		TEXT(R"({"Node":"Get Armor","Pin":"Armor"})"));

	// A fresh load from disk gives the same document.
	Forget(Blueprint);
	EXPECT_EQ(Condensed(ReadAll(TEXT("BP_Medic"))), Condensed(Before));
}

TEST_F(FBlueprintModifyTest, FunctionEntriesAndNodeEntriesFailOneByOne)
{
	UBlueprint* Blueprint = MakeShowcase();
	ASSERT_NE(Blueprint, nullptr);
	UEdGraph* ApplyDamage = FindGraph(Blueprint->FunctionGraphs, TEXT("ApplyDamage"));
	const int32 NodesBefore = CountNodes(ApplyDamage);
	const FString Saved = SavedFile(Blueprint);

	// Only spawning nodes is no change: the node is there, but nothing is compiled or saved.
	EXPECT_EQ(Modify(TEXT("BP_Showcase"), TEXT(R"({"Functions": [ { "Name": "APPLYDAMAGE", "EdGraph": { "Nodes": [
			{ "Class": "UK2Node_VariableGet", "Location": { "X": 900 }, "Properties": { "VariableName": "Score" } }
		] } } ]})")),
		TEXT(R"({"FunctionModifications":["Modified existing function: APPLYDAMAGE"],"Message":"No modifications were made to the Blueprint."})"));
	ASSERT_EQ(CountNodes(ApplyDamage), NodesBefore + 1);
	EXPECT_EQ(ApplyDamage->Nodes.Last()->NodePosX, 0);
	EXPECT_EQ(SavedFile(Blueprint), Saved);

	EXPECT_EQ(Modify(TEXT("BP_Showcase"), Seed(TEXT("functions-bad-entries.json"))),
		TEXT(R"({"FunctionModifications":["Function entry missing 'Name' field.","Function entry missing 'Name' field.","Function entry missing 'Name' field.","Failed to create function graph for: EventGraph","Invalid variable type for variable: Shape","Created new function: Bare","Modified existing function: Bare","Modified existing function: ApplyDamage"],"Success":"Blueprint modified, compiled, and saved successfully."})"));

	// "Bare" has its good parameter and a result node without pins; an unknown function still makes a node;
	// a pin never links to itself.
	const UEdGraph* Bare = FindGraph(Blueprint->FunctionGraphs, TEXT("Bare"));
	ASSERT_NE(Bare, nullptr);
	int32 ResultNodes = 0;
	for (const UEdGraphNode* Node : Bare->Nodes)
	{
		if (const UK2Node_FunctionResult* Result = Cast<const UK2Node_FunctionResult>(Node))
		{
			++ResultNodes;
			EXPECT_EQ(Result->NodePosX, 600);
		}
		else
		{
			EXPECT_NE(Node->FindPin(TEXT("Kind"), EGPD_Output), nullptr);
		}
	}
	EXPECT_EQ(ResultNodes, 1);
	EXPECT_EQ(CountNodes(ApplyDamage), NodesBefore + 3);
	const UK2Node_CallFunction* Unknown = Cast<const UK2Node_CallFunction>(ApplyDamage->Nodes[NodesBefore + 1]);
	ASSERT_NE(Unknown, nullptr);
	EXPECT_EQ(Unknown->GetTargetFunction(), nullptr);
	EXPECT_EQ(Unknown->NodeComment, TEXT("kept"));
	const UEdGraphPin* Score = ApplyDamage->Nodes.Last()->FindPin(TEXT("Score"));
	ASSERT_NE(Score, nullptr);
	EXPECT_EQ(Score->DefaultValue, TEXT("3"));
	EXPECT_EQ(Score->Direction, EGPD_Input);
	EXPECT_TRUE(Score->LinkedTo.IsEmpty());
}
