// Blueprints in package files and in the editor's undo: what is saved comes back the same in a fresh load,
// survives garbage collection, and undo puts back variables, graphs, nodes, pins and links exactly.
#include "BlueprintTestSupport.h"
#include "AssetRegistry/AssetRegistryModule.h"
#include "K2Node_CallFunction.h"
#include "K2Node_Event.h"
#include "K2Node_FunctionEntry.h"
#include "K2Node_FunctionResult.h"
#include "K2Node_VariableGet.h"
#include "Engine/SimpleConstructionScript.h"
#include "Engine/SCS_Node.h"
#include "Components/SceneComponent.h"
#include "GameFramework/Actor.h"
#include "Kismet/KismetSystemLibrary.h"
#include "ScopedTransaction.h"
#include "Animation/AnimBlueprint.h"
#include "Factories/AnimBlueprintFactory.h"
#include "UObject/UnrealType.h"
#include "CoreTestPrinters.h"

namespace
{
	// Every graph of the Blueprint with its nodes, titles and pins (ids, types, defaults, links) as text.
	FString Fingerprint(const UBlueprint* Blueprint)
	{
		FString Text;
		TArray<UEdGraph*> Graphs;
		Blueprint->GetAllGraphs(Graphs);
		for (const UEdGraph* Graph : Graphs)
		{
			Text += TEXT("Graph ") + Graph->GetName() + TEXT("\n");
			for (const UEdGraphNode* Node : Graph->Nodes)
			{
				Text += FString::Printf(TEXT(" %s %s (%d,%d) %s\n"), *Node->GetName(), *Node->GetNodeTitle(ENodeTitleType::FullTitle).ToString(), Node->NodePosX, Node->NodePosY, *Node->NodeGuid.ToString());
				for (const UEdGraphPin* Pin : Node->Pins)
				{
					Text += TEXT("  ") + Pin->ExportTextToString() + TEXT("\n");
				}
			}
		}
		for (const FBPVariableDescription& Variable : Blueprint->NewVariables)
		{
			Text += FString::Printf(TEXT("Variable %s %s %s\n"), *Variable.VarName.ToString(), *UEdGraphSchema_K2::TypeToText(Variable.VarType).ToString(), *Variable.DefaultValue);
		}
		return Text;
	}

	FString FunctionOrder(const UClass* Class)
	{
		FString Names;
		for (const UField* Field = Class->Children; Field != nullptr; Field = Field->Next)
		{
			Names += Field->GetName() + TEXT(" ");
		}
		return Names;
	}

	UK2Node_CallFunction* AddPrint(UEdGraph* Graph)
	{
		FGraphNodeCreator<UK2Node_CallFunction> Creator(*Graph);
		UK2Node_CallFunction* Print = Creator.CreateNode();
		Print->SetFromFunction(UKismetSystemLibrary::StaticClass()->FindFunctionByName(TEXT("PrintString")));
		Creator.Finalize();
		return Print;
	}
}

