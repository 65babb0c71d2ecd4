// Struct values: FStructProperty and the "(Name=Value,...)" text form of UScriptStruct.
#include "UObject/UnrealType.h"
#include "Misc/OutputDevice.h"
#include "PropertyText.h"
#include "CoreUObjectLog.h"

using namespace UE::CoreUObject::Private;

IMPLEMENT_FIELD(FStructProperty)

namespace
{
	// Skips one value of any form up to the ',' or ')' that ends it, minding brackets and quotes.
	const TCHAR* SkipValue(const TCHAR* Cursor)
	{
		int32 Depth = 0;
		while (*Cursor)
		{
			if (*Cursor == TEXT('"'))
			{
				FString Ignored;
				const TCHAR* After = ReadQuotedString(Cursor, Ignored);
				if (After == nullptr)
				{
					return nullptr;
				}
				Cursor = After;
				continue;
			}
			if (*Cursor == TEXT('('))
			{
				++Depth;
			}
			else if (*Cursor == TEXT(')'))
			{
				if (Depth == 0)
				{
					return Cursor;
				}
				--Depth;
			}
			else if (*Cursor == TEXT(',') && Depth == 0)
			{
				return Cursor;
			}
			++Cursor;
		}
		return Depth == 0 ? Cursor : nullptr;
	}

	void ReportStructError(FOutputDevice* ErrorText, const FString& Message)
	{
		if (ErrorText != nullptr)
		{
			ErrorText->Log(ELogVerbosity::Warning, *Message);
		}
		else
		{
			UE_LOG(LogProperty, Warning, TEXT("%s"), *Message);
		}
	}
}

// UScriptStruct's text form

void UScriptStruct::ExportText(FString& ValueStr, const void* Value, const void* Defaults, UObject* OwnerObject, int32 PortFlags, UObject* ExportRootScope, bool bAllowNativeOverride) const
{
	// An atomic struct is written whole, or not at all.
	if ((StructFlags & STRUCT_Atomic) != 0)
	{
		Defaults = Value;
	}
	int32 Count = 0;
	for (FProperty* Property = PropertyLink; Property != nullptr; Property = Property->PropertyLinkNext)
	{
		if (!Property->ShouldPort(static_cast<uint32>(PortFlags)))
		{
			continue;
		}
		for (int32 Index = 0; Index < Property->ArrayDim; ++Index)
		{
			FString InnerValue;
			if (Property->ExportText_InContainer(Index, InnerValue, Value, Defaults, OwnerObject, PPF_Delimited | PortFlags, ExportRootScope))
			{
				ValueStr += ++Count == 1 ? TEXT("(") : TEXT(",");
				ValueStr += Property->ArrayDim == 1 ? FString::Printf(TEXT("%s="), *Property->GetName()) : FString::Printf(TEXT("%s[%d]="), *Property->GetName(), Index);
				ValueStr += InnerValue;
			}
		}
	}
	ValueStr += Count > 0 ? TEXT(")") : TEXT("()");
}

const TCHAR* UScriptStruct::ImportText(const TCHAR* Buffer, void* Value, UObject* OwnerObject, int32 PortFlags, FOutputDevice* ErrorText, const FString& StructName, bool bAllowNativeOverride) const
{
	const TCHAR* Cursor = SkipWhitespace(Buffer);
	if (*Cursor != TEXT('('))
	{
		ReportStructError(ErrorText, FString::Printf(TEXT("%s: missing opening parenthesis: %s"), *StructName, Buffer));
		return nullptr;
	}
	Cursor = SkipWhitespace(Cursor + 1);
	while (*Cursor != TEXT(')'))
	{
		FString MemberName;
		Cursor = ReadBareToken(Cursor, MemberName);
		if (Cursor == nullptr)
		{
			ReportStructError(ErrorText, FString::Printf(TEXT("%s: expected a member name: %s"), *StructName, Buffer));
			return nullptr;
		}
		int32 ArrayIndex = 0;
		Cursor = SkipWhitespace(Cursor);
		if (*Cursor == TEXT('[') || *Cursor == TEXT('('))
		{
			const TCHAR Closing = *Cursor == TEXT('[') ? TEXT(']') : TEXT(')');
			int64 Index = 0;
			Cursor = ReadSignedInteger(SkipWhitespace(Cursor + 1), Index);
			if (Cursor == nullptr || *SkipWhitespace(Cursor) != Closing)
			{
				ReportStructError(ErrorText, FString::Printf(TEXT("%s: bad index of member %s: %s"), *StructName, *MemberName, Buffer));
				return nullptr;
			}
			Cursor = SkipWhitespace(Cursor) + 1;
			ArrayIndex = static_cast<int32>(Index);
		}
		Cursor = SkipWhitespace(Cursor);
		if (*Cursor != TEXT('='))
		{
			ReportStructError(ErrorText, FString::Printf(TEXT("%s: expected '=' after %s: %s"), *StructName, *MemberName, Buffer));
			return nullptr;
		}
		Cursor = SkipWhitespace(Cursor + 1);
		FProperty* Property = FindPropertyByName(FName(*MemberName, FNAME_Find));
		if (Property == nullptr || ArrayIndex < 0 || ArrayIndex >= Property->ArrayDim)
		{
			// Members that are gone are passed over, as the engine does, so that old text still reads.
			ReportStructError(ErrorText, FString::Printf(TEXT("%s: unknown member %s"), *StructName, *MemberName));
			Cursor = SkipValue(Cursor);
		}
		else
		{
			Cursor = Property->ImportText_Direct(Cursor, Property->ContainerPtrToValuePtr<void>(Value, ArrayIndex), OwnerObject, PortFlags | PPF_Delimited, ErrorText);
		}
		if (Cursor == nullptr)
		{
			return nullptr;
		}
		Cursor = SkipWhitespace(Cursor);
		if (*Cursor == TEXT(','))
		{
			Cursor = SkipWhitespace(Cursor + 1);
		}
		else if (*Cursor != TEXT(')'))
		{
			ReportStructError(ErrorText, FString::Printf(TEXT("%s: expected ',' or ')': %s"), *StructName, Buffer));
			return nullptr;
		}
	}
	return Cursor + 1;
}

