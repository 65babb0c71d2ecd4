#include "Kismet2/KismetEditorUtilities.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Kismet2/CompilerResultsLog.h"
#include "Engine/Blueprint.h"
#include "Engine/BlueprintGeneratedClass.h"
#include "Engine/SimpleConstructionScript.h"
#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "K2Node_Event.h"
#include "GameFramework/Actor.h"
#include "UObject/Interface.h"
#include "BlueprintCompiler.h"

void FKismetEditorUtilities::CompileBlueprint(UBlueprint* BlueprintObj, EBlueprintCompileOptions CompileFlags, FCompilerResultsLog* pResults)
{
	if (BlueprintObj == nullptr)
	{
		return;
	}
	FCompilerResultsLog LocalLog;
	UnrealEd::Private::FBlueprintCompiler(*BlueprintObj, pResults != nullptr ? *pResults : LocalLog).Compile();
}

bool FKismetEditorUtilities::CanCreateBlueprintOfClass(const UClass* Class)
{
	if (Class == nullptr || Class->HasAnyClassFlags(CLASS_Deprecated | CLASS_NewerVersionExists))
	{
		return false;
	}
	// Interfaces are made by Blueprint interfaces, which derive from UInterface itself.
	if (Class->HasAnyClassFlags(CLASS_Interface) && Class != UInterface::StaticClass())
	{
		return false;
	}
	return !Class->HasAnyClassFlags(CLASS_Const) || Class->HasAnyClassFlags(CLASS_CompiledFromBlueprint);
}

UBlueprint* FKismetEditorUtilities::CreateBlueprint(UClass* ParentClass, UObject* Outer, const FName NewBPName, EBlueprintType BlueprintType, TSubclassOf<UBlueprint> BlueprintClassType, TSubclassOf<UBlueprintGeneratedClass> BlueprintGeneratedClassType, FName CallingContext)
{
	if (ParentClass == nullptr || Outer == nullptr || NewBPName.IsNone() || !CanCreateBlueprintOfClass(ParentClass))
	{
		return nullptr;
	}
	if (StaticFindObjectFast(nullptr, Outer, NewBPName) != nullptr || StaticFindObjectFast(nullptr, Outer, FName(*(NewBPName.ToString() + TEXT("_C")))) != nullptr)
	{
		return nullptr;
	}
	UClass* BlueprintClass = BlueprintClassType != nullptr ? BlueprintClassType.Get() : UBlueprint::StaticClass();
	UBlueprint* Blueprint = static_cast<UBlueprint*>(NewObject<UObject>(Outer, BlueprintClass, NewBPName, RF_Public | RF_Standalone | RF_Transactional));
	Blueprint->Status = BS_BeingCreated;
	Blueprint->BlueprintType = BlueprintType;
	Blueprint->ParentClass = ParentClass;
	if (ParentClass->IsChildOf(AActor::StaticClass()))
	{
		Blueprint->SimpleConstructionScript = NewObject<USimpleConstructionScript>(Blueprint, NAME_None, RF_Transactional);
	}
	if (BlueprintType != BPTYPE_Interface && BlueprintType != BPTYPE_FunctionLibrary && BlueprintType != BPTYPE_MacroLibrary)
	{
		UEdGraph* EventGraph = FBlueprintEditorUtils::CreateNewGraph(Blueprint, UEdGraphSchema_K2::GN_EventGraph, UEdGraph::StaticClass(), UEdGraphSchema_K2::StaticClass());
		FBlueprintEditorUtils::AddUbergraphPage(Blueprint, EventGraph);
		if (ParentClass->IsChildOf(AActor::StaticClass()))
		{
			UEdGraph* ConstructionScript = FBlueprintEditorUtils::CreateNewGraph(Blueprint, UEdGraphSchema_K2::FN_UserConstructionScript, UEdGraph::StaticClass(), UEdGraphSchema_K2::StaticClass());
			FBlueprintEditorUtils::AddFunctionGraph(Blueprint, ConstructionScript, false, ParentClass);
		}
	}
	CompileBlueprint(Blueprint);
	return Blueprint;
}

UBlueprint* FKismetEditorUtilities::CreateBlueprint(UClass* ParentClass, UObject* Outer, const FName NewBPName, EBlueprintType BlueprintType, FName CallingContext)
{
	return CreateBlueprint(ParentClass, Outer, NewBPName, BlueprintType, UBlueprint::StaticClass(), UBlueprintGeneratedClass::StaticClass(), CallingContext);
}

UK2Node_Event* FKismetEditorUtilities::AddDefaultEventNode(UBlueprint* InBlueprint, UEdGraph* InGraph, FName InEventName, UClass* InEventClass, int32& InOutNodePosY)
{
	if (InBlueprint == nullptr || InGraph == nullptr || InEventClass == nullptr || InEventClass->FindFunctionByName(InEventName) == nullptr)
	{
		return nullptr;
	}
	if (UK2Node_Event* Existing = FBlueprintEditorUtils::FindOverrideForFunction(InBlueprint, InEventClass, InEventName))
	{
		return Existing;
	}
	FGraphNodeCreator<UK2Node_Event> Creator(*InGraph);
	UK2Node_Event* Event = Creator.CreateNode();
	Event->EventReference.SetExternalMember(InEventName, InEventClass);
	Event->bOverrideFunction = true;
	Event->NodePosY = InOutNodePosY;
	Creator.Finalize();
	InOutNodePosY += 200;
	return Event;
}
