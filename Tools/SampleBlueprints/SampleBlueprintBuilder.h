// Makes Blueprints through the editor's own operations: the sample project's content, and the Blueprints
// that the tests and benchmarks read.
#pragma once

#include "CoreMinimal.h"
#include "EdGraph/EdGraphPin.h"
#include "Engine/Blueprint.h"

class UEdGraph;
class UEdGraphNode;

class FSampleBlueprintBuilder
{
public:
	// The names of the sample content, under /Game/Blueprints.
	static const TCHAR* const Folder;

	/** A new Blueprint asset in its own package at PackageName ("/Game/Blueprints/BP_Door"); null when that fails. */
	static UBlueprint* CreateBlueprint(const FString& PackageName, UClass* ParentClass, EBlueprintType Type = BPTYPE_Normal, UClass* BlueprintClass = nullptr, UClass* GeneratedClass = nullptr);

	static FEdGraphPinType MakePinType(FName Category, UObject* SubCategoryObject = nullptr, EPinContainerType Container = EPinContainerType::None);
	static FEdGraphPinType MakeRealPinType();

	/** A function graph with parameters; its entry and result nodes come back through the out arguments. */
	static UEdGraph* AddFunction(UBlueprint* Blueprint, FName Name, const TArray<TPair<FName, FEdGraphPinType>>& Inputs, const TArray<TPair<FName, FEdGraphPinType>>& Outputs, UEdGraphNode*& OutEntry, UEdGraphNode*& OutResult);
	static UEdGraphNode* AddPrintString(UEdGraph* Graph, const FString& Text, int32 X, int32 Y);
	static UEdGraphNode* AddEvent(UBlueprint* Blueprint, UEdGraph* Graph, FName EventName, int32 X, int32 Y);
	/** Links two pins through the schema's checked connection; false when the types refuse. */
	static bool Link(UEdGraphNode* From, FName FromPin, UEdGraphNode* To, FName ToPin);

	// The sample content. Each is compiled; none is saved.
	/** A mesh actor Blueprint with variables of many kinds, a function and an event graph. */
	static UBlueprint* MakeShowcase(const FString& PackageName);
	/** A Blueprint whose parent is another Blueprint's class. */
	static UBlueprint* MakeChild(const FString& PackageName, UBlueprint* Parent);
	/** A Blueprint interface with one function. */
	static UBlueprint* MakeInterface(const FString& PackageName);
	/** An actor Blueprint that implements the interface. */
	static UBlueprint* MakeInterfaceUser(const FString& PackageName, UBlueprint* Interface);
	/** An Animation Blueprint; its asset class is not UBlueprint. */
	static UBlueprint* MakeAnimBlueprint(const FString& PackageName);
	/** An event graph of NodeCount nodes in chains of Print String calls, and VariableCount variables. */
	static UBlueprint* MakeLarge(const FString& PackageName, int32 NodeCount, int32 VariableCount);

	/** Saves the Blueprint's package to its file under the project's content folder. */
	static bool Save(UBlueprint* Blueprint);
};
