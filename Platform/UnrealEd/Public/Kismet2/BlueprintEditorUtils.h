// FBlueprintEditorUtils: editing Blueprints: variables, graphs, interfaces, timelines, components, and telling
// the editor what changed. Every change goes through Modify, so that a transaction undoes it.
#pragma once

#include "CoreMinimal.h"
#include "Templates/SubclassOf.h"
#include "UObject/TopLevelAssetPath.h"
#include "Engine/Blueprint.h"
#include "EdGraph/EdGraphPin.h"

class UEdGraph;
class UEdGraphNode;
class UEdGraphSchema;
class UK2Node_Event;
class UK2Node_EditablePinBase;
class UK2Node_FunctionResult;
class UK2Node_Timeline;
class USCS_Node;
class UTimelineTemplate;
struct FKismetUserDeclaredFunctionMetadata;
struct FPropertyChangedEvent;

class UNREALED_API FBlueprintEditorUtils
{
public:
	// A new graph object in ParentScope with that schema; null when the name is taken there.
	static UEdGraph* CreateNewGraph(UObject* ParentScope, const FName& GraphName, TSubclassOf<UEdGraph> GraphClass, TSubclassOf<UEdGraphSchema> SchemaClass);

	// Adds a function graph; its default nodes (entry, and result when the signature returns something) are
	// made from the signature: a UClass (whose function of the graph's name is overridden) or a UFunction.
	template<typename SignatureType>
	static void AddFunctionGraph(UBlueprint* Blueprint, UEdGraph* Graph, bool bIsUserCreated, SignatureType* SignatureFromObject)
	{
		AddFunctionGraphImpl(Blueprint, Graph, bIsUserCreated, static_cast<UObject*>(SignatureFromObject));
	}
	static void AddUbergraphPage(UBlueprint* Blueprint, UEdGraph* Graph);
	static void AddMacroGraph(UBlueprint* Blueprint, UEdGraph* Graph, bool bIsUserCreated, UClass* SignatureFromClass);
	static void AddInterfaceGraph(UBlueprint* Blueprint, UEdGraph* Graph, UClass* InterfaceClass);
	static void AddDomainSpecificGraph(UBlueprint* Blueprint, UEdGraph* Graph);
	// Takes the graph out of the Blueprint and frees its nodes.
	static void RemoveGraph(UBlueprint* Blueprint, UEdGraph* GraphToRemove);

	// Adds a member variable; false when the name is taken (also by a parent class) or the type has no category.
	static bool AddMemberVariable(UBlueprint* Blueprint, const FName& NewVarName, const FEdGraphPinType& NewVarType, const FString& DefaultValue = FString());
	static void RemoveMemberVariable(UBlueprint* Blueprint, const FName VarName);
	static void RenameMemberVariable(UBlueprint* Blueprint, const FName OldName, const FName NewName);
	static void ChangeMemberVariableType(UBlueprint* Blueprint, const FName VariableName, const FEdGraphPinType& NewPinType);
	static int32 FindNewVariableIndex(const UBlueprint* Blueprint, const FName& InName);
	static int32 FindNewVariableIndexAndBlueprint(UBlueprint* InBlueprint, FName InName, UBlueprint*& OutFoundBlueprint);
	static void SetBlueprintVariableMetaData(UBlueprint* Blueprint, const FName& VarName, const UStruct* InLocalVarScope, const FName& MetaDataKey, const FString& MetaDataValue);
	static bool GetBlueprintVariableMetaData(const UBlueprint* Blueprint, const FName& VarName, const UStruct* InLocalVarScope, const FName& MetaDataKey, FString& OutMetaDataValue);
	static void RemoveBlueprintVariableMetaData(UBlueprint* Blueprint, const FName& VarName, const UStruct* InLocalVarScope, const FName& MetaDataKey);
	static void SetBlueprintVariableCategory(UBlueprint* Blueprint, const FName& VarName, const UStruct* InLocalVarScope, const FText& NewCategory, bool bDontRecompile = false);
	static void SetBlueprintPropertyReadOnlyFlag(UBlueprint* Blueprint, const FName& VarName, const bool bVariableIsReadOnly);
	static void SetInterfaceFlags(UBlueprint* Blueprint, const FName& VarName, const bool bInstanceEditable);
	// The names of the Blueprint's member variables (its own), in order.
	static void GetClassVariableList(const UBlueprint* Blueprint, TArray<FName>& VisibleVariables, bool bIncludePrivateVars = false);

