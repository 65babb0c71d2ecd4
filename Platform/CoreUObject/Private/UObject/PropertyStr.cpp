#include "UObject/UnrealType.h"
#include "Misc/CString.h"
#include "PropertyText.h"

using namespace UE::CoreUObject::Private;

IMPLEMENT_FIELD(FStrProperty)
IMPLEMENT_FIELD(FNameProperty)

// FStrProperty

FStrProperty::FStrProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags)
	: TProperty(InOwner, InName, InObjectFlags)
{
	PropertyFlags |= CPF_ZeroConstructor | CPF_HasGetValueTypeHash;
}

FStrProperty::FStrProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags, int32 InOffset, EPropertyFlags InFlags)
	: TProperty(InOwner, InName, InObjectFlags, InOffset, InFlags)
{
	PropertyFlags |= CPF_ZeroConstructor | CPF_HasGetValueTypeHash;
}

FString FStrProperty::GetCPPType(FString* ExtendedTypeText, uint32 CPPExportFlags) const
{
	return TEXT("FString");
}

bool FStrProperty::Identical(const void* A, const void* B, uint32 PortFlags) const
{
	const FString& ValueA = GetPropertyValue(A);
	return B != nullptr ? ValueA.Equals(GetPropertyValue(B), ESearchCase::CaseSensitive) : ValueA.IsEmpty();
}

void FStrProperty::ExportText_Internal(FString& ValueStr, const void* PropertyValueOrContainer, EPropertyPointerType PointerType, const void* DefaultValue, UObject* Parent, int32 PortFlags, UObject* ExportRootScope) const
{
	const FString& Value = GetPropertyValue(PointerToValuePtr(PropertyValueOrContainer, PointerType));
	ValueStr += (PortFlags & PPF_Delimited) ? QuoteString(Value) : Value;
}

const TCHAR* FStrProperty::ImportText_Internal(const TCHAR* Buffer, void* ContainerOrPropertyPtr, EPropertyPointerType PointerType, UObject* OwnerObject, int32 PortFlags, FOutputDevice* ErrorText) const
{
	FString* Value = GetPropertyValuePtr(PointerToValuePtr(ContainerOrPropertyPtr, PointerType));
	if (!(PortFlags & PPF_Delimited))
	{
		// Outside a list the whole text is the string.
		*Value = Buffer;
		return Buffer + FCString::Strlen(Buffer);
	}
	FString Token;
	const TCHAR* End = ReadToken(Buffer, Token);
	if (End == nullptr)
	{
		ReportImportError(ErrorText, Buffer, *Buffer == TEXT('"') ? TEXT("the quoted string is not closed") : TEXT("expected a string"));
		return nullptr;
	}
	*Value = MoveTemp(Token);
	return End;
}

// FNameProperty

FNameProperty::FNameProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags)
	: TProperty(InOwner, InName, InObjectFlags)
{
	PropertyFlags |= CPF_IsPlainOldData | CPF_NoDestructor | CPF_ZeroConstructor | CPF_HasGetValueTypeHash;
}

FNameProperty::FNameProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags, int32 InOffset, EPropertyFlags InFlags)
	: TProperty(InOwner, InName, InObjectFlags, InOffset, InFlags)
{
	PropertyFlags |= CPF_IsPlainOldData | CPF_NoDestructor | CPF_ZeroConstructor | CPF_HasGetValueTypeHash;
}

FString FNameProperty::GetCPPType(FString* ExtendedTypeText, uint32 CPPExportFlags) const
{
	return TEXT("FName");
}

void FNameProperty::ExportText_Internal(FString& ValueStr, const void* PropertyValueOrContainer, EPropertyPointerType PointerType, const void* DefaultValue, UObject* Parent, int32 PortFlags, UObject* ExportRootScope) const
{
	const FString Value = GetPropertyValue(PointerToValuePtr(PropertyValueOrContainer, PointerType)).ToString();
	ValueStr += (PortFlags & PPF_Delimited) ? QuoteString(Value) : Value;
}

const TCHAR* FNameProperty::ImportText_Internal(const TCHAR* Buffer, void* ContainerOrPropertyPtr, EPropertyPointerType PointerType, UObject* OwnerObject, int32 PortFlags, FOutputDevice* ErrorText) const
{
	FString Token;
	const TCHAR* End = ReadToken(Buffer, Token, true);
	if (End == nullptr)
	{
		ReportImportError(ErrorText, Buffer, TEXT("expected a name"));
		return nullptr;
	}
	SetPropertyValue(PointerToValuePtr(ContainerOrPropertyPtr, PointerType), FName(*Token));
	return End;
}
