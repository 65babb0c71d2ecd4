// The registry: asset data by object path, filled by scanning package files and by what it is told.
#pragma once

#include "CoreMinimal.h"
#include "AssetRegistry/IAssetRegistry.h"
#include "Delegates/IDelegateInstance.h"

class UPackage;
struct FObjectPostSaveContext;

class FAssetRegistryImpl final : public IAssetRegistry
{
public:
	FAssetRegistryImpl();
	virtual ~FAssetRegistryImpl();

	virtual bool GetAssetsByClass(FTopLevelAssetPath ClassPathName, TArray<FAssetData>& OutAssetData, bool bSearchSubClasses = false) const override;
	virtual bool GetAssetsByPackageName(FName PackageName, TArray<FAssetData>& OutAssetData, bool bIncludeOnlyOnDiskAssets = false, bool bSkipARFilteredAssets = true) const override;
	virtual bool GetAssetsByPath(FName PackagePath, TArray<FAssetData>& OutAssetData, bool bRecursive = false, bool bIncludeOnlyOnDiskAssets = false) const override;
	virtual bool GetAssets(const FARFilter& Filter, TArray<FAssetData>& OutAssetData, bool bSkipARFilteredAssets = true) const override;
	virtual FAssetData GetAssetByObjectPath(const FSoftObjectPath& ObjectPath, bool bIncludeOnlyOnDiskAssets = false, bool bSkipARFilteredAssets = true) const override;
	virtual bool GetAllAssets(TArray<FAssetData>& OutAssetData, bool bIncludeOnlyOnDiskAssets = false) const override;
	virtual bool HasAssets(const FName PackagePath, const bool bRecursive = false) const override;
	virtual void GetDerivedClassNames(const TArray<FTopLevelAssetPath>& ClassNames, const TSet<FTopLevelAssetPath>& ExcludedClassNames, TSet<FTopLevelAssetPath>& OutDerivedClassNames) const override;
	virtual void GetSubPaths(const FString& InBasePath, TArray<FString>& OutPathList, bool bInRecurse) const override;

	virtual void ScanPathsSynchronous(const TArray<FString>& InPaths, bool bForceRescan = false, bool bIgnoreDenyListScanFilters = false) override;
	virtual void ScanFilesSynchronous(const TArray<FString>& InFilePaths, bool bForceRescan = false) override;
	virtual void SearchAllAssets(bool bSynchronousSearch) override;
	virtual bool IsLoadingAssets() const override
	{
		return false;
	}
	virtual void WaitForCompletion() override
	{
	}

	virtual void AssetCreated(UObject* NewAsset) override;
	virtual void AssetDeleted(UObject* DeletedAsset) override;
	virtual void AssetRenamed(const UObject* RenamedAsset, const FString& OldObjectPath) override;
	virtual void AssetSaved(const UObject& SavedAsset) override;

	virtual FAssetAddedEvent& OnAssetAdded() override
	{
		return AssetAddedEvent;
	}
	virtual FAssetRemovedEvent& OnAssetRemoved() override
	{
		return AssetRemovedEvent;
	}
	virtual FAssetRenamedEvent& OnAssetRenamed() override
	{
		return AssetRenamedEvent;
	}
	virtual FAssetUpdatedEvent& OnAssetUpdated() override
	{
		return AssetUpdatedEvent;
	}
	virtual FFilesLoadedEvent& OnFilesLoaded() override
	{
		return FilesLoadedEvent;
	}

private:
	struct FEntry
	{
		FAssetData Data;
		// The file the entry was read from; empty for an asset only in memory.
		FString Filename;
	};

	// The first query scans the content folders.
	void EnsureInitialScan() const;
	void ScanFile(const FString& Filename);
	// Filename is normalized and exists; PackageName is its long package name.
	void ReadPackageFile(const FString& Filename, const FString& PackageName);
	void AddOrUpdate(const FAssetData& Data, const FString& Filename);
	void RemoveEntriesOfFile(const FString& Filename, const TArray<FName>& KeepAssets);
	bool Matches(const FEntry& Entry, const FARFilter& Filter, const TSet<FTopLevelAssetPath>& ClassPaths) const;
	void OnPackageSaved(const FString& Filename, UPackage* Package, FObjectPostSaveContext Context);
	// Every change of Entries goes through these, which keep the index by file.
	void AddEntry(const FString& Key, FEntry&& Entry);
	void RemoveEntry(const FString& Key);
	void SetEntryFile(FEntry& Entry, const FString& Key, const FString& Filename);

	// Key: the object path, "/Game/Maps/Main.Main".
	TMap<FString, FEntry> Entries;
	// The keys of the entries read from each file, so that a rescan of one file doesn't walk them all.
	TMap<FString, TArray<FString>> KeysByFile;
	bool bInitialScanDone = false;
	bool bScanning = false;
	FDelegateHandle PackageSavedHandle;
	FAssetAddedEvent AssetAddedEvent;
	FAssetRemovedEvent AssetRemovedEvent;
	FAssetRenamedEvent AssetRenamedEvent;
	FAssetUpdatedEvent AssetUpdatedEvent;
	FFilesLoadedEvent FilesLoadedEvent;
};
