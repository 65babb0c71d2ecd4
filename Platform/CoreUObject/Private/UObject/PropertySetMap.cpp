// Set and map properties: over native TSet/TMap through their operations, or over a type-erased buffer.
#include "UObject/UnrealType.h"
#include "PropertyText.h"
#include "ScriptContainerStorage.h"

using namespace UE::CoreUObject::Private;

IMPLEMENT_FIELD(FSetProperty)
IMPLEMENT_FIELD(FMapProperty)

namespace
{
	// A value of a property in heap memory, for reading text before it replaces the real value.
	class FScratchValue
	{
	public:
		explicit FScratchValue(const FProperty* InProperty)
			: Property(InProperty)
			, Memory(FMemory::Malloc(static_cast<SIZE_T>(FMath::Max(InProperty->GetElementSize(), 1)), 16))
		{
			FMemory::Memzero(Memory, static_cast<SIZE_T>(FMath::Max(InProperty->GetElementSize(), 1)));
			Property->InitializeValue(Memory);
		}
		~FScratchValue()
		{
			Property->DestroyValue(Memory);
			FMemory::Free(Memory);
		}
		FScratchValue(const FScratchValue&) = delete;
		FScratchValue& operator=(const FScratchValue&) = delete;

		void* Get() const
		{
			return Memory;
		}

	private:
		const FProperty* Property;
		void* Memory;
	};

	// Reads "(" Item ("," Item)* ")" or "()", calling ReadItem for each item; null on malformed text.
	const TCHAR* ReadList(const TCHAR* Buffer, TFunctionRef<const TCHAR*(const TCHAR*)> ReadItem)
	{
		const TCHAR* Cursor = SkipWhitespace(Buffer);
		if (*Cursor != TEXT('('))
		{
			return nullptr;
		}
		Cursor = SkipWhitespace(Cursor + 1);
		if (*Cursor == TEXT(')'))
		{
			return Cursor + 1;
		}
		for (;;)
		{
			Cursor = ReadItem(Cursor);
			if (Cursor == nullptr)
			{
				return nullptr;
			}
			Cursor = SkipWhitespace(Cursor);
			if (*Cursor == TEXT(')'))
			{
				return Cursor + 1;
			}
			if (*Cursor != TEXT(','))
			{
				return nullptr;
			}
			Cursor = SkipWhitespace(Cursor + 1);
		}
	}
}

// FSetProperty

FSetProperty::FSetProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags)
	: FProperty(InOwner, InName, InObjectFlags)
{
	SetSetOps(nullptr);
}

FSetProperty::FSetProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags, int32 InOffset, EPropertyFlags InFlags, const FScriptSetOps* InSetOps)
	: FProperty(InOwner, InName, InObjectFlags, InOffset, InFlags)
{
	SetSetOps(InSetOps);
}

FSetProperty::~FSetProperty()
{
	delete ElementProp;
}

void FSetProperty::AddCppProperty(FProperty* Property)
{
	delete ElementProp;
	ElementProp = Property;
}

void FSetProperty::SetSetOps(const FScriptSetOps* InSetOps)
{
	SetOps = InSetOps;
	ElementSize = SetOps != nullptr ? SetOps->Size : static_cast<int32>(sizeof(FScriptContainerStorage));
	PropertyFlags |= CPF_ZeroConstructor;
}

FString FSetProperty::GetCPPType(FString* ExtendedTypeText, uint32 CPPExportFlags) const
{
	if (ExtendedTypeText != nullptr)
	{
		FString ElementExtended;
		const FString ElementType = ElementProp != nullptr ? ElementProp->GetCPPType(&ElementExtended, CPPExportFlags) : FString(TEXT("void"));
		*ExtendedTypeText = FString::Printf(TEXT("<%s%s>"), *ElementType, *ElementExtended);
	}
	return TEXT("TSet");
}

FString FSetProperty::GetCPPMacroType(FString& ExtendedTypeText) const
{
	ExtendedTypeText = ElementProp != nullptr ? ElementProp->GetCPPType() : FString();
	return TEXT("TSET");
}

bool FSetProperty::SameType(const FProperty* Other) const
{
	const FSetProperty* OtherSet = CastField<FSetProperty>(Other);
	return OtherSet != nullptr && ElementProp != nullptr && ElementProp->SameType(OtherSet->ElementProp);
}

