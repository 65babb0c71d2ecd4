#include "PinText.h"

namespace UE::Engine::Private::PinText
{
	FString Quote(const FString& Value)
	{
		return TEXT("\"") + Value.ReplaceCharWithEscapedChar() + TEXT("\"");
	}

	namespace
	{
		// Reads one value from Index: a quoted string (unquoted), a (...) list (kept whole) or a bare word.
		bool ReadValue(const FString& Text, int32& Index, FString& OutValue)
		{
			OutValue.Reset();
			const int32 Length = Text.Len();
			if (Index < Length && Text[Index] == TEXT('"'))
			{
				for (++Index; Index < Length; ++Index)
				{
					TCHAR Char = Text[Index];
					if (Char == TEXT('"'))
					{
						++Index;
						return true;
					}
					if (Char == TEXT('\\') && Index + 1 < Length)
					{
						Char = Text[++Index];
						Char = Char == TEXT('n') ? TEXT('\n') : Char == TEXT('r') ? TEXT('\r') : Char == TEXT('t') ? TEXT('\t') : Char;
					}
					OutValue.AppendChar(Char);
				}
				return false;
			}
			int32 Depth = 0;
			bool bInQuotes = false;
			const int32 Start = Index;
			for (; Index < Length; ++Index)
			{
				const TCHAR Char = Text[Index];
				if (bInQuotes)
				{
					if (Char == TEXT('\\'))
					{
						++Index;
					}
					else if (Char == TEXT('"'))
					{
						bInQuotes = false;
					}
					continue;
				}
				if (Char == TEXT('"'))
				{
					bInQuotes = true;
				}
				else if (Char == TEXT('('))
				{
					++Depth;
				}
				else if (Char == TEXT(')'))
				{
					if (Depth == 0)
					{
						break;
					}
					--Depth;
				}
				else if (Char == TEXT(',') && Depth == 0)
				{
					break;
				}
			}
			OutValue = Text.Mid(Start, Index - Start);
			return Depth == 0 && !bInQuotes;
		}

		template<typename FunctionType>
		bool ForEachItem(const FString& Text, FunctionType&& Function)
		{
			FString Trimmed = Text.TrimStartAndEnd();
			if (Trimmed.Len() < 2 || Trimmed[0] != TEXT('(') || Trimmed[Trimmed.Len() - 1] != TEXT(')'))
			{
				return false;
			}
			const FString Inner = Trimmed.Mid(1, Trimmed.Len() - 2);
			int32 Index = 0;
			while (Index < Inner.Len())
			{
				while (Index < Inner.Len() && (Inner[Index] == TEXT(' ') || Inner[Index] == TEXT(',')))
				{
					++Index;
				}
				if (Index >= Inner.Len())
				{
					break;
				}
				if (!Function(Inner, Index))
				{
					return false;
				}
				if (Index < Inner.Len() && Inner[Index] != TEXT(','))
				{
					return false;
				}
			}
			return true;
		}
	}

	bool SplitList(const FString& Text, TArray<TPair<FString, FString>>& OutItems)
	{
		OutItems.Reset();
		return ForEachItem(Text, [&OutItems](const FString& Inner, int32& Index)
		{
			const int32 Equals = Inner.Find(TEXT("="), ESearchCase::CaseSensitive, ESearchDir::FromStart, Index);
			if (Equals == INDEX_NONE)
			{
				return false;
			}
			FString Key = Inner.Mid(Index, Equals - Index).TrimStartAndEnd();
			Index = Equals + 1;
			FString Value;
			if (!ReadValue(Inner, Index, Value))
			{
				return false;
			}
			OutItems.Emplace(MoveTemp(Key), MoveTemp(Value));
			return true;
		});
	}

	bool SplitValues(const FString& Text, TArray<FString>& OutValues)
	{
		OutValues.Reset();
		return ForEachItem(Text, [&OutValues](const FString& Inner, int32& Index)
		{
			FString Value;
			if (!ReadValue(Inner, Index, Value))
			{
				return false;
			}
			OutValues.Add(Value.TrimStartAndEnd());
			return true;
		});
	}
}
