#include "SampleBlueprintBuilder.h"

#include "Animation/AnimBlueprint.h"
#include "Animation/AnimBlueprintGeneratedClass.h"
#include "Animation/AnimInstance.h"
#include "AssetRegistry/AssetRegistryModule.h"
#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "Engine/BlueprintGeneratedClass.h"
#include "Engine/StaticMeshActor.h"
#include "GameFramework/Actor.h"
#include "K2Node_CallFunction.h"
#include "K2Node_Event.h"
#include "K2Node_FunctionEntry.h"
#include "K2Node_FunctionResult.h"
#include "K2Node_VariableGet.h"
#include "K2Node_VariableSet.h"
#include "Kismet/KismetSystemLibrary.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Kismet2/KismetEditorUtilities.h"
#include "Misc/PackageName.h"
#include "UObject/Interface.h"
#include "UObject/Package.h"
#include "UObject/SavePackage.h"

const TCHAR* const FSampleBlueprintBuilder::Folder = TEXT("/Game/Blueprints");

namespace
{
	const UEdGraphSchema_K2* Schema()
	{
		return GetDefault<UEdGraphSchema_K2>();
	}

	UEdGraphNode* SpawnVariableGet(UBlueprint* Blueprint, UEdGraph* Graph, FName Variable, int32 X, int32 Y)
	{
		return Schema()->SpawnVariableGetNode(FVector2D(X, Y), Graph, Variable, Blueprint->SkeletonGeneratedClass);
	}

	UEdGraphNode* SpawnVariableSet(UBlueprint* Blueprint, UEdGraph* Graph, FName Variable, int32 X, int32 Y)
	{
		return Schema()->SpawnVariableSetNode(FVector2D(X, Y), Graph, Variable, Blueprint->SkeletonGeneratedClass);
	}

	void AddVariable(UBlueprint* Blueprint, const TCHAR* Name, const FEdGraphPinType& Type, const FString& DefaultValue = FString())
	{
		FBlueprintEditorUtils::AddMemberVariable(Blueprint, FName(Name), Type, DefaultValue);
	}
}

UBlueprint* FSampleBlueprintBuilder::CreateBlueprint(const FString& PackageName, UClass* ParentClass, EBlueprintType Type, UClass* BlueprintClass, UClass* GeneratedClass)
{
	UPackage* Package = CreatePackage(*PackageName);
	UBlueprint* Blueprint = FKismetEditorUtilities::CreateBlueprint(ParentClass, Package, FName(*FPackageName::GetShortName(PackageName)), Type,
		BlueprintClass != nullptr ? BlueprintClass : UBlueprint::StaticClass(),
		GeneratedClass != nullptr ? GeneratedClass : UBlueprintGeneratedClass::StaticClass());
	if (Blueprint != nullptr)
	{
		FAssetRegistryModule::AssetCreated(Blueprint);
		Package->MarkPackageDirty();
	}
	return Blueprint;
}

FEdGraphPinType FSampleBlueprintBuilder::MakePinType(FName Category, UObject* SubCategoryObject, EPinContainerType Container)
{
	FEdGraphPinType Type;
	Type.PinCategory = Category;
	Type.PinSubCategoryObject = SubCategoryObject;
	Type.ContainerType = Container;
	return Type;
}

FEdGraphPinType FSampleBlueprintBuilder::MakeRealPinType()
{
	FEdGraphPinType Type = MakePinType(UEdGraphSchema_K2::PC_Real);
	Type.PinSubCategory = UEdGraphSchema_K2::PC_Double;
	return Type;
}

UEdGraph* FSampleBlueprintBuilder::AddFunction(UBlueprint* Blueprint, FName Name, const TArray<TPair<FName, FEdGraphPinType>>& Inputs, const TArray<TPair<FName, FEdGraphPinType>>& Outputs, UEdGraphNode*& OutEntry, UEdGraphNode*& OutResult)
{
	UEdGraph* Graph = FBlueprintEditorUtils::CreateNewGraph(Blueprint, Name, UEdGraph::StaticClass(), UEdGraphSchema_K2::StaticClass());
	FBlueprintEditorUtils::AddFunctionGraph<UClass>(Blueprint, Graph, true, nullptr);

	UK2Node_FunctionEntry* Entry = nullptr;
	for (UEdGraphNode* Node : Graph->Nodes)
	{
		Entry = Entry != nullptr ? Entry : Cast<UK2Node_FunctionEntry>(Node);
	}
	OutEntry = Entry;
	OutResult = nullptr;
	if (Entry == nullptr)
	{
		return Graph;
	}
	// A function's parameters are outputs of its entry, its results inputs of its result node.
	for (const TPair<FName, FEdGraphPinType>& Input : Inputs)
	{
		Entry->CreateUserDefinedPin(Input.Key, Input.Value, EGPD_Output);
	}
	if (!Outputs.IsEmpty())
	{
		UK2Node_FunctionResult* Result = FBlueprintEditorUtils::FindOrCreateFunctionResultNode(Entry);
		for (const TPair<FName, FEdGraphPinType>& Output : Outputs)
		{
			Result->CreateUserDefinedPin(Output.Key, Output.Value, EGPD_Input);
		}
		OutResult = Result;
	}
	return Graph;
}