int32 FSetProperty::GetMinAlignment() const
{
	return SetOps != nullptr ? SetOps->Alignment : static_cast<int32>(alignof(FScriptContainerStorage));
}

void FSetProperty::LinkInternal()
{
	if (ElementProp != nullptr)
	{
		ElementProp->LinkInternal();
	}
}

void FSetProperty::ForEachElement(const void* SetValue, TFunctionRef<void(const void*)> Visit) const
{
	if (SetOps != nullptr)
	{
		SetOps->ForEach(SetValue, Visit);
		return;
	}
	const FScriptContainerStorage& Storage = *static_cast<const FScriptContainerStorage*>(SetValue);
	const FContainerElementLayout Layout = FContainerElementLayout::ForElement(ElementProp);
	for (int32 Index = 0; Index < Storage.Num; ++Index)
	{
		Visit(ContainerStorage::GetElement(Storage, Layout, Index));
	}
}

int32 FSetProperty::Num(const void* SetValue) const
{
	return SetOps != nullptr ? SetOps->Num(SetValue) : static_cast<const FScriptContainerStorage*>(SetValue)->Num;
}

bool FSetProperty::ContainsElement(const void* SetValue, const void* Element) const
{
	if (SetOps != nullptr)
	{
		return SetOps->Contains(SetValue, Element);
	}
	bool bFound = false;
	ForEachElement(SetValue, [this, Element, &bFound](const void* Candidate)
	{
		bFound = bFound || ElementProp->Identical(Candidate, Element);
	});
	return bFound;
}

void FSetProperty::AddElement(void* SetValue, const void* Element) const
{
	if (SetOps != nullptr)
	{
		SetOps->Add(SetValue, Element);
		return;
	}
	if (ContainsElement(SetValue, Element))
	{
		return;
	}
	FScriptContainerStorage& Storage = *static_cast<FScriptContainerStorage*>(SetValue);
	const FContainerElementLayout Layout = FContainerElementLayout::ForElement(ElementProp);
	ContainerStorage::Insert(Storage, Layout, Storage.Num, 1);
	Layout.Copy(ContainerStorage::GetElement(Storage, Layout, Storage.Num - 1), Element);
}

void FSetProperty::EmptyValue(void* SetValue) const
{
	if (SetOps != nullptr)
	{
		SetOps->Empty(SetValue);
	}
	else
	{
		ContainerStorage::Empty(*static_cast<FScriptContainerStorage*>(SetValue), FContainerElementLayout::ForElement(ElementProp));
	}
}

bool FSetProperty::Identical(const void* A, const void* B, uint32 PortFlags) const
{
	const int32 NumA = Num(A);
	if (B == nullptr)
	{
		return NumA == 0;
	}
	if (NumA != Num(B))
	{
		return false;
	}
	bool bAllFound = true;
	ForEachElement(A, [this, B, &bAllFound](const void* Element)
	{
		bAllFound = bAllFound && ContainsElement(B, Element);
	});
	return bAllFound;
}

void FSetProperty::ExportText_Internal(FString& ValueStr, const void* PropertyValueOrContainer, EPropertyPointerType PointerType, const void* DefaultValue, UObject* Parent, int32 PortFlags, UObject* ExportRootScope) const
{
	bool bFirst = true;
	ValueStr.AppendChar(TEXT('('));
	ForEachElement(PointerToValuePtr(PropertyValueOrContainer, PointerType), [&](const void* Element)
	{
		if (!bFirst)
		{
			ValueStr.AppendChar(TEXT(','));
		}
		bFirst = false;
		ElementProp->ExportTextItem_Direct(ValueStr, Element, nullptr, Parent, PortFlags | PPF_Delimited, ExportRootScope);
	});
	ValueStr.AppendChar(TEXT(')'));
}

