// The AssetRegistry module: reach the registry, and tell it of changes to assets in memory.
#pragma once

#include "CoreMinimal.h"
#include "Modules/ModuleInterface.h"
#include "Modules/ModuleManager.h"
#include "AssetRegistry/IAssetRegistry.h"

class UObject;
class UPackage;

class FAssetRegistryModule : public IModuleInterface
{
public:
	virtual void StartupModule() override;
	virtual void ShutdownModule() override;

	virtual IAssetRegistry& Get() const
	{
		return *IAssetRegistry::Get();
	}

	static IAssetRegistry& GetRegistry()
	{
		return FModuleManager::LoadModuleChecked<FAssetRegistryModule>(TEXT("AssetRegistry")).Get();
	}

	static ASSETREGISTRY_API void AssetCreated(UObject* NewAsset);
	static ASSETREGISTRY_API void AssetDeleted(UObject* DeletedAsset);
	static ASSETREGISTRY_API void AssetRenamed(const UObject* RenamedAsset, const FString& OldObjectPath);
	static ASSETREGISTRY_API void AssetSaved(const UObject& SavedAsset);
};
