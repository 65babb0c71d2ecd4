// What the editor's Blueprint utilities change: renames that reach the nodes, removals that the compile then
// finds, flags and metadata that reach the generated class, and events the class gets as functions.
#include "BlueprintTestSupport.h"
#include "K2Node_CustomEvent.h"
#include "K2Node_VariableGet.h"
#include "K2Node_VariableSet.h"
#include "GameFramework/Actor.h"
#include "UObject/UnrealType.h"
#include "CoreTestPrinters.h"

TEST_F(FBlueprintModelTest, EditorUtilitiesChangeVariablesGraphsAndEventsWhereTheyAreUsed)
{
	UBlueprint* Blueprint = MakeBlueprint(TEXT("BP_Utils"), AActor::StaticClass());
	const UEdGraphSchema_K2* Schema = GetDefault<UEdGraphSchema_K2>();
	UEdGraph* Graph = FBlueprintEditorUtils::FindEventGraph(Blueprint);
	ASSERT_TRUE(FBlueprintEditorUtils::AddMemberVariable(Blueprint, TEXT("Ammo"), PinType(UEdGraphSchema_K2::PC_Int), TEXT("30")));
	ASSERT_TRUE(FBlueprintEditorUtils::AddMemberVariable(Blueprint, TEXT("bReady"), PinType(UEdGraphSchema_K2::PC_Boolean)));
	EXPECT_EQ(Blueprint->NewVariables[1].FriendlyName, TEXT("Ready"));
	UK2Node_VariableGet* Get = Schema->SpawnVariableGetNode(FVector2D(0, 0), Graph, TEXT("Ammo"), nullptr);
	UK2Node_VariableSet* Set = Schema->SpawnVariableSetNode(FVector2D(0, 100), Graph, TEXT("Ammo"), nullptr);
	ASSERT_TRUE(Schema->TryCreateConnection(Get->FindPin(TEXT("Ammo")), Set->FindPin(TEXT("Ammo"), EGPD_Input)));

	// A rename reaches the nodes of the variable, their pins and links.
	FBlueprintEditorUtils::RenameMemberVariable(Blueprint, TEXT("Ammo"), TEXT("Rounds"));
	EXPECT_EQ(FBlueprintEditorUtils::FindNewVariableIndex(Blueprint, TEXT("Ammo")), INDEX_NONE);
	EXPECT_EQ(Get->GetNodeTitle(ENodeTitleType::FullTitle).ToString(), TEXT("Get Rounds"));
	ASSERT_NE(Get->FindPin(TEXT("Rounds")), nullptr);
	EXPECT_EQ(Get->FindPin(TEXT("Rounds"))->LinkedTo[0], Set->FindPin(TEXT("Rounds"), EGPD_Input));
	FBlueprintEditorUtils::RenameMemberVariable(Blueprint, TEXT("Rounds"), TEXT("bReady"));
	EXPECT_NE(FBlueprintEditorUtils::FindNewVariableIndex(Blueprint, TEXT("Rounds")), INDEX_NONE) << "a taken name is refused";

	FBlueprintEditorUtils::SetBlueprintPropertyReadOnlyFlag(Blueprint, TEXT("Rounds"), true);
	FBlueprintEditorUtils::SetBlueprintVariableCategory(Blueprint, TEXT("Rounds"), nullptr, FText::FromString(TEXT("Combat")));
	FBlueprintEditorUtils::SetInterfaceFlags(Blueprint, TEXT("bReady"), true);
	FString Value;
	EXPECT_FALSE(FBlueprintEditorUtils::GetBlueprintVariableMetaData(Blueprint, TEXT("Rounds"), nullptr, TEXT("Tooltip"), Value));
	FBlueprintEditorUtils::SetBlueprintVariableMetaData(Blueprint, TEXT("Rounds"), nullptr, TEXT("Tooltip"), TEXT("Shots left"));
	EXPECT_TRUE(FBlueprintEditorUtils::GetBlueprintVariableMetaData(Blueprint, TEXT("Rounds"), nullptr, TEXT("Tooltip"), Value));
	EXPECT_EQ(Value, TEXT("Shots left"));

	// A custom event becomes a function of the class with the event's parameters.
	UK2Node_CustomEvent* Reload = UK2Node_CustomEvent::CreateFromFunction(FVector2D(0, 300), Graph, TEXT("Reload"), nullptr);
	Reload->CreateUserDefinedPin(TEXT("Count"), PinType(UEdGraphSchema_K2::PC_Int), EGPD_Output);
	EXPECT_EQ(Reload->CreateUserDefinedPin(TEXT("Back"), PinType(UEdGraphSchema_K2::PC_Int), EGPD_Input), nullptr);
	UK2Node_CustomEvent* Twin = UK2Node_CustomEvent::CreateFromFunction(FVector2D(0, 500), Graph, TEXT("Reload"), nullptr);
	Twin->RenameCustomEventCloseToName();
	EXPECT_EQ(Twin->CustomFunctionName, FName(TEXT("Reload_1")));
	FCompilerResultsLog Log;
	FKismetEditorUtilities::CompileBlueprint(Blueprint, EBlueprintCompileOptions::None, &Log);
	ASSERT_EQ(Blueprint->Status, BS_UpToDate) << (Log.Messages.Num() > 0 ? TCHAR_TO_UTF8(*Log.Messages[0]->ToText().ToString()) : "");
	UClass* Class = Blueprint->GeneratedClass;
	const FProperty* Rounds = Class->FindPropertyByName(TEXT("Rounds"));
	ASSERT_NE(Rounds, nullptr);
	EXPECT_TRUE(Rounds->HasAnyPropertyFlags(CPF_BlueprintReadOnly));
	EXPECT_EQ(Rounds->GetMetaData(TEXT("Category")), TEXT("Combat"));
	EXPECT_EQ(Rounds->GetMetaData(TEXT("Tooltip")), TEXT("Shots left"));
	EXPECT_FALSE(Class->FindPropertyByName(TEXT("bReady"))->HasAnyPropertyFlags(CPF_DisableEditOnInstance));
	const UFunction* ReloadFunction = Class->FindFunctionByName(TEXT("Reload"));
	ASSERT_NE(ReloadFunction, nullptr);
	EXPECT_TRUE(ReloadFunction->HasAllFunctionFlags(FUNC_BlueprintCallable | FUNC_BlueprintEvent | FUNC_Event));
	EXPECT_NE(ReloadFunction->FindPropertyByName(TEXT("Count")), nullptr);
	EXPECT_NE(Class->FindFunctionByName(TEXT("Reload_1")), nullptr);

	// Two events for one function fail the compile; removing what nodes use fails it too.
	Twin->OnRenameNode(TEXT("Reload"));
	FKismetEditorUtilities::CompileBlueprint(Blueprint);
	EXPECT_EQ(Blueprint->Status, BS_Error);
	Graph->RemoveNode(Twin);
	FBlueprintEditorUtils::RemoveMemberVariable(Blueprint, TEXT("Rounds"));
	FCompilerResultsLog Removed;
	FKismetEditorUtilities::CompileBlueprint(Blueprint, EBlueprintCompileOptions::None, &Removed);
	EXPECT_EQ(Blueprint->Status, BS_Error);
	EXPECT_EQ(Removed.NumErrors, 2) << "the get and the set node";
	Graph->RemoveNode(Get);
	Graph->RemoveNode(Set);
	FKismetEditorUtilities::CompileBlueprint(Blueprint);
	EXPECT_EQ(Blueprint->Status, BS_UpToDate);
	EXPECT_EQ(Blueprint->GeneratedClass->FindPropertyByName(TEXT("Rounds")), nullptr);

	// A removed graph leaves the Blueprint and its class.
	UEdGraph* Function = FBlueprintEditorUtils::CreateNewGraph(Blueprint, TEXT("Aim"), UEdGraph::StaticClass(), UEdGraphSchema_K2::StaticClass());
	FBlueprintEditorUtils::AddFunctionGraph(Blueprint, Function, true, static_cast<UClass*>(nullptr));
	FBlueprintEditorUtils::RemoveGraph(Blueprint, Function);
	EXPECT_FALSE(Blueprint->FunctionGraphs.Contains(Function));
	EXPECT_NE(FBlueprintEditorUtils::CreateNewGraph(Blueprint, TEXT("Aim"), UEdGraph::StaticClass(), UEdGraphSchema_K2::StaticClass()), nullptr);
}
