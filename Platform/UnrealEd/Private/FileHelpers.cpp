#include "FileHelpers.h"
#include "UObject/Package.h"
#include "UObject/UObjectIterator.h"
#include "Misc/PackageName.h"

namespace
{
	// Packages of the project's content that changed: not transient, not native, under a mounted root.
	void CollectDirtyPackages(TArray<UPackage*>& OutDirtyPackages, bool bWantWorlds, bool bWantContent, TFunctionRef<bool(UPackage*)> ShouldIgnore)
	{
		for (TObjectIterator<UPackage> It; It; ++It)
		{
			UPackage* Package = *It;
			if (!Package->IsDirty() || Package->HasAnyFlags(RF_Transient) || Package->HasAnyPackageFlags(PKG_CompiledIn) || Package == GetTransientPackage())
			{
				continue;
			}
			if (FPackageName::GetPackageMountPoint(Package->GetName()).IsNone())
			{
				continue;
			}
			const bool bIsWorld = Package->HasAnyPackageFlags(PKG_ContainsMap);
			if ((bIsWorld ? bWantWorlds : bWantContent) && !ShouldIgnore(Package))
			{
				OutDirtyPackages.AddUnique(Package);
			}
		}
	}

	bool IgnoreNone(UPackage*)
	{
		return false;
	}
}

void FEditorFileUtils::GetDirtyWorldPackages(TArray<UPackage*>& OutDirtyPackages, const FShouldIgnorePackageFunctionRef& ShouldIgnorePackageFunction)
{
	CollectDirtyPackages(OutDirtyPackages, true, false, ShouldIgnorePackageFunction);
}

void FEditorFileUtils::GetDirtyWorldPackages(TArray<UPackage*>& OutDirtyPackages)
{
	CollectDirtyPackages(OutDirtyPackages, true, false, &IgnoreNone);
}

void FEditorFileUtils::GetDirtyContentPackages(TArray<UPackage*>& OutDirtyPackages, const FShouldIgnorePackageFunctionRef& ShouldIgnorePackageFunction)
{
	CollectDirtyPackages(OutDirtyPackages, false, true, ShouldIgnorePackageFunction);
}

void FEditorFileUtils::GetDirtyContentPackages(TArray<UPackage*>& OutDirtyPackages)
{
	CollectDirtyPackages(OutDirtyPackages, false, true, &IgnoreNone);
}

void FEditorFileUtils::GetDirtyPackages(TArray<UPackage*>& OutDirtyPackages, const FShouldIgnorePackageFunctionRef& ShouldIgnorePackageFunction)
{
	CollectDirtyPackages(OutDirtyPackages, true, true, ShouldIgnorePackageFunction);
}

void FEditorFileUtils::GetDirtyPackages(TArray<UPackage*>& OutDirtyPackages)
{
	CollectDirtyPackages(OutDirtyPackages, true, true, &IgnoreNone);
}

bool FEditorFileUtils::SavePackages(const TArray<UPackage*>& PackagesToSave, bool bSkipDirty)
{
	bool bAllSaved = true;
	for (UPackage* Package : PackagesToSave)
	{
		if (Package == nullptr || (bSkipDirty && !Package->IsDirty()))
		{
			continue;
		}
		const FString& Extension = Package->HasAnyPackageFlags(PKG_ContainsMap) ? FPackageName::GetMapPackageExtension() : FPackageName::GetAssetPackageExtension();
		FString Filename;
		if (!FPackageName::TryConvertLongPackageNameToFilename(Package->GetName(), Filename, Extension))
		{
			bAllSaved = false;
			continue;
		}
		FSavePackageArgs SaveArgs;
		SaveArgs.TopLevelFlags = RF_Standalone;
		bAllSaved = UPackage::SavePackage(Package, nullptr, *Filename, SaveArgs) && bAllSaved;
	}
	return bAllSaved;
}

bool FEditorFileUtils::SaveDirtyPackages(const bool bPromptUserToSave, const bool bSaveMapPackages, const bool bSaveContentPackages, const bool bFastSave, const bool bNotifyNoPackagesSaved, const bool bCanBeDeclined, bool* bOutPackagesNeededSaving)
{
	TArray<UPackage*> Packages;
	CollectDirtyPackages(Packages, bSaveMapPackages, bSaveContentPackages, &IgnoreNone);
	if (bOutPackagesNeededSaving != nullptr)
	{
		*bOutPackagesNeededSaving = Packages.Num() > 0;
	}
	return SavePackages(Packages, true);
}
