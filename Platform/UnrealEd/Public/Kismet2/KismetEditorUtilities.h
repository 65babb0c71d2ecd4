// FKismetEditorUtilities: making and compiling Blueprints.
#pragma once

#include "CoreMinimal.h"
#include "Templates/SubclassOf.h"
#include "Engine/Blueprint.h"

class UBlueprint;
class UBlueprintGeneratedClass;
class FCompilerResultsLog;

enum class EBlueprintCompileOptions
{
	None = 0x0,
	IsRegeneratingOnLoad = 0x1,
	SkipGarbageCollection = 0x2,
	SaveIntermediateProducts = 0x4,
	SkeletonUpToDate = 0x8,
	BatchCompile = 0x10,
	SkipSave = 0x20,
	SkipReinstancing = 0x40,
	RegenerateSkeletonOnly = 0x80,
	SkipDefaultObjectValidation = 0x100,
	SkipFiBSearchMetaUpdate = 0x200,
	UseDeltaSerializationDuringReinstancing = 0x400,
	SkipNewVariableDefaultsDetection = 0x800,
	IncludeCDOInReferenceReplacement = 0x1000,
};
ENUM_CLASS_FLAGS(EBlueprintCompileOptions)

class UNREALED_API FKismetEditorUtilities
{
public:
	// Makes the class of the Blueprint anew from its variables, graphs, components and interfaces, checks
	// the graphs and sets its status (errors: BS_Error; warnings: BS_UpToDateWithWarnings). Objects of the
	// old class keep the values of properties that stay.
	static void CompileBlueprint(UBlueprint* BlueprintObj, EBlueprintCompileOptions CompileFlags = EBlueprintCompileOptions::None, FCompilerResultsLog* pResults = nullptr);

	// A new Blueprint of the parent class in Outer (its package), with its event graph (and, for an actor
	// class, its construction script), compiled once. Null when the parent can't be a Blueprint's parent.
	static UBlueprint* CreateBlueprint(UClass* ParentClass, UObject* Outer, const FName NewBPName, enum EBlueprintType BlueprintType, TSubclassOf<UBlueprint> BlueprintClassType, TSubclassOf<UBlueprintGeneratedClass> BlueprintGeneratedClassType, FName CallingContext = NAME_None);
	static UBlueprint* CreateBlueprint(UClass* ParentClass, UObject* Outer, const FName NewBPName, enum EBlueprintType BlueprintType, FName CallingContext = NAME_None);

	// Whether a Blueprint may derive from the class (not final, not an interface, not deprecated...).
	static bool CanCreateBlueprintOfClass(const UClass* Class);
	// An event node in the graph overriding the parent class's event (ReceiveBeginPlay of AActor...), placed
	// below the last one (InOutNodePosY moves on); the existing one when the graph has it already.
	static class UK2Node_Event* AddDefaultEventNode(UBlueprint* InBlueprint, class UEdGraph* InGraph, FName InEventName, UClass* InEventClass, int32& InOutNodePosY);
	static bool IsClassABlueprintSkeleton(const UClass* Class)
	{
		return false;
	}
};
