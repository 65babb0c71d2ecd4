#include "Agent/BlueprintUtils.h"

#include "AssetRegistry/AssetRegistryModule.h"
#include "AssetToolsModule.h"
#include "Engine/Blueprint.h"
#include "Factories/BlueprintFactory.h"
#include "IAssetTools.h"
#include "Kismet2/KismetEditorUtilities.h"
#include "Misc/OutputDeviceError.h"
#include "Misc/PackageName.h"
#include "Modules/ModuleManager.h"
#include "Serialization/JsonReader.h"
#include "Serialization/JsonSerializer.h"
#include "Serialization/JsonWriter.h"
#include "Templates/Casts.h"
#include "UObject/Package.h"
#include "UObject/SavePackage.h"
#include "UObject/UObjectGlobals.h"

namespace
{
	IAssetRegistry& GetAssetRegistry()
	{
		return FModuleManager::LoadModuleChecked<FAssetRegistryModule>(TEXT("AssetRegistry")).Get();
	}

	TSharedPtr<FJsonObject> MakeOutcome(const TCHAR* Key, const FString& Message)
	{
		TSharedPtr<FJsonObject> Outcome = MakeShared<FJsonObject>();
		Outcome->SetStringField(Key, Message);
		return Outcome;
	}

	const TCHAR* const NotABlueprintMessage = TEXT("Provided asset is not a valid Blueprint.");

	/**
	 * Copies the outcome of a save or compile document into a save-all entry: "Error" under ErrorKey (and
	 * true), or "Success" under ResultKey. A text that isn't JSON writes neither.
	 */
	bool CopyOutcome(const FString& DocumentText, const TCHAR* ErrorKey, const TCHAR* ResultKey, FJsonObject& Entry)
	{
		TSharedPtr<FJsonObject> Document;
		if (!FJsonSerializer::Deserialize(TJsonReaderFactory<>::Create(DocumentText), Document) || !Document.IsValid())
		{
			return false;
		}
		FString Message;
		if (Document->TryGetStringField(TEXT("Error"), Message))
		{
			Entry.SetStringField(ErrorKey, Message);
			return true;
		}
		Document->TryGetStringField(TEXT("Success"), Message);
		Entry.SetStringField(ResultKey, Message);
		return false;
	}
}

bool FTavrineBlueprintUtils::FindAssetDataByName(const UClass* AssetClass, const FString& AssetName, FAssetData& OutAssetData)
{
	if (AssetClass == nullptr)
	{
		return false;
	}
	// Exactly this class: an Animation Blueprint is filed under its own class and so never answers for a Blueprint.
	TArray<FAssetData> Assets;
	GetAssetRegistry().GetAssetsByClass(AssetClass->GetClassPathName(), Assets, false);
	for (const FAssetData& Asset : Assets)
	{
		if (Asset.AssetName.ToString().Equals(AssetName, ESearchCase::IgnoreCase))
		{
			OutAssetData = Asset;
			return true;
		}
	}
	return false;
}

UBlueprint* FTavrineBlueprintUtils::GetBlueprintFromtBlueprintName(const FString& BlueprintName)
{
	FAssetData AssetData;
	if (!FindAssetDataByName(UBlueprint::StaticClass(), BlueprintName, AssetData))
	{
		return nullptr;
	}
	return Cast<UBlueprint>(AssetData.GetAsset());
}

UClass* FTavrineBlueprintUtils::GetBlueprintClassFromBlueprintName(const FString& BlueprintName)
{
	// Native classes ("Actor") and Blueprint classes already loaded need no asset query.
	if (UClass* LoadedClass = UClass::TryFindTypeSlowSafe<UClass>(BlueprintName))
	{
		return LoadedClass;
	}
	FAssetData AssetData;
	if (!FindAssetDataByName(UBlueprint::StaticClass(), BlueprintName, AssetData))
	{
		return nullptr;
	}
	return GetBlueprintClassFromAssetData(AssetData);
}

UClass* FTavrineBlueprintUtils::GetBlueprintClassFromAssetData(const FAssetData& AssetData)
{
	FString GeneratedClassPath;
	if (AssetData.GetTagValue(TEXT("GeneratedClass"), GeneratedClassPath) && !GeneratedClassPath.IsEmpty())
	{
		// The tag may be in export text form: "/Script/Engine.BlueprintGeneratedClass'/Game/BP_Door.BP_Door_C'".
		const FString ObjectPath = FPackageName::ExportTextPathToObjectPath(GeneratedClassPath);
		if (UClass* GeneratedClass = Cast<UClass>(StaticLoadObject(UClass::StaticClass(), nullptr, *ObjectPath)))
		{
			return GeneratedClass;
		}
	}
	return AssetData.GetClass();
}

UClass* FTavrineBlueprintUtils::FindFirstCppImplementedParentClass(UClass* Class)
{
	while (Class != nullptr && Class->HasAnyClassFlags(CLASS_CompiledFromBlueprint))
	{
		Class = Class->GetSuperClass();
	}
	return Class;
}