const TCHAR* FSetProperty::ImportText_Internal(const TCHAR* Buffer, void* ContainerOrPropertyPtr, EPropertyPointerType PointerType, UObject* OwnerObject, int32 PortFlags, FOutputDevice* ErrorText) const
{
	if (ElementProp == nullptr)
	{
		ReportImportError(ErrorText, Buffer, TEXT("the set has no element type"));
		return nullptr;
	}
	FScratchValue Scratch(this);
	FScratchValue Element(ElementProp);
	const TCHAR* End = ReadList(Buffer, [&](const TCHAR* Cursor) -> const TCHAR*
	{
		ElementProp->ClearValue(Element.Get());
		const TCHAR* After = ElementProp->ImportText_Direct(Cursor, Element.Get(), OwnerObject, PortFlags | PPF_Delimited, ErrorText);
		if (After != nullptr)
		{
			AddElement(Scratch.Get(), Element.Get());
		}
		return After;
	});
	if (End == nullptr)
	{
		ReportImportError(ErrorText, Buffer, TEXT("expected a list of elements in parentheses"));
		return nullptr;
	}
	CopySingleValue(PointerToValuePtr(ContainerOrPropertyPtr, PointerType), Scratch.Get());
	return End;
}

void FSetProperty::CopyValuesInternal(void* Dest, const void* Src, int32 Count) const
{
	for (int32 Index = 0; Index < Count; ++Index)
	{
		void* DestSet = static_cast<uint8*>(Dest) + Index * ElementSize;
		const void* SrcSet = static_cast<const uint8*>(Src) + Index * ElementSize;
		if (SetOps != nullptr)
		{
			SetOps->Assign(DestSet, SrcSet);
		}
		else
		{
			ContainerStorage::Assign(*static_cast<FScriptContainerStorage*>(DestSet), *static_cast<const FScriptContainerStorage*>(SrcSet), FContainerElementLayout::ForElement(ElementProp));
		}
	}
}

void FSetProperty::InitializeValueInternal(void* Dest) const
{
	for (int32 Index = 0; Index < ArrayDim; ++Index)
	{
		void* Set = static_cast<uint8*>(Dest) + Index * ElementSize;
		if (SetOps != nullptr)
		{
			SetOps->Construct(Set);
		}
		else
		{
			new (Set) FScriptContainerStorage();
		}
	}
}

void FSetProperty::DestroyValueInternal(void* Dest) const
{
	for (int32 Index = 0; Index < ArrayDim; ++Index)
	{
		void* Set = static_cast<uint8*>(Dest) + Index * ElementSize;
		if (SetOps != nullptr)
		{
			SetOps->Destruct(Set);
		}
		else
		{
			EmptyValue(Set);
		}
	}
}

void FSetProperty::ClearValueInternal(void* Data) const
{
	EmptyValue(Data);
}

// FMapProperty

FMapProperty::FMapProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags)
	: FProperty(InOwner, InName, InObjectFlags)
{
	SetMapOps(nullptr);
}

FMapProperty::FMapProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags, int32 InOffset, EPropertyFlags InFlags, const FScriptMapOps* InMapOps)
	: FProperty(InOwner, InName, InObjectFlags, InOffset, InFlags)
{
	SetMapOps(InMapOps);
}

FMapProperty::~FMapProperty()
{
	delete KeyProp;
	delete ValueProp;
}

void FMapProperty::AddCppProperty(FProperty* Property)
{
	if (KeyProp == nullptr)
	{
		KeyProp = Property;
	}
	else
	{
		delete ValueProp;
		ValueProp = Property;
	}
}

void FMapProperty::SetMapOps(const FScriptMapOps* InMapOps)
{
	MapOps = InMapOps;
	ElementSize = MapOps != nullptr ? MapOps->Size : static_cast<int32>(sizeof(FScriptContainerStorage));
	PropertyFlags |= CPF_ZeroConstructor;
}

FString FMapProperty::GetCPPType(FString* ExtendedTypeText, uint32 CPPExportFlags) const
{
	if (ExtendedTypeText != nullptr)
	{
		FString KeyExtended;
		FString ValueExtended;
		const FString KeyType = KeyProp != nullptr ? KeyProp->GetCPPType(&KeyExtended, CPPExportFlags) : FString(TEXT("void"));
		const FString ValueType = ValueProp != nullptr ? ValueProp->GetCPPType(&ValueExtended, CPPExportFlags) : FString(TEXT("void"));
		*ExtendedTypeText = FString::Printf(TEXT("<%s%s,%s%s>"), *KeyType, *KeyExtended, *ValueType, *ValueExtended);
	}
	return TEXT("TMap");
}

FString FMapProperty::GetCPPMacroType(FString& ExtendedTypeText) const
{
	ExtendedTypeText = FString::Printf(TEXT("%s,%s"), KeyProp != nullptr ? *KeyProp->GetCPPType() : TEXT(""), ValueProp != nullptr ? *ValueProp->GetCPPType() : TEXT(""));
	return TEXT("TMAP");
}

