// Conversions between TCHAR (UTF-16) and 8-bit text at the edges of the program.
#pragma once

#include "CoreTypes.h"
#include <string>

// Owns the converted text of one conversion, terminated, for as long as the converter lives.
template<typename ToCharType>
class TStringConversionResult
{
public:
	int32 Length() const
	{
		return static_cast<int32>(Converted.size());
	}

protected:
	std::basic_string<ToCharType> Converted;
};

// Encodes UTF-16 as UTF-8; an unpaired surrogate becomes U+FFFD.
class FTCHARToUTF8 : public TStringConversionResult<char>
{
public:
	CORE_API explicit FTCHARToUTF8(const TCHAR* Source);
	CORE_API FTCHARToUTF8(const TCHAR* Source, int32 SourceLength);
	const UTF8CHAR* Get() const
	{
		return reinterpret_cast<const UTF8CHAR*>(Converted.c_str());
	}
};

// Decodes UTF-8 into UTF-16; invalid sequences become U+FFFD.
class FUTF8ToTCHAR : public TStringConversionResult<TCHAR>
{
public:
	CORE_API explicit FUTF8ToTCHAR(const ANSICHAR* Source);
	CORE_API FUTF8ToTCHAR(const ANSICHAR* Source, int32 SourceLength);
	explicit FUTF8ToTCHAR(const UTF8CHAR* Source)
		: FUTF8ToTCHAR(reinterpret_cast<const ANSICHAR*>(Source))
	{
	}
	FUTF8ToTCHAR(const UTF8CHAR* Source, int32 SourceLength)
		: FUTF8ToTCHAR(reinterpret_cast<const ANSICHAR*>(Source), SourceLength)
	{
	}
	const TCHAR* Get() const
	{
		return Converted.c_str();
	}
};

// Narrows to 8 bits; characters outside Latin-1 become '?', as the engine's ANSI conversion.
class FTCHARToANSI : public TStringConversionResult<ANSICHAR>
{
public:
	CORE_API explicit FTCHARToANSI(const TCHAR* Source);
	CORE_API FTCHARToANSI(const TCHAR* Source, int32 SourceLength);
	const ANSICHAR* Get() const
	{
		return Converted.c_str();
	}
};

// Widens 8-bit text code unit by code unit (Latin-1).
class FANSIToTCHAR : public TStringConversionResult<TCHAR>
{
public:
	CORE_API explicit FANSIToTCHAR(const ANSICHAR* Source);
	CORE_API FANSIToTCHAR(const ANSICHAR* Source, int32 SourceLength);
	const TCHAR* Get() const
	{
		return Converted.c_str();
	}
};

#define TCHAR_TO_UTF8(Str) ((ANSICHAR*)FTCHARToUTF8((const TCHAR*)(Str)).Get())
#define UTF8_TO_TCHAR(Str) ((TCHAR*)FUTF8ToTCHAR((const ANSICHAR*)(Str)).Get())
#define TCHAR_TO_ANSI(Str) ((ANSICHAR*)FTCHARToANSI((const TCHAR*)(Str)).Get())
#define ANSI_TO_TCHAR(Str) ((TCHAR*)FANSIToTCHAR((const ANSICHAR*)(Str)).Get())

template<typename To>
struct TStringCastSelector;
template<>
struct TStringCastSelector<ANSICHAR>
{
	using FromTCHAR = FTCHARToANSI;
};
template<>
struct TStringCastSelector<UTF8CHAR>
{
	using FromTCHAR = FTCHARToUTF8;
};
template<>
struct TStringCastSelector<TCHAR>
{
	using FromANSI = FANSIToTCHAR;
	using FromUTF8 = FUTF8ToTCHAR;
};

template<typename To>
typename TStringCastSelector<To>::FromTCHAR StringCast(const TCHAR* Source)
{
	return typename TStringCastSelector<To>::FromTCHAR(Source);
}
template<typename To>
typename TStringCastSelector<To>::FromTCHAR StringCast(const TCHAR* Source, int32 Length)
{
	return typename TStringCastSelector<To>::FromTCHAR(Source, Length);
}
template<typename To>
std::enable_if_t<std::is_same_v<To, TCHAR>, FANSIToTCHAR> StringCast(const ANSICHAR* Source)
{
	return FANSIToTCHAR(Source);
}
template<typename To>
std::enable_if_t<std::is_same_v<To, TCHAR>, FUTF8ToTCHAR> StringCast(const UTF8CHAR* Source)
{
	return FUTF8ToTCHAR(Source);
}
