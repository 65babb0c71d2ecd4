// The construction script's tree of components, nodes rebuilt from their settings, reroute knots, and
// package files whose graph lines are damaged.
#include "BlueprintTestSupport.h"
#include "K2Node_CallFunction.h"
#include "K2Node_Knot.h"
#include "K2Node_VariableGet.h"
#include "Engine/SimpleConstructionScript.h"
#include "Engine/SCS_Node.h"
#include "Components/SceneComponent.h"
#include "Components/StaticMeshComponent.h"
#include "Components/ActorComponent.h"
#include "GameFramework/Actor.h"
#include "Kismet/KismetSystemLibrary.h"
#include "ScopedTransaction.h"
#include "CoreTestPrinters.h"

namespace
{
	UK2Node_CallFunction* AddCall(UEdGraph* Graph, const TCHAR* FunctionName)
	{
		FGraphNodeCreator<UK2Node_CallFunction> Creator(*Graph);
		UK2Node_CallFunction* Node = Creator.CreateNode();
		Node->SetFromFunction(UKismetSystemLibrary::StaticClass()->FindFunctionByName(FunctionName));
		Creator.Finalize();
		return Node;
	}
}

TEST_F(FBlueprintModelTest, TheConstructionScriptKeepsATreeOfComponents)
{
	UBlueprint* Blueprint = MakeBlueprint(TEXT("BP_Tree"), AActor::StaticClass());
	USimpleConstructionScript* Script = Blueprint->SimpleConstructionScript;
	ASSERT_NE(Script, nullptr);
	EXPECT_EQ(Script->CreateNode(AActor::StaticClass(), TEXT("NotAComponent")), nullptr);
	EXPECT_EQ(Script->CreateNode(UActorComponent::StaticClass(), TEXT("Abstract")), nullptr);
	USCS_Node* Root = Script->CreateNode(USceneComponent::StaticClass(), TEXT("Base"));
	ASSERT_NE(Root, nullptr);
	EXPECT_EQ(Script->GetAllNodes().Num(), 0) << "a new node isn't in the tree yet";
	EXPECT_EQ(Root->ComponentTemplate->GetName(), TEXT("Base_GEN_VARIABLE"));
	Script->AddNode(Root);
	EXPECT_EQ(Script->CreateNode(USceneComponent::StaticClass(), TEXT("Base"))->GetVariableName(), FName(TEXT("Base1"))) << "a taken name gets a number";
	EXPECT_EQ(Script->CreateNode(UStaticMeshComponent::StaticClass())->GetVariableName(), FName(TEXT("StaticMesh")));

	{
		FScopedTransaction Transaction(FText::FromString(TEXT("Add a mesh")));
		Script->Modify();
		USCS_Node* Mesh = Script->CreateNode(UStaticMeshComponent::StaticClass(), TEXT("Mesh"));
		Root->AddChildNode(Mesh);
	}
	ASSERT_EQ(Script->GetAllNodes().Num(), 2);
	USCS_Node* Mesh = Script->FindSCSNode(TEXT("Mesh"));
	ASSERT_NE(Mesh, nullptr);
	EXPECT_EQ(Script->FindParentNode(Mesh), Root);
	EXPECT_EQ(FBlueprintEditorUtils::FindSCS_Node(Blueprint, TEXT("Mesh")), Mesh);
	EXPECT_FALSE(FBlueprintEditorUtils::AddMemberVariable(Blueprint, TEXT("Mesh"), PinType(UEdGraphSchema_K2::PC_Int))) << "a component holds the name";

	// Objects made from the class get copies of the templates, attached as in the tree.
	AActor* Actor = NewObject<AActor>(GetTransientPackage());
	Script->ExecuteScriptOnActor(Actor);
	USceneComponent* Base = Cast<USceneComponent>(Actor->RootComponent);
	ASSERT_NE(Base, nullptr);
	EXPECT_EQ(Base->GetName(), TEXT("Base"));
	ASSERT_EQ(Base->GetAttachChildren().Num(), 1);
	EXPECT_TRUE(Base->GetAttachChildren()[0]->IsA(UStaticMeshComponent::StaticClass()));
	EXPECT_EQ(Base->GetAttachChildren()[0]->CreationMethod, EComponentCreationMethod::SimpleConstructionScript);

	ASSERT_TRUE(GEditor->UndoTransaction());
	EXPECT_EQ(Script->GetAllNodes().Num(), 1);
	EXPECT_EQ(Root->GetChildNodes().Num(), 0);
	ASSERT_TRUE(GEditor->RedoTransaction());
	Script->RemoveNodeAndPromoteChildren(Root);
	EXPECT_EQ(Script->GetRootNodes(), TArray<USCS_Node*>({Mesh}));
	EXPECT_EQ(Script->GetAllNodes().Num(), 1);
}

