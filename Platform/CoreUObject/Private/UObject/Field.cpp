#include "UObject/Field.h"
#include "UObject/Class.h"
#include "UObject/UnrealType.h"
#include "UObject/EnumProperty.h"
#include "UObject/TextProperty.h"
#include "Misc/CString.h"

namespace
{
	const FString EmptyMetaDataValue;

	FText ShortenToolTip(const FString& ToolTip)
	{
		// A short tooltip is its first paragraph.
		int32 BlankLine = ToolTip.Find(TEXT("\n\n"));
		return FText::FromString(BlankLine == INDEX_NONE ? ToolTip : ToolTip.Left(BlankLine));
	}
}

// FFieldClass

namespace
{
	TMap<FName, FFieldClass*>& FieldClassesByName()
	{
		static TMap<FName, FFieldClass*> Classes;
		return Classes;
	}
}

FFieldClass::FFieldClass(const TCHAR* InName, uint64 InId, uint64 InCastFlags, FFieldClass* InSuperClass, FConstructFn InConstructFn)
	: Name(InName)
	, Id(InId)
	, CastFlags(InCastFlags)
	, SuperClass(InSuperClass)
	, ConstructFn(InConstructFn)
{
	FieldClassesByName().Add(Name, this);
}

FFieldClass* FFieldClass::GetNameToFieldClassMap(FName InName)
{
	// Naming every property class here links them all in, so that each can be found by name.
	static const bool bRegistered = []()
	{
		const FFieldClass* const Classes[] = {FBoolProperty::StaticClass(), FByteProperty::StaticClass(), FInt8Property::StaticClass(), FInt16Property::StaticClass(),
			FIntProperty::StaticClass(), FInt64Property::StaticClass(), FUInt16Property::StaticClass(), FUInt32Property::StaticClass(), FUInt64Property::StaticClass(),
			FFloatProperty::StaticClass(), FDoubleProperty::StaticClass(), FStrProperty::StaticClass(), FNameProperty::StaticClass(), FTextProperty::StaticClass(),
			FEnumProperty::StaticClass(), FArrayProperty::StaticClass(), FSetProperty::StaticClass(), FMapProperty::StaticClass(), FStructProperty::StaticClass(),
			FObjectProperty::StaticClass(), FClassProperty::StaticClass(), FWeakObjectProperty::StaticClass(), FSoftObjectProperty::StaticClass(),
			FSoftClassProperty::StaticClass(), FInterfaceProperty::StaticClass(), FDelegateProperty::StaticClass(), FMulticastInlineDelegateProperty::StaticClass()};
		return UE_ARRAY_COUNT(Classes) > 0;
	}();
	(void)bRegistered;
	FFieldClass* const* Found = FieldClassesByName().Find(InName);
	return Found != nullptr ? *Found : nullptr;
}

FField* FField::Construct(const FName& FieldTypeName, const FFieldVariant& InOwner, const FName& InName, EObjectFlags InFlags)
{
	const FFieldClass* FieldClass = FFieldClass::GetNameToFieldClassMap(FieldTypeName);
	return FieldClass != nullptr ? FieldClass->Construct(InOwner, InName, InFlags) : nullptr;
}

bool FFieldClass::IsChildOf(const FFieldClass* InClass) const
{
	for (const FFieldClass* Class = this; Class != nullptr; Class = Class->SuperClass)
	{
		if (Class == InClass)
		{
			return true;
		}
	}
	return false;
}

FName FFieldVariant::GetFName() const
{
	if (Object != nullptr)
	{
		return Object->GetFName();
	}
	return Field != nullptr ? Field->GetFName() : FName(NAME_None);
}

// FField

FFieldClass* FField::StaticClass()
{
	static FFieldClass Class(TEXT("Field"), 0, 0, nullptr);
	return &Class;
}

FField::FField(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags)
	: Owner(InOwner)
	, NamePrivate(InName)
	, FlagsPrivate(InObjectFlags)
{
}

FField::~FField()
{
#if WITH_EDITORONLY_DATA
	delete MetaDataMap;
#endif
}

UObject* FField::GetOwnerUObject() const
{
	FFieldVariant Current = Owner;
	while (!Current.IsUObject() && Current.ToField() != nullptr)
	{
		Current = Current.ToField()->GetOwnerVariant();
	}
	return Current.ToUObject();
}

UStruct* FField::GetOwnerStruct() const
{
	for (UObject* Object = GetOwnerUObject(); Object != nullptr; Object = Object->GetOuter())
	{
		if (Object->IsA(UStruct::StaticClass()))
		{
			return static_cast<UStruct*>(Object);
		}
	}
	return nullptr;
}

