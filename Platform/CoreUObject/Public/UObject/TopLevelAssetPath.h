// FTopLevelAssetPath: the path of an object that sits directly in its package, "/Package/Path.Asset".
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"

class UObject;

struct COREUOBJECT_API FTopLevelAssetPath
{
	FTopLevelAssetPath() = default;
	FTopLevelAssetPath(FName InPackageName, FName InAssetName)
		: PackageName(InPackageName)
		, AssetName(InAssetName)
	{
	}
	// Text that isn't such a path leaves the path null (and logs when it can't be read at all).
	explicit FTopLevelAssetPath(const FString& Path)
	{
		TrySetPath(Path);
	}
	explicit FTopLevelAssetPath(const TCHAR* Path)
	{
		TrySetPath(FString(Path));
	}
	explicit FTopLevelAssetPath(const UObject* Object);

	// False (and a null path) for text that isn't "/Package.Asset" or "/Package".
	bool TrySetPath(const FString& Path);
	bool TrySetPath(const UObject* Object);

	FName GetPackageName() const
	{
		return PackageName;
	}
	FName GetAssetName() const
	{
		return AssetName;
	}
	FString ToString() const;
	void AppendString(FString& Builder) const
	{
		Builder += ToString();
	}
	bool IsValid() const
	{
		return !PackageName.IsNone();
	}
	bool IsNull() const
	{
		return PackageName.IsNone() && AssetName.IsNone();
	}
	void Reset()
	{
		PackageName = NAME_None;
		AssetName = NAME_None;
	}

	bool operator==(const FTopLevelAssetPath& Other) const
	{
		return PackageName == Other.PackageName && AssetName == Other.AssetName;
	}
	bool operator!=(const FTopLevelAssetPath& Other) const
	{
		return !(*this == Other);
	}
	friend uint32 GetTypeHash(const FTopLevelAssetPath& Path)
	{
		return HashCombine(GetTypeHash(Path.PackageName), GetTypeHash(Path.AssetName));
	}

private:
	FName PackageName;
	FName AssetName;
};
