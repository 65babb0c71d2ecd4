// Character classification with ASCII case rules, as the engine's TChar.
#pragma once

#include "CoreTypes.h"
#include <type_traits>

template<typename CharType>
struct TChar
{
	static constexpr bool IsUpper(CharType Char)
	{
		return Char >= 'A' && Char <= 'Z';
	}
	static constexpr bool IsLower(CharType Char)
	{
		return Char >= 'a' && Char <= 'z';
	}
	static constexpr bool IsAlpha(CharType Char)
	{
		return IsUpper(Char) || IsLower(Char);
	}
	static constexpr bool IsDigit(CharType Char)
	{
		return Char >= '0' && Char <= '9';
	}
	static constexpr bool IsAlnum(CharType Char)
	{
		return IsAlpha(Char) || IsDigit(Char);
	}
	static constexpr bool IsHexDigit(CharType Char)
	{
		return IsDigit(Char) || (Char >= 'a' && Char <= 'f') || (Char >= 'A' && Char <= 'F');
	}
	static constexpr bool IsOctDigit(CharType Char)
	{
		return Char >= '0' && Char <= '7';
	}
	static constexpr bool IsUnderscore(CharType Char)
	{
		return Char == '_';
	}
	static constexpr bool IsIdentifier(CharType Char)
	{
		return IsAlnum(Char) || IsUnderscore(Char);
	}
	static constexpr bool IsPunct(CharType Char)
	{
		return (Char >= '!' && Char <= '/') || (Char >= ':' && Char <= '@') || (Char >= '[' && Char <= '`') || (Char >= '{' && Char <= '~');
	}
	static constexpr bool IsPrint(CharType Char)
	{
		return static_cast<uint32>(Char) >= 0x20 && Char != 0x7f;
	}
	static constexpr bool IsWhitespace(CharType Char)
	{
		const uint32 Code = static_cast<uint32>(static_cast<std::make_unsigned_t<CharType>>(Char));
		switch (Code)
		{
		case ' ': case '\t': case '\n': case '\v': case '\f': case '\r':
			return true;
		default:
			break;
		}
		if constexpr (sizeof(CharType) > 1)
		{
			return Code == 0x85 || Code == 0xA0 || Code == 0x1680 || (Code >= 0x2000 && Code <= 0x200A) || Code == 0x2028 || Code == 0x2029 || Code == 0x202F || Code == 0x205F || Code == 0x3000;
		}
		return false;
	}
	static constexpr bool IsLinebreak(CharType Char)
	{
		const uint32 Code = static_cast<uint32>(static_cast<std::make_unsigned_t<CharType>>(Char));
		return (Code >= 0x0a && Code <= 0x0d) || Code == 0x85 || Code == 0x2028 || Code == 0x2029;
	}
	static constexpr CharType ToUpper(CharType Char)
	{
		return IsLower(Char) ? static_cast<CharType>(Char - ('a' - 'A')) : Char;
	}
	static constexpr CharType ToLower(CharType Char)
	{
		return IsUpper(Char) ? static_cast<CharType>(Char + ('a' - 'A')) : Char;
	}
	static constexpr int32 ConvertCharDigitToInt(CharType Char)
	{
		return static_cast<int32>(Char) - '0';
	}
};

typedef TChar<TCHAR> FChar;
typedef TChar<WIDECHAR> FCharWide;
typedef TChar<ANSICHAR> FCharAnsi;
