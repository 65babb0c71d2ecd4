#pragma once

#include "CoreMinimal.h"
#include "Dom/JsonObject.h"
#include "EdGraph/EdGraphPin.h"

class FProperty;
class UBehaviorTree;
class UBlueprint;
class UBTCompositeNode;
class UBTNode;
class UClass;
class UEdGraph;
class UEdGraphNode;
class UObject;
struct FAssetData;

/**
 * Static operations of the Blueprint tools: finding, creating, compiling and saving Blueprints, and their
 * JSON views. Tool-facing operations answer with a text that goes to the backend as it stands: plain text
 * beginning with "Error:"/"Success:" from CreateBlueprintAsset, a JSON document holding "Error" or
 * "Success" from the others. Names from the backend are compared without regard to case.
 */
class TAVRINE_API FTavrineBlueprintUtils
{
public:
	FTavrineBlueprintUtils() = delete;

	// Lookups by the names the backend gives. Null when nothing matches or the asset can't be loaded.
	/** The Blueprint asset of exactly class UBlueprint with that name (so never an Animation Blueprint). */
	static UBlueprint* GetBlueprintFromtBlueprintName(const FString& BlueprintName);
	/** A class in memory of that short name or path ("Actor"), or else the class of the Blueprint asset of that name. */
	static UClass* GetBlueprintClassFromBlueprintName(const FString& BlueprintName);
	/** The class a Blueprint asset generates, by its "GeneratedClass" tag; the asset's own class without one. */
	static UClass* GetBlueprintClassFromAssetData(const FAssetData& AssetData);
	/** The behaviour tree asset of that name; its reader lives beside the tree's own document. */
	static UBehaviorTree* GetBehaviorTreeFromBehaviorTreeName(const FString& BehaviorTreeName);
	/** The nearest class up the chain that is not compiled from a Blueprint. */
	static UClass* FindFirstCppImplementedParentClass(UClass* Class);
	/**
	 * The first asset of exactly AssetClass (subclasses are not searched) whose whole name matches, in the
	 * registry's order. The lookup that every tool's name resolution shares.
	 */
	static bool FindAssetDataByName(const UClass* AssetClass, const FString& AssetName, FAssetData& OutAssetData);

	// Making and storing Blueprints.
	static FString CreateBlueprintAsset(const FString& BlueprintPath, const FString& BlueprintName, const FString& ParentClassName);
	static FString CompileBlueprint(UObject* Object);
	static FString SaveBlueprint(UObject* Object);
	/** Saves, then compiles, every Blueprint asset whose package has unsaved changes; loads every Blueprint asset. */
	static FString SaveAndCompileAllDirtyBlueprints();
	/** The object as JSON text; empty for null. */
	static FString SerializeJson(const TSharedPtr<FJsonObject>& JsonObject);

	// The Blueprint document.
	/** DataSubset is "All" or one of the document's section keys, in any case. */
	static FString ReadBlueprint(const FString& BlueprintName, const FString& DataSubset);
	static FString ReadBehaviorTree(const FString& BehaviorTreeName);

private:
	friend class FBlueprintUtilsTestAccess;

	// Type mapping between the engine's pin types and properties and their JSON shapes. Failures give the
	// default pin type (category None); the callers decide what that means.
	/** The pin type object: "Category", "SubCategory", "SubCategoryObject", "Container", "ValueType", "Flags". */
	static TSharedPtr<FJsonObject> ConvertEdGraphPinTypeToJson(const FEdGraphPinType& PinType);
	/** Reads the pin type object held under "Type" of Holder; objects it names must be in memory. */
	static FEdGraphPinType ConvertJsonToEdGraphPinType(const TSharedPtr<FJsonObject>& Holder);
	/** Reads the property type object ("Type": "ObjectProperty", ...); loads the classes, structs and enums it names. */
	static FEdGraphPinType GetVarEdGraphPinTypeFromJSonObject(const TSharedPtr<FJsonObject>& TypeObject);
	static FEdGraphPinType ConvertPropertyToEdGraphPinType(const FProperty* Property);
	static TSharedPtr<FJsonObject> GetVarJSonObjectFromProperty(const FProperty* Property);
	/** The value of Property in Container (an object or a struct) as export text, with the readers' fallbacks. */
	static FString GetPropertyValueAsString(const void* Container, const FProperty* Property);

	/** The graph document: its nodes, their pins and the links between them, by node title and pin name. */
	static TSharedPtr<FJsonObject> ReadEdGraph(const UEdGraph* Graph);

	// The sections of the Blueprint document.
	static TSharedPtr<FJsonObject> BuildBlueprintDocument(const UBlueprint* Blueprint, const UClass* GeneratedClass);
	static TSharedPtr<FJsonObject> ReadVariables(const UClass* GeneratedClass);
	/** The properties of Struct that the settings' content filter shows, with their types and values in Container. */
	static TSharedPtr<FJsonObject> ReadShownProperties(const UStruct* Struct, const void* Container);
	static TArray<TSharedPtr<FJsonValue>> ReadFunctions(const UBlueprint* Blueprint, const UClass* GeneratedClass);
	static TArray<TSharedPtr<FJsonValue>> ReadComponents(const UClass* GeneratedClass);
	static TArray<TSharedPtr<FJsonValue>> ReadInterfaces(const UBlueprint* Blueprint);
	static TArray<TSharedPtr<FJsonValue>> ReadGraphs(const TArray<TObjectPtr<UEdGraph>>& Graphs);

	// The behaviour tree document.
	static TSharedPtr<FJsonObject> ReadBehaviorTreeNode(const UBTNode* Node);
	static TSharedPtr<FJsonObject> ReadBehaviorTreeComposite(const UBTCompositeNode* Composite);

	// Modifying a Blueprint through a JSON document. Each section applies its entries in order, lists what
	// failed or was made, and returns whether anything changed; a bad entry ends only itself.
public:
	/**
	 * Applies the document's "Variables", "Functions" and "Graphs" in that order under one transaction named
	 * after the conversation, then compiles and saves the Blueprint if anything changed. The JSON answer holds
	 * each section's messages and one of "Success", "Error" or "Message".
	 */
	static FString ModifyBlueprint(const FString& BlueprintName, const FString& ModificationJson);

private:
	static bool ModifyBlueprintVariables(UBlueprint* Blueprint, const FJsonObject& Variables, TSharedPtr<FJsonObject>& Result);
	/** A replicated function "OnRep_<Variable>" that the variable's changes call; an existing one is left alone. */
	static void CreateRepNotifyFunction(UBlueprint* Blueprint, const FString& FunctionName);
	static bool ModifyBlueprintFunctions(UBlueprint* Blueprint, const TArray<TSharedPtr<FJsonValue>>& Functions, TSharedPtr<FJsonObject>& Result);
	static bool ModifyBlueprintGraphs(UBlueprint* Blueprint, const TArray<TSharedPtr<FJsonValue>>& Graphs, TSharedPtr<FJsonObject>& Result);
	/** Makes the node a node entry describes ("Class", "Location", "Properties") in Graph; null when it can't. */
	static UEdGraphNode* CreateEdGraphNode(const TSharedPtr<FJsonObject>& NodeEntry, UEdGraph* Graph);
	/** Applies the entry's comment, pin values, directions and links to the node; true when anything changed. */
	static bool ModifyNodeProperties(UEdGraphNode* Node, const FJsonObject& NodeEntry, UEdGraph* Graph);
	/** Makes and sets up the node of each entry in turn; true when a node's properties changed anything. */
	static bool AddNodesToGraph(UEdGraph* Graph, const TArray<TSharedPtr<FJsonValue>>& NodeEntries);
};
