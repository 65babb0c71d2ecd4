#include "AssetRegistry/AssetData.h"
#include "UObject/Object.h"
#include "UObject/Class.h"
#include "UObject/Package.h"
#include "Misc/PackageName.h"
#include "Templates/Casts.h"

FAssetDataTagMapSharedView::FAssetDataTagMapSharedView(FAssetDataTagMap&& InMap)
{
	if (InMap.Num() > 0)
	{
		Map = MakeShared<const FAssetDataTagMap>(MoveTemp(InMap));
	}
}

FAssetTagValueRef FAssetDataTagMapSharedView::FindTag(FName Key) const
{
	return FAssetTagValueRef(Map.IsValid() ? Map->Find(Key) : nullptr);
}

bool FAssetDataTagMapSharedView::operator==(const FAssetDataTagMapSharedView& Other) const
{
	if (Num() != Other.Num())
	{
		return false;
	}
	bool bSame = true;
	ForEach([&Other, &bSame](const TPair<FName, FString>& Pair)
	{
		const FAssetTagValueRef OtherValue = Other.FindTag(Pair.Key);
		bSame = bSame && OtherValue.IsSet() && OtherValue.GetValue().Equals(Pair.Value, ESearchCase::CaseSensitive);
	});
	return bSame;
}

FAssetData::FAssetData(FName InPackageName, FName InPackagePath, FName InAssetName, FTopLevelAssetPath InAssetClassPathName, FAssetDataTagMap InTags, uint32 InPackageFlags)
	: PackageName(InPackageName)
	, PackagePath(InPackagePath)
	, AssetName(InAssetName)
	, AssetClassPath(InAssetClassPathName)
	, PackageFlags(InPackageFlags)
	, TagsAndValues(MoveTemp(InTags))
{
}

FAssetData::FAssetData(const UObject* InAsset, bool bAllowBlueprintClass)
{
	if (InAsset == nullptr || InAsset->GetOutermost() == nullptr)
	{
		return;
	}
	const UPackage* Package = InAsset->GetOutermost();
	PackageName = Package->GetFName();
	PackagePath = FName(*FPackageName::GetLongPackagePath(Package->GetName()));
	AssetName = InAsset->GetFName();
	AssetClassPath = InAsset->GetClass()->GetClassPathName();
	PackageFlags = static_cast<uint32>(Package->GetPackageFlags());
	TArray<UObject::FAssetRegistryTag> Tags;
	InAsset->GetAssetRegistryTags(Tags);
	FAssetDataTagMap TagMap;
	for (const UObject::FAssetRegistryTag& Tag : Tags)
	{
		if (!Tag.Name.IsNone() && !Tag.Value.IsEmpty())
		{
			TagMap.Add(Tag.Name, Tag.Value);
		}
	}
	TagsAndValues = FAssetDataTagMapSharedView(MoveTemp(TagMap));
}

FString FAssetData::GetObjectPathString() const
{
	return IsValid() ? PackageName.ToString() + TEXT(".") + AssetName.ToString() : FString();
}

FSoftObjectPath FAssetData::GetSoftObjectPath() const
{
	return IsValid() ? FSoftObjectPath(FTopLevelAssetPath(PackageName, AssetName)) : FSoftObjectPath();
}

FString FAssetData::GetFullName() const
{
	return AssetClassPath.GetAssetName().ToString() + TEXT(" ") + GetObjectPathString();
}

FString FAssetData::GetExportTextName() const
{
	return FString::Printf(TEXT("%s'%s'"), *AssetClassPath.ToString(), *GetObjectPathString());
}

UObject* FAssetData::FastGetAsset(bool bLoad) const
{
	if (!IsValid())
	{
		return nullptr;
	}
	const FString ObjectPath = GetObjectPathString();
	UObject* Asset = StaticFindObject(UObject::StaticClass(), nullptr, *ObjectPath);
	if (Asset == nullptr && bLoad)
	{
		Asset = StaticLoadObject(UObject::StaticClass(), nullptr, *ObjectPath);
	}
	return Asset;
}

UObject* FAssetData::GetAsset(const TSet<FName>& LoadTags) const
{
	return FastGetAsset(true);
}

bool FAssetData::IsAssetLoaded() const
{
	return FastGetAsset(false) != nullptr;
}

UClass* FAssetData::GetClass(EResolveClass ResolveClass) const
{
	if (!AssetClassPath.IsValid())
	{
		return nullptr;
	}
	const FString ClassPath = AssetClassPath.ToString();
	UClass* Class = Cast<UClass>(StaticFindObject(UClass::StaticClass(), nullptr, *ClassPath));
	if (Class == nullptr && ResolveClass == EResolveClass::Yes && !FPackageName::IsScriptPackage(AssetClassPath.GetPackageName().ToString()))
	{
		Class = StaticLoadClass(UObject::StaticClass(), nullptr, *ClassPath, nullptr, LOAD_NoWarn | LOAD_Quiet);
	}
	return Class;
}

bool FAssetData::IsInstanceOf(const UClass* BaseClass, EResolveClass ResolveClass) const
{
	const UClass* Class = GetClass(ResolveClass);
	return Class != nullptr && BaseClass != nullptr && Class->IsChildOf(BaseClass);
}

bool FAssetData::GetTagValue(FName Tag, FString& OutValue) const
{
	const FAssetTagValueRef Value = TagsAndValues.FindTag(Tag);
	if (!Value.IsSet())
	{
		return false;
	}
	OutValue = Value.GetValue();
	return true;
}
