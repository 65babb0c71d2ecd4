// The properties that refer to objects: their text forms (the engine's "Class'Path'"), lookups and copies.
#include "UObject/UnrealType.h"
#include "UObject/Package.h"
#include "Templates/Casts.h"
#include "Misc/PackageName.h"
#include "PropertyText.h"
#include "CoreUObjectLog.h"

using namespace UE::CoreUObject::Private;

IMPLEMENT_FIELD(FObjectPropertyBase)
IMPLEMENT_FIELD(FObjectProperty)
IMPLEMENT_FIELD(FClassProperty)
IMPLEMENT_FIELD(FWeakObjectProperty)
IMPLEMENT_FIELD(FSoftObjectProperty)
IMPLEMENT_FIELD(FSoftClassProperty)
IMPLEMENT_FIELD(FInterfaceProperty)

namespace
{
	bool IsReferenceChar(TCHAR Char)
	{
		return FChar::IsAlnum(Char) || Char == TEXT('_') || Char == TEXT('/') || Char == TEXT('.') || Char == TEXT(':') || Char == TEXT('-') || Char == TEXT('+') || Char == TEXT('\'') || Char == TEXT('[') || Char == TEXT(']') || Char > 0x7f;
	}

	// Reads a reference as the engine writes it: a quoted path, or a run of path characters that may hold
	// a quoted part ("/Script/Engine.Actor'/Game/A.A'", also with the path in double quotes).
	const TCHAR* ReadReferenceText(const TCHAR* Buffer, FString& Out)
	{
		Out.Empty();
		const TCHAR* Cursor = Buffer;
		if (*Cursor == TEXT('"'))
		{
			return ReadQuotedString(Cursor, Out);
		}
		bool bInSingleQuotes = false;
		while (*Cursor)
		{
			if (*Cursor == TEXT('\''))
			{
				bInSingleQuotes = !bInSingleQuotes;
				Out.AppendChar(*Cursor++);
				continue;
			}
			if (bInSingleQuotes && *Cursor == TEXT('"'))
			{
				FString Quoted;
				const TCHAR* After = ReadQuotedString(Cursor, Quoted);
				if (After == nullptr)
				{
					return nullptr;
				}
				Out += Quoted;
				Cursor = After;
				continue;
			}
			if (!bInSingleQuotes && !IsReferenceChar(*Cursor))
			{
				break;
			}
			if (bInSingleQuotes && (*Cursor == TEXT('\r') || *Cursor == TEXT('\n')))
			{
				return nullptr;
			}
			Out.AppendChar(*Cursor++);
		}
		return bInSingleQuotes || Out.IsEmpty() ? nullptr : Cursor;
	}

	// "Class'Path'" -> Class and Path; text without quotes is a path without class.
	void SplitExportPath(const FString& Text, FString& OutClass, FString& OutPath)
	{
		const int32 Quote = Text.Find(TEXT("'"), ESearchCase::CaseSensitive);
		if (Quote == INDEX_NONE || !Text.EndsWith(TEXT("'")) || Text.Len() < Quote + 2)
		{
			OutClass.Empty();
			OutPath = Text;
			return;
		}
		OutClass = Text.Left(Quote);
		OutPath = Text.Mid(Quote + 1, Text.Len() - Quote - 2);
	}
}

// FObjectPropertyBase

FObjectPropertyBase::FObjectPropertyBase(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags)
	: FProperty(InOwner, InName, InObjectFlags)
{
}

FObjectPropertyBase::FObjectPropertyBase(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags, int32 InOffset, EPropertyFlags InFlags, UClass* InClass)
	: FProperty(InOwner, InName, InObjectFlags, InOffset, InFlags)
	, PropertyClass(InClass)
{
}

bool FObjectPropertyBase::SameType(const FProperty* Other) const
{
	return FProperty::SameType(Other) && static_cast<const FObjectPropertyBase*>(Other)->PropertyClass == PropertyClass;
}

FString FObjectPropertyBase::GetCPPTypeCustom(FString* ExtendedTypeText, uint32 CPPExportFlags, const FString& InnerNativeTypeName) const
{
	return InnerNativeTypeName;
}

