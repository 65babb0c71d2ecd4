// C-string helpers over TCHAR and ANSICHAR, as the engine's TCString.
#pragma once

#include "CoreTypes.h"
#include "Misc/Char.h"

template<typename T>
struct TCString
{
	using CharType = T;

	static int32 Strlen(const CharType* String)
	{
		if (!String)
		{
			return 0;
		}
		int32 Length = 0;
		while (String[Length])
		{
			++Length;
		}
		return Length;
	}
	static int32 Strcmp(const CharType* A, const CharType* B)
	{
		for (;; ++A, ++B)
		{
			const uint32 CharA = static_cast<std::make_unsigned_t<CharType>>(*A);
			const uint32 CharB = static_cast<std::make_unsigned_t<CharType>>(*B);
			if (CharA != CharB || CharA == 0)
			{
				return static_cast<int32>(CharA) - static_cast<int32>(CharB);
			}
		}
	}
	static int32 Strncmp(const CharType* A, const CharType* B, SIZE_T Count)
	{
		for (; Count > 0; --Count, ++A, ++B)
		{
			const uint32 CharA = static_cast<std::make_unsigned_t<CharType>>(*A);
			const uint32 CharB = static_cast<std::make_unsigned_t<CharType>>(*B);
			if (CharA != CharB || CharA == 0)
			{
				return static_cast<int32>(CharA) - static_cast<int32>(CharB);
			}
		}
		return 0;
	}
	static int32 Stricmp(const CharType* A, const CharType* B)
	{
		for (;; ++A, ++B)
		{
			const uint32 CharA = static_cast<std::make_unsigned_t<CharType>>(TChar<CharType>::ToLower(*A));
			const uint32 CharB = static_cast<std::make_unsigned_t<CharType>>(TChar<CharType>::ToLower(*B));
			if (CharA != CharB || CharA == 0)
			{
				return static_cast<int32>(CharA) - static_cast<int32>(CharB);
			}
		}
	}
	static int32 Strnicmp(const CharType* A, const CharType* B, SIZE_T Count)
	{
		for (; Count > 0; --Count, ++A, ++B)
		{
			const uint32 CharA = static_cast<std::make_unsigned_t<CharType>>(TChar<CharType>::ToLower(*A));
			const uint32 CharB = static_cast<std::make_unsigned_t<CharType>>(TChar<CharType>::ToLower(*B));
			if (CharA != CharB || CharA == 0)
			{
				return static_cast<int32>(CharA) - static_cast<int32>(CharB);
			}
		}
		return 0;
	}
	static const CharType* Strstr(const CharType* String, const CharType* Find)
	{
		const int32 FindLength = Strlen(Find);
		for (; *String; ++String)
		{
			if (Strncmp(String, Find, FindLength) == 0)
			{
				return String;
			}
		}
		return FindLength == 0 ? String : nullptr;
	}
	static const CharType* Stristr(const CharType* String, const CharType* Find)
	{
		const int32 FindLength = Strlen(Find);
		for (; *String; ++String)
		{
			if (Strnicmp(String, Find, FindLength) == 0)
			{
				return String;
			}
		}
		return FindLength == 0 ? String : nullptr;
	}
	static const CharType* Strchr(const CharType* String, CharType Char)
	{
		for (;; ++String)
		{
			if (*String == Char)
			{
				return String;
			}
			if (!*String)
			{
				return nullptr;
			}
		}
	}
	static const CharType* Strrchr(const CharType* String, CharType Char)
	{
		const CharType* Last = nullptr;
		for (;; ++String)
		{
			if (*String == Char)
			{
				Last = String;
			}
			if (!*String)
			{
				return Last;
			}
		}
	}
	static CharType* Strcpy(CharType* Dest, const CharType* Src)
	{
		CharType* Out = Dest;
		while ((*Out++ = *Src++))
		{
		}
		return Dest;
	}
	static CharType* Strncpy(CharType* Dest, const CharType* Src, int32 MaxLen)
	{
		int32 Index = 0;
		for (; Index < MaxLen - 1 && Src[Index]; ++Index)
		{
			Dest[Index] = Src[Index];
		}
		if (MaxLen > 0)
		{
			Dest[Index] = 0;
		}
		return Dest;
	}
	static CharType* Strcat(CharType* Dest, const CharType* Src)
	{
		Strcpy(Dest + Strlen(Dest), Src);
		return Dest;
	}

