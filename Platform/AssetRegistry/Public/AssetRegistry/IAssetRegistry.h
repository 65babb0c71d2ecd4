// IAssetRegistry: what assets the project has, known from their files' heads without loading them.
#pragma once

#include "CoreMinimal.h"
#include "AssetRegistry/AssetData.h"
#include "AssetRegistry/ARFilter.h"
#include "UObject/TopLevelAssetPath.h"
#include "UObject/SoftObjectPath.h"

class UObject;

class IAssetRegistry
{
public:
	virtual ~IAssetRegistry() = default;

	// The registry of this process; made at first use.
	static ASSETREGISTRY_API IAssetRegistry* Get();
	static IAssetRegistry& GetChecked()
	{
		return *Get();
	}

	// Queries look at the project's content after its first scan, which the first query makes.
	virtual bool GetAssetsByClass(FTopLevelAssetPath ClassPathName, TArray<FAssetData>& OutAssetData, bool bSearchSubClasses = false) const = 0;
	virtual bool GetAssetsByPackageName(FName PackageName, TArray<FAssetData>& OutAssetData, bool bIncludeOnlyOnDiskAssets = false, bool bSkipARFilteredAssets = true) const = 0;
	virtual bool GetAssetsByPath(FName PackagePath, TArray<FAssetData>& OutAssetData, bool bRecursive = false, bool bIncludeOnlyOnDiskAssets = false) const = 0;
	virtual bool GetAssets(const FARFilter& Filter, TArray<FAssetData>& OutAssetData, bool bSkipARFilteredAssets = true) const = 0;
	// The asset of that path; an invalid FAssetData when there is none.
	virtual FAssetData GetAssetByObjectPath(const FSoftObjectPath& ObjectPath, bool bIncludeOnlyOnDiskAssets = false, bool bSkipARFilteredAssets = true) const = 0;
	virtual bool GetAllAssets(TArray<FAssetData>& OutAssetData, bool bIncludeOnlyOnDiskAssets = false) const = 0;
	virtual bool HasAssets(const FName PackagePath, const bool bRecursive = false) const = 0;
	// The classes that derive from the given ones, loaded or known from Blueprint assets' tags.
	virtual void GetDerivedClassNames(const TArray<FTopLevelAssetPath>& ClassNames, const TSet<FTopLevelAssetPath>& ExcludedClassNames, TSet<FTopLevelAssetPath>& OutDerivedClassNames) const = 0;
	// The folders below a path that hold assets, as long package paths.
	virtual void GetSubPaths(const FString& InBasePath, TArray<FString>& OutPathList, bool bInRecurse) const = 0;

	// Reads the asset files under these long package paths ("/Game/Maps") or folders now; files that are
	// gone leave the registry.
	virtual void ScanPathsSynchronous(const TArray<FString>& InPaths, bool bForceRescan = false, bool bIgnoreDenyListScanFilters = false) = 0;
	virtual void ScanFilesSynchronous(const TArray<FString>& InFilePaths, bool bForceRescan = false) = 0;
	// Scans every mounted content folder.
	virtual void SearchAllAssets(bool bSynchronousSearch) = 0;
	virtual bool IsLoadingAssets() const = 0;
	virtual void WaitForCompletion() = 0;

	// Told of assets in memory: made, deleted, renamed, saved.
	virtual void AssetCreated(UObject* NewAsset) = 0;
	virtual void AssetDeleted(UObject* DeletedAsset) = 0;
	virtual void AssetRenamed(const UObject* RenamedAsset, const FString& OldObjectPath) = 0;
	virtual void AssetSaved(const UObject& SavedAsset) = 0;

	DECLARE_EVENT_OneParam(IAssetRegistry, FAssetAddedEvent, const FAssetData&);
	virtual FAssetAddedEvent& OnAssetAdded() = 0;
	DECLARE_EVENT_OneParam(IAssetRegistry, FAssetRemovedEvent, const FAssetData&);
	virtual FAssetRemovedEvent& OnAssetRemoved() = 0;
	DECLARE_EVENT_TwoParams(IAssetRegistry, FAssetRenamedEvent, const FAssetData&, const FString&);
	virtual FAssetRenamedEvent& OnAssetRenamed() = 0;
	DECLARE_EVENT_OneParam(IAssetRegistry, FAssetUpdatedEvent, const FAssetData&);
	virtual FAssetUpdatedEvent& OnAssetUpdated() = 0;
	DECLARE_EVENT(IAssetRegistry, FFilesLoadedEvent);
	virtual FFilesLoadedEvent& OnFilesLoaded() = 0;
};
