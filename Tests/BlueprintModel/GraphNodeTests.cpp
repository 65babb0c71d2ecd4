// K2 nodes as the editor shows them (titles, pins, defaults) and the schema's rules for types and links.
#include "BlueprintTestSupport.h"
#include "BlueprintModelTestTypes.h"
#include "K2Node_CallFunction.h"
#include "K2Node_CustomEvent.h"
#include "K2Node_FunctionEntry.h"
#include "K2Node_FunctionResult.h"
#include "K2Node_IfThenElse.h"
#include "K2Node_Knot.h"
#include "K2Node_VariableGet.h"
#include "K2Node_VariableSet.h"
#include "EdGraphNode_Comment.h"
#include "Kismet/KismetSystemLibrary.h"
#include "UObject/UnrealType.h"
#include "CoreTestPrinters.h"

namespace
{
	FString Title(const UEdGraphNode* Node, ENodeTitleType::Type Type = ENodeTitleType::FullTitle)
	{
		return Node->GetNodeTitle(Type).ToString();
	}

	template<typename NodeType>
	NodeType* AddNode(UEdGraph& Graph, TFunctionRef<void(NodeType*)> SetUp)
	{
		FGraphNodeCreator<NodeType> Creator(Graph);
		NodeType* Node = Creator.CreateNode();
		SetUp(Node);
		Creator.Finalize();
		return Node;
	}
}