	// Integer parsing with C's rules: leading white space, an optional sign, then digits in Base.
	static int64 Strtoi64(const CharType* Start, CharType** End, int32 Base)
	{
		bool bNegative = false;
		bool bOverflow = false;
		const uint64 Value = ParseMagnitude(Start, End, Base, bNegative, bOverflow);
		// Out of range saturates, as strtoll does.
		if (bNegative)
		{
			return bOverflow || Value > static_cast<uint64>(MAX_int64) + 1 ? MIN_int64 : static_cast<int64>(0 - Value);
		}
		return bOverflow || Value > static_cast<uint64>(MAX_int64) ? MAX_int64 : static_cast<int64>(Value);
	}
	static int32 Strtoi(const CharType* Start, CharType** End, int32 Base)
	{
		return static_cast<int32>(Strtoi64(Start, End, Base));
	}
	static uint64 Strtoui64(const CharType* Start, CharType** End, int32 Base)
	{
		bool bNegative = false;
		bool bOverflow = false;
		const uint64 Value = ParseMagnitude(Start, End, Base, bNegative, bOverflow);
		// As strtoull: out of range gives the maximum, a minus sign negates.
		return bOverflow ? MAX_uint64 : (bNegative ? 0 - Value : Value);
	}
	static int32 Atoi(const CharType* String)
	{
		return static_cast<int32>(Strtoi64(String, nullptr, 10));
	}
	static int64 Atoi64(const CharType* String)
	{
		return Strtoi64(String, nullptr, 10);
	}
	static double Atod(const CharType* String);
	static float Atof(const CharType* String)
	{
		return static_cast<float>(Atod(String));
	}
	static bool ToBool(const CharType* String);

	// Digits with at most one dot, after an optional sign.
	static bool IsNumeric(const CharType* String)
	{
		if (*String == '-' || *String == '+')
		{
			++String;
		}
		bool bHasDot = false;
		bool bHasDigit = false;
		for (; *String; ++String)
		{
			if (*String == '.')
			{
				if (bHasDot)
				{
					return false;
				}
				bHasDot = true;
			}
			else if (TChar<CharType>::IsDigit(*String))
			{
				bHasDigit = true;
			}
			else
			{
				return false;
			}
		}
		return bHasDigit;
	}
	static bool IsPureAnsi(const CharType* String)
	{
		for (; *String; ++String)
		{
			if (static_cast<uint32>(*String) > 0x7f)
			{
				return false;
			}
		}
		return true;
	}

private:
	// The digits' value without sign; bOverflow when it does not fit 64 bits.
	static uint64 ParseMagnitude(const CharType* Start, CharType** End, int32 Base, bool& bNegative, bool& bOverflow)
	{
		const CharType* Cursor = Start;
		while (*Cursor && TChar<CharType>::IsWhitespace(*Cursor))
		{
			++Cursor;
		}
		if (*Cursor == '-' || *Cursor == '+')
		{
			bNegative = *Cursor == '-';
			++Cursor;
		}
		if ((Base == 0 || Base == 16) && Cursor[0] == '0' && (Cursor[1] == 'x' || Cursor[1] == 'X') && TChar<CharType>::IsHexDigit(Cursor[2]))
		{
			Cursor += 2;
			Base = 16;
		}
		else if (Base == 0)
		{
			Base = Cursor[0] == '0' ? 8 : 10;
		}
		const CharType* DigitsStart = Cursor;
		uint64 Value = 0;
		for (;; ++Cursor)
		{
			int32 Digit;
			if (TChar<CharType>::IsDigit(*Cursor))
			{
				Digit = *Cursor - '0';
			}
			else if (*Cursor >= 'a' && *Cursor <= 'z')
			{
				Digit = *Cursor - 'a' + 10;
			}
			else if (*Cursor >= 'A' && *Cursor <= 'Z')
			{
				Digit = *Cursor - 'A' + 10;
			}
			else
			{
				break;
			}
			if (Digit >= Base)
			{
				break;
			}
			if (Value > (MAX_uint64 - Digit) / Base)
			{
				bOverflow = true;
			}
			Value = Value * Base + Digit;
		}
		if (End)
		{
			*End = const_cast<CharType*>(Cursor == DigitsStart ? Start : Cursor);
		}
		return Value;
	}
};

typedef TCString<TCHAR> FCString;
typedef TCString<ANSICHAR> FCStringAnsi;
typedef TCString<WIDECHAR> FCStringWide;