TEST_F(FBlueprintModelTest, RebuiltNodesKeepTheLinksAndDefaultsOfTheirPins)
{
	UBlueprint* Blueprint = MakeBlueprint(TEXT("BP_Rebuild"), AActor::StaticClass());
	UEdGraph* Graph = FBlueprintEditorUtils::FindEventGraph(Blueprint);
	const UEdGraphSchema_K2* Schema = GetDefault<UEdGraphSchema_K2>();
	UK2Node_CallFunction* Print = AddCall(Graph, TEXT("PrintString"));
	UK2Node_CallFunction* Name = AddCall(Graph, TEXT("GetDisplayName"));
	ASSERT_TRUE(Schema->TryCreateConnection(Name->GetReturnValuePin(), Print->FindPin(TEXT("InString"))));
	Schema->TrySetDefaultValue(*Print->FindPin(TEXT("Duration")), TEXT("4.0"));
	const FGuid InStringId = Print->FindPin(TEXT("InString"))->PinId;
	const int32 PinCount = Print->Pins.Num();

	Print->ReconstructNode();
	ASSERT_EQ(Print->Pins.Num(), PinCount);
	UEdGraphPin* InString = Print->FindPin(TEXT("InString"));
	EXPECT_EQ(InString->PinId, InStringId);
	ASSERT_EQ(InString->LinkedTo.Num(), 1);
	EXPECT_EQ(InString->LinkedTo[0], Name->GetReturnValuePin());
	EXPECT_EQ(Name->GetReturnValuePin()->LinkedTo, TArray<UEdGraphPin*>({InString})) << "the far side points at the new pin";
	EXPECT_EQ(Print->FindPin(TEXT("Duration"))->DefaultValue, TEXT("4.0"));

	// Removing a node breaks its links on the nodes that stay.
	Graph->RemoveNode(Name);
	EXPECT_EQ(InString->LinkedTo.Num(), 0);
	EXPECT_FALSE(Graph->Nodes.Contains(Name));

	// A knot takes the type of what it carries, and is a wildcard again when free.
	FGraphNodeCreator<UK2Node_Knot> KnotCreator(*Graph);
	UK2Node_Knot* Knot = KnotCreator.CreateNode();
	KnotCreator.Finalize();
	UK2Node_CallFunction* Source = AddCall(Graph, TEXT("GetDisplayName"));
	ASSERT_TRUE(Schema->TryCreateConnection(Source->GetReturnValuePin(), Knot->GetInputPin()));
	EXPECT_EQ(Knot->GetOutputPin()->PinType.PinCategory, UEdGraphSchema_K2::PC_String);
	EXPECT_FALSE(Schema->TryCreateConnection(Knot->GetOutputPin(), Print->FindPin(TEXT("bPrintToLog"))));
	EXPECT_TRUE(Schema->TryCreateConnection(Knot->GetOutputPin(), InString));
	Schema->BreakPinLinks(*Knot->GetInputPin(), true);
	Schema->BreakPinLinks(*Knot->GetOutputPin(), true);
	EXPECT_EQ(Knot->GetOutputPin()->PinType.PinCategory, UEdGraphSchema_K2::PC_Wildcard);
}

