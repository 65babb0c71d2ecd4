// UBlueprint: a class defined in the editor by variables, graphs, components and interfaces, compiled into a
// generated class.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "UObject/Object.h"
#include "UObject/CoreNetTypes.h"
#include "Templates/SubclassOf.h"
#include "EdGraph/EdGraphPin.h"
#include "Engine/BlueprintCore.h"
#include "Blueprint.generated.h"

class UEdGraph;
class UInterface;
class USimpleConstructionScript;
class UTimelineTemplate;
class UActorComponent;
class UBlueprintGeneratedClass;

/** Where a Blueprint stands with its compile. */
UENUM()
enum EBlueprintStatus : int
{
	/** Not known, as after a change. */
	BS_Unknown,
	/** Changed since it was compiled. */
	BS_Dirty,
	/** The last compile failed. */
	BS_Error,
	/** Compiled since the last change. */
	BS_UpToDate,
	/** Being made for the first time. */
	BS_BeingCreated,
	/** Compiled, with warnings. */
	BS_UpToDateWithWarnings,
	BS_MAX,
};

/** What kind of Blueprint it is. */
UENUM()
enum EBlueprintType : int
{
	BPTYPE_Normal,
	BPTYPE_Const,
	BPTYPE_MacroLibrary,
	BPTYPE_Interface,
	BPTYPE_LevelScript,
	BPTYPE_FunctionLibrary,
	BPTYPE_MAX,
};

/** A metadata entry of a Blueprint variable. */
USTRUCT()
struct FBPVariableMetaDataEntry
{
	GENERATED_BODY()

	UPROPERTY(EditAnywhere, Category = BPVariableMetaDataEntry)
	FName DataKey;

	UPROPERTY(EditAnywhere, Category = BPVariableMetaDataEntry)
	FString DataValue;

	FBPVariableMetaDataEntry() = default;
	FBPVariableMetaDataEntry(const FName InKey, FString InValue)
		: DataKey(InKey)
		, DataValue(MoveTemp(InValue))
	{
	}
};

/** A member variable of a Blueprint, as its editor defines it. */
USTRUCT()
struct ENGINE_API FBPVariableDescription
{
	GENERATED_BODY()

	UPROPERTY(EditAnywhere, Category = BPVariableDescription)
	FName VarName;

	/** Stays the same when the variable is renamed. */
	UPROPERTY(EditAnywhere, Category = BPVariableDescription)
	FGuid VarGuid;

	UPROPERTY(EditAnywhere, Category = BPVariableDescription)
	FEdGraphPinType VarType;

	UPROPERTY(EditAnywhere, Category = BPVariableDescription)
	FString FriendlyName;

	UPROPERTY(EditAnywhere, Category = BPVariableDescription)
	FText Category;

	UPROPERTY(EditAnywhere, Category = BPVariableDescription)
	uint64 PropertyFlags = 0;

	UPROPERTY(EditAnywhere, Category = BPVariableDescription)
	FName RepNotifyFunc;

	UPROPERTY(EditAnywhere, Category = BPVariableDescription)
	TEnumAsByte<ELifetimeCondition> ReplicationCondition = COND_None;

	UPROPERTY(EditAnywhere, Category = BPVariableDescription)
	TArray<FBPVariableMetaDataEntry> MetaDataArray;

	/** The default value, in the text form of the property the variable becomes. */
	UPROPERTY(EditAnywhere, Category = BPVariableDescription)
	FString DefaultValue;

	FBPVariableDescription() = default;

	void SetMetaData(FName Key, FString Value);
	// The value of the key; the key must be there (see HasMetaData).
	const FString& GetMetaData(FName Key) const;
	void RemoveMetaData(FName Key);
	int32 FindMetaDataEntryIndexForKey(FName Key) const;
	bool HasMetaData(FName Key) const
	{
		return FindMetaDataEntryIndexForKey(Key) != INDEX_NONE;
	}
};

