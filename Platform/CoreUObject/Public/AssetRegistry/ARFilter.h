// FARFilter: which assets a registry query returns. Empty lists don't filter; entries of one list are
// alternatives, and the lists narrow each other.
#pragma once

#include "CoreMinimal.h"
#include "UObject/TopLevelAssetPath.h"
#include "UObject/SoftObjectPath.h"

struct FARFilter
{
	TArray<FName> PackageNames;
	// "/Game/Maps": assets directly in the folder, or below it with bRecursivePaths.
	TArray<FName> PackagePaths;
	TArray<FSoftObjectPath> SoftObjectPaths;
	// "/Script/Engine.Blueprint": assets of these classes, or of their subclasses with bRecursiveClasses.
	TArray<FTopLevelAssetPath> ClassPaths;
	TSet<FTopLevelAssetPath> RecursiveClassPathsExclusionSet;
	bool bRecursivePaths = false;
	bool bRecursiveClasses = false;
	bool bIncludeOnlyOnDiskAssets = false;
	uint32 WithoutPackageFlags = 0;
	uint32 WithPackageFlags = 0;

	void Append(const FARFilter& Other)
	{
		PackageNames.Append(Other.PackageNames);
		PackagePaths.Append(Other.PackagePaths);
		SoftObjectPaths.Append(Other.SoftObjectPaths);
		ClassPaths.Append(Other.ClassPaths);
		RecursiveClassPathsExclusionSet.Append(Other.RecursiveClassPathsExclusionSet);
		bRecursivePaths |= Other.bRecursivePaths;
		bRecursiveClasses |= Other.bRecursiveClasses;
		bIncludeOnlyOnDiskAssets |= Other.bIncludeOnlyOnDiskAssets;
		WithoutPackageFlags |= Other.WithoutPackageFlags;
		WithPackageFlags |= Other.WithPackageFlags;
	}
	bool IsEmpty() const
	{
		return PackageNames.Num() == 0 && PackagePaths.Num() == 0 && SoftObjectPaths.Num() == 0 && ClassPaths.Num() == 0 && RecursiveClassPathsExclusionSet.Num() == 0 && WithoutPackageFlags == 0 && WithPackageFlags == 0;
	}
	void Clear()
	{
		*this = FARFilter();
	}
};
