#include "UObject/UnrealType.h"
#include "PropertyText.h"
#include "ScriptContainerStorage.h"

using namespace UE::CoreUObject::Private;

IMPLEMENT_FIELD(FArrayProperty)

namespace
{
	// An array value of the property's type in heap memory, for reading a list before it replaces the value.
	class FScratchArray
	{
	public:
		explicit FScratchArray(const FArrayProperty* InProperty)
			: Property(InProperty)
			, Memory(FMemory::Malloc(static_cast<SIZE_T>(InProperty->GetElementSize()), 16))
		{
			Property->InitializeValue(Memory);
		}
		~FScratchArray()
		{
			Property->DestroyValue(Memory);
			FMemory::Free(Memory);
		}
		FScratchArray(const FScratchArray&) = delete;
		FScratchArray& operator=(const FScratchArray&) = delete;

		void* Get() const
		{
			return Memory;
		}

	private:
		const FArrayProperty* Property;
		void* Memory;
	};

	FContainerElementLayout LayoutOf(const FArrayProperty* Property)
	{
		return FContainerElementLayout::ForElement(Property->Inner);
	}
}

FArrayProperty::FArrayProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags)
	: FProperty(InOwner, InName, InObjectFlags)
{
	SetArrayOps(nullptr);
}

FArrayProperty::FArrayProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags, int32 InOffset, EPropertyFlags InFlags, const FScriptArrayOps* InArrayOps)
	: FProperty(InOwner, InName, InObjectFlags, InOffset, InFlags)
{
	SetArrayOps(InArrayOps);
}

FArrayProperty::~FArrayProperty()
{
	delete Inner;
}

void FArrayProperty::AddCppProperty(FProperty* Property)
{
	delete Inner;
	Inner = Property;
}

void FArrayProperty::SetArrayOps(const FScriptArrayOps* InArrayOps)
{
	// Without native operations (an array made at run time) the value is a type-erased buffer.
	ArrayOps = InArrayOps;
	ElementSize = ArrayOps != nullptr ? ArrayOps->Size : static_cast<int32>(sizeof(FScriptContainerStorage));
	PropertyFlags |= CPF_ZeroConstructor;
}

FString FArrayProperty::GetCPPType(FString* ExtendedTypeText, uint32 CPPExportFlags) const
{
	if (ExtendedTypeText != nullptr)
	{
		FString InnerExtended;
		const FString InnerType = Inner != nullptr ? Inner->GetCPPType(&InnerExtended, CPPExportFlags) : FString(TEXT("void"));
		// "TArray<TArray<int32> >" keeps the closing brackets apart, as the engine writes it.
		*ExtendedTypeText = FString::Printf(TEXT("<%s%s%s>"), *InnerType, *InnerExtended, InnerExtended.EndsWith(TEXT(">")) ? TEXT(" ") : TEXT(""));
	}
	return TEXT("TArray");
}

FString FArrayProperty::GetCPPMacroType(FString& ExtendedTypeText) const
{
	ExtendedTypeText = Inner != nullptr ? Inner->GetCPPType() : FString();
	return TEXT("TARRAY");
}

bool FArrayProperty::SameType(const FProperty* Other) const
{
	const FArrayProperty* OtherArray = CastField<FArrayProperty>(Other);
	return OtherArray != nullptr && Inner != nullptr && Inner->SameType(OtherArray->Inner);
}

int32 FArrayProperty::GetMinAlignment() const
{
	return ArrayOps != nullptr ? ArrayOps->Alignment : static_cast<int32>(alignof(FScriptContainerStorage));
}

void FArrayProperty::LinkInternal()
{
	if (Inner != nullptr)
	{
		Inner->LinkInternal();
	}
}

