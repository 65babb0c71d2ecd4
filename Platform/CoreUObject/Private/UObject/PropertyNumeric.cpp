#include "UObject/UnrealType.h"
#include "PropertyText.h"

using namespace UE::CoreUObject::Private;

IMPLEMENT_FIELD(FNumericProperty)
IMPLEMENT_FIELD(FInt8Property)
IMPLEMENT_FIELD(FInt16Property)
IMPLEMENT_FIELD(FIntProperty)
IMPLEMENT_FIELD(FInt64Property)
IMPLEMENT_FIELD(FUInt16Property)
IMPLEMENT_FIELD(FUInt32Property)
IMPLEMENT_FIELD(FUInt64Property)
IMPLEMENT_FIELD(FFloatProperty)
IMPLEMENT_FIELD(FDoubleProperty)
IMPLEMENT_FIELD(FByteProperty)

FNumericProperty::FNumericProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags)
	: FProperty(InOwner, InName, InObjectFlags)
{
}

FNumericProperty::FNumericProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags, int32 InOffset, EPropertyFlags InFlags)
	: FProperty(InOwner, InName, InObjectFlags, InOffset, InFlags)
{
}

FString FNumericProperty::GetNumericPropertyValueToString(const void* Data) const
{
	if (IsFloatingPoint())
	{
		return FString::Printf(TEXT("%f"), GetFloatingPointPropertyValue(Data));
	}
	if (IsSignedInteger())
	{
		return FString::Printf(TEXT("%lld"), static_cast<long long>(GetSignedIntPropertyValue(Data)));
	}
	return FString::Printf(TEXT("%llu"), static_cast<unsigned long long>(GetUnsignedIntPropertyValue(Data)));
}

void FNumericProperty::SetNumericPropertyValueFromString(void* Data, const TCHAR* Value) const
{
	if (IsFloatingPoint())
	{
		double Number = 0.0;
		SetFloatingPointPropertyValue(Data, ReadFloat(Value, Number) ? Number : 0.0);
	}
	else if (IsSignedInteger())
	{
		int64 Number = 0;
		SetIntPropertyValue(Data, ReadSignedInteger(Value, Number) ? Number : int64(0));
	}
	else
	{
		uint64 Number = 0;
		SetIntPropertyValue(Data, ReadUnsignedInteger(Value, Number) ? Number : uint64(0));
	}
}

void FNumericProperty::ExportText_Internal(FString& ValueStr, const void* PropertyValueOrContainer, EPropertyPointerType PointerType, const void* DefaultValue, UObject* Parent, int32 PortFlags, UObject* ExportRootScope) const
{
	ValueStr += GetNumericPropertyValueToString(PointerToValuePtr(PropertyValueOrContainer, PointerType));
}

const TCHAR* FNumericProperty::ImportText_Internal(const TCHAR* Buffer, void* ContainerOrPropertyPtr, EPropertyPointerType PointerType, UObject* OwnerObject, int32 PortFlags, FOutputDevice* ErrorText) const
{
	void* Value = PointerToValuePtr(ContainerOrPropertyPtr, PointerType);
	const TCHAR* End = nullptr;
	if (IsFloatingPoint())
	{
		double Number = 0.0;
		End = ReadFloat(Buffer, Number);
		if (End)
		{
			SetFloatingPointPropertyValue(Value, Number);
		}
	}
	else
	{
		// An integer written as a decimal number ("3.0") keeps its whole part, as the engine's conversion does.
		double Decimal = 0.0;
		const TCHAR* DecimalEnd = ReadFloat(Buffer, Decimal);
		if (IsSignedInteger())
		{
			int64 Number = 0;
			End = ReadSignedInteger(Buffer, Number);
			if (End && DecimalEnd > End)
			{
				Number = static_cast<int64>(Decimal);
				End = DecimalEnd;
			}
			if (End)
			{
				SetIntPropertyValue(Value, Number);
			}
		}
		else
		{
			uint64 Number = 0;
			End = ReadUnsignedInteger(Buffer, Number);
			if (End && DecimalEnd > End)
			{
				Number = static_cast<uint64>(Decimal);
				End = DecimalEnd;
			}
			if (End)
			{
				SetIntPropertyValue(Value, Number);
			}
		}
	}
	if (End == nullptr)
	{
		ReportImportError(ErrorText, Buffer, TEXT("not a number"));
	}
	return End;
}