FString FObjectPropertyBase::GetExportPath(const UObject* Object, const UObject* Parent, const UObject* ExportRootScope, const uint32 PortFlags)
{
	if (Object == nullptr)
	{
		return TEXT("None");
	}
	const UObject* StopOuter = nullptr;
	if ((PortFlags & PPF_ExportsNotFullyQualified) != 0)
	{
		const UObject* Scope = (ExportRootScope != nullptr || Parent == nullptr) ? ExportRootScope : Parent->GetOutermost();
		if (Scope != nullptr && Object->IsIn(Scope))
		{
			StopOuter = Scope;
		}
	}
	FString PathName = Object->GetPathName(StopOuter);
	if ((PortFlags & PPF_Delimited) != 0)
	{
		PathName = QuoteString(PathName);
	}
	return FString::Printf(TEXT("%s'%s'"), *Object->GetClass()->GetPathName(), *PathName);
}

UObject* FObjectPropertyBase::FindImportedObject(const FProperty* Property, UObject* OwnerObject, UClass* ObjectClass, UClass* RequiredMetaClass, const TCHAR* Text, uint32 PortFlags)
{
	if (ObjectClass == nullptr || Text == nullptr || *Text == 0)
	{
		return nullptr;
	}
	UObject* Result = nullptr;
	if (*Text != TEXT('/'))
	{
		// A relative path is looked up inside the owner and then inside each of its outers.
		for (UObject* Scope = OwnerObject; Scope != nullptr && Result == nullptr; Scope = Scope->GetOuter())
		{
			Result = StaticFindObject(ObjectClass, Scope, Text);
		}
		if (Result == nullptr && (PortFlags & PPF_AttemptNonQualifiedSearch) != 0)
		{
			Result = StaticFindFirstObject(ObjectClass, Text);
		}
	}
	else
	{
		Result = StaticFindObject(ObjectClass, nullptr, Text);
		if (Result == nullptr && !FPackageName::IsScriptPackage(FPackageName::ObjectPathToPackageName(Text)))
		{
			Result = StaticLoadObject(ObjectClass, nullptr, Text, nullptr, LOAD_NoWarn | LOAD_Quiet | LOAD_FindIfFail);
		}
	}
	if (Result != nullptr && !Result->IsA(ObjectClass))
	{
		Result = nullptr;
	}
	if (Result != nullptr && RequiredMetaClass != nullptr && !static_cast<UClass*>(Result)->IsChildOf(RequiredMetaClass))
	{
		Result = nullptr;
	}
	return Result;
}

bool FObjectPropertyBase::ParseObjectPropertyValue(const FProperty* Property, UObject* OwnerObject, UClass* RequiredMetaClass, uint32 PortFlags, const TCHAR*& Buffer, UObject*& out_ResolvedValue, FOutputDevice* ErrorText)
{
	const FObjectPropertyBase* ObjectProperty = CastField<FObjectPropertyBase>(Property);
	const FInterfaceProperty* InterfaceProperty = CastField<FInterfaceProperty>(Property);
	UClass* ObjectClass = ObjectProperty != nullptr ? ObjectProperty->PropertyClass : UObject::StaticClass();
	FString Text;
	const TCHAR* End = ReadReferenceText(Buffer, Text);
	if (End == nullptr)
	{
		return false;
	}
	out_ResolvedValue = nullptr;
	if (Text.Equals(TEXT("None"), ESearchCase::IgnoreCase) || Text.IsEmpty())
	{
		Buffer = End;
		return true;
	}
	FString ClassText;
	FString PathText;
	SplitExportPath(Text, ClassText, PathText);
	if (!ClassText.IsEmpty())
	{
		// The class written in front narrows the search when it is the property's class or derives from it.
		UClass* WrittenClass = Cast<UClass>(StaticFindObject(UClass::StaticClass(), nullptr, *ClassText));
		if (WrittenClass == nullptr)
		{
			WrittenClass = FindFirstObject<UClass>(*ClassText, EFindFirstObjectOptions::NativeFirst);
		}
		if (WrittenClass != nullptr && ObjectClass != nullptr && WrittenClass->IsChildOf(ObjectClass))
		{
			ObjectClass = WrittenClass;
		}
	}
	UObject* Resolved = FindImportedObject(Property, OwnerObject, ObjectClass != nullptr ? ObjectClass : UObject::StaticClass(), RequiredMetaClass, *PathText, PortFlags);
	if (Resolved == nullptr)
	{
		return false;
	}
	if (InterfaceProperty != nullptr && InterfaceProperty->InterfaceClass != nullptr && !Resolved->GetClass()->ImplementsInterface(InterfaceProperty->InterfaceClass))
	{
		return false;
	}
	out_ResolvedValue = Resolved;
	Buffer = End;
	return true;
}

