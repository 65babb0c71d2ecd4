// References that aren't plain pointers: weak pointers, asset paths and soft references.
#include "UObject/WeakObjectPtr.h"
#include "UObject/SoftObjectPtr.h"
#include "UObject/TopLevelAssetPath.h"
#include "UObject/Object.h"
#include "UObject/Class.h"
#include "UObject/Package.h"
#include "UObject/PropertyPortFlags.h"
#include "Misc/PackageName.h"
#include "Misc/OutputDevice.h"
#include "ObjectRegistry.h"
#include "ObjectConstruction.h"
#include "PropertyText.h"
#include "CoreUObjectLog.h"

using namespace UE::CoreUObject::Private;

// FWeakObjectPtr

FWeakObjectPtr& FWeakObjectPtr::operator=(const UObject* Object)
{
	if (Object == nullptr || !Object->IsValidLowLevel())
	{
		Reset();
		return *this;
	}
	ObjectIndex = FObjectBaseAccess::GetIndex(Object);
	ObjectSerialNumber = FObjectRegistry::Get().GetSerialNumber(ObjectIndex);
	return *this;
}

UObject* FWeakObjectPtr::Get(bool bEvenIfGarbage) const
{
	if (ObjectIndex == INDEX_NONE)
	{
		return nullptr;
	}
	UObject* Object = static_cast<UObject*>(FObjectRegistry::Get().GetObject(ObjectIndex, ObjectSerialNumber));
	if (Object == nullptr || Object->IsUnreachable() || (!bEvenIfGarbage && Object->IsGarbage()))
	{
		return nullptr;
	}
	return Object;
}

bool FWeakObjectPtr::IsStale(bool bIncludingGarbage) const
{
	return ObjectIndex != INDEX_NONE && Get(!bIncludingGarbage) == nullptr;
}

// FTopLevelAssetPath

FTopLevelAssetPath::FTopLevelAssetPath(const UObject* Object)
{
	TrySetPath(Object);
}

bool FTopLevelAssetPath::TrySetPath(const UObject* Object)
{
	Reset();
	if (Object == nullptr)
	{
		return false;
	}
	UObject* Outer = Object->GetOuter();
	if (Outer == nullptr)
	{
		PackageName = Object->GetFName();
		return true;
	}
	if (Outer->GetOuter() != nullptr)
	{
		// Only objects that sit directly in their package have a top-level path.
		return false;
	}
	PackageName = Outer->GetFName();
	AssetName = Object->GetFName();
	return true;
}

bool FTopLevelAssetPath::TrySetPath(const FString& Path)
{
	Reset();
	if (Path.IsEmpty() || Path.Equals(TEXT("None"), ESearchCase::IgnoreCase))
	{
		return false;
	}
	const FString ObjectPath = FPackageName::ExportTextPathToObjectPath(Path);
	if (!ObjectPath.StartsWith(TEXT("/")) || ObjectPath.Contains(TEXT(":")))
	{
		return false;
	}
	const int32 Dot = ObjectPath.Find(TEXT("."), ESearchCase::CaseSensitive);
	if (Dot == INDEX_NONE)
	{
		PackageName = FName(*ObjectPath);
		return true;
	}
	const FString AssetPart = ObjectPath.Mid(Dot + 1);
	if (AssetPart.IsEmpty() || AssetPart.Contains(TEXT(".")))
	{
		return false;
	}
	PackageName = FName(*ObjectPath.Left(Dot));
	AssetName = FName(*AssetPart);
	return true;
}

FString FTopLevelAssetPath::ToString() const
{
	if (PackageName.IsNone())
	{
		return FString();
	}
	return AssetName.IsNone() ? PackageName.ToString() : PackageName.ToString() + TEXT(".") + AssetName.ToString();
}

// FSoftObjectPath

FSoftObjectPath::FSoftObjectPath(const UObject* Object)
{
	if (Object != nullptr)
	{
		SetPath(Object->GetPathName());
	}
}