// FStructProperty

FStructProperty::FStructProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags)
	: FProperty(InOwner, InName, InObjectFlags)
{
}

FStructProperty::FStructProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags, int32 InOffset, EPropertyFlags InFlags, UScriptStruct* InStruct)
	: FProperty(InOwner, InName, InObjectFlags, InOffset, InFlags)
{
	SetStruct(InStruct);
}

void FStructProperty::SetStruct(UScriptStruct* InStruct)
{
	Struct = InStruct;
	ElementSize = Struct != nullptr ? Struct->GetStructureSize() : 0;
}

void FStructProperty::LinkInternal()
{
	ElementSize = Struct != nullptr ? Struct->GetStructureSize() : 0;
}

FString FStructProperty::GetCPPType(FString* ExtendedTypeText, uint32 CPPExportFlags) const
{
	return Struct != nullptr ? Struct->GetStructCPPName(CPPExportFlags) : FString(TEXT("FStruct"));
}

FString FStructProperty::GetCPPMacroType(FString& ExtendedTypeText) const
{
	ExtendedTypeText = GetCPPType();
	return TEXT("STRUCT");
}

bool FStructProperty::SameType(const FProperty* Other) const
{
	return FProperty::SameType(Other) && static_cast<const FStructProperty*>(Other)->Struct == Struct;
}

int32 FStructProperty::GetMinAlignment() const
{
	return Struct != nullptr ? FMath::Max(Struct->GetMinAlignment(), 1) : 1;
}

bool FStructProperty::Identical(const void* A, const void* B, uint32 PortFlags) const
{
	if (Struct == nullptr)
	{
		return true;
	}
	if (B != nullptr)
	{
		return Struct->CompareScriptStruct(A, B, PortFlags);
	}
	// Against the struct's default value, made for the comparison.
	void* Default = FMemory::Malloc(static_cast<SIZE_T>(FMath::Max(ElementSize, 1)), static_cast<uint32>(GetMinAlignment()));
	FMemory::Memzero(Default, static_cast<SIZE_T>(FMath::Max(ElementSize, 1)));
	Struct->InitializeStruct(Default);
	const bool bIdentical = Struct->CompareScriptStruct(A, Default, PortFlags);
	Struct->DestroyStruct(Default);
	FMemory::Free(Default);
	return bIdentical;
}

void FStructProperty::ExportText_Internal(FString& ValueStr, const void* PropertyValueOrContainer, EPropertyPointerType PointerType, const void* DefaultValue, UObject* Parent, int32 PortFlags, UObject* ExportRootScope) const
{
	if (Struct != nullptr)
	{
		Struct->ExportText(ValueStr, PointerToValuePtr(PropertyValueOrContainer, PointerType), DefaultValue, Parent, PortFlags, ExportRootScope, true);
	}
}

const TCHAR* FStructProperty::ImportText_Internal(const TCHAR* Buffer, void* ContainerOrPropertyPtr, EPropertyPointerType PointerType, UObject* OwnerObject, int32 PortFlags, FOutputDevice* ErrorText) const
{
	if (Struct == nullptr)
	{
		ReportImportError(ErrorText, Buffer, TEXT("the property has no struct"));
		return nullptr;
	}
	// Read into a copy, so that malformed text leaves the value as it was.
	void* Scratch = FMemory::Malloc(static_cast<SIZE_T>(FMath::Max(ElementSize, 1)), static_cast<uint32>(GetMinAlignment()));
	FMemory::Memzero(Scratch, static_cast<SIZE_T>(FMath::Max(ElementSize, 1)));
	Struct->InitializeStruct(Scratch);
	void* Value = PointerToValuePtr(ContainerOrPropertyPtr, PointerType);
	Struct->CopyScriptStruct(Scratch, Value);
	const TCHAR* End = Struct->ImportText(Buffer, Scratch, OwnerObject, PortFlags, ErrorText, GetName(), true);
	if (End != nullptr)
	{
		Struct->CopyScriptStruct(Value, Scratch);
	}
	Struct->DestroyStruct(Scratch);
	FMemory::Free(Scratch);
	return End;
}

void FStructProperty::CopyValuesInternal(void* Dest, const void* Src, int32 Count) const
{
	if (Struct != nullptr)
	{
		Struct->CopyScriptStruct(Dest, Src, Count);
	}
}

void FStructProperty::InitializeValueInternal(void* Dest) const
{
	if (Struct != nullptr)
	{
		Struct->InitializeStruct(Dest, ArrayDim);
	}
}

void FStructProperty::DestroyValueInternal(void* Dest) const
{
	if (Struct != nullptr)
	{
		Struct->DestroyStruct(Dest, ArrayDim);
	}
}

void FStructProperty::ClearValueInternal(void* Data) const
{
	if (Struct != nullptr)
	{
		Struct->DestroyStruct(Data);
		FMemory::Memzero(Data, static_cast<SIZE_T>(ElementSize));
		Struct->InitializeStruct(Data);
	}
}