void FObjectPropertyBase::ExportText_Internal(FString& ValueStr, const void* PropertyValueOrContainer, EPropertyPointerType PointerType, const void* DefaultValue, UObject* Parent, int32 PortFlags, UObject* ExportRootScope) const
{
	ValueStr += GetExportPath(GetObjectPropertyValue(PointerToValuePtr(PropertyValueOrContainer, PointerType)), Parent, ExportRootScope, static_cast<uint32>(PortFlags));
}

const TCHAR* FObjectPropertyBase::ImportText_Internal(const TCHAR* Buffer, void* ContainerOrPropertyPtr, EPropertyPointerType PointerType, UObject* OwnerObject, int32 PortFlags, FOutputDevice* ErrorText) const
{
	const TCHAR* Cursor = Buffer;
	UObject* Resolved = nullptr;
	if (!ParseObjectPropertyValue(this, OwnerObject, GetRequiredMetaClass(), static_cast<uint32>(PortFlags), Cursor, Resolved, ErrorText))
	{
		ReportImportError(ErrorText, Buffer, *FString::Printf(TEXT("no %s of that path"), PropertyClass != nullptr ? *PropertyClass->GetName() : TEXT("object")));
		return nullptr;
	}
	SetObjectPropertyValue(PointerToValuePtr(ContainerOrPropertyPtr, PointerType), Resolved);
	return Cursor;
}

// FObjectProperty

FObjectProperty::FObjectProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags)
	: FObjectPropertyBase(InOwner, InName, InObjectFlags)
{
	ElementSize = sizeof(UObject*);
	PropertyFlags |= CPF_IsPlainOldData | CPF_NoDestructor | CPF_ZeroConstructor | CPF_HasGetValueTypeHash;
}

FObjectProperty::FObjectProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags, int32 InOffset, EPropertyFlags InFlags, UClass* InClass)
	: FObjectPropertyBase(InOwner, InName, InObjectFlags, InOffset, InFlags, InClass)
{
	ElementSize = sizeof(UObject*);
	PropertyFlags |= CPF_IsPlainOldData | CPF_NoDestructor | CPF_ZeroConstructor | CPF_HasGetValueTypeHash;
}

FString FObjectProperty::GetCPPType(FString* ExtendedTypeText, uint32 CPPExportFlags) const
{
	return FString::Printf(TEXT("TObjectPtr<%s%s>"), PropertyClass != nullptr ? PropertyClass->GetPrefixCPP() : TEXT("U"), PropertyClass != nullptr ? *PropertyClass->GetName() : TEXT("Object"));
}

bool FObjectProperty::Identical(const void* A, const void* B, uint32 PortFlags) const
{
	const UObject* ObjectA = A != nullptr ? GetObjectPropertyValue(A) : nullptr;
	const UObject* ObjectB = B != nullptr ? GetObjectPropertyValue(B) : nullptr;
	return ObjectA == ObjectB;
}

void FObjectProperty::CopyValuesInternal(void* Dest, const void* Src, int32 Count) const
{
	FMemory::Memcpy(Dest, Src, sizeof(UObject*) * static_cast<SIZE_T>(Count));
}

// FClassProperty

FClassProperty::FClassProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags)
	: FObjectProperty(InOwner, InName, InObjectFlags)
{
	PropertyClass = UClass::StaticClass();
}

FClassProperty::FClassProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags, int32 InOffset, EPropertyFlags InFlags, UClass* InMetaClass)
	: FObjectProperty(InOwner, InName, InObjectFlags, InOffset, InFlags, UClass::StaticClass())
	, MetaClass(InMetaClass)
{
}

