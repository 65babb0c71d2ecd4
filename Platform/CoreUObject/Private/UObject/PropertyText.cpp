#include "PropertyText.h"
#include "Misc/Char.h"
#include <cerrno>
#include <cstdlib>
#include <string>

namespace UE::CoreUObject::Private
{
	namespace
	{
		// The longest prefix of Buffer that can be part of a number, as ASCII for the C library.
		std::string NumberPrefix(const TCHAR* Buffer)
		{
			std::string Result;
			for (const TCHAR* Char = Buffer; *Char; ++Char)
			{
				const bool bNumberChar = FChar::IsAlnum(*Char) || *Char == TEXT('+') || *Char == TEXT('-') || *Char == TEXT('.');
				if (!bNumberChar || *Char > 0x7f)
				{
					break;
				}
				Result.push_back(static_cast<char>(*Char));
			}
			return Result;
		}

		bool IsHex(const std::string& Text, size_t Start)
		{
			return Text.size() > Start + 1 && Text[Start] == '0' && (Text[Start + 1] == 'x' || Text[Start + 1] == 'X');
		}
	}

	const TCHAR* SkipWhitespace(const TCHAR* Buffer)
	{
		while (Buffer && *Buffer && FChar::IsWhitespace(*Buffer))
		{
			++Buffer;
		}
		return Buffer;
	}

	const TCHAR* ReadQuotedString(const TCHAR* Buffer, FString& Out)
	{
		Out.Empty();
		if (Buffer == nullptr || *Buffer != TEXT('"'))
		{
			return nullptr;
		}
		++Buffer;
		while (*Buffer && *Buffer != TEXT('"'))
		{
			TCHAR Char = *Buffer++;
			if (Char == TEXT('\\'))
			{
				if (*Buffer == 0)
				{
					return nullptr;
				}
				Char = *Buffer++;
				Char = Char == TEXT('n') ? TEXT('\n') : Char == TEXT('r') ? TEXT('\r') : Char == TEXT('t') ? TEXT('\t') : Char;
			}
			Out.AppendChar(Char);
		}
		if (*Buffer != TEXT('"'))
		{
			return nullptr;
		}
		return Buffer + 1;
	}

	const TCHAR* ReadBareToken(const TCHAR* Buffer, FString& Out, bool bAllowScope)
	{
		Out.Empty();
		if (Buffer == nullptr)
		{
			return nullptr;
		}
		while (*Buffer && (FChar::IsAlnum(*Buffer) || *Buffer == TEXT('_') || *Buffer == TEXT('-') || *Buffer == TEXT('+') || *Buffer == TEXT('.') || (bAllowScope && *Buffer == TEXT(':'))))
		{
			Out.AppendChar(*Buffer++);
		}
		return Out.IsEmpty() ? nullptr : Buffer;
	}

	const TCHAR* ReadToken(const TCHAR* Buffer, FString& Out, bool bAllowScope)
	{
		if (Buffer != nullptr && *Buffer == TEXT('"'))
		{
			return ReadQuotedString(Buffer, Out);
		}
		return ReadBareToken(Buffer, Out, bAllowScope);
	}

	FString QuoteString(const FString& Value)
	{
		FString Result(TEXT("\""));
		for (int32 Index = 0; Index < Value.Len(); ++Index)
		{
			const TCHAR Char = Value[Index];
			switch (Char)
			{
				case TEXT('"'): Result += TEXT("\\\""); break;
				case TEXT('\\'): Result += TEXT("\\\\"); break;
				case TEXT('\n'): Result += TEXT("\\n"); break;
				case TEXT('\r'): Result += TEXT("\\r"); break;
				case TEXT('\t'): Result += TEXT("\\t"); break;
				default: Result.AppendChar(Char); break;
			}
		}
		Result.AppendChar(TEXT('"'));
		return Result;
	}

	const TCHAR* ReadSignedInteger(const TCHAR* Buffer, int64& OutValue)
	{
		const std::string Text = NumberPrefix(Buffer);
		const size_t Digits = (!Text.empty() && (Text[0] == '-' || Text[0] == '+')) ? 1 : 0;
		if (Text.size() <= Digits || !FChar::IsDigit(static_cast<TCHAR>(Text[Digits])))
		{
			return nullptr;
		}
		char* End = nullptr;
		errno = 0;
		if (IsHex(Text, Digits))
		{
			const unsigned long long Magnitude = std::strtoull(Text.c_str() + Digits + 2, &End, 16);
			OutValue = Text[0] == '-' ? -static_cast<int64>(Magnitude) : static_cast<int64>(Magnitude);
		}
		else
		{
			OutValue = std::strtoll(Text.c_str(), &End, 10);
		}
		if (errno == ERANGE || End == Text.c_str())
		{
			return nullptr;
		}
		return Buffer + (End - Text.c_str());
	}

	const TCHAR* ReadUnsignedInteger(const TCHAR* Buffer, uint64& OutValue)
	{
		const std::string Text = NumberPrefix(Buffer);
		const size_t Start = (!Text.empty() && Text[0] == '+') ? 1 : 0;
		if (Text.size() <= Start || !FChar::IsDigit(static_cast<TCHAR>(Text[Start])))
		{
			return nullptr;
		}
		char* End = nullptr;
		errno = 0;
		OutValue = IsHex(Text, Start) ? std::strtoull(Text.c_str() + Start + 2, &End, 16) : std::strtoull(Text.c_str() + Start, &End, 10);
		if (errno == ERANGE)
		{
			return nullptr;
		}
		return Buffer + (End - Text.c_str());
	}

	const TCHAR* ReadFloat(const TCHAR* Buffer, double& OutValue)
	{
		const std::string Text = NumberPrefix(Buffer);
		size_t Start = (!Text.empty() && (Text[0] == '-' || Text[0] == '+')) ? 1 : 0;
		const bool bStartsNumber = Text.size() > Start && (FChar::IsDigit(static_cast<TCHAR>(Text[Start])) || (Text[Start] == '.' && Text.size() > Start + 1 && FChar::IsDigit(static_cast<TCHAR>(Text[Start + 1]))));
		if (!bStartsNumber)
		{
			return nullptr;
		}
		char* End = nullptr;
		OutValue = std::strtod(Text.c_str(), &End);
		if (End == Text.c_str())
		{
			return nullptr;
		}
		// The engine writes floats with an "f" suffix in some places; it belongs to the number.
		const TCHAR* After = Buffer + (End - Text.c_str());
		return (*After == TEXT('f') || *After == TEXT('F')) ? After + 1 : After;
	}
}