UEdGraphNode* FSampleBlueprintBuilder::AddPrintString(UEdGraph* Graph, const FString& Text, int32 X, int32 Y)
{
	FGraphNodeCreator<UK2Node_CallFunction> Creator(*Graph);
	UK2Node_CallFunction* Call = Creator.CreateNode(false);
	Call->SetFromFunction(UKismetSystemLibrary::StaticClass()->FindFunctionByName(TEXT("PrintString")));
	Call->NodePosX = X;
	Call->NodePosY = Y;
	Creator.Finalize();
	if (UEdGraphPin* TextPin = Call->FindPin(TEXT("InString")))
	{
		TextPin->DefaultValue = Text;
	}
	return Call;
}

UEdGraphNode* FSampleBlueprintBuilder::AddEvent(UBlueprint* Blueprint, UEdGraph* Graph, FName EventName, int32 X, int32 Y)
{
	const UFunction* Function = Blueprint->ParentClass != nullptr ? Blueprint->ParentClass->FindFunctionByName(EventName) : nullptr;
	if (Function == nullptr)
	{
		return nullptr;
	}
	FGraphNodeCreator<UK2Node_Event> Creator(*Graph);
	UK2Node_Event* Event = Creator.CreateNode(false);
	Event->EventReference.SetExternalMember(EventName, Function->GetOwnerClass());
	Event->bOverrideFunction = true;
	Event->NodePosX = X;
	Event->NodePosY = Y;
	Creator.Finalize();
	return Event;
}

bool FSampleBlueprintBuilder::Link(UEdGraphNode* From, FName FromPin, UEdGraphNode* To, FName ToPin)
{
	UEdGraphPin* A = From != nullptr ? From->FindPin(FromPin) : nullptr;
	UEdGraphPin* B = To != nullptr ? To->FindPin(ToPin) : nullptr;
	return A != nullptr && B != nullptr && Schema()->TryCreateConnection(A, B);
}