#define UE_IMPLEMENT_NUMERIC_CPP_TYPE(TClass, TypeName) \
	FString TClass::GetCPPType(FString* ExtendedTypeText, uint32 CPPExportFlags) const \
	{ \
		return TEXT(TypeName); \
	}

UE_IMPLEMENT_NUMERIC_CPP_TYPE(FInt8Property, "int8")
UE_IMPLEMENT_NUMERIC_CPP_TYPE(FInt16Property, "int16")
UE_IMPLEMENT_NUMERIC_CPP_TYPE(FIntProperty, "int32")
UE_IMPLEMENT_NUMERIC_CPP_TYPE(FInt64Property, "int64")
UE_IMPLEMENT_NUMERIC_CPP_TYPE(FUInt16Property, "uint16")
UE_IMPLEMENT_NUMERIC_CPP_TYPE(FUInt32Property, "uint32")
UE_IMPLEMENT_NUMERIC_CPP_TYPE(FUInt64Property, "uint64")
UE_IMPLEMENT_NUMERIC_CPP_TYPE(FFloatProperty, "float")
UE_IMPLEMENT_NUMERIC_CPP_TYPE(FDoubleProperty, "double")

#undef UE_IMPLEMENT_NUMERIC_CPP_TYPE

FString FByteProperty::GetCPPType(FString* ExtendedTypeText, uint32 CPPExportFlags) const
{
	if (Enum != nullptr)
	{
		return FString::Printf(TEXT("TEnumAsByte<%s>"), *Enum->CppType);
	}
	return TEXT("uint8");
}

void FByteProperty::ExportText_Internal(FString& ValueStr, const void* PropertyValueOrContainer, EPropertyPointerType PointerType, const void* DefaultValue, UObject* Parent, int32 PortFlags, UObject* ExportRootScope) const
{
	const uint8 Value = GetPropertyValue(PointerToValuePtr(PropertyValueOrContainer, PointerType));
	if (Enum != nullptr && Enum->IsValidEnumValue(Value))
	{
		ValueStr += Enum->GetNameStringByValue(Value);
		return;
	}
	ValueStr += FString::Printf(TEXT("%u"), static_cast<uint32>(Value));
}

const TCHAR* FByteProperty::ImportText_Internal(const TCHAR* Buffer, void* ContainerOrPropertyPtr, EPropertyPointerType PointerType, UObject* OwnerObject, int32 PortFlags, FOutputDevice* ErrorText) const
{
	if (Enum == nullptr)
	{
		return FNumericProperty::ImportText_Internal(Buffer, ContainerOrPropertyPtr, PointerType, OwnerObject, PortFlags, ErrorText);
	}
	FString Token;
	const TCHAR* End = ReadToken(Buffer, Token, true);
	if (End == nullptr)
	{
		ReportImportError(ErrorText, Buffer, TEXT("no enum entry name"));
		return nullptr;
	}
	int64 Value = Enum->GetValueByNameString(Token);
	if (Value == INDEX_NONE && !Enum->IsValidEnumValue(INDEX_NONE))
	{
		int64 Number = 0;
		const TCHAR* NumberEnd = ReadSignedInteger(*Token, Number);
		if (NumberEnd == nullptr || *NumberEnd != 0 || !Enum->IsValidEnumValue(Number))
		{
			ReportImportError(ErrorText, Buffer, *FString::Printf(TEXT("not an entry of %s"), *Enum->GetName()));
			return nullptr;
		}
		Value = Number;
	}
	SetPropertyValue(PointerToValuePtr(ContainerOrPropertyPtr, PointerType), static_cast<uint8>(Value));
	return End;
}
