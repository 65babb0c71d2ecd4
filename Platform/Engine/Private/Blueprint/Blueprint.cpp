#include "Engine/Blueprint.h"
#include "Engine/BlueprintGeneratedClass.h"
#include "Engine/SimpleConstructionScript.h"
#include "Engine/TimelineTemplate.h"
#include "EdGraph/EdGraph.h"
#include "UObject/Interface.h"
#include "UObject/Package.h"

UBlueprintCore::UBlueprintCore(const FObjectInitializer& ObjectInitializer)
	: Super(ObjectInitializer)
{
}

void FBPVariableDescription::SetMetaData(FName Key, FString Value)
{
	const int32 Index = FindMetaDataEntryIndexForKey(Key);
	if (Index != INDEX_NONE)
	{
		MetaDataArray[Index].DataValue = MoveTemp(Value);
	}
	else
	{
		MetaDataArray.Emplace(Key, MoveTemp(Value));
	}
}

const FString& FBPVariableDescription::GetMetaData(FName Key) const
{
	const int32 Index = FindMetaDataEntryIndexForKey(Key);
	check(Index != INDEX_NONE);
	return MetaDataArray[Index].DataValue;
}

void FBPVariableDescription::RemoveMetaData(FName Key)
{
	const int32 Index = FindMetaDataEntryIndexForKey(Key);
	if (Index != INDEX_NONE)
	{
		MetaDataArray.RemoveAt(Index);
	}
}

int32 FBPVariableDescription::FindMetaDataEntryIndexForKey(FName Key) const
{
	for (int32 Index = 0; Index < MetaDataArray.Num(); ++Index)
	{
		if (MetaDataArray[Index].DataKey == Key)
		{
			return Index;
		}
	}
	return INDEX_NONE;
}

UBlueprint::UBlueprint(const FObjectInitializer& ObjectInitializer)
	: Super(ObjectInitializer)
{
}

UClass* UBlueprint::GetBlueprintClass() const
{
	return GeneratedClass;
}

UBlueprintGeneratedClass* UBlueprint::GetGeneratedClass() const
{
	return Cast<UBlueprintGeneratedClass>(GeneratedClass.Get());
}

UTimelineTemplate* UBlueprint::FindTimelineTemplateByVariableName(const FName& TimelineName)
{
	for (UTimelineTemplate* Timeline : Timelines)
	{
		if (Timeline != nullptr && (Timeline->GetVariableName() == TimelineName || Timeline->GetFName() == TimelineName))
		{
			return Timeline;
		}
	}
	return nullptr;
}

const UTimelineTemplate* UBlueprint::FindTimelineTemplateByVariableName(const FName& TimelineName) const
{
	return const_cast<UBlueprint*>(this)->FindTimelineTemplateByVariableName(TimelineName);
}

void UBlueprint::GetAllGraphs(TArray<UEdGraph*>& Graphs) const
{
	auto AddGraphs = [&Graphs](const TArray<TObjectPtr<UEdGraph>>& Source)
	{
		for (UEdGraph* Graph : Source)
		{
			if (Graph != nullptr)
			{
				Graphs.Add(Graph);
				Graph->GetAllChildrenGraphs(Graphs);
			}
		}
	};
	AddGraphs(FunctionGraphs);
	AddGraphs(MacroGraphs);
	AddGraphs(UbergraphPages);
	AddGraphs(DelegateSignatureGraphs);
	AddGraphs(EventGraphs);
	for (const FBPInterfaceDescription& Interface : ImplementedInterfaces)
	{
		AddGraphs(Interface.Graphs);
	}
}

UBlueprint* UBlueprint::GetBlueprintFromClass(const UClass* InClass)
{
	return InClass != nullptr ? Cast<UBlueprint>(InClass->ClassGeneratedBy) : nullptr;
}

bool UBlueprint::GetBlueprintHierarchyFromClass(const UClass* InClass, TArray<UBlueprint*>& OutBlueprintParents)
{
	OutBlueprintParents.Reset();
	bool bAllBlueprints = true;
	for (const UClass* Class = InClass; Class != nullptr; Class = Class->GetSuperClass())
	{
		if (UBlueprint* Blueprint = GetBlueprintFromClass(Class))
		{
			OutBlueprintParents.Add(Blueprint);
		}
		else if (Class->HasAnyClassFlags(CLASS_CompiledFromBlueprint))
		{
			bAllBlueprints = false;
		}
		else
		{
			break;
		}
	}
	return bAllBlueprints;
}

namespace
{
	FString ExportPathOf(const UObject* Object)
	{
		return Object != nullptr ? FString::Printf(TEXT("%s'%s'"), *Object->GetClass()->GetPathName(), *Object->GetPathName()) : FString();
	}
}