TEST_F(FBlueprintModelTest, NodesShowTheEnginesTitlesAndPins)
{
	UBlueprint* Blueprint = MakeBlueprint(TEXT("BP_Titles"), ABlueprintTestPawn::StaticClass());
	ASSERT_NE(Blueprint, nullptr);
	ASSERT_TRUE(FBlueprintEditorUtils::AddMemberVariable(Blueprint, TEXT("Health"), PinType(UEdGraphSchema_K2::PC_Real, UEdGraphSchema_K2::PC_Double)));
	UEdGraph* EventGraph = FBlueprintEditorUtils::FindEventGraph(Blueprint);
	ASSERT_NE(EventGraph, nullptr);

	UK2Node_CallFunction* Print = AddNode<UK2Node_CallFunction>(*EventGraph, [](UK2Node_CallFunction* Node) { Node->SetFromFunction(UKismetSystemLibrary::StaticClass()->FindFunctionByName(TEXT("PrintString"))); });
	EXPECT_EQ(Title(Print), TEXT("Print String"));
	EXPECT_NE(Print->FindPin(TEXT("execute"), EGPD_Input), nullptr);
	EXPECT_NE(Print->FindPin(TEXT("then"), EGPD_Output), nullptr);
	EXPECT_EQ(Print->FindPin(TEXT("self")), nullptr) << "a static function has no target";
	ASSERT_NE(Print->FindPin(TEXT("instring")), nullptr) << "pin names compare without case";
	EXPECT_EQ(Print->FindPin(TEXT("InString"))->DefaultValue, TEXT("Hello"));
	EXPECT_EQ(Print->FindPin(TEXT("InString"))->PinType.PinCategory, UEdGraphSchema_K2::PC_String);
	EXPECT_TRUE(Print->FindPin(TEXT("WorldContextObject"))->bHidden);
	EXPECT_EQ(Print->FindPin(TEXT("InString"), EGPD_Output), nullptr);

	// A member function of a native class called on another object says on what.
	UK2Node_CallFunction* Location = AddNode<UK2Node_CallFunction>(*EventGraph, [](UK2Node_CallFunction* Node) { Node->SetFromFunction(AActor::StaticClass()->FindFunctionByName(TEXT("K2_GetActorLocation"))); });
	EXPECT_EQ(Title(Location), TEXT("GetActorLocation\nTarget is Actor"));
	UK2Node_CallFunction* Lives = AddNode<UK2Node_CallFunction>(*EventGraph, [](UK2Node_CallFunction* Node) { Node->SetFromFunction(ABlueprintTestPawn::StaticClass()->FindFunctionByName(TEXT("GetLives"))); });
	EXPECT_TRUE(Lives->IsNodePure());
	EXPECT_EQ(Lives->FindPin(TEXT("execute")), nullptr);
	ASSERT_NE(Lives->GetReturnValuePin(), nullptr);
	EXPECT_EQ(Lives->GetReturnValuePin()->PinType.PinCategory, UEdGraphSchema_K2::PC_Int);
	EXPECT_EQ(Lives->FindPin(TEXT("self"))->PinType.PinSubCategory, UEdGraphSchema_K2::PSC_Self);

	int32 PosY = 0;
	UK2Node_Event* BeginPlay = FKismetEditorUtilities::AddDefaultEventNode(Blueprint, EventGraph, TEXT("ReceiveBeginPlay"), AActor::StaticClass(), PosY);
	ASSERT_NE(BeginPlay, nullptr);
	EXPECT_EQ(Title(BeginPlay), TEXT("Event BeginPlay"));
	EXPECT_EQ(FKismetEditorUtilities::AddDefaultEventNode(Blueprint, EventGraph, TEXT("ReceiveBeginPlay"), AActor::StaticClass(), PosY), BeginPlay);
	UK2Node_Event* Tick = FKismetEditorUtilities::AddDefaultEventNode(Blueprint, EventGraph, TEXT("ReceiveTick"), AActor::StaticClass(), PosY);
	EXPECT_EQ(Title(Tick), TEXT("Event Tick"));
	EXPECT_EQ(Tick->FindPin(TEXT("DeltaSeconds"))->PinType.PinSubCategory, UEdGraphSchema_K2::PC_Float);
	UK2Node_CustomEvent* Custom = UK2Node_CustomEvent::CreateFromFunction(FVector2D(0, 400), EventGraph, TEXT("OnDoorOpened"), nullptr);
	EXPECT_EQ(Title(Custom), TEXT("OnDoorOpened\nCustom Event"));
	EXPECT_EQ(Title(Custom, ENodeTitleType::ListView), TEXT("OnDoorOpened"));

	const UEdGraphSchema_K2* Schema = GetDefault<UEdGraphSchema_K2>();
	UK2Node_VariableGet* Get = Schema->SpawnVariableGetNode(FVector2D(10, 20), EventGraph, TEXT("Health"), Blueprint->GeneratedClass);
	UK2Node_VariableSet* Set = Schema->SpawnVariableSetNode(FVector2D(10, 90), EventGraph, TEXT("Health"), Blueprint->GeneratedClass);
	EXPECT_EQ(Title(Get), TEXT("Get Health"));
	EXPECT_EQ(Title(Set), TEXT("Set Health"));
	EXPECT_EQ(Get->NodePosY, 20);
	EXPECT_TRUE(Get->VariableReference.IsSelfContext());
	ASSERT_NE(Get->FindPin(TEXT("Health"), EGPD_Output), nullptr) << "a variable not compiled yet is found in the Blueprint";
	EXPECT_EQ(Get->FindPin(TEXT("Health"))->PinType.PinSubCategory, UEdGraphSchema_K2::PC_Double);
	EXPECT_NE(Set->FindPin(TEXT("Output_Get"), EGPD_Output), nullptr);
	EXPECT_TRUE(EventGraph->Nodes.Contains(Get));
	EXPECT_TRUE(Get->NodeGuid.IsValid());

	UEdGraph* Function = FBlueprintEditorUtils::CreateNewGraph(Blueprint, TEXT("Heal"), UEdGraph::StaticClass(), UEdGraphSchema_K2::StaticClass());
	FBlueprintEditorUtils::AddFunctionGraph(Blueprint, Function, true, static_cast<UClass*>(nullptr));
	EXPECT_EQ(FBlueprintEditorUtils::CreateNewGraph(Blueprint, TEXT("Heal"), UEdGraph::StaticClass(), UEdGraphSchema_K2::StaticClass()), nullptr);
	TArray<UK2Node_FunctionEntry*> Entries;
	Function->GetNodesOfClass(Entries);
	ASSERT_EQ(Entries.Num(), 1);
	EXPECT_EQ(Title(Entries[0]), TEXT("Heal"));
	EXPECT_EQ(Entries[0]->CreateUserDefinedPin(TEXT("Amount"), PinType(UEdGraphSchema_K2::PC_Int), EGPD_Input), nullptr) << "an entry node takes no inputs";
	EXPECT_EQ(Entries[0]->CreateUserDefinedPin(TEXT("Amount"), PinType(UEdGraphSchema_K2::PC_Int), EGPD_Output)->PinName, FName(TEXT("Amount")));
	EXPECT_EQ(Entries[0]->CreateUserDefinedPin(TEXT("Amount"), PinType(UEdGraphSchema_K2::PC_Int), EGPD_Output)->PinName, FName(TEXT("Amount_1")));
	UK2Node_FunctionResult* Result = FBlueprintEditorUtils::FindOrCreateFunctionResultNode(Entries[0]);
	EXPECT_EQ(Title(Result), TEXT("Return Node"));
	EXPECT_EQ(FBlueprintEditorUtils::FindOrCreateFunctionResultNode(Entries[0]), Result);
	EXPECT_EQ(Entries[0]->FindPin(TEXT("then"))->LinkedTo[0], Result->FindPin(TEXT("execute")));
	UEdGraph* ConstructionScript = FBlueprintEditorUtils::FindUserConstructionScript(Blueprint);
	ASSERT_NE(ConstructionScript, nullptr);
	EXPECT_EQ(Title(ConstructionScript->Nodes[0]), TEXT("Construction Script"));

	EXPECT_EQ(Title(AddNode<UK2Node_Knot>(*EventGraph, [](UK2Node_Knot*) {})), TEXT("Reroute Node"));
	EXPECT_EQ(Title(AddNode<UK2Node_IfThenElse>(*EventGraph, [](UK2Node_IfThenElse*) {})), TEXT("Branch"));
	UEdGraphNode_Comment* Comment = AddNode<UEdGraphNode_Comment>(*EventGraph, [](UEdGraphNode_Comment* Node) { Node->NodeComment = TEXT("Health handling"); });
	EXPECT_EQ(Title(Comment), TEXT("Health handling"));
}

