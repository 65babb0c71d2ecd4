#include "UObject/UnrealType.h"
#include "PropertyText.h"

using namespace UE::CoreUObject::Private;

IMPLEMENT_FIELD(FArrayProperty)

namespace
{
	// A TArray of the property's type in heap memory, for reading a list before it replaces the value.
	class FScratchArray
	{
	public:
		explicit FScratchArray(const FScriptArrayOps& InOps)
			: Ops(InOps)
			, Memory(FMemory::Malloc(static_cast<SIZE_T>(InOps.Size)))
		{
			Ops.Construct(Memory);
		}
		~FScratchArray()
		{
			Ops.Destruct(Memory);
			FMemory::Free(Memory);
		}
		FScratchArray(const FScratchArray&) = delete;
		FScratchArray& operator=(const FScratchArray&) = delete;

		void* Get() const
		{
			return Memory;
		}

	private:
		const FScriptArrayOps& Ops;
		void* Memory;
	};
}

FArrayProperty::FArrayProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags)
	: FProperty(InOwner, InName, InObjectFlags)
{
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
	ArrayOps = InArrayOps;
	ElementSize = ArrayOps != nullptr ? ArrayOps->Size : 0;
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
	return ArrayOps != nullptr ? ArrayOps->Alignment : 8;
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
		Inner->ExportText_Direct(ValueStr, Helper.GetRawPtr(Index), nullptr, Parent, PortFlags | PPF_Delimited, ExportRootScope);
	}
	ValueStr.AppendChar(TEXT(')'));
}

const TCHAR* FArrayProperty::ImportText_Internal(const TCHAR* Buffer, void* ContainerOrPropertyPtr, EPropertyPointerType PointerType, UObject* OwnerObject, int32 PortFlags, FOutputDevice* ErrorText) const
{
	if (ArrayOps == nullptr || Inner == nullptr)
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
	FScratchArray Scratch(*ArrayOps);
	const int32 InnerSize = Inner->GetElementSize();
	Cursor = SkipWhitespace(Cursor + 1);
	if (*Cursor == TEXT(')'))
	{
		++Cursor;
	}
	else
	{
		for (;;)
		{
			const int32 Index = ArrayOps->Num(Scratch.Get());
			ArrayOps->Insert(Scratch.Get(), Index, 1);
			void* Element = static_cast<uint8*>(ArrayOps->GetData(Scratch.Get())) + Index * InnerSize;
			Cursor = Inner->ImportText_Direct(Cursor, Element, OwnerObject, PortFlags | PPF_Delimited, ErrorText);
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
	ArrayOps->Assign(PointerToValuePtr(ContainerOrPropertyPtr, PointerType), Scratch.Get());
	return Cursor;
}

void FArrayProperty::CopyValuesInternal(void* Dest, const void* Src, int32 Count) const
{
	for (int32 Index = 0; Index < Count; ++Index)
	{
		ArrayOps->Assign(static_cast<uint8*>(Dest) + Index * ElementSize, static_cast<const uint8*>(Src) + Index * ElementSize);
	}
}

void FArrayProperty::InitializeValueInternal(void* Dest) const
{
	for (int32 Index = 0; Index < ArrayDim; ++Index)
	{
		ArrayOps->Construct(static_cast<uint8*>(Dest) + Index * ElementSize);
	}
}

void FArrayProperty::DestroyValueInternal(void* Dest) const
{
	for (int32 Index = 0; Index < ArrayDim; ++Index)
	{
		ArrayOps->Destruct(static_cast<uint8*>(Dest) + Index * ElementSize);
	}
}

void FArrayProperty::ClearValueInternal(void* Data) const
{
	ArrayOps->Empty(Data, 0);
}

// FScriptArrayHelper

FScriptArrayHelper::FScriptArrayHelper(const FArrayProperty* InProperty, const void* InArray)
	: Property(InProperty)
	, Array(const_cast<void*>(InArray))
	, ElementSize(InProperty != nullptr && InProperty->Inner != nullptr ? InProperty->Inner->GetElementSize() : 0)
{
}

int32 FScriptArrayHelper::Num() const
{
	return Property->GetArrayOps()->Num(Array);
}

uint8* FScriptArrayHelper::GetRawPtr(int32 Index)
{
	return static_cast<uint8*>(Property->GetArrayOps()->GetData(Array)) + Index * ElementSize;
}

int32 FScriptArrayHelper::AddValue()
{
	return AddValues(1);
}

int32 FScriptArrayHelper::AddValues(int32 Count)
{
	const int32 First = Num();
	Property->GetArrayOps()->Insert(Array, First, Count);
	return First;
}

void FScriptArrayHelper::InsertValues(int32 Index, int32 Count)
{
	Property->GetArrayOps()->Insert(Array, Index, Count);
}

void FScriptArrayHelper::RemoveValues(int32 Index, int32 Count)
{
	Property->GetArrayOps()->Remove(Array, Index, Count);
}

void FScriptArrayHelper::EmptyValues(int32 Slack)
{
	Property->GetArrayOps()->Empty(Array, Slack);
}

void FScriptArrayHelper::EmptyAndAddValues(int32 Count)
{
	EmptyValues(Count);
	AddValues(Count);
}

void FScriptArrayHelper::Resize(int32 NewNum)
{
	Property->GetArrayOps()->Resize(Array, NewNum);
}
