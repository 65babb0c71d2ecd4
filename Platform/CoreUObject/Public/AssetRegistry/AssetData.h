// FAssetData: what the asset registry knows of one asset without loading it: its names, class and tags.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "UObject/TopLevelAssetPath.h"
#include "UObject/SoftObjectPath.h"

class UObject;
class UClass;

// A tag's value as the registry holds it: text, which may be absent.
class FAssetTagValueRef
{
public:
	FAssetTagValueRef() = default;
	explicit FAssetTagValueRef(const FString* InValue)
		: Value(InValue)
	{
	}

	bool IsSet() const
	{
		return Value != nullptr;
	}
	FString GetValue() const
	{
		return Value != nullptr ? *Value : FString();
	}
	FString AsString() const
	{
		return GetValue();
	}
	FName AsName() const
	{
		return FName(*GetValue());
	}
	bool Equals(FStringView Str) const
	{
		return Value != nullptr && Value->Equals(FString(Str), ESearchCase::CaseSensitive);
	}

private:
	const FString* Value = nullptr;
};

typedef TMap<FName, FString> FAssetDataTagMap;

// The tags of an asset; copies share the same storage.
class COREUOBJECT_API FAssetDataTagMapSharedView
{
public:
	FAssetDataTagMapSharedView() = default;
	explicit FAssetDataTagMapSharedView(FAssetDataTagMap&& InMap);

	FAssetTagValueRef FindTag(FName Key) const;
	bool Contains(FName Key) const
	{
		return FindTag(Key).IsSet();
	}
	int32 Num() const
	{
		return Map.IsValid() ? Map->Num() : 0;
	}
	FAssetDataTagMap CopyMap() const
	{
		return Map.IsValid() ? *Map : FAssetDataTagMap();
	}
	// Visits the tags in the order they were written.
	template<typename Func>
	void ForEach(Func&& Visit) const
	{
		if (Map.IsValid())
		{
			for (const TPair<FName, FString>& Pair : *Map)
			{
				Visit(Pair);
			}
		}
	}
	bool operator==(const FAssetDataTagMapSharedView& Other) const;

private:
	TSharedPtr<const FAssetDataTagMap> Map;
};

struct COREUOBJECT_API FAssetData
{
	enum class EResolveClass
	{
		No,
		Yes,
	};

	// "/Game/Maps/Main"
	FName PackageName;
	// "/Game/Maps"
	FName PackagePath;
	// "Main"
	FName AssetName;
	// "/Script/Engine.World"
	FTopLevelAssetPath AssetClassPath;
	uint32 PackageFlags = 0;
	FAssetDataTagMapSharedView TagsAndValues;

	FAssetData() = default;
	FAssetData(FName InPackageName, FName InPackagePath, FName InAssetName, FTopLevelAssetPath InAssetClassPathName, FAssetDataTagMap InTags = FAssetDataTagMap(), uint32 InPackageFlags = 0);
	// The data of an asset in memory; its tags come from GetAssetRegistryTags.
	explicit FAssetData(const UObject* InAsset, bool bAllowBlueprintClass = false);

	bool IsValid() const
	{
		return !PackageName.IsNone() && !AssetName.IsNone();
	}
	bool IsTopLevelAsset() const
	{
		return true;
	}
	// "/Game/Maps/Main.Main"
	FString GetObjectPathString() const;
	FSoftObjectPath GetSoftObjectPath() const;
	FSoftObjectPath ToSoftObjectPath() const
	{
		return GetSoftObjectPath();
	}
	// "World /Game/Maps/Main.Main"
	FString GetFullName() const;
	// "/Script/Engine.World'/Game/Maps/Main.Main'"
	FString GetExportTextName() const;

	// The asset if it is in memory; with bLoad loaded when it isn't.
	UObject* FastGetAsset(bool bLoad = false) const;
	// The asset, loaded if needed; null when it can't be.
	UObject* GetAsset(const TSet<FName>& LoadTags = {}) const;
	bool IsAssetLoaded() const;
	// The asset's class if it is in memory (and loaded when asked to).
	UClass* GetClass(EResolveClass ResolveClass = EResolveClass::No) const;
	bool IsInstanceOf(const UClass* BaseClass, EResolveClass ResolveClass = EResolveClass::No) const;

	bool GetTagValue(FName Tag, FString& OutValue) const;
	FAssetTagValueRef FindTag(FName Tag) const
	{
		return TagsAndValues.FindTag(Tag);
	}
	template<typename ValueType>
	ValueType GetTagValueRef(FName Tag) const;

	bool operator==(const FAssetData& Other) const
	{
		return PackageName == Other.PackageName && AssetName == Other.AssetName && AssetClassPath == Other.AssetClassPath;
	}
	bool operator!=(const FAssetData& Other) const
	{
		return !(*this == Other);
	}
	friend uint32 GetTypeHash(const FAssetData& AssetData)
	{
		return HashCombine(GetTypeHash(AssetData.PackageName), GetTypeHash(AssetData.AssetName));
	}
};

template<>
inline FString FAssetData::GetTagValueRef<FString>(FName Tag) const
{
	return TagsAndValues.FindTag(Tag).GetValue();
}

template<>
inline FName FAssetData::GetTagValueRef<FName>(FName Tag) const
{
	return TagsAndValues.FindTag(Tag).AsName();
}