UBlueprint* FSampleBlueprintBuilder::MakeShowcase(const FString& PackageName)
{
	// A mesh actor, so that the default object holds a component of its own.
	UBlueprint* Blueprint = CreateBlueprint(PackageName, AStaticMeshActor::StaticClass());
	if (Blueprint == nullptr)
	{
		return nullptr;
	}
	UClass* Actor = AActor::StaticClass();
	UEnum* Mobility = FindObject<UEnum>(nullptr, TEXT("/Script/Engine.EComponentMobility"));

	AddVariable(Blueprint, TEXT("Health"), MakeRealPinType(), TEXT("100.0"));
	AddVariable(Blueprint, TEXT("bIsAlive"), MakePinType(UEdGraphSchema_K2::PC_Boolean), TEXT("true"));
	AddVariable(Blueprint, TEXT("Score"), MakePinType(UEdGraphSchema_K2::PC_Int), TEXT("42"));
	AddVariable(Blueprint, TEXT("Team"), MakePinType(UEdGraphSchema_K2::PC_Name), TEXT("Blue"));
	AddVariable(Blueprint, TEXT("Nickname"), MakePinType(UEdGraphSchema_K2::PC_String), TEXT("Rook"));
	AddVariable(Blueprint, TEXT("Greeting"), MakePinType(UEdGraphSchema_K2::PC_Text));
	AddVariable(Blueprint, TEXT("SpawnLocation"), MakePinType(UEdGraphSchema_K2::PC_Struct, TBaseStructure<FVector>::Get()), TEXT("(X=1.000000,Y=2.000000,Z=3.000000)"));
	AddVariable(Blueprint, TEXT("SpawnRotation"), MakePinType(UEdGraphSchema_K2::PC_Struct, TBaseStructure<FRotator>::Get()));
	AddVariable(Blueprint, TEXT("SpawnTransform"), MakePinType(UEdGraphSchema_K2::PC_Struct, TBaseStructure<FTransform>::Get()));
	AddVariable(Blueprint, TEXT("Mobility"), MakePinType(UEdGraphSchema_K2::PC_Byte, Mobility));
	AddVariable(Blueprint, TEXT("Target"), MakePinType(UEdGraphSchema_K2::PC_Object, Actor));
	AddVariable(Blueprint, TEXT("SpawnClass"), MakePinType(UEdGraphSchema_K2::PC_Class, Actor));
	AddVariable(Blueprint, TEXT("Waypoints"), MakePinType(UEdGraphSchema_K2::PC_Struct, TBaseStructure<FVector>::Get(), EPinContainerType::Array));
	AddVariable(Blueprint, TEXT("Labels"), MakePinType(UEdGraphSchema_K2::PC_Name, nullptr, EPinContainerType::Set));
	FEdGraphPinType NamedActors = MakePinType(UEdGraphSchema_K2::PC_Name, nullptr, EPinContainerType::Map);
	NamedActors.PinValueType.TerminalCategory = UEdGraphSchema_K2::PC_Object;
	NamedActors.PinValueType.TerminalSubCategoryObject = Actor;
	AddVariable(Blueprint, TEXT("NamedActors"), NamedActors);

	// ApplyDamage(Amount) -> NewHealth: sets Health from the amount, prints, and returns the new health.
	UEdGraphNode* Entry = nullptr;
	UEdGraphNode* Result = nullptr;
	UEdGraph* Function = AddFunction(Blueprint, TEXT("ApplyDamage"), { { TEXT("Amount"), MakeRealPinType() } }, { { TEXT("NewHealth"), MakeRealPinType() } }, Entry, Result);
	UEdGraphNode* SetHealth = SpawnVariableSet(Blueprint, Function, TEXT("Health"), 250, 0);
	UEdGraphNode* Print = AddPrintString(Function, TEXT("Ouch"), 500, 0);
	UEdGraphNode* GetHealth = SpawnVariableGet(Blueprint, Function, TEXT("Health"), 500, 200);
	Link(Entry, UEdGraphSchema_K2::PN_Then, SetHealth, UEdGraphSchema_K2::PN_Execute);
	Link(Entry, TEXT("Amount"), SetHealth, TEXT("Health"));
	Link(SetHealth, UEdGraphSchema_K2::PN_Then, Print, UEdGraphSchema_K2::PN_Execute);
	Link(Print, UEdGraphSchema_K2::PN_Then, Result, UEdGraphSchema_K2::PN_Execute);
	Link(GetHealth, TEXT("Health"), Result, TEXT("NewHealth"));

	UEdGraph* EventGraph = FBlueprintEditorUtils::FindEventGraph(Blueprint);
	UEdGraphNode* BeginPlay = AddEvent(Blueprint, EventGraph, TEXT("ReceiveBeginPlay"), 0, 0);
	UEdGraphNode* Tick = AddEvent(Blueprint, EventGraph, TEXT("ReceiveTick"), 0, 300);
	Link(BeginPlay, UEdGraphSchema_K2::PN_Then, AddPrintString(EventGraph, TEXT("Hello"), 300, 0), UEdGraphSchema_K2::PN_Execute);
	Link(Tick, UEdGraphSchema_K2::PN_Then, AddPrintString(EventGraph, TEXT("Tick"), 300, 300), UEdGraphSchema_K2::PN_Execute);

	FKismetEditorUtilities::CompileBlueprint(Blueprint);
	return Blueprint;
}

UBlueprint* FSampleBlueprintBuilder::MakeChild(const FString& PackageName, UBlueprint* Parent)
{
	UBlueprint* Blueprint = CreateBlueprint(PackageName, Parent->GeneratedClass);
	if (Blueprint != nullptr)
	{
		AddVariable(Blueprint, TEXT("Armor"), MakePinType(UEdGraphSchema_K2::PC_Int), TEXT("5"));
		FKismetEditorUtilities::CompileBlueprint(Blueprint);
	}
	return Blueprint;
}