bool FArrayProperty::Identical(const void* A, const void* B, uint32 PortFlags) const
{
	FScriptArrayHelper HelperA(this, A);
	const int32 Num = HelperA.Num();
	if (B == nullptr)
	{
		return Num == 0;
	}
	FScriptArrayHelper HelperB(this, B);
	if (Num != HelperB.Num())
	{
		return false;
	}
	for (int32 Index = 0; Index < Num; ++Index)
	{
		if (!Inner->Identical(HelperA.GetRawPtr(Index), HelperB.GetRawPtr(Index), PortFlags))
		{
			return false;
		}
	}
	return true;
}

void FArrayProperty::ExportText_Internal(FString& ValueStr, const void* PropertyValueOrContainer, EPropertyPointerType PointerType, const void* DefaultValue, UObject* Parent, int32 PortFlags, UObject* ExportRootScope) const
{
	FScriptArrayHelper Helper(this, PointerToValuePtr(PropertyValueOrContainer, PointerType));
	ValueStr.AppendChar(TEXT('('));
	for (int32 Index = 0; Index < Helper.Num(); ++Index)
	{
		if (Index > 0)
		{
			ValueStr.AppendChar(TEXT(','));
		}
		Inner->ExportTextItem_Direct(ValueStr, Helper.GetRawPtr(Index), nullptr, Parent, PortFlags | PPF_Delimited, ExportRootScope);
	}
	ValueStr.AppendChar(TEXT(')'));
}

const TCHAR* FArrayProperty::ImportText_Internal(const TCHAR* Buffer, void* ContainerOrPropertyPtr, EPropertyPointerType PointerType, UObject* OwnerObject, int32 PortFlags, FOutputDevice* ErrorText) const
{
	if (Inner == nullptr)
	{
		ReportImportError(ErrorText, Buffer, TEXT("the array has no element type"));
		return nullptr;
	}
	const TCHAR* Cursor = SkipWhitespace(Buffer);
	if (*Cursor != TEXT('('))
	{
		ReportImportError(ErrorText, Buffer, TEXT("expected '(' to open the list"));
		return nullptr;
	}
	// The list is read into a scratch array first, so that a malformed one leaves the value as it was.
	FScratchArray Scratch(this);
	Cursor = SkipWhitespace(Cursor + 1);
	if (*Cursor == TEXT(')'))
	{
		++Cursor;
	}
	else
	{
		for (;;)
		{
			FScriptArrayHelper ScratchHelper(this, Scratch.Get());
			const int32 Index = ScratchHelper.AddValue();
			Cursor = Inner->ImportText_Direct(Cursor, ScratchHelper.GetRawPtr(Index), OwnerObject, PortFlags | PPF_Delimited, ErrorText);
			if (Cursor == nullptr)
			{
				return nullptr;
			}
			Cursor = SkipWhitespace(Cursor);
			if (*Cursor == TEXT(','))
			{
				Cursor = SkipWhitespace(Cursor + 1);
				continue;
			}
			if (*Cursor == TEXT(')'))
			{
				++Cursor;
				break;
			}
			ReportImportError(ErrorText, Buffer, TEXT("expected ',' or ')' in the list"));
			return nullptr;
		}
	}
	CopySingleValue(PointerToValuePtr(ContainerOrPropertyPtr, PointerType), Scratch.Get());
	return Cursor;
}

void FArrayProperty::CopyValuesInternal(void* Dest, const void* Src, int32 Count) const
{
	for (int32 Index = 0; Index < Count; ++Index)
	{
		void* DestArray = static_cast<uint8*>(Dest) + Index * ElementSize;
		const void* SrcArray = static_cast<const uint8*>(Src) + Index * ElementSize;
		if (ArrayOps != nullptr)
		{
			ArrayOps->Assign(DestArray, SrcArray);
		}
		else
		{
			ContainerStorage::Assign(*static_cast<FScriptContainerStorage*>(DestArray), *static_cast<const FScriptContainerStorage*>(SrcArray), LayoutOf(this));
		}
	}
}