FString FClassProperty::GetCPPType(FString* ExtendedTypeText, uint32 CPPExportFlags) const
{
	if (MetaClass != nullptr && MetaClass != UObject::StaticClass())
	{
		return FString::Printf(TEXT("TSubclassOf<%s%s>"), MetaClass->GetPrefixCPP(), *MetaClass->GetName());
	}
	return TEXT("TObjectPtr<UClass>");
}

bool FClassProperty::SameType(const FProperty* Other) const
{
	return FObjectProperty::SameType(Other) && static_cast<const FClassProperty*>(Other)->MetaClass == MetaClass;
}

// FWeakObjectProperty

FWeakObjectProperty::FWeakObjectProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags)
	: FObjectPropertyBase(InOwner, InName, InObjectFlags)
{
	ElementSize = sizeof(FWeakObjectPtr);
	PropertyFlags |= CPF_HasGetValueTypeHash;
}

FWeakObjectProperty::FWeakObjectProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags, int32 InOffset, EPropertyFlags InFlags, UClass* InClass)
	: FObjectPropertyBase(InOwner, InName, InObjectFlags, InOffset, InFlags, InClass)
{
	ElementSize = sizeof(FWeakObjectPtr);
	PropertyFlags |= CPF_HasGetValueTypeHash;
}

FString FWeakObjectProperty::GetCPPType(FString* ExtendedTypeText, uint32 CPPExportFlags) const
{
	return FString::Printf(TEXT("TWeakObjectPtr<%s%s>"), PropertyClass != nullptr ? PropertyClass->GetPrefixCPP() : TEXT("U"), PropertyClass != nullptr ? *PropertyClass->GetName() : TEXT("Object"));
}

bool FWeakObjectProperty::Identical(const void* A, const void* B, uint32 PortFlags) const
{
	const FWeakObjectPtr& ValueA = *static_cast<const FWeakObjectPtr*>(A);
	return B != nullptr ? ValueA == *static_cast<const FWeakObjectPtr*>(B) : ValueA.Get(true) == nullptr;
}

UObject* FWeakObjectProperty::GetObjectPropertyValue(const void* PropertyValueAddress) const
{
	return static_cast<const FWeakObjectPtr*>(PropertyValueAddress)->Get();
}

void FWeakObjectProperty::SetObjectPropertyValue(void* PropertyValueAddress, UObject* Value) const
{
	*static_cast<FWeakObjectPtr*>(PropertyValueAddress) = Value;
}

void FWeakObjectProperty::CopyValuesInternal(void* Dest, const void* Src, int32 Count) const
{
	for (int32 Index = 0; Index < Count; ++Index)
	{
		static_cast<FWeakObjectPtr*>(Dest)[Index] = static_cast<const FWeakObjectPtr*>(Src)[Index];
	}
}

void FWeakObjectProperty::InitializeValueInternal(void* Dest) const
{
	for (int32 Index = 0; Index < ArrayDim; ++Index)
	{
		new (static_cast<FWeakObjectPtr*>(Dest) + Index) FWeakObjectPtr();
	}
}

void FWeakObjectProperty::DestroyValueInternal(void* Dest) const
{
	for (int32 Index = 0; Index < ArrayDim; ++Index)
	{
		(static_cast<FWeakObjectPtr*>(Dest) + Index)->~FWeakObjectPtr();
	}
}

void FWeakObjectProperty::ClearValueInternal(void* Data) const
{
	static_cast<FWeakObjectPtr*>(Data)->Reset();
}

// FSoftObjectProperty

FSoftObjectProperty::FSoftObjectProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags)
	: FObjectPropertyBase(InOwner, InName, InObjectFlags)
{
	ElementSize = sizeof(FSoftObjectPtr);
	PropertyFlags |= CPF_HasGetValueTypeHash;
}

FSoftObjectProperty::FSoftObjectProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags, int32 InOffset, EPropertyFlags InFlags, UClass* InClass)
	: FObjectPropertyBase(InOwner, InName, InObjectFlags, InOffset, InFlags, InClass)
{
	ElementSize = sizeof(FSoftObjectPtr);
	PropertyFlags |= CPF_HasGetValueTypeHash;
}