TEST_F(FBlueprintModelTest, ASavedBlueprintLoadsBackTheSameAndSurvivesGarbageCollection)
{
	UBlueprint* Blueprint = MakeBlueprint(TEXT("BP_Lamp"), AActor::StaticClass(), TEXT("/Game/Props"));
	ASSERT_NE(Blueprint, nullptr);
	ASSERT_TRUE(FBlueprintEditorUtils::AddMemberVariable(Blueprint, TEXT("Greeting"), PinType(UEdGraphSchema_K2::PC_String), TEXT("Hi \"there\"")));
	ASSERT_TRUE(FBlueprintEditorUtils::AddMemberVariable(Blueprint, TEXT("Brightness"), PinType(UEdGraphSchema_K2::PC_Real, UEdGraphSchema_K2::PC_Double), TEXT("0.75")));
	ASSERT_TRUE(FBlueprintEditorUtils::AddMemberVariable(Blueprint, TEXT("Owners"), PinType(UEdGraphSchema_K2::PC_Object, NAME_None, AActor::StaticClass(), EPinContainerType::Set)));
	UEdGraph* Function = FBlueprintEditorUtils::CreateNewGraph(Blueprint, TEXT("Dim"), UEdGraph::StaticClass(), UEdGraphSchema_K2::StaticClass());
	FBlueprintEditorUtils::AddFunctionGraph(Blueprint, Function, true, static_cast<UClass*>(nullptr));
	TArray<UK2Node_FunctionEntry*> Entries;
	Function->GetNodesOfClass(Entries);
	Entries[0]->CreateUserDefinedPin(TEXT("By"), PinType(UEdGraphSchema_K2::PC_Real, UEdGraphSchema_K2::PC_Double), EGPD_Output);
	FBlueprintEditorUtils::FindOrCreateFunctionResultNode(Entries[0])->CreateUserDefinedPin(TEXT("Left"), PinType(UEdGraphSchema_K2::PC_Real, UEdGraphSchema_K2::PC_Double), EGPD_Input);
	UEdGraph* EventGraph = FBlueprintEditorUtils::FindEventGraph(Blueprint);
	int32 PosY = 0;
	UK2Node_Event* BeginPlay = FKismetEditorUtilities::AddDefaultEventNode(Blueprint, EventGraph, TEXT("ReceiveBeginPlay"), AActor::StaticClass(), PosY);
	UK2Node_CallFunction* Print = AddPrint(EventGraph);
	UK2Node_VariableGet* Get = GetDefault<UEdGraphSchema_K2>()->SpawnVariableGetNode(FVector2D(-200, 100), EventGraph, TEXT("Greeting"), nullptr);
	const UEdGraphSchema_K2* Schema = GetDefault<UEdGraphSchema_K2>();
	ASSERT_TRUE(Schema->TryCreateConnection(BeginPlay->FindPin(TEXT("then")), Print->FindPin(TEXT("execute"))));
	ASSERT_TRUE(Schema->TryCreateConnection(Get->FindPin(TEXT("Greeting")), Print->FindPin(TEXT("InString"))));
	Schema->TrySetDefaultValue(*Print->FindPin(TEXT("Duration")), TEXT("5.0"));
	Schema->TrySetDefaultValue(*Print->FindPin(TEXT("Key")), TEXT("It's \"lit\"\n\\ on,off (really)"));
	USCS_Node* Root = Blueprint->SimpleConstructionScript->CreateNode(USceneComponent::StaticClass(), TEXT("Base"));
	Blueprint->SimpleConstructionScript->AddNode(Root);
	FKismetEditorUtilities::CompileBlueprint(Blueprint);
	ASSERT_EQ(Blueprint->Status, BS_UpToDate);
	const FString Before = Fingerprint(Blueprint);
	const FString FunctionsBefore = FunctionOrder(Blueprint->GeneratedClass);
	ASSERT_TRUE(SaveTestPackage(Blueprint->GetOutermost(), Blueprint));

	// Graphs, nodes, pins and links are text a diff can show.
	const FString File = FObjectTestProject::ReadFile(Project->ContentFile(TEXT("Props/BP_Lamp.uasset")));
	EXPECT_TRUE(File.Contains(TEXT("CustomProperties Pin (PinId=")));
	EXPECT_TRUE(File.Contains(TEXT("PinName=\"InString\"")));
	EXPECT_TRUE(File.Contains(FString::Printf(TEXT("LinkedTo=(%s "), *Get->GetName())));
	EXPECT_TRUE(File.Contains(TEXT("CustomProperties UserDefinedPin (PinName=\"By\"")));
	// The registry knows the asset by its class and tags, without loading it.
	TArray<FAssetData> Assets;
	IAssetRegistry& Registry = FAssetRegistryModule::GetRegistry();
	Registry.GetAssetsByClass(UBlueprint::StaticClass()->GetClassPathName(), Assets);
	const FAssetData* Lamp = Assets.FindByPredicate([](const FAssetData& Asset) { return Asset.AssetName == FName(TEXT("BP_Lamp")); });
	ASSERT_NE(Lamp, nullptr);
	EXPECT_EQ(Lamp->GetTagValueRef<FString>(FName(TEXT("GeneratedClass"))), TEXT("/Script/Engine.BlueprintGeneratedClass'/Game/Props/BP_Lamp.BP_Lamp_C'"));
	EXPECT_EQ(Lamp->GetTagValueRef<FString>(FName(TEXT("ParentClass"))), TEXT("/Script/CoreUObject.Class'/Script/Engine.Actor'"));
	// An Animation Blueprint is filed under its own class, so a query for Blueprints doesn't find it.
	UAnimBlueprintFactory* AnimFactory = NewObject<UAnimBlueprintFactory>();
	UAnimBlueprint* Anim = Cast<UAnimBlueprint>(FAssetToolsModule::GetModule().Get().CreateAsset(TEXT("ABP_Lamp"), TEXT("/Game/Props"), UAnimBlueprint::StaticClass(), AnimFactory));
	ASSERT_NE(Anim, nullptr);
	EXPECT_NE(Anim->GetAnimBlueprintGeneratedClass(), nullptr);
	EXPECT_EQ(FAssetToolsModule::GetModule().Get().CreateAsset(TEXT("ABP_Lamp"), TEXT("/Game/Props"), UAnimBlueprint::StaticClass(), AnimFactory), nullptr) << "a taken name";
	EXPECT_EQ(FAssetToolsModule::GetModule().Get().CreateAsset(TEXT("Bad Name"), TEXT("/Game/Props"), UBlueprint::StaticClass(), NewObject<UBlueprintFactory>()), nullptr);
	TArray<FAssetData> Again;
	Registry.GetAssetsByClass(UBlueprint::StaticClass()->GetClassPathName(), Again);
	EXPECT_FALSE(Again.ContainsByPredicate([](const FAssetData& Asset) { return Asset.AssetName == FName(TEXT("ABP_Lamp")); }));
	Registry.GetAssetsByClass(UAnimBlueprint::StaticClass()->GetClassPathName(), Again);
	EXPECT_TRUE(Again.ContainsByPredicate([](const FAssetData& Asset) { return Asset.AssetName == FName(TEXT("ABP_Lamp")); }));

	ForgetPackage(Blueprint->GetOutermost());
	ASSERT_EQ(FindObject<UBlueprint>(nullptr, TEXT("/Game/Props/BP_Lamp.BP_Lamp")), nullptr);
	UBlueprint* Loaded = LoadObject<UBlueprint>(nullptr, TEXT("/Game/Props/BP_Lamp.BP_Lamp"));
	ASSERT_NE(Loaded, nullptr);
	// The editor keeps assets (standalone objects) through a collection, and what they hold with them.
	CollectGarbage(RF_Standalone);
	EXPECT_EQ(Fingerprint(Loaded), Before);
	EXPECT_EQ(Loaded->Status, BS_UpToDate);
	UClass* Class = Loaded->GeneratedClass;
	ASSERT_NE(Class, nullptr);
	EXPECT_EQ(Class->ClassGeneratedBy, Loaded);
	ASSERT_NE(Class->FindPropertyByName(TEXT("Brightness")), nullptr);
	FString Text;
	Class->FindPropertyByName(TEXT("Greeting"))->ExportText_InContainer(0, Text, Class->GetDefaultObject(), nullptr, nullptr, PPF_None);
	EXPECT_EQ(Text, TEXT("Hi \"there\""));
	EXPECT_EQ(FunctionOrder(Class), FunctionsBefore);
	const UFunction* Dim = Class->FindFunctionByName(TEXT("Dim"));
	ASSERT_NE(Dim, nullptr);
	EXPECT_NE(Dim->FindPropertyByName(TEXT("Left")), nullptr);
	UEdGraph* LoadedEvents = FBlueprintEditorUtils::FindEventGraph(Loaded);
	ASSERT_NE(LoadedEvents, nullptr);
	UEdGraphPin* InString = nullptr;
	for (UEdGraphNode* Node : LoadedEvents->Nodes)
	{
		InString = InString != nullptr ? InString : Node->FindPin(TEXT("InString"));
	}
	ASSERT_NE(InString, nullptr);
	ASSERT_EQ(InString->LinkedTo.Num(), 1);
	EXPECT_EQ(InString->LinkedTo[0]->LinkedTo[0], InString) << "links point both ways after a load";
	EXPECT_EQ(Loaded->SimpleConstructionScript->GetAllNodes().Num(), 1);
	FKismetEditorUtilities::CompileBlueprint(Loaded);
	EXPECT_EQ(Loaded->Status, BS_UpToDate);
	EXPECT_EQ(Fingerprint(Loaded), Before);
}

