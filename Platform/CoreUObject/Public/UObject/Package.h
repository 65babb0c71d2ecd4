// UPackage: the outermost object of a group of objects, saved together as one file.
// "/Script/<Module>" packages hold a module's native types; "/Game/..." packages are the project's assets.
#pragma once

#include "CoreMinimal.h"
#include "UObject/Object.h"
#include "UObject/SavePackage.h"
#include "UObject/ObjectSaveContext.h"

class COREUOBJECT_API UPackage : public UObject
{
	DECLARE_CLASS_INTRINSIC(UPackage, UObject, CLASS_None, TEXT("/Script/CoreUObject"), CASTCLASS_UPackage)

public:
	UPackage(const FObjectInitializer& ObjectInitializer);

	// A package changed since it was loaded or saved.
	void SetDirtyFlag(bool bInIsDirty);
	bool IsDirty() const
	{
		return bDirty;
	}
	bool MarkPackageDirty()
	{
		SetDirtyFlag(true);
		return true;
	}

	void SetPackageFlags(EPackageFlags NewFlags)
	{
		PackageFlags |= NewFlags;
	}
	void ClearPackageFlags(EPackageFlags NewFlags)
	{
		PackageFlags &= ~NewFlags;
	}
	bool HasAnyPackageFlags(EPackageFlags FlagsToCheck) const
	{
		return (PackageFlags & FlagsToCheck) != 0;
	}
	bool HasAllPackageFlags(EPackageFlags FlagsToCheck) const
	{
		return (PackageFlags & FlagsToCheck) == FlagsToCheck;
	}
	EPackageFlags GetPackageFlags() const
	{
		return PackageFlags;
	}

	// Loaded from its file, or made in memory with no file yet: in both cases all its objects are here.
	bool IsFullyLoaded() const;
	void MarkAsFullyLoaded()
	{
		bHasBeenFullyLoaded = true;
	}
	void FullyLoad();

	// The file it was loaded from or last saved to; none for a package only in memory.
	FName GetLoadedPath() const
	{
		return FileName;
	}
	void SetLoadedPath(FName InFileName)
	{
		FileName = InFileName;
	}

	// Writes the package's objects (those inside it that are not transient) to Filename as a text package
	// file. Asset, when given, must be inside the package.
	static FSavePackageResultStruct Save(UPackage* InOuter, UObject* InAsset, const TCHAR* Filename, const FSavePackageArgs& SaveArgs);
	static bool SavePackage(UPackage* InOuter, UObject* InAsset, const TCHAR* Filename, const FSavePackageArgs& SaveArgs);

	// Told after every save that wrote a file: the file, the package and the save's context.
	DECLARE_MULTICAST_DELEGATE_ThreeParams(FOnPackageSavedWithContext, const FString&, UPackage*, FObjectPostSaveContext);
	static FOnPackageSavedWithContext PackageSavedWithContextEvent;
	// Told when a package's dirty flag changes.
	DECLARE_MULTICAST_DELEGATE_OneParam(FOnPackageMarkedDirty, UPackage*);
	static FOnPackageMarkedDirty PackageMarkedDirtyEvent;

private:
	bool bDirty = false;
	bool bHasBeenFullyLoaded = false;
	EPackageFlags PackageFlags = PKG_None;
	FName FileName;
};

// The package that holds objects never saved: "/Engine/Transient".
COREUOBJECT_API UPackage* GetTransientPackage();