void FArrayProperty::InitializeValueInternal(void* Dest) const
{
	for (int32 Index = 0; Index < ArrayDim; ++Index)
	{
		void* Array = static_cast<uint8*>(Dest) + Index * ElementSize;
		if (ArrayOps != nullptr)
		{
			ArrayOps->Construct(Array);
		}
		else
		{
			new (Array) FScriptContainerStorage();
		}
	}
}

void FArrayProperty::DestroyValueInternal(void* Dest) const
{
	for (int32 Index = 0; Index < ArrayDim; ++Index)
	{
		void* Array = static_cast<uint8*>(Dest) + Index * ElementSize;
		if (ArrayOps != nullptr)
		{
			ArrayOps->Destruct(Array);
		}
		else
		{
			ContainerStorage::Empty(*static_cast<FScriptContainerStorage*>(Array), LayoutOf(this));
		}
	}
}

void FArrayProperty::ClearValueInternal(void* Data) const
{
	if (ArrayOps != nullptr)
	{
		ArrayOps->Empty(Data, 0);
	}
	else
	{
		ContainerStorage::Empty(*static_cast<FScriptContainerStorage*>(Data), LayoutOf(this));
	}
}

// FScriptArrayHelper

FScriptArrayHelper::FScriptArrayHelper(const FArrayProperty* InProperty, const void* InArray)
	: Property(InProperty)
	, Array(const_cast<void*>(InArray))
	, ElementSize(InProperty != nullptr && InProperty->Inner != nullptr ? InProperty->Inner->GetElementSize() : 0)
{
	if (Property != nullptr && Property->GetArrayOps() == nullptr)
	{
		ElementSize = LayoutOf(Property).Stride;
	}
}

int32 FScriptArrayHelper::Num() const
{
	if (const FScriptArrayOps* Ops = Property->GetArrayOps())
	{
		return Ops->Num(Array);
	}
	return static_cast<const FScriptContainerStorage*>(Array)->Num;
}

uint8* FScriptArrayHelper::GetRawPtr(int32 Index)
{
	if (const FScriptArrayOps* Ops = Property->GetArrayOps())
	{
		return static_cast<uint8*>(Ops->GetData(Array)) + Index * ElementSize;
	}
	return static_cast<FScriptContainerStorage*>(Array)->Data + Index * ElementSize;
}

int32 FScriptArrayHelper::AddValue()
{
	return AddValues(1);
}

int32 FScriptArrayHelper::AddValues(int32 Count)
{
	const int32 First = Num();
	InsertValues(First, Count);
	return First;
}

void FScriptArrayHelper::InsertValues(int32 Index, int32 Count)
{
	if (const FScriptArrayOps* Ops = Property->GetArrayOps())
	{
		Ops->Insert(Array, Index, Count);
	}
	else
	{
		ContainerStorage::Insert(*static_cast<FScriptContainerStorage*>(Array), LayoutOf(Property), Index, Count);
	}
}

void FScriptArrayHelper::RemoveValues(int32 Index, int32 Count)
{
	if (const FScriptArrayOps* Ops = Property->GetArrayOps())
	{
		Ops->Remove(Array, Index, Count);
	}
	else
	{
		ContainerStorage::Remove(*static_cast<FScriptContainerStorage*>(Array), LayoutOf(Property), Index, Count);
	}
}

void FScriptArrayHelper::EmptyValues(int32 Slack)
{
	if (const FScriptArrayOps* Ops = Property->GetArrayOps())
	{
		Ops->Empty(Array, Slack);
	}
	else
	{
		ContainerStorage::Empty(*static_cast<FScriptContainerStorage*>(Array), LayoutOf(Property));
	}
}

void FScriptArrayHelper::EmptyAndAddValues(int32 Count)
{
	EmptyValues(Count);
	AddValues(Count);
}

void FScriptArrayHelper::Resize(int32 NewNum)
{
	if (const FScriptArrayOps* Ops = Property->GetArrayOps())
	{
		Ops->Resize(Array, NewNum);
	}
	else
	{
		ContainerStorage::Resize(*static_cast<FScriptContainerStorage*>(Array), LayoutOf(Property), NewNum);
	}
}