TEST_F(FBlueprintModelTest, DamagedGraphLinesLoadWhatStillReads)
{
	UBlueprint* Blueprint = MakeBlueprint(TEXT("BP_Damaged"), AActor::StaticClass());
	ASSERT_TRUE(FBlueprintEditorUtils::AddMemberVariable(Blueprint, TEXT("Label"), PinType(UEdGraphSchema_K2::PC_String)));
	UEdGraph* Graph = FBlueprintEditorUtils::FindEventGraph(Blueprint);
	UK2Node_CallFunction* Print = AddCall(Graph, TEXT("PrintString"));
	UK2Node_VariableGet* Get = GetDefault<UEdGraphSchema_K2>()->SpawnVariableGetNode(FVector2D(0, 0), Graph, TEXT("Label"), nullptr);
	ASSERT_TRUE(GetDefault<UEdGraphSchema_K2>()->TryCreateConnection(Get->FindPin(TEXT("Label")), Print->FindPin(TEXT("InString"))));
	FKismetEditorUtilities::CompileBlueprint(Blueprint);
	const FString GetId = Get->FindPin(TEXT("Label"))->PinId.ToString();
	const FString DurationId = Print->FindPin(TEXT("Duration"))->PinId.ToString();
	ASSERT_TRUE(SaveTestPackage(Blueprint->GetOutermost(), Blueprint));
	ForgetPackage(Blueprint->GetOutermost());

	// The link from the print to the get node names a pin that isn't there, and one pin line is cut short.
	const FString File = Project->ContentFile(TEXT("Blueprints/BP_Damaged.uasset"));
	FString Text = FObjectTestProject::ReadFile(File);
	ASSERT_TRUE(Text.Contains(GetId));
	Text.ReplaceInline(*(TEXT(" ") + GetId + TEXT(",")), TEXT(" 00000000000000000000000000000001,"));
	const int32 Duration = Text.Find(TEXT("PinId=") + DurationId);
	ASSERT_NE(Duration, INDEX_NONE);
	const int32 LineEnd = Text.Find(TEXT("\n"), ESearchCase::CaseSensitive, ESearchDir::FromStart, Duration);
	Text = Text.Left(Duration + 40) + Text.Mid(LineEnd);
	FObjectTestProject::WriteFile(File, Text);

	FLogCapture Log;
	UBlueprint* Loaded = LoadObject<UBlueprint>(nullptr, TEXT("/Game/Blueprints/BP_Damaged.BP_Damaged"));
	ASSERT_NE(Loaded, nullptr);
	EXPECT_TRUE(Log.Contains(TEXT("a pin line that doesn't read")));
	EXPECT_TRUE(Log.Contains(TEXT("links to a pin that isn't there")));
	UEdGraph* LoadedGraph = FBlueprintEditorUtils::FindEventGraph(Loaded);
	ASSERT_NE(LoadedGraph, nullptr);
	ASSERT_EQ(LoadedGraph->Nodes.Num(), 2);
	UEdGraphNode* LoadedPrint = LoadedGraph->Nodes[0]->FindPin(TEXT("InString")) != nullptr ? LoadedGraph->Nodes[0] : LoadedGraph->Nodes[1];
	EXPECT_EQ(LoadedPrint->FindPin(TEXT("Duration")), nullptr);
	EXPECT_NE(LoadedPrint->FindPin(TEXT("bPrintToLog")), nullptr);
	// The get side still names the print's pin, so the link comes back on both sides.
	UEdGraphNode* LoadedGet = LoadedGraph->Nodes[0] == LoadedPrint ? LoadedGraph->Nodes[1] : LoadedGraph->Nodes[0];
	ASSERT_EQ(LoadedPrint->FindPin(TEXT("InString"))->LinkedTo.Num(), 1);
	EXPECT_EQ(LoadedPrint->FindPin(TEXT("InString"))->LinkedTo[0], LoadedGet->FindPin(TEXT("Label")));
	EXPECT_EQ(LoadedGet->FindPin(TEXT("Label"))->LinkedTo.Num(), 1);
	FCompilerResultsLog Compile;
	FKismetEditorUtilities::CompileBlueprint(Loaded, EBlueprintCompileOptions::None, &Compile);
	EXPECT_EQ(Loaded->Status, BS_UpToDate);
}
