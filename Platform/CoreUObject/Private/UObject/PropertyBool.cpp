#include "UObject/UnrealType.h"
#include "PropertyText.h"

using namespace UE::CoreUObject::Private;

IMPLEMENT_FIELD(FBoolProperty)

namespace
{
	// The words a bool reads as, in any case.
	const TCHAR* const TrueWords[] = {TEXT("True"), TEXT("Yes"), TEXT("On"), TEXT("1")};
	const TCHAR* const FalseWords[] = {TEXT("False"), TEXT("No"), TEXT("Off"), TEXT("0")};

	bool IsOneOf(const FString& Word, const TCHAR* const (&Words)[4])
	{
		for (const TCHAR* Candidate : Words)
		{
			if (Word.Equals(Candidate, ESearchCase::IgnoreCase))
			{
				return true;
			}
		}
		return false;
	}
}

FBoolProperty::FBoolProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags)
	: FProperty(InOwner, InName, InObjectFlags)
{
	SetBoolSize(1, true);
}

FBoolProperty::FBoolProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags, int32 InOffset, EPropertyFlags InFlags, uint32 InBitMask, uint32 InElementSize, bool bIsNativeBool)
	: FProperty(InOwner, InName, InObjectFlags, InOffset, InFlags)
{
	SetBoolSize(InElementSize, bIsNativeBool, InBitMask);
}

void FBoolProperty::SetNativeBitfieldAccessors(void (*InSetBit)(void*), void (*InClearBit)(void*), int32 InOwnerSize)
{
	NativeSetBit = InSetBit;
	NativeClearBit = InClearBit;
	NativeOwnerSize = InOwnerSize;
}

bool FBoolProperty::PlaceNativeBitfield(void* OwnerInstance)
{
	if (NativeSetBit == nullptr || NativeClearBit == nullptr || OwnerInstance == nullptr || NativeOwnerSize <= 0)
	{
		return false;
	}
	// Only the bytes are compared; the bit moves through the owner's own members, never by hand.
	const uint8* Bytes = static_cast<const uint8*>(OwnerInstance);
	TArray<uint8> Before(Bytes, NativeOwnerSize);
	NativeSetBit(OwnerInstance);
	TArray<uint8> WithBit(Bytes, NativeOwnerSize);
	NativeClearBit(OwnerInstance);
	int32 Index = 0;
	while (Index < NativeOwnerSize && WithBit[Index] == Bytes[Index])
	{
		++Index;
	}
	if (Index == NativeOwnerSize)
	{
		return false;
	}
	const uint8 Mask = static_cast<uint8>(WithBit[Index] ^ Bytes[Index]);
	if ((Before[Index] & Mask) != 0)
	{
		NativeSetBit(OwnerInstance);
	}
	NativeSetBit = nullptr;
	NativeClearBit = nullptr;
	SetOffset_Internal(Index);
	SetBoolSize(1, false, Mask);
	return true;
}

void FBoolProperty::SetBoolSize(const uint32 InSize, const bool bIsNativeBool, const uint32 InBitMask)
{
	if (bIsNativeBool)
	{
		PropertyFlags |= CPF_IsPlainOldData | CPF_NoDestructor | CPF_ZeroConstructor;
	}
	else
	{
		PropertyFlags &= ~(CPF_IsPlainOldData | CPF_ZeroConstructor);
		PropertyFlags |= CPF_NoDestructor;
	}
	PropertyFlags |= CPF_HasGetValueTypeHash;
	// A native bool is read through all of its byte but holds 1 for true: any other value is no bool.
	const uint32 Mask = bIsNativeBool ? 1 : (InBitMask != 0 ? InBitMask : 1);
	// The byte of the storage that holds the bit, on this little-endian platform.
	uint32 Offset = 0;
	while (Offset < InSize && ((Mask >> (8 * Offset)) & 0xff) == 0)
	{
		++Offset;
	}
	FieldSize = static_cast<uint8>(InSize);
	ElementSize = static_cast<int32>(InSize);
	ByteOffset = static_cast<uint8>(Offset);
	ByteMask = static_cast<uint8>((Mask >> (8 * Offset)) & 0xff);
	FieldMask = bIsNativeBool ? 0xff : ByteMask;
}

FString FBoolProperty::GetCPPType(FString* ExtendedTypeText, uint32 CPPExportFlags) const
{
	if (IsNativeBool())
	{
		return TEXT("bool");
	}
	switch (FieldSize)
	{
		case 2: return TEXT("uint16");
		case 4: return TEXT("uint32");
		case 8: return TEXT("uint64");
		default: return TEXT("uint8");
	}
}

bool FBoolProperty::Identical(const void* A, const void* B, uint32 PortFlags) const
{
	const bool ValueA = GetPropertyValue(A);
	const bool ValueB = B != nullptr && GetPropertyValue(B);
	return ValueA == ValueB;
}

void FBoolProperty::ExportText_Internal(FString& ValueStr, const void* PropertyValueOrContainer, EPropertyPointerType PointerType, const void* DefaultValue, UObject* Parent, int32 PortFlags, UObject* ExportRootScope) const
{
	ValueStr += GetPropertyValue(PointerToValuePtr(PropertyValueOrContainer, PointerType)) ? TEXT("True") : TEXT("False");
}

const TCHAR* FBoolProperty::ImportText_Internal(const TCHAR* Buffer, void* ContainerOrPropertyPtr, EPropertyPointerType PointerType, UObject* OwnerObject, int32 PortFlags, FOutputDevice* ErrorText) const
{
	FString Word;
	const TCHAR* End = ReadToken(Buffer, Word);
	if (End == nullptr || !(IsOneOf(Word, TrueWords) || IsOneOf(Word, FalseWords)))
	{
		ReportImportError(ErrorText, Buffer, TEXT("expected True or False"));
		return nullptr;
	}
	SetPropertyValue(PointerToValuePtr(ContainerOrPropertyPtr, PointerType), IsOneOf(Word, TrueWords));
	return End;
}

void FBoolProperty::CopyValuesInternal(void* Dest, const void* Src, int32 Count) const
{
	for (int32 Index = 0; Index < Count; ++Index)
	{
		SetPropertyValue(static_cast<uint8*>(Dest) + Index * ElementSize, GetPropertyValue(static_cast<const uint8*>(Src) + Index * ElementSize));
	}
}

void FBoolProperty::InitializeValueInternal(void* Dest) const
{
	for (int32 Index = 0; Index < ArrayDim; ++Index)
	{
		SetPropertyValue(static_cast<uint8*>(Dest) + Index * ElementSize, false);
	}
}

void FBoolProperty::ClearValueInternal(void* Data) const
{
	SetPropertyValue(Data, false);
}