TEST_F(FBlueprintModelTest, UndoPutsBackVariablesGraphsNodesPinsAndLinks)
{
	UBlueprint* Blueprint = MakeBlueprint(TEXT("BP_Undo"), AActor::StaticClass());
	ASSERT_TRUE(FBlueprintEditorUtils::AddMemberVariable(Blueprint, TEXT("Message"), PinType(UEdGraphSchema_K2::PC_String)));
	UEdGraph* EventGraph = FBlueprintEditorUtils::FindEventGraph(Blueprint);
	UK2Node_CallFunction* Print = AddPrint(EventGraph);
	const UEdGraphSchema_K2* Schema = GetDefault<UEdGraphSchema_K2>();
	UK2Node_VariableGet* Kept = Schema->SpawnVariableGetNode(FVector2D(0, 0), EventGraph, TEXT("Message"), nullptr);
	ASSERT_TRUE(Schema->TryCreateConnection(Kept->FindPin(TEXT("Message")), Print->FindPin(TEXT("InString"))));
	FKismetEditorUtilities::CompileBlueprint(Blueprint);
	const FString Before = Fingerprint(Blueprint);

	FString After;
	{
		FScopedTransaction Transaction(FText::FromString(TEXT("Tavrine Transaction 1")));
		Blueprint->Modify();
		ASSERT_TRUE(FBlueprintEditorUtils::AddMemberVariable(Blueprint, TEXT("Count"), PinType(UEdGraphSchema_K2::PC_Int), TEXT("2")));
		UEdGraph* Function = FBlueprintEditorUtils::CreateNewGraph(Blueprint, TEXT("Shout"), UEdGraph::StaticClass(), UEdGraphSchema_K2::StaticClass());
		FBlueprintEditorUtils::AddFunctionGraph(Blueprint, Function, true, static_cast<UClass*>(nullptr));
		TArray<UK2Node_FunctionEntry*> Entries;
		Function->GetNodesOfClass(Entries);
		Entries[0]->CreateUserDefinedPin(TEXT("Loudness"), PinType(UEdGraphSchema_K2::PC_Int), EGPD_Output);
		// A new node takes over the print's input: the old link is broken, a new one made.
		UK2Node_VariableGet* Added = Schema->SpawnVariableGetNode(FVector2D(0, 200), EventGraph, TEXT("Message"), nullptr);
		ASSERT_TRUE(Schema->TryCreateConnection(Added->FindPin(TEXT("Message")), Print->FindPin(TEXT("InString"))));
		Schema->TrySetDefaultValue(*Print->FindPin(TEXT("Duration")), TEXT("9.0"));
		Print->NodePosX = 640;
		FKismetEditorUtilities::CompileBlueprint(Blueprint);
		After = Fingerprint(Blueprint);
	}
	ASSERT_NE(After, Before);
	ASSERT_TRUE(GEditor->UndoTransaction());
	EXPECT_EQ(Fingerprint(Blueprint), Before);
	EXPECT_EQ(Blueprint->NewVariables.Num(), 1);
	EXPECT_EQ(Blueprint->FunctionGraphs.Num(), 1) << "only the construction script";
	EXPECT_EQ(Blueprint->Status, BS_Dirty);
	UEdGraphPin* Message = Kept->FindPin(TEXT("Message"));
	ASSERT_EQ(Message->LinkedTo.Num(), 1);
	EXPECT_EQ(Message->LinkedTo[0]->GetOwningNode(), Print);
	EXPECT_EQ(Message->LinkedTo[0]->LinkedTo[0], Message);
	// The class is the one the state before made (the transaction's compile is undone with it).
	EXPECT_EQ(Blueprint->GeneratedClass->GetPathName(), TEXT("/Game/Blueprints/BP_Undo.BP_Undo_C"));
	EXPECT_EQ(Blueprint->GeneratedClass->FindPropertyByName(TEXT("Count")), nullptr);
	EXPECT_EQ(Blueprint->GeneratedClass->FindFunctionByName(TEXT("Shout")), nullptr);
	EXPECT_EQ(Blueprint->GeneratedClass->GetDefaultObject()->GetPathName(), TEXT("/Game/Blueprints/BP_Undo.Default__BP_Undo_C"));
	// The Blueprint compiles as it was, and its name for the undone function is free again.
	FKismetEditorUtilities::CompileBlueprint(Blueprint);
	EXPECT_EQ(Blueprint->Status, BS_UpToDate);
	EXPECT_EQ(Blueprint->GeneratedClass->FindPropertyByName(TEXT("Count")), nullptr);

	ASSERT_TRUE(GEditor->RedoTransaction());
	EXPECT_EQ(Fingerprint(Blueprint), After);
	EXPECT_NE(Blueprint->GeneratedClass->FindFunctionByName(TEXT("Shout")), nullptr) << "redo brings the compile's class back";
	EXPECT_EQ(Kept->FindPin(TEXT("Message"))->LinkedTo.Num(), 0);
	ASSERT_TRUE(GEditor->UndoTransaction());
	UEdGraph* Again = FBlueprintEditorUtils::CreateNewGraph(Blueprint, TEXT("Shout"), UEdGraph::StaticClass(), UEdGraphSchema_K2::StaticClass());
	EXPECT_NE(Again, nullptr);
}