void FSoftObjectPath::SetPath(const FString& Path)
{
	Reset();
	const FString ObjectPath = FPackageName::ExportTextPathToObjectPath(Path);
	if (ObjectPath.IsEmpty() || ObjectPath.Equals(TEXT("None"), ESearchCase::IgnoreCase))
	{
		return;
	}
	// "/Package.Asset:Sub.Inner" keeps what follows the asset as the sub path; a subobject path written
	// with '.' only ("/Package.Asset.Sub") is read the same way.
	int32 Separator = ObjectPath.Find(TEXT(":"), ESearchCase::CaseSensitive);
	if (Separator == INDEX_NONE)
	{
		const int32 FirstDot = ObjectPath.Find(TEXT("."), ESearchCase::CaseSensitive);
		Separator = FirstDot != INDEX_NONE ? ObjectPath.Find(TEXT("."), ESearchCase::CaseSensitive, ESearchDir::FromStart, FirstDot + 1) : INDEX_NONE;
	}
	if (Separator != INDEX_NONE)
	{
		AssetPath.TrySetPath(ObjectPath.Left(Separator));
		SubPathString = ObjectPath.Mid(Separator + 1);
	}
	else
	{
		AssetPath.TrySetPath(ObjectPath);
	}
	if (!AssetPath.IsValid())
	{
		UE_LOG(LogObj, Warning, TEXT("'%s' is not an object path: it must begin with '/'"), *Path);
		SubPathString.Empty();
	}
}

FString FSoftObjectPath::ToString() const
{
	if (AssetPath.IsNull())
	{
		return FString();
	}
	return SubPathString.IsEmpty() ? AssetPath.ToString() : AssetPath.ToString() + TEXT(":") + SubPathString;
}

UObject* FSoftObjectPath::ResolveObject() const
{
	return IsNull() ? nullptr : StaticFindObject(UObject::StaticClass(), nullptr, *ToString());
}

UObject* FSoftObjectPath::TryLoad() const
{
	if (IsNull())
	{
		return nullptr;
	}
	if (UObject* Found = ResolveObject())
	{
		return Found;
	}
	return StaticLoadObject(UObject::StaticClass(), nullptr, *ToString(), nullptr, LOAD_NoWarn | LOAD_Quiet);
}

bool FSoftObjectPath::ExportTextItem(FString& ValueStr, const FSoftObjectPath& DefaultValue, UObject* Parent, int32 PortFlags, UObject* ExportRootScope) const
{
	if (IsNull())
	{
		ValueStr += (PortFlags & PPF_Delimited) ? TEXT("\"\"") : TEXT("");
		return true;
	}
	ValueStr += (PortFlags & PPF_Delimited) ? QuoteString(ToString()) : ToString();
	return true;
}

bool FSoftObjectPath::ImportTextItem(const TCHAR*& Buffer, int32 PortFlags, UObject* Parent, FOutputDevice* ErrorText)
{
	FString Text;
	const TCHAR* Cursor = SkipWhitespace(Buffer);
	if (*Cursor == TEXT('"'))
	{
		Cursor = ReadQuotedString(Cursor, Text);
	}
	else
	{
		// A bare path runs to the end of the text, or to the next ',' or ')' inside a list.
		const bool bDelimited = (PortFlags & PPF_Delimited) != 0;
		while (*Cursor && !(bDelimited && (*Cursor == TEXT(',') || *Cursor == TEXT(')'))) && !FChar::IsWhitespace(*Cursor))
		{
			Text.AppendChar(*Cursor++);
		}
	}
	if (Cursor == nullptr)
	{
		return false;
	}
	FSoftObjectPath Parsed;
	Parsed.SetPath(Text);
	if (!Text.IsEmpty() && !Text.Equals(TEXT("None"), ESearchCase::IgnoreCase) && Parsed.IsNull())
	{
		return false;
	}
	*this = Parsed;
	Buffer = Cursor;
	return true;
}

// FSoftClassPath

FSoftClassPath::FSoftClassPath(const UClass* Class)
	: FSoftObjectPath(static_cast<const UObject*>(Class))
{
}

UClass* FSoftClassPath::ResolveClass() const
{
	UObject* Object = ResolveObject();
	return Object != nullptr && Object->IsA(UClass::StaticClass()) ? static_cast<UClass*>(Object) : nullptr;
}

// FSoftObjectPtr

FSoftObjectPtr::FSoftObjectPtr(const UObject* Object)
{
	operator=(Object);
}

FSoftObjectPtr& FSoftObjectPtr::operator=(const UObject* Object)
{
	ObjectPath = FSoftObjectPath(Object);
	WeakPtr = Object;
	return *this;
}

UObject* FSoftObjectPtr::Get() const
{
	if (UObject* Cached = WeakPtr.Get())
	{
		return Cached;
	}
	UObject* Found = ObjectPath.ResolveObject();
	WeakPtr = Found;
	return Found;
}

UObject* FSoftObjectPtr::LoadSynchronous() const
{
	if (UObject* Found = Get())
	{
		return Found;
	}
	UObject* Loaded = ObjectPath.TryLoad();
	WeakPtr = Loaded;
	return Loaded;
}