UClass* FField::GetOwnerClass() const
{
	for (UObject* Object = GetOwnerUObject(); Object != nullptr; Object = Object->GetOuter())
	{
		if (Object->IsA(UClass::StaticClass()))
		{
			return static_cast<UClass*>(Object);
		}
	}
	return nullptr;
}

FString FField::GetPathName(const UObject* StopOuter) const
{
	FString Result;
	if (Owner.IsUObject())
	{
		Result = Owner.ToUObject()->GetPathName(StopOuter);
		Result.AppendChar(TEXT(':'));
	}
	else if (Owner.ToField() != nullptr)
	{
		Result = Owner.ToField()->GetPathName(StopOuter);
		Result.AppendChar(TEXT('.'));
	}
	return Result + GetName();
}

FString FField::GetFullName() const
{
	return GetClass()->GetName() + TEXT(" ") + GetPathName();
}

#if WITH_EDITORONLY_DATA
const FString* FField::FindMetaData(const TCHAR* Key) const
{
	return FindMetaData(FName(Key, FNAME_Find));
}

const FString* FField::FindMetaData(const FName& Key) const
{
	return MetaDataMap != nullptr && !Key.IsNone() ? MetaDataMap->Find(Key) : nullptr;
}

const FString& FField::GetMetaData(const TCHAR* Key) const
{
	const FString* Value = FindMetaData(Key);
	return Value != nullptr ? *Value : EmptyMetaDataValue;
}

const FString& FField::GetMetaData(const FName& Key) const
{
	const FString* Value = FindMetaData(Key);
	return Value != nullptr ? *Value : EmptyMetaDataValue;
}

FText FField::GetMetaDataText(const TCHAR* MetaDataKey, const FString LocalizationNamespace, const FString LocalizationKey) const
{
	return FText::FromString(GetMetaData(MetaDataKey));
}

void FField::SetMetaData(const TCHAR* Key, const TCHAR* InValue)
{
	SetMetaData(FName(Key), FString(InValue));
}

void FField::SetMetaData(const FName& Key, const TCHAR* InValue)
{
	SetMetaData(Key, FString(InValue));
}

void FField::SetMetaData(const FName& Key, FString&& InValue)
{
	if (MetaDataMap == nullptr)
	{
		MetaDataMap = new TMap<FName, FString>();
	}
	MetaDataMap->Add(Key, MoveTemp(InValue));
}

void FField::RemoveMetaData(const TCHAR* Key)
{
	if (MetaDataMap != nullptr)
	{
		MetaDataMap->Remove(FName(Key, FNAME_Find));
	}
}

bool FField::GetBoolMetaData(const TCHAR* Key) const
{
	return GetMetaData(Key).Equals(TEXT("true"), ESearchCase::IgnoreCase);
}

int32 FField::GetIntMetaData(const TCHAR* Key) const
{
	return FCString::Atoi(*GetMetaData(Key));
}

float FField::GetFloatMetaData(const TCHAR* Key) const
{
	return static_cast<float>(FCString::Atof(*GetMetaData(Key)));
}

void FField::AppendMetaData(const TMap<FName, FString>& MetaDataMapToAppend)
{
	for (const TPair<FName, FString>& Pair : MetaDataMapToAppend)
	{
		SetMetaData(Pair.Key, FString(Pair.Value));
	}
}

void FField::CopyMetaData(const FField* InSourceField, FField* InDestField)
{
	if (InSourceField != nullptr && InDestField != nullptr && InSourceField->MetaDataMap != nullptr)
	{
		InDestField->AppendMetaData(*InSourceField->MetaDataMap);
	}
}
#endif

FText FField::GetDisplayNameText() const
{
#if WITH_EDITORONLY_DATA
	if (const FString* DisplayName = FindMetaData(TEXT("DisplayName")))
	{
		return FText::FromString(*DisplayName);
	}
#endif
	return FText::FromString(FName::NameToDisplayString(GetName(), IsA<FBoolProperty>()));
}

FText FField::GetToolTipText(bool bShortTooltip) const
{
#if WITH_EDITORONLY_DATA
	if (bShortTooltip)
	{
		if (const FString* ShortToolTip = FindMetaData(TEXT("ShortTooltip")))
		{
			return FText::FromString(*ShortToolTip);
		}
	}
	if (const FString* ToolTip = FindMetaData(TEXT("ToolTip")))
	{
		if (!ToolTip->IsEmpty())
		{
			return bShortTooltip ? ShortenToolTip(*ToolTip) : FText::FromString(*ToolTip);
		}
	}
#endif
	return GetDisplayNameText();
}