UBlueprint* FSampleBlueprintBuilder::MakeInterface(const FString& PackageName)
{
	UBlueprint* Blueprint = CreateBlueprint(PackageName, UInterface::StaticClass(), BPTYPE_Interface);
	if (Blueprint != nullptr)
	{
		UEdGraphNode* Entry = nullptr;
		UEdGraphNode* Result = nullptr;
		AddFunction(Blueprint, TEXT("Interact"), { { TEXT("Instigator"), MakePinType(UEdGraphSchema_K2::PC_Object, AActor::StaticClass()) } }, {}, Entry, Result);
		FKismetEditorUtilities::CompileBlueprint(Blueprint);
	}
	return Blueprint;
}

UBlueprint* FSampleBlueprintBuilder::MakeInterfaceUser(const FString& PackageName, UBlueprint* Interface)
{
	UBlueprint* Blueprint = CreateBlueprint(PackageName, AActor::StaticClass());
	if (Blueprint != nullptr)
	{
		FBlueprintEditorUtils::ImplementNewInterface(Blueprint, Interface->GeneratedClass->GetClassPathName());
		FKismetEditorUtilities::CompileBlueprint(Blueprint);
	}
	return Blueprint;
}

UBlueprint* FSampleBlueprintBuilder::MakeAnimBlueprint(const FString& PackageName)
{
	UBlueprint* Blueprint = CreateBlueprint(PackageName, UAnimInstance::StaticClass(), BPTYPE_Normal, UAnimBlueprint::StaticClass(), UAnimBlueprintGeneratedClass::StaticClass());
	if (Blueprint != nullptr)
	{
		FKismetEditorUtilities::CompileBlueprint(Blueprint);
	}
	return Blueprint;
}

UBlueprint* FSampleBlueprintBuilder::MakeLarge(const FString& PackageName, int32 NodeCount, int32 VariableCount)
{
	UBlueprint* Blueprint = CreateBlueprint(PackageName, AActor::StaticClass());
	if (Blueprint == nullptr)
	{
		return nullptr;
	}
	TArray<FName> Variables;
	for (int32 Index = 0; Index < VariableCount; ++Index)
	{
		Variables.Add(FName(*FString::Printf(TEXT("Var_%03d"), Index)));
		AddVariable(Blueprint, *Variables.Last().ToString(), MakeRealPinType(), FString::Printf(TEXT("%d.5"), Index));
	}

	// One long chain from BeginPlay: get a variable, set the next one from it, print; about five pins a node.
	UEdGraph* Graph = FBlueprintEditorUtils::FindEventGraph(Blueprint);
	UEdGraphNode* Previous = AddEvent(Blueprint, Graph, TEXT("ReceiveBeginPlay"), 0, 0);
	int32 Nodes = 1;
	for (int32 Step = 0; Nodes < NodeCount; ++Step)
	{
		const FName Source = Variables.IsEmpty() ? NAME_None : Variables[Step % Variables.Num()];
		const FName Target = Variables.IsEmpty() ? NAME_None : Variables[(Step + 1) % Variables.Num()];
		UEdGraphNode* Get = SpawnVariableGet(Blueprint, Graph, Source, Step * 300, 200);
		UEdGraphNode* Set = Nodes + 1 < NodeCount ? SpawnVariableSet(Blueprint, Graph, Target, Step * 300, 0) : nullptr;
		UEdGraphNode* Print = Nodes + 2 < NodeCount ? AddPrintString(Graph, FString::Printf(TEXT("Step %d"), Step), Step * 300 + 150, 0) : nullptr;
		Nodes += 1 + (Set != nullptr) + (Print != nullptr);
		if (Set != nullptr)
		{
			Link(Get, Source, Set, Target);
			Link(Previous, UEdGraphSchema_K2::PN_Then, Set, UEdGraphSchema_K2::PN_Execute);
			Previous = Set;
		}
		if (Print != nullptr)
		{
			Link(Previous, UEdGraphSchema_K2::PN_Then, Print, UEdGraphSchema_K2::PN_Execute);
			Previous = Print;
		}
	}
	return Blueprint;
}

bool FSampleBlueprintBuilder::Save(UBlueprint* Blueprint)
{
	UPackage* Package = Blueprint->GetOutermost();
	FSavePackageArgs Args;
	Args.TopLevelFlags = RF_Standalone;
	const FString FileName = FPackageName::LongPackageNameToFilename(Package->GetName(), FPackageName::GetAssetPackageExtension());
	return UPackage::Save(Package, Blueprint, *FileName, Args).IsSuccessful();
}