TEST_F(FBlueprintModelTest, PropertiesBecomePinTypesAndTheSchemaChecksLinks)
{
	const UEdGraphSchema_K2* Schema = GetDefault<UEdGraphSchema_K2>();
	FEdGraphPinType Type;
	ASSERT_TRUE(Schema->ConvertPropertyToPinType(ABlueprintTestPawn::StaticClass()->FindPropertyByName(TEXT("Lives")), Type));
	EXPECT_EQ(Type.PinCategory, UEdGraphSchema_K2::PC_Int);
	ASSERT_TRUE(Schema->ConvertPropertyToPinType(AActor::StaticClass()->FindPropertyByName(TEXT("Tags")), Type));
	EXPECT_EQ(Type.PinCategory, UEdGraphSchema_K2::PC_Name);
	EXPECT_TRUE(Type.IsArray());
	ASSERT_TRUE(Schema->ConvertPropertyToPinType(AActor::StaticClass()->FindPropertyByName(TEXT("RootComponent")), Type));
	EXPECT_EQ(Type.PinCategory, UEdGraphSchema_K2::PC_Object);
	EXPECT_EQ(Type.PinSubCategoryObject.Get(), USceneComponent::StaticClass());
	const UFunction* MoveBy = ABlueprintTestPawn::StaticClass()->FindFunctionByName(TEXT("MoveBy"));
	ASSERT_TRUE(Schema->ConvertPropertyToPinType(MoveBy->FindPropertyByName(TEXT("Speed")), Type));
	EXPECT_EQ(Type.PinCategory, UEdGraphSchema_K2::PC_Real);
	EXPECT_EQ(Type.PinSubCategory, UEdGraphSchema_K2::PC_Float);
	ASSERT_TRUE(Schema->ConvertPropertyToPinType(MoveBy->FindPropertyByName(TEXT("Offset")), Type));
	EXPECT_EQ(Type.PinSubCategoryObject.Get(), TBaseStructure<FVector>::Get());
	EXPECT_FALSE(Schema->ConvertPropertyToPinType(nullptr, Type));

	UBlueprint* Blueprint = MakeBlueprint(TEXT("BP_Links"), AActor::StaticClass());
	UEdGraph* Graph = FBlueprintEditorUtils::FindEventGraph(Blueprint);
	UK2Node_CallFunction* First = NewObject<UK2Node_CallFunction>(Graph);
	First->SetFromFunction(UKismetSystemLibrary::StaticClass()->FindFunctionByName(TEXT("PrintString")));
	Graph->AddNode(First);
	First->AllocateDefaultPins();
	UK2Node_CallFunction* Second = NewObject<UK2Node_CallFunction>(Graph);
	Second->SetFromFunction(UKismetSystemLibrary::StaticClass()->FindFunctionByName(TEXT("PrintString")));
	Graph->AddNode(Second);
	Second->AllocateDefaultPins();
	UK2Node_CallFunction* Third = NewObject<UK2Node_CallFunction>(Graph);
	Third->SetFromFunction(UKismetSystemLibrary::StaticClass()->FindFunctionByName(TEXT("PrintText")));
	Graph->AddNode(Third);
	Third->AllocateDefaultPins();
	UK2Node_CallFunction* Fourth = NewObject<UK2Node_CallFunction>(Graph);
	Fourth->SetFromFunction(UKismetSystemLibrary::StaticClass()->FindFunctionByName(TEXT("GetObjectName")));
	Graph->AddNode(Fourth);
	Fourth->AllocateDefaultPins();

	UEdGraphPin* Then = First->FindPin(TEXT("then"));
	UEdGraphPin* Execute = Second->FindPin(TEXT("execute"));
	EXPECT_EQ(Schema->CanCreateConnection(Then, First->FindPin(TEXT("execute"))).Response, CONNECT_RESPONSE_DISALLOW) << "same node";
	EXPECT_EQ(Schema->CanCreateConnection(Then, Second->FindPin(TEXT("then"))).Response, CONNECT_RESPONSE_DISALLOW) << "two outputs";
	EXPECT_EQ(Schema->CanCreateConnection(Then, Second->FindPin(TEXT("InString"))).Response, CONNECT_RESPONSE_DISALLOW) << "exec into a string";
	ASSERT_TRUE(Schema->TryCreateConnection(Execute, Then));
	EXPECT_EQ(Then->LinkedTo, TArray<UEdGraphPin*>({Execute}));
	EXPECT_EQ(Execute->LinkedTo, TArray<UEdGraphPin*>({Then}));
	// An exec output leads to one place: a new link replaces the old one on both ends.
	ASSERT_TRUE(Schema->TryCreateConnection(Then, Third->FindPin(TEXT("execute"))));
	EXPECT_EQ(Execute->LinkedTo.Num(), 0);
	EXPECT_EQ(Then->LinkedTo.Num(), 1);

	UEdGraphPin* Name = Fourth->GetReturnValuePin();
	EXPECT_TRUE(Schema->TryCreateConnection(Name, Second->FindPin(TEXT("InString"))));
	EXPECT_FALSE(Schema->TryCreateConnection(Name, Second->FindPin(TEXT("bPrintToLog")))) << "a string doesn't go into a bool";
	EXPECT_FALSE(Schema->TryCreateConnection(Name, Second->FindPin(TEXT("Duration"))));
	// Objects go to their base classes, not the other way.
	UEdGraphPin* AnyObject = Fourth->FindPin(TEXT("Object"));
	FEdGraphPinType Actor = PinType(UEdGraphSchema_K2::PC_Object, NAME_None, AActor::StaticClass());
	FEdGraphPinType Object = PinType(UEdGraphSchema_K2::PC_Object, NAME_None, UObject::StaticClass());
	EXPECT_TRUE(Schema->ArePinTypesCompatible(Actor, AnyObject->PinType));
	EXPECT_FALSE(Schema->ArePinTypesCompatible(Object, Actor));
	EXPECT_FALSE(Schema->ArePinTypesCompatible(PinType(UEdGraphSchema_K2::PC_Int, NAME_None, nullptr, EPinContainerType::Array), PinType(UEdGraphSchema_K2::PC_Int)));
	EXPECT_TRUE(Schema->ArePinTypesCompatible(PinType(UEdGraphSchema_K2::PC_Real, UEdGraphSchema_K2::PC_Float), PinType(UEdGraphSchema_K2::PC_Real, UEdGraphSchema_K2::PC_Double)));
	EXPECT_EQ(UEdGraphSchema_K2::TypeToText(PinType(UEdGraphSchema_K2::PC_Int, NAME_None, nullptr, EPinContainerType::Array)).ToString(), TEXT("Array of Integer"));
}
