#include "UObject/TextProperty.h"
#include "Misc/CString.h"
#include "PropertyText.h"

using namespace UE::CoreUObject::Private;

IMPLEMENT_FIELD(FTextProperty)

namespace
{
	// Reads MACRO("a", "b", ...) with quoted arguments; null when the text isn't that.
	const TCHAR* ReadTextMacro(const TCHAR* Buffer, const TCHAR* Macro, int32 NumArguments, TArray<FString>& OutArguments)
	{
		const int32 MacroLen = FCString::Strlen(Macro);
		if (FCString::Strncmp(Buffer, Macro, MacroLen) != 0)
		{
			return nullptr;
		}
		const TCHAR* Cursor = SkipWhitespace(Buffer + MacroLen);
		if (*Cursor != TEXT('('))
		{
			return nullptr;
		}
		OutArguments.Empty();
		Cursor = SkipWhitespace(Cursor + 1);
		for (int32 Index = 0; Index < NumArguments; ++Index)
		{
			FString Argument;
			Cursor = ReadQuotedString(Cursor, Argument);
			if (Cursor == nullptr)
			{
				return nullptr;
			}
			OutArguments.Add(Argument);
			Cursor = SkipWhitespace(Cursor);
			if (Index + 1 < NumArguments)
			{
				if (*Cursor != TEXT(','))
				{
					return nullptr;
				}
				Cursor = SkipWhitespace(Cursor + 1);
			}
		}
		return *Cursor == TEXT(')') ? Cursor + 1 : nullptr;
	}
}

FTextProperty::FTextProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags)
	: TProperty(InOwner, InName, InObjectFlags)
{
}

FTextProperty::FTextProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags, int32 InOffset, EPropertyFlags InFlags)
	: TProperty(InOwner, InName, InObjectFlags, InOffset, InFlags)
{
}

FString FTextProperty::GetCPPType(FString* ExtendedTypeText, uint32 CPPExportFlags) const
{
	return TEXT("FText");
}

bool FTextProperty::Identical(const void* A, const void* B, uint32 PortFlags) const
{
	const FText& TextA = GetPropertyValue(A);
	return B != nullptr ? TextA.ToString().Equals(GetPropertyValue(B).ToString(), ESearchCase::CaseSensitive) : TextA.IsEmpty();
}

void FTextProperty::ExportText_Internal(FString& ValueStr, const void* PropertyValueOrContainer, EPropertyPointerType PointerType, const void* DefaultValue, UObject* Parent, int32 PortFlags, UObject* ExportRootScope) const
{
	const FText& Value = GetPropertyValue(PointerToValuePtr(PropertyValueOrContainer, PointerType));
	const TOptional<FString> Namespace = FTextInspector::GetNamespace(Value);
	const TOptional<FString> Key = FTextInspector::GetKey(Value);
	if (Namespace.IsSet() && Key.IsSet())
	{
		ValueStr += FString::Printf(TEXT("NSLOCTEXT(%s, %s, %s)"), *QuoteString(Namespace.GetValue()), *QuoteString(Key.GetValue()), *QuoteString(Value.ToString()));
		return;
	}
	// A text made from a string has no identity to keep: it is written as the string.
	ValueStr += (PortFlags & PPF_Delimited) ? QuoteString(Value.ToString()) : Value.ToString();
}

const TCHAR* FTextProperty::ImportText_Internal(const TCHAR* Buffer, void* ContainerOrPropertyPtr, EPropertyPointerType PointerType, UObject* OwnerObject, int32 PortFlags, FOutputDevice* ErrorText) const
{
	FText* Value = GetPropertyValuePtr(PointerToValuePtr(ContainerOrPropertyPtr, PointerType));
	TArray<FString> Arguments;
	if (const TCHAR* End = ReadTextMacro(Buffer, TEXT("NSLOCTEXT"), 3, Arguments))
	{
		*Value = FText::FromLiteral(*Arguments[2], *Arguments[0], *Arguments[1]);
		return End;
	}
	if (const TCHAR* End = ReadTextMacro(Buffer, TEXT("LOCTEXT"), 2, Arguments))
	{
		*Value = FText::FromLiteral(*Arguments[1], TEXT(""), *Arguments[0]);
		return End;
	}
	if (const TCHAR* End = ReadTextMacro(Buffer, TEXT("INVTEXT"), 1, Arguments))
	{
		*Value = FText::AsCultureInvariant(Arguments[0]);
		return End;
	}
	if (*Buffer == TEXT('"'))
	{
		FString Text;
		const TCHAR* End = ReadQuotedString(Buffer, Text);
		if (End == nullptr)
		{
			ReportImportError(ErrorText, Buffer, TEXT("the quoted text is not closed"));
			return nullptr;
		}
		*Value = FText::FromString(MoveTemp(Text));
		return End;
	}
	if (PortFlags & PPF_Delimited)
	{
		FString Token;
		const TCHAR* End = ReadBareToken(Buffer, Token);
		if (End == nullptr)
		{
			*Value = FText::GetEmpty();
			return Buffer;
		}
		*Value = FText::FromString(MoveTemp(Token));
		return End;
	}
	*Value = FText::FromString(FString(Buffer));
	return Buffer + FCString::Strlen(Buffer);
}