/** An interface a Blueprint implements, with the graphs of its functions. */
USTRUCT()
struct FBPInterfaceDescription
{
	GENERATED_BODY()

	UPROPERTY()
	TSubclassOf<UInterface> Interface;

	UPROPERTY()
	TArray<TObjectPtr<UEdGraph>> Graphs;
};

UCLASS(config = Engine)
class ENGINE_API UBlueprint : public UBlueprintCore
{
	GENERATED_BODY()

public:
	UBlueprint(const FObjectInitializer& ObjectInitializer = FObjectInitializer::Get());

	/** The class the generated class derives from. */
	UPROPERTY(AssetRegistrySearchable)
	TSubclassOf<UObject> ParentClass;

	UPROPERTY(AssetRegistrySearchable)
	TEnumAsByte<EBlueprintType> BlueprintType = BPTYPE_Normal;

	/** Where the Blueprint stands with its compile; not part of undo. */
	UPROPERTY(Transient, NonTransactional)
	TEnumAsByte<EBlueprintStatus> Status = BS_Unknown;

	UPROPERTY(AssetRegistrySearchable)
	FString BlueprintDescription;

	UPROPERTY(AssetRegistrySearchable)
	FString BlueprintCategory;

	UPROPERTY()
	TArray<FBPVariableDescription> NewVariables;

	/** The construction script's components; only actor Blueprints have one. */
	UPROPERTY()
	TObjectPtr<USimpleConstructionScript> SimpleConstructionScript;

	UPROPERTY()
	TArray<TObjectPtr<UEdGraph>> UbergraphPages;

	UPROPERTY()
	TArray<TObjectPtr<UEdGraph>> FunctionGraphs;

	UPROPERTY()
	TArray<TObjectPtr<UEdGraph>> DelegateSignatureGraphs;

	UPROPERTY()
	TArray<TObjectPtr<UEdGraph>> MacroGraphs;

	UPROPERTY()
	TArray<TObjectPtr<UEdGraph>> EventGraphs;

	UPROPERTY(Transient, NonTransactional)
	TArray<TObjectPtr<UEdGraph>> IntermediateGeneratedGraphs;

	UPROPERTY()
	TArray<FBPInterfaceDescription> ImplementedInterfaces;

	UPROPERTY()
	TArray<TObjectPtr<UTimelineTemplate>> Timelines;

	UPROPERTY()
	TArray<TObjectPtr<UActorComponent>> ComponentTemplates;

	bool IsUpToDate() const
	{
		return Status == BS_UpToDate || Status == BS_UpToDateWithWarnings;
	}
	bool IsPossiblyDirty() const
	{
		return Status == BS_Dirty || Status == BS_Unknown;
	}
	UClass* GetBlueprintClass() const;
	UBlueprintGeneratedClass* GetGeneratedClass() const;

	UTimelineTemplate* FindTimelineTemplateByVariableName(const FName& TimelineName);
	const UTimelineTemplate* FindTimelineTemplateByVariableName(const FName& TimelineName) const;
	// Every graph of the Blueprint: pages, functions, macros, delegates, interfaces' graphs and their subgraphs.
	void GetAllGraphs(TArray<UEdGraph*>& Graphs) const;

	// The Blueprint's parent chain, from the closest: Blueprints whose classes this one derives from.
	static bool GetBlueprintHierarchyFromClass(const UClass* InClass, TArray<UBlueprint*>& OutBlueprintParents);
	static UBlueprint* GetBlueprintFromClass(const UClass* InClass);

	// "GeneratedClass", "ParentClass", "NativeParentClass", "BlueprintType", "IsDataOnly" and the searchable values.
	virtual void GetAssetRegistryTags(TArray<FAssetRegistryTag>& OutTags) const override;
	virtual bool IsAsset() const override;
	virtual void PostLoad() override;
	virtual void PostEditUndo() override;
};
