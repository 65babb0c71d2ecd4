// FSoftObjectPath: the path of an object that may or may not be loaded, "/Package/Path.Asset:Sub.Object".
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "UObject/TopLevelAssetPath.h"

class UObject;
class UClass;

struct COREUOBJECT_API FSoftObjectPath
{
	FSoftObjectPath() = default;
	explicit FSoftObjectPath(const FString& Path)
	{
		SetPath(Path);
	}
	explicit FSoftObjectPath(const TCHAR* Path)
	{
		SetPath(FString(Path));
	}
	FSoftObjectPath(const FTopLevelAssetPath& InAssetPath, const FString& InSubPathString = FString())
		: AssetPath(InAssetPath)
		, SubPathString(InSubPathString)
	{
	}
	FSoftObjectPath(const UObject* Object);

	// Takes "/Package.Asset:Sub", "/Package.Asset" or an export text path "Class'/Package.Asset'".
	void SetPath(const FString& Path);
	void Reset()
	{
		AssetPath.Reset();
		SubPathString.Empty();
	}

	FString ToString() const;
	const FTopLevelAssetPath& GetAssetPath() const
	{
		return AssetPath;
	}
	FString GetAssetPathString() const
	{
		return AssetPath.ToString();
	}
	const FString& GetSubPathString() const
	{
		return SubPathString;
	}
	FName GetLongPackageFName() const
	{
		return AssetPath.GetPackageName();
	}
	FString GetLongPackageName() const
	{
		return AssetPath.GetPackageName().ToString();
	}
	FString GetAssetName() const
	{
		return AssetPath.GetAssetName().ToString();
	}
	FName GetAssetFName() const
	{
		return AssetPath.GetAssetName();
	}
	bool IsValid() const
	{
		return AssetPath.IsValid();
	}
	bool IsNull() const
	{
		return AssetPath.IsNull();
	}
	bool IsAsset() const
	{
		return AssetPath.IsValid() && SubPathString.IsEmpty();
	}

	// The object if it is in memory.
	UObject* ResolveObject() const;
	// The object, loaded if needed; null when it can't be.
	UObject* TryLoad() const;

	// The engine's text form: the path, in double quotes with PPF_Delimited; nothing for a null path.
	bool ExportTextItem(FString& ValueStr, const FSoftObjectPath& DefaultValue, UObject* Parent, int32 PortFlags, UObject* ExportRootScope) const;
	// Reads a quoted or bare path, "None", or an export text path; advances Buffer.
	bool ImportTextItem(const TCHAR*& Buffer, int32 PortFlags, UObject* Parent, FOutputDevice* ErrorText);

	bool operator==(const FSoftObjectPath& Other) const
	{
		return AssetPath == Other.AssetPath && SubPathString.Equals(Other.SubPathString, ESearchCase::IgnoreCase);
	}
	bool operator!=(const FSoftObjectPath& Other) const
	{
		return !(*this == Other);
	}
	friend uint32 GetTypeHash(const FSoftObjectPath& Path)
	{
		return HashCombine(GetTypeHash(Path.AssetPath), GetTypeHash(Path.SubPathString));
	}

private:
	FTopLevelAssetPath AssetPath;
	FString SubPathString;
};

// A soft path that only names classes.
struct COREUOBJECT_API FSoftClassPath : public FSoftObjectPath
{
	FSoftClassPath() = default;
	explicit FSoftClassPath(const FString& Path)
		: FSoftObjectPath(Path)
	{
	}
	FSoftClassPath(const UClass* Class);

	UClass* ResolveClass() const;
	template<class T>
	UClass* TryLoadClass() const;
};

#include "UObject/UObjectGlobals.h"

template<class T>
UClass* FSoftClassPath::TryLoadClass() const
{
	return IsValid() ? LoadClass<T>(nullptr, *ToString()) : nullptr;
}
