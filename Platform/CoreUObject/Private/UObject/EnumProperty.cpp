#include "UObject/EnumProperty.h"
#include "PropertyText.h"

using namespace UE::CoreUObject::Private;

IMPLEMENT_FIELD(FEnumProperty)

FEnumProperty::FEnumProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags)
	: FProperty(InOwner, InName, InObjectFlags)
{
}

FEnumProperty::FEnumProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags, int32 InOffset, EPropertyFlags InFlags, UEnum* InEnum)
	: FProperty(InOwner, InName, InObjectFlags, InOffset, InFlags)
	, Enum(InEnum)
{
	PropertyFlags |= CPF_IsPlainOldData | CPF_NoDestructor | CPF_ZeroConstructor | CPF_HasGetValueTypeHash;
}

FEnumProperty::~FEnumProperty()
{
	delete UnderlyingProp;
}

void FEnumProperty::AddCppProperty(FProperty* Inner)
{
	FNumericProperty* Numeric = CastField<FNumericProperty>(Inner);
	if (Numeric == nullptr || !Numeric->IsInteger())
	{
		delete Inner;
		return;
	}
	delete UnderlyingProp;
	UnderlyingProp = Numeric;
	ElementSize = UnderlyingProp->ElementSize;
}

void FEnumProperty::SetEnum(UEnum* InEnum)
{
	Enum = InEnum;
}

FString FEnumProperty::GetCPPType(FString* ExtendedTypeText, uint32 CPPExportFlags) const
{
	return Enum != nullptr ? Enum->CppType : FString(TEXT("uint8"));
}

bool FEnumProperty::Identical(const void* A, const void* B, uint32 PortFlags) const
{
	return UnderlyingProp != nullptr && UnderlyingProp->Identical(A, B, PortFlags);
}

int32 FEnumProperty::GetMinAlignment() const
{
	return UnderlyingProp != nullptr ? UnderlyingProp->GetMinAlignment() : 1;
}

void FEnumProperty::LinkInternal()
{
	if (UnderlyingProp != nullptr)
	{
		UnderlyingProp->LinkInternal();
	}
}

void FEnumProperty::ExportText_Internal(FString& ValueStr, const void* PropertyValueOrContainer, EPropertyPointerType PointerType, const void* DefaultValue, UObject* Parent, int32 PortFlags, UObject* ExportRootScope) const
{
	if (UnderlyingProp == nullptr)
	{
		return;
	}
	const int64 Value = UnderlyingProp->GetSignedIntPropertyValue(PointerToValuePtr(PropertyValueOrContainer, PointerType));
	if (Enum != nullptr && Enum->IsValidEnumValue(Value))
	{
		ValueStr += Enum->GetNameStringByValue(Value);
		return;
	}
	// A value the enum doesn't name is written as its number, so that it reads back unchanged.
	ValueStr += FString::Printf(TEXT("%lld"), static_cast<long long>(Value));
}

const TCHAR* FEnumProperty::ImportText_Internal(const TCHAR* Buffer, void* ContainerOrPropertyPtr, EPropertyPointerType PointerType, UObject* OwnerObject, int32 PortFlags, FOutputDevice* ErrorText) const
{
	if (UnderlyingProp == nullptr || Enum == nullptr)
	{
		ReportImportError(ErrorText, Buffer, TEXT("the property has no enum"));
		return nullptr;
	}
	FString Token;
	const TCHAR* End = ReadToken(Buffer, Token, true);
	if (End == nullptr)
	{
		ReportImportError(ErrorText, Buffer, TEXT("no enum entry name"));
		return nullptr;
	}
	const int32 Index = Enum->GetIndexByNameString(Token);
	int64 Value = Enum->GetValueByIndex(Index);
	if (Index == INDEX_NONE)
	{
		const TCHAR* NumberEnd = ReadSignedInteger(*Token, Value);
		if (NumberEnd == nullptr || *NumberEnd != 0 || !Enum->IsValidEnumValue(Value))
		{
			ReportImportError(ErrorText, Buffer, *FString::Printf(TEXT("not an entry of %s"), *Enum->GetName()));
			return nullptr;
		}
	}
	UnderlyingProp->SetIntPropertyValue(PointerToValuePtr(ContainerOrPropertyPtr, PointerType), Value);
	return End;
}

void FEnumProperty::CopyValuesInternal(void* Dest, const void* Src, int32 Count) const
{
	FMemory::Memcpy(Dest, Src, static_cast<SIZE_T>(ElementSize) * Count);
}