	static bool ImplementNewInterface(UBlueprint* Blueprint, FTopLevelAssetPath InterfaceClassPathName);
	static void RemoveInterface(UBlueprint* Blueprint, FTopLevelAssetPath InterfaceClassPathName, bool bPreserveFunctions = false);
	static void GetInterfaceGraphs(UBlueprint* Blueprint, FTopLevelAssetPath InterfaceClassPathName, TArray<UEdGraph*>& ChildGraphs);
	static bool IsInterfaceGraph(const UEdGraph* Graph);
	static void ConformDelegateSignatureGraphs(UBlueprint* Blueprint);

	static UTimelineTemplate* AddNewTimeline(UBlueprint* Blueprint, const FName& TimelineVarName);
	static void RemoveTimeline(UBlueprint* Blueprint, UTimelineTemplate* Timeline, bool bDontRecompile = false);
	static UK2Node_Timeline* FindNodeForTimeline(UBlueprint* Blueprint, UTimelineTemplate* Timeline);
	static int32 FindTimelineIndex(const UBlueprint* Blueprint, const FName& InName);
	static FName FindUniqueTimelineName(const UBlueprint* Blueprint);

	static USCS_Node* FindSCS_Node(const UBlueprint* Blueprint, const FName InName);
	static void RenameComponentMemberVariable(UBlueprint* Blueprint, USCS_Node* Node, const FName NewName);

	static UBlueprint* FindBlueprintForGraph(const UEdGraph* Graph);
	static UBlueprint* FindBlueprintForGraphChecked(const UEdGraph* Graph);
	static UBlueprint* FindBlueprintForNode(const UEdGraphNode* Node);
	static UBlueprint* FindBlueprintForNodeChecked(const UEdGraphNode* Node);
	static UEdGraph* FindEventGraph(const UBlueprint* Blueprint);
	static UEdGraph* FindUserConstructionScript(const UBlueprint* Blueprint);
	static UEdGraph* FindScopeGraph(const UBlueprint* InBlueprint, const UStruct* InScope);
	static UK2Node_Event* FindOverrideForFunction(const UBlueprint* Blueprint, const UClass* SignatureClass, FName SignatureName);
	static UK2Node_FunctionResult* FindOrCreateFunctionResultNode(UK2Node_EditablePinBase* InFunctionEntryNode);
	static FKismetUserDeclaredFunctionMetadata* GetGraphFunctionMetaData(const UEdGraph* InGraph);
	static void GetAllGraphs(const UBlueprint* Blueprint, TArray<UEdGraph*>& Graphs);
	static void GetAllNodesOfClass(const UBlueprint* Blueprint, TSubclassOf<UEdGraphNode> NodeClass, TArray<UEdGraphNode*>& OutNodes);
	template<typename T>
	static void GetAllNodesOfClass(const UBlueprint* Blueprint, TArray<T*>& OutNodes)
	{
		TArray<UEdGraphNode*> Nodes;
		GetAllNodesOfClass(Blueprint, T::StaticClass(), Nodes);
		for (UEdGraphNode* Node : Nodes)
		{
			OutNodes.Add(static_cast<T*>(Node));
		}
	}
	// Whether a name is free in the Blueprint for a new variable, function, graph or component.
	static bool IsNameFree(const UBlueprint* Blueprint, const FName& Name);
	static FName FindUniqueKismetName(const UBlueprint* InBlueprint, const FString& InBaseName, UStruct* InScope = nullptr);

	// The Blueprint changed in its structure (variables, functions, components): it is dirty and its skeleton
	// class is made again.
	static void MarkBlueprintAsStructurallyModified(UBlueprint* Blueprint);
	// The Blueprint changed (a node, a default): it is dirty and needs a compile.
	static void MarkBlueprintAsModified(UBlueprint* Blueprint);
	static void MarkBlueprintAsModified(UBlueprint* Blueprint, FPropertyChangedEvent PropertyChangedEvent);
	static bool IsActorBased(const UBlueprint* Blueprint);
	static bool IsAnimBlueprint(const UBlueprint* Blueprint);
	static bool IsDataOnlyBlueprint(const UBlueprint* Blueprint);
	static bool SupportsConstructionScript(const UBlueprint* Blueprint);
	static UClass* GetNativeParent(const UBlueprint* Blueprint)
	{
		return FindFirstNativeClass(Blueprint != nullptr ? Blueprint->ParentClass.Get() : nullptr);
	}
	static UClass* FindFirstNativeClass(UClass* Class);

private:
	static void AddFunctionGraphImpl(UBlueprint* Blueprint, UEdGraph* Graph, bool bIsUserCreated, UObject* SignatureFromObject);
};