bool FMapProperty::SameType(const FProperty* Other) const
{
	const FMapProperty* OtherMap = CastField<FMapProperty>(Other);
	return OtherMap != nullptr && KeyProp != nullptr && ValueProp != nullptr && KeyProp->SameType(OtherMap->KeyProp) && ValueProp->SameType(OtherMap->ValueProp);
}

int32 FMapProperty::GetMinAlignment() const
{
	return MapOps != nullptr ? MapOps->Alignment : static_cast<int32>(alignof(FScriptContainerStorage));
}

void FMapProperty::LinkInternal()
{
	if (KeyProp != nullptr)
	{
		KeyProp->LinkInternal();
	}
	if (ValueProp != nullptr)
	{
		ValueProp->LinkInternal();
	}
}

void FMapProperty::ForEachPair(const void* MapValue, TFunctionRef<void(const void*, const void*)> Visit) const
{
	if (MapOps != nullptr)
	{
		MapOps->ForEach(MapValue, Visit);
		return;
	}
	const FScriptContainerStorage& Storage = *static_cast<const FScriptContainerStorage*>(MapValue);
	const FContainerElementLayout Layout = FContainerElementLayout::ForPair(KeyProp, ValueProp);
	for (int32 Index = 0; Index < Storage.Num; ++Index)
	{
		const uint8* Pair = ContainerStorage::GetElement(Storage, Layout, Index);
		Visit(Pair, Pair + Layout.SecondOffset);
	}
}

int32 FMapProperty::Num(const void* MapValue) const
{
	return MapOps != nullptr ? MapOps->Num(MapValue) : static_cast<const FScriptContainerStorage*>(MapValue)->Num;
}

const void* FMapProperty::FindValue(const void* MapValue, const void* Key) const
{
	if (MapOps != nullptr)
	{
		return MapOps->Find(MapValue, Key);
	}
	const void* Found = nullptr;
	ForEachPair(MapValue, [this, Key, &Found](const void* CandidateKey, const void* Value)
	{
		if (Found == nullptr && KeyProp->Identical(CandidateKey, Key))
		{
			Found = Value;
		}
	});
	return Found;
}

void FMapProperty::AddPair(void* MapValue, const void* Key, const void* Value) const
{
	if (MapOps != nullptr)
	{
		MapOps->Add(MapValue, Key, Value);
		return;
	}
	if (const void* Existing = FindValue(MapValue, Key))
	{
		ValueProp->CopyCompleteValue(const_cast<void*>(Existing), Value);
		return;
	}
	FScriptContainerStorage& Storage = *static_cast<FScriptContainerStorage*>(MapValue);
	const FContainerElementLayout Layout = FContainerElementLayout::ForPair(KeyProp, ValueProp);
	ContainerStorage::Insert(Storage, Layout, Storage.Num, 1);
	uint8* Pair = ContainerStorage::GetElement(Storage, Layout, Storage.Num - 1);
	KeyProp->CopyCompleteValue(Pair, Key);
	ValueProp->CopyCompleteValue(Pair + Layout.SecondOffset, Value);
}

void FMapProperty::EmptyValue(void* MapValue) const
{
	if (MapOps != nullptr)
	{
		MapOps->Empty(MapValue);
	}
	else
	{
		ContainerStorage::Empty(*static_cast<FScriptContainerStorage*>(MapValue), FContainerElementLayout::ForPair(KeyProp, ValueProp));
	}
}

bool FMapProperty::Identical(const void* A, const void* B, uint32 PortFlags) const
{
	const int32 NumA = Num(A);
	if (B == nullptr)
	{
		return NumA == 0;
	}
	if (NumA != Num(B))
	{
		return false;
	}
	bool bSame = true;
	ForEachPair(A, [this, B, PortFlags, &bSame](const void* Key, const void* Value)
	{
		if (bSame)
		{
			const void* Other = FindValue(B, Key);
			bSame = Other != nullptr && ValueProp->Identical(Value, Other, PortFlags);
		}
	});
	return bSame;
}