void UBlueprint::GetAssetRegistryTags(TArray<FAssetRegistryTag>& OutTags) const
{
	Super::GetAssetRegistryTags(OutTags);
	const TCHAR* const OwnTags[] = {TEXT("GeneratedClass"), TEXT("ParentClass"), TEXT("NativeParentClass"), TEXT("BlueprintType"), TEXT("IsDataOnly"), TEXT("NumReplicatedProperties")};
	OutTags.RemoveAll([&OwnTags](const FAssetRegistryTag& Tag)
	{
		for (const TCHAR* Name : OwnTags)
		{
			if (Tag.Name == FName(Name))
			{
				return true;
			}
		}
		return false;
	});
	UClass* NativeParent = ParentClass.Get();
	while (NativeParent != nullptr && NativeParent->HasAnyClassFlags(CLASS_CompiledFromBlueprint))
	{
		NativeParent = NativeParent->GetSuperClass();
	}
	OutTags.Add(FAssetRegistryTag(FName(TEXT("GeneratedClass")), ExportPathOf(GeneratedClass.Get()), FAssetRegistryTag::TT_Hidden));
	OutTags.Add(FAssetRegistryTag(FName(TEXT("ParentClass")), ExportPathOf(ParentClass.Get()), FAssetRegistryTag::TT_Alphabetical));
	OutTags.Add(FAssetRegistryTag(FName(TEXT("NativeParentClass")), ExportPathOf(NativeParent), FAssetRegistryTag::TT_Alphabetical));
	const UEnum* TypeEnum = StaticEnum<EBlueprintType>();
	OutTags.Add(FAssetRegistryTag(FName(TEXT("BlueprintType")), TypeEnum != nullptr ? TypeEnum->GetNameStringByValue(BlueprintType) : FString(), FAssetRegistryTag::TT_Alphabetical));
	const bool bDataOnly = FunctionGraphs.Num() == 0 && MacroGraphs.Num() == 0 && DelegateSignatureGraphs.Num() == 0 && NewVariables.Num() == 0 && ImplementedInterfaces.Num() == 0;
	OutTags.Add(FAssetRegistryTag(FName(TEXT("IsDataOnly")), bDataOnly ? TEXT("True") : TEXT("False"), FAssetRegistryTag::TT_Alphabetical));
}

bool UBlueprint::IsAsset() const
{
	return Super::IsAsset();
}

void UBlueprint::PostLoad()
{
	Super::PostLoad();
	SkeletonGeneratedClass = GeneratedClass;
	if (GeneratedClass != nullptr)
	{
		GeneratedClass->ClassGeneratedBy = this;
	}
	// A class that came back with the Blueprint is its last good compile.
	Status = GeneratedClass != nullptr ? BS_UpToDate : BS_Dirty;
}

namespace
{
	const ERenameFlags QuietRename = REN_DontCreateRedirectors | REN_NonTransactional | REN_DoNotDirty | REN_ForceNoResetLoaders;

	// Moves a class and its default object to (or back from) the transient package under the given names.
	void MoveClass(UClass* Class, UObject* NewOuter, const FString& ClassName, const FString& DefaultsName, bool bPublic)
	{
		if (UObject* Defaults = Class->GetDefaultObject(false))
		{
			Defaults->Rename(*DefaultsName, NewOuter, QuietRename);
			bPublic ? Defaults->SetFlags(RF_Public) : Defaults->ClearFlags(RF_Public | RF_Standalone);
		}
		Class->Rename(*ClassName, NewOuter, QuietRename);
		bPublic ? Class->SetFlags(RF_Public) : Class->ClearFlags(RF_Public | RF_Standalone);
	}
}

void UBlueprint::PostEditUndo()
{
	Super::PostEditUndo();
	// The class a compile replaced waits in the transient package; undo (or redo) of the state it was made from
	// brings it back under the Blueprint's class name, so that the class follows the Blueprint's state.
	const FString ClassName = GetName() + TEXT("_C");
	UObject* Package = GetOuter();
	UClass* Current = FindObjectFast<UClass>(Package, FName(*ClassName));
	UClass* Recorded = GeneratedClass.Get();
	if (Recorded != nullptr && Recorded != Current && Recorded->GetOuter() != Package)
	{
		if (Current != nullptr)
		{
			const FString Retired = MakeUniqueObjectName(GetTransientPackage(), UClass::StaticClass(), FName(*(TEXT("REINST_") + ClassName))).ToString();
			MoveClass(Current, GetTransientPackage(), Retired, TEXT("REINST_Default__") + Retired, false);
		}
		MoveClass(Recorded, Package, ClassName, TEXT("Default__") + ClassName, true);
	}
	else if (Recorded == nullptr)
	{
		GeneratedClass = Current;
	}
	SkeletonGeneratedClass = GeneratedClass;
	Status = BS_Dirty;
}

UBlueprintGeneratedClass::UBlueprintGeneratedClass(const FObjectInitializer& ObjectInitializer)
	: Super(ObjectInitializer)
{
}

bool UBlueprintGeneratedClass::GetGeneratedClassesHierarchy(const UClass* InClass, TArray<const UBlueprintGeneratedClass*>& OutBPGClasses)
{
	OutBPGClasses.Reset();
	bool bNoErrors = true;
	for (const UClass* Class = InClass; Class != nullptr; Class = Class->GetSuperClass())
	{
		if (const UBlueprintGeneratedClass* Generated = Cast<UBlueprintGeneratedClass>(Class))
		{
			OutBPGClasses.Add(Generated);
		}
		else if (Class->HasAnyClassFlags(CLASS_CompiledFromBlueprint))
		{
			bNoErrors = false;
		}
	}
	return bNoErrors;
}
