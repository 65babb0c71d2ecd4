// FEditorFileUtils: the editor's saving of packages with changes.
#pragma once

#include "CoreMinimal.h"

class UPackage;

class UNREALED_API FEditorFileUtils
{
public:
	// True for a package that the caller wants left out.
	typedef TFunctionRef<bool(UPackage*)> FShouldIgnorePackageFunctionRef;

	// Appends the dirty packages that hold a level.
	static void GetDirtyWorldPackages(TArray<UPackage*>& OutDirtyPackages, const FShouldIgnorePackageFunctionRef& ShouldIgnorePackageFunction);
	static void GetDirtyWorldPackages(TArray<UPackage*>& OutDirtyPackages);
	// Appends the dirty packages that hold assets other than levels.
	static void GetDirtyContentPackages(TArray<UPackage*>& OutDirtyPackages, const FShouldIgnorePackageFunctionRef& ShouldIgnorePackageFunction);
	static void GetDirtyContentPackages(TArray<UPackage*>& OutDirtyPackages);
	static void GetDirtyPackages(TArray<UPackage*>& OutDirtyPackages, const FShouldIgnorePackageFunctionRef& ShouldIgnorePackageFunction);
	static void GetDirtyPackages(TArray<UPackage*>& OutDirtyPackages);

	// Saves each package to its file under its mount point; with bSkipDirty, clean packages are left alone.
	// True when every save succeeded.
	static bool SavePackages(const TArray<UPackage*>& PackagesToSave, bool bSkipDirty = true);
	// Saves the dirty packages of the kinds asked for; there is no one to prompt, so nothing is declined.
	static bool SaveDirtyPackages(const bool bPromptUserToSave, const bool bSaveMapPackages, const bool bSaveContentPackages, const bool bFastSave = false, const bool bNotifyNoPackagesSaved = false, const bool bCanBeDeclined = true, bool* bOutPackagesNeededSaving = nullptr);
};