FString FSoftObjectProperty::GetCPPType(FString* ExtendedTypeText, uint32 CPPExportFlags) const
{
	return FString::Printf(TEXT("TSoftObjectPtr<%s%s>"), PropertyClass != nullptr ? PropertyClass->GetPrefixCPP() : TEXT("U"), PropertyClass != nullptr ? *PropertyClass->GetName() : TEXT("Object"));
}

bool FSoftObjectProperty::Identical(const void* A, const void* B, uint32 PortFlags) const
{
	const FSoftObjectPtr& ValueA = *static_cast<const FSoftObjectPtr*>(A);
	return B != nullptr ? ValueA == *static_cast<const FSoftObjectPtr*>(B) : ValueA.IsNull();
}

UObject* FSoftObjectProperty::GetObjectPropertyValue(const void* PropertyValueAddress) const
{
	return static_cast<const FSoftObjectPtr*>(PropertyValueAddress)->Get();
}

void FSoftObjectProperty::SetObjectPropertyValue(void* PropertyValueAddress, UObject* Value) const
{
	*static_cast<FSoftObjectPtr*>(PropertyValueAddress) = Value;
}

void FSoftObjectProperty::ExportText_Internal(FString& ValueStr, const void* PropertyValueOrContainer, EPropertyPointerType PointerType, const void* DefaultValue, UObject* Parent, int32 PortFlags, UObject* ExportRootScope) const
{
	const FSoftObjectPtr& Value = *static_cast<const FSoftObjectPtr*>(PointerToValuePtr(PropertyValueOrContainer, PointerType));
	Value.ToSoftObjectPath().ExportTextItem(ValueStr, FSoftObjectPath(), Parent, PortFlags, ExportRootScope);
}

const TCHAR* FSoftObjectProperty::ImportText_Internal(const TCHAR* Buffer, void* ContainerOrPropertyPtr, EPropertyPointerType PointerType, UObject* OwnerObject, int32 PortFlags, FOutputDevice* ErrorText) const
{
	FSoftObjectPath Path;
	const TCHAR* Cursor = Buffer;
	if (!Path.ImportTextItem(Cursor, PortFlags, OwnerObject, ErrorText))
	{
		ReportImportError(ErrorText, Buffer, TEXT("expected an object path"));
		return nullptr;
	}
	*static_cast<FSoftObjectPtr*>(PointerToValuePtr(ContainerOrPropertyPtr, PointerType)) = Path;
	return Cursor;
}

void FSoftObjectProperty::CopyValuesInternal(void* Dest, const void* Src, int32 Count) const
{
	for (int32 Index = 0; Index < Count; ++Index)
	{
		static_cast<FSoftObjectPtr*>(Dest)[Index] = static_cast<const FSoftObjectPtr*>(Src)[Index];
	}
}

void FSoftObjectProperty::InitializeValueInternal(void* Dest) const
{
	for (int32 Index = 0; Index < ArrayDim; ++Index)
	{
		new (static_cast<FSoftObjectPtr*>(Dest) + Index) FSoftObjectPtr();
	}
}

void FSoftObjectProperty::DestroyValueInternal(void* Dest) const
{
	for (int32 Index = 0; Index < ArrayDim; ++Index)
	{
		(static_cast<FSoftObjectPtr*>(Dest) + Index)->~FSoftObjectPtr();
	}
}

void FSoftObjectProperty::ClearValueInternal(void* Data) const
{
	static_cast<FSoftObjectPtr*>(Data)->Reset();
}

// FSoftClassProperty

FSoftClassProperty::FSoftClassProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags)
	: FSoftObjectProperty(InOwner, InName, InObjectFlags)
{
	PropertyClass = UClass::StaticClass();
}

FSoftClassProperty::FSoftClassProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags, int32 InOffset, EPropertyFlags InFlags, UClass* InMetaClass)
	: FSoftObjectProperty(InOwner, InName, InObjectFlags, InOffset, InFlags, UClass::StaticClass())
	, MetaClass(InMetaClass)
{
}