void FMapProperty::ExportText_Internal(FString& ValueStr, const void* PropertyValueOrContainer, EPropertyPointerType PointerType, const void* DefaultValue, UObject* Parent, int32 PortFlags, UObject* ExportRootScope) const
{
	bool bFirst = true;
	ValueStr.AppendChar(TEXT('('));
	ForEachPair(PointerToValuePtr(PropertyValueOrContainer, PointerType), [&](const void* Key, const void* Value)
	{
		ValueStr += bFirst ? TEXT("(") : TEXT(",(");
		bFirst = false;
		KeyProp->ExportTextItem_Direct(ValueStr, Key, nullptr, Parent, PortFlags | PPF_Delimited, ExportRootScope);
		ValueStr += TEXT(", ");
		ValueProp->ExportTextItem_Direct(ValueStr, Value, nullptr, Parent, PortFlags | PPF_Delimited, ExportRootScope);
		ValueStr.AppendChar(TEXT(')'));
	});
	ValueStr.AppendChar(TEXT(')'));
}

const TCHAR* FMapProperty::ImportText_Internal(const TCHAR* Buffer, void* ContainerOrPropertyPtr, EPropertyPointerType PointerType, UObject* OwnerObject, int32 PortFlags, FOutputDevice* ErrorText) const
{
	if (KeyProp == nullptr || ValueProp == nullptr)
	{
		ReportImportError(ErrorText, Buffer, TEXT("the map has no key or value type"));
		return nullptr;
	}
	FScratchValue Scratch(this);
	FScratchValue Key(KeyProp);
	FScratchValue Value(ValueProp);
	const TCHAR* End = ReadList(Buffer, [&](const TCHAR* Cursor) -> const TCHAR*
	{
		if (*Cursor != TEXT('('))
		{
			return nullptr;
		}
		KeyProp->ClearValue(Key.Get());
		ValueProp->ClearValue(Value.Get());
		Cursor = KeyProp->ImportText_Direct(SkipWhitespace(Cursor + 1), Key.Get(), OwnerObject, PortFlags | PPF_Delimited, ErrorText);
		if (Cursor == nullptr || *(Cursor = SkipWhitespace(Cursor)) != TEXT(','))
		{
			return nullptr;
		}
		Cursor = ValueProp->ImportText_Direct(SkipWhitespace(Cursor + 1), Value.Get(), OwnerObject, PortFlags | PPF_Delimited, ErrorText);
		if (Cursor == nullptr || *(Cursor = SkipWhitespace(Cursor)) != TEXT(')'))
		{
			return nullptr;
		}
		AddPair(Scratch.Get(), Key.Get(), Value.Get());
		return Cursor + 1;
	});
	if (End == nullptr)
	{
		ReportImportError(ErrorText, Buffer, TEXT("expected a list of (Key, Value) pairs in parentheses"));
		return nullptr;
	}
	CopySingleValue(PointerToValuePtr(ContainerOrPropertyPtr, PointerType), Scratch.Get());
	return End;
}

void FMapProperty::CopyValuesInternal(void* Dest, const void* Src, int32 Count) const
{
	for (int32 Index = 0; Index < Count; ++Index)
	{
		void* DestMap = static_cast<uint8*>(Dest) + Index * ElementSize;
		const void* SrcMap = static_cast<const uint8*>(Src) + Index * ElementSize;
		if (MapOps != nullptr)
		{
			MapOps->Assign(DestMap, SrcMap);
		}
		else
		{
			ContainerStorage::Assign(*static_cast<FScriptContainerStorage*>(DestMap), *static_cast<const FScriptContainerStorage*>(SrcMap), FContainerElementLayout::ForPair(KeyProp, ValueProp));
		}
	}
}

void FMapProperty::InitializeValueInternal(void* Dest) const
{
	for (int32 Index = 0; Index < ArrayDim; ++Index)
	{
		void* Map = static_cast<uint8*>(Dest) + Index * ElementSize;
		if (MapOps != nullptr)
		{
			MapOps->Construct(Map);
		}
		else
		{
			new (Map) FScriptContainerStorage();
		}
	}
}

void FMapProperty::DestroyValueInternal(void* Dest) const
{
	for (int32 Index = 0; Index < ArrayDim; ++Index)
	{
		void* Map = static_cast<uint8*>(Dest) + Index * ElementSize;
		if (MapOps != nullptr)
		{
			MapOps->Destruct(Map);
		}
		else
		{
			EmptyValue(Map);
		}
	}
}

void FMapProperty::ClearValueInternal(void* Data) const
{
	EmptyValue(Data);
}
