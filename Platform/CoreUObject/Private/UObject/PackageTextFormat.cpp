#include "PackageTextFormat.h"
#include "PropertyText.h"
#include "Misc/Char.h"

namespace UE::CoreUObject::Private::PackageText
{
	namespace
	{
		struct FFlagName
		{
			EObjectFlags Flag;
			const TCHAR* Name;
		};

		const FFlagName FlagNames[] = {
			{RF_Public, TEXT("Public")},
			{RF_Standalone, TEXT("Standalone")},
			{RF_Transactional, TEXT("Transactional")},
			{RF_ClassDefaultObject, TEXT("ClassDefaultObject")},
			{RF_ArchetypeObject, TEXT("ArchetypeObject")},
			{RF_DefaultSubObject, TEXT("DefaultSubObject")},
			{RF_TextExportTransient, TEXT("TextExportTransient")},
			{RF_InheritableComponentTemplate, TEXT("InheritableComponentTemplate")},
			{RF_DuplicateTransient, TEXT("DuplicateTransient")},
			{RF_NonPIEDuplicateTransient, TEXT("NonPIEDuplicateTransient")},
		};
	}

	const FString* FLine::Find(const TCHAR* Key) const
	{
		for (const TPair<FString, FString>& Pair : Values)
		{
			if (Pair.Key.Equals(Key, ESearchCase::CaseSensitive))
			{
				return &Pair.Value;
			}
		}
		return nullptr;
	}

	bool ParseLine(const FString& Text, FLine& OutLine)
	{
		OutLine = FLine();
		const TCHAR* Cursor = SkipWhitespace(*Text);
		while (*Cursor && !FChar::IsWhitespace(*Cursor))
		{
			OutLine.Keyword.AppendChar(*Cursor++);
		}
		if (OutLine.Keyword.IsEmpty())
		{
			return false;
		}
		for (Cursor = SkipWhitespace(Cursor); *Cursor; Cursor = SkipWhitespace(Cursor))
		{
			FString Key;
			while (*Cursor && *Cursor != TEXT('=') && !FChar::IsWhitespace(*Cursor))
			{
				Key.AppendChar(*Cursor++);
			}
			if (Key.IsEmpty() || *Cursor != TEXT('='))
			{
				return false;
			}
			++Cursor;
			FString Value;
			if (*Cursor == TEXT('"'))
			{
				Cursor = ReadQuotedString(Cursor, Value);
				if (Cursor == nullptr)
				{
					return false;
				}
			}
			else
			{
				while (*Cursor && !FChar::IsWhitespace(*Cursor))
				{
					Value.AppendChar(*Cursor++);
				}
			}
			OutLine.Values.Add(TPair<FString, FString>(MoveTemp(Key), MoveTemp(Value)));
		}
		return true;
	}

	FString FormatValue(const FString& Value)
	{
		bool bNeedsQuotes = Value.IsEmpty();
		for (int32 Index = 0; Index < Value.Len() && !bNeedsQuotes; ++Index)
		{
			const TCHAR Char = Value[Index];
			bNeedsQuotes = FChar::IsWhitespace(Char) || Char == TEXT('"') || Char == TEXT('\\') || Char < 0x20;
		}
		return bNeedsQuotes ? QuoteString(Value) : Value;
	}

	FString ObjectFlagsToString(EObjectFlags Flags)
	{
		FString Result;
		for (const FFlagName& Entry : FlagNames)
		{
			if ((Flags & Entry.Flag) != 0)
			{
				if (!Result.IsEmpty())
				{
					Result.AppendChar(TEXT('|'));
				}
				Result += Entry.Name;
			}
		}
		return Result;
	}

	bool ObjectFlagsFromString(const FString& Text, EObjectFlags& OutFlags)
	{
		OutFlags = RF_NoFlags;
		TArray<FString> Names;
		Text.ParseIntoArray(Names, TEXT("|"), true);
		for (const FString& Name : Names)
		{
			bool bKnown = false;
			for (const FFlagName& Entry : FlagNames)
			{
				if (Name.Equals(Entry.Name, ESearchCase::IgnoreCase))
				{
					OutFlags |= Entry.Flag;
					bKnown = true;
				}
			}
			if (!bKnown)
			{
				return false;
			}
		}
		return true;
	}
}