FString FTavrineBlueprintUtils::CreateBlueprintAsset(const FString& BlueprintPath, const FString& BlueprintName, const FString& ParentClassName)
{
	UClass* ParentClass = GetBlueprintClassFromBlueprintName(ParentClassName);
	if (ParentClass == nullptr)
	{
		return FString::Printf(TEXT("Error: Parent class '%s' not found or could not be loaded."), *ParentClassName);
	}

	UBlueprintFactory* Factory = NewObject<UBlueprintFactory>(GetTransientPackage());
	Factory->ParentClass = ParentClass;

	IAssetTools& AssetTools = FModuleManager::LoadModuleChecked<FAssetToolsModule>(TEXT("AssetTools")).Get();
	// Left unsaved and uncompiled: the save-all tool or the user stores it.
	UObject* NewAsset = AssetTools.CreateAsset(BlueprintName, BlueprintPath, UBlueprint::StaticClass(), Factory);
	if (NewAsset == nullptr)
	{
		return FString::Printf(TEXT("Error: Failed to create Blueprint '%s' at '%s'. Check if the path is valid and the name is unique."), *BlueprintName, *BlueprintPath);
	}
	return FString::Printf(TEXT("Success: Blueprint '%s' created at '%s'."), *BlueprintName, *BlueprintPath);
}

FString FTavrineBlueprintUtils::CompileBlueprint(UObject* Object)
{
	UBlueprint* Blueprint = Cast<UBlueprint>(Object);
	if (Blueprint == nullptr)
	{
		return SerializeJson(MakeOutcome(TEXT("Error"), NotABlueprintMessage));
	}

	FKismetEditorUtilities::CompileBlueprint(Blueprint);
	// Warnings count as a failure: the backend is told to look again.
	if (Blueprint->Status != BS_UpToDate)
	{
		return SerializeJson(MakeOutcome(TEXT("Error"), FString::Printf(TEXT("Failed to compile Blueprint '%s'."), *Blueprint->GetPathName())));
	}
	FAssetRegistryModule::AssetCreated(Blueprint);
	return SerializeJson(MakeOutcome(TEXT("Success"), FString::Printf(TEXT("Blueprint '%s' compiled successfully."), *Blueprint->GetPathName())));
}

FString FTavrineBlueprintUtils::SaveBlueprint(UObject* Object)
{
	UBlueprint* Blueprint = Cast<UBlueprint>(Object);
	if (Blueprint == nullptr)
	{
		return SerializeJson(MakeOutcome(TEXT("Error"), NotABlueprintMessage));
	}

	auto SaveFailure = [Blueprint]()
	{
		return SerializeJson(MakeOutcome(TEXT("Error"), FString::Printf(TEXT("Failed to save Blueprint asset: %s"), *Blueprint->GetPathName())));
	};
	UPackage* Package = Blueprint->GetOutermost();
	// A package outside every mounted root has no file; the engine's unchecked conversion would end the editor.
	FString FileName;
	if (!FPackageName::TryConvertLongPackageNameToFilename(Package->GetName(), FileName, FPackageName::GetAssetPackageExtension()))
	{
		return SaveFailure();
	}

	FSavePackageArgs SaveArgs;
	SaveArgs.TopLevelFlags = RF_Standalone;
	SaveArgs.SaveFlags = SAVE_NoError;
	SaveArgs.Error = GError;
	SaveArgs.bForceByteSwapping = true;
	SaveArgs.bWarnOfLongFilename = true;
	if (!UPackage::Save(Package, Blueprint, *FileName, SaveArgs).IsSuccessful())
	{
		return SaveFailure();
	}
	FAssetRegistryModule::AssetCreated(Blueprint);
	return SerializeJson(MakeOutcome(TEXT("Success"), FString::Printf(TEXT("Blueprint '%s' saved successfully."), *Blueprint->GetPathName())));
}

FString FTavrineBlueprintUtils::SaveAndCompileAllDirtyBlueprints()
{
	TArray<FAssetData> Assets;
	GetAssetRegistry().GetAssetsByClass(UBlueprint::StaticClass()->GetClassPathName(), Assets, false);

	TArray<TSharedPtr<FJsonValue>> Results;
	bool bAnyFailed = false;
	for (const FAssetData& Asset : Assets)
	{
		UBlueprint* Blueprint = Cast<UBlueprint>(Asset.GetAsset());
		if (Blueprint == nullptr || !Blueprint->IsAsset())
		{
			continue;
		}
		const UPackage* Package = Blueprint->GetOutermost();
		if (Package == nullptr || !Package->IsDirty())
		{
			continue;
		}

		TSharedPtr<FJsonObject> Entry = MakeShared<FJsonObject>();
		Entry->SetStringField(TEXT("BlueprintPath"), Asset.GetObjectPathString());
		// A Blueprint that failed to save is compiled all the same, so that its compile errors are known too.
		bAnyFailed |= CopyOutcome(SaveBlueprint(Blueprint), TEXT("SaveError"), TEXT("SaveResult"), *Entry);
		bAnyFailed |= CopyOutcome(CompileBlueprint(Blueprint), TEXT("CompileError"), TEXT("CompileResult"), *Entry);
		Results.Add(MakeShared<FJsonValueObject>(Entry));
	}

	TSharedPtr<FJsonObject> Document = MakeShared<FJsonObject>();
	Document->SetArrayField(TEXT("BlueprintResults"), Results);
	if (bAnyFailed)
	{
		Document->SetStringField(TEXT("Error"), TEXT("Some Blueprints failed to save or compile."));
	}
	else
	{
		Document->SetStringField(TEXT("Success"), TEXT("All dirty Blueprints were processed successfully."));
	}
	return SerializeJson(Document);
}

FString FTavrineBlueprintUtils::SerializeJson(const TSharedPtr<FJsonObject>& JsonObject)
{
	FString Text;
	if (!JsonObject.IsValid())
	{
		return Text;
	}
	const TSharedRef<TJsonWriter<>> Writer = TJsonWriterFactory<>::Create(&Text);
	FJsonSerializer::Serialize(JsonObject.ToSharedRef(), Writer);
	return Text;
}