FString FSoftClassProperty::GetCPPType(FString* ExtendedTypeText, uint32 CPPExportFlags) const
{
	return FString::Printf(TEXT("TSoftClassPtr<%s%s>"), MetaClass != nullptr ? MetaClass->GetPrefixCPP() : TEXT("U"), MetaClass != nullptr ? *MetaClass->GetName() : TEXT("Object"));
}

bool FSoftClassProperty::SameType(const FProperty* Other) const
{
	return FSoftObjectProperty::SameType(Other) && static_cast<const FSoftClassProperty*>(Other)->MetaClass == MetaClass;
}

// FInterfaceProperty

FInterfaceProperty::FInterfaceProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags)
	: FProperty(InOwner, InName, InObjectFlags)
{
	ElementSize = sizeof(FScriptInterface);
	PropertyFlags |= CPF_IsPlainOldData | CPF_NoDestructor | CPF_ZeroConstructor | CPF_HasGetValueTypeHash;
}

FInterfaceProperty::FInterfaceProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags, int32 InOffset, EPropertyFlags InFlags, UClass* InInterfaceClass)
	: FProperty(InOwner, InName, InObjectFlags, InOffset, InFlags)
	, InterfaceClass(InInterfaceClass)
{
	ElementSize = sizeof(FScriptInterface);
	PropertyFlags |= CPF_IsPlainOldData | CPF_NoDestructor | CPF_ZeroConstructor | CPF_HasGetValueTypeHash;
}

FString FInterfaceProperty::GetCPPType(FString* ExtendedTypeText, uint32 CPPExportFlags) const
{
	return FString::Printf(TEXT("TScriptInterface<I%s>"), InterfaceClass != nullptr ? *InterfaceClass->GetName() : TEXT("Interface"));
}

bool FInterfaceProperty::SameType(const FProperty* Other) const
{
	return FProperty::SameType(Other) && static_cast<const FInterfaceProperty*>(Other)->InterfaceClass == InterfaceClass;
}

bool FInterfaceProperty::Identical(const void* A, const void* B, uint32 PortFlags) const
{
	const UObject* ObjectA = static_cast<const FScriptInterface*>(A)->GetObject();
	const UObject* ObjectB = B != nullptr ? static_cast<const FScriptInterface*>(B)->GetObject() : nullptr;
	return ObjectA == ObjectB;
}

void FInterfaceProperty::ExportText_Internal(FString& ValueStr, const void* PropertyValueOrContainer, EPropertyPointerType PointerType, const void* DefaultValue, UObject* Parent, int32 PortFlags, UObject* ExportRootScope) const
{
	const FScriptInterface& Value = *static_cast<const FScriptInterface*>(PointerToValuePtr(PropertyValueOrContainer, PointerType));
	ValueStr += FObjectPropertyBase::GetExportPath(Value.GetObject(), Parent, ExportRootScope, static_cast<uint32>(PortFlags));
}

const TCHAR* FInterfaceProperty::ImportText_Internal(const TCHAR* Buffer, void* ContainerOrPropertyPtr, EPropertyPointerType PointerType, UObject* OwnerObject, int32 PortFlags, FOutputDevice* ErrorText) const
{
	const TCHAR* Cursor = Buffer;
	UObject* Resolved = nullptr;
	if (!FObjectPropertyBase::ParseObjectPropertyValue(this, OwnerObject, nullptr, static_cast<uint32>(PortFlags), Cursor, Resolved, ErrorText))
	{
		ReportImportError(ErrorText, Buffer, *FString::Printf(TEXT("no object implementing %s of that path"), InterfaceClass != nullptr ? *InterfaceClass->GetName() : TEXT("the interface")));
		return nullptr;
	}
	FScriptInterface& Value = *static_cast<FScriptInterface*>(PointerToValuePtr(ContainerOrPropertyPtr, PointerType));
	Value.SetObject(Resolved);
	Value.SetInterface(Resolved != nullptr && InterfaceClass != nullptr ? Resolved->GetInterfaceAddress(InterfaceClass) : nullptr);
	return Cursor;
}

void FInterfaceProperty::CopyValuesInternal(void* Dest, const void* Src, int32 Count) const
{
	for (int32 Index = 0; Index < Count; ++Index)
	{
		static_cast<FScriptInterface*>(Dest)[Index] = static_cast<const FScriptInterface*>(Src)[Index];
	}
}
