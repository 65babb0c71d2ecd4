#include "Containers/StringConv.h"

#include "Misc/CString.h"
#include "Misc/UnicodeTranscoding.h"

namespace
{
	std::string EncodeUtf8(const TCHAR* Source, int32 Length)
	{
		std::string Out;
		UE::Core::Private::AppendUtf16AsUtf8(Source, Length, Out);
		return Out;
	}

	std::u16string DecodeUtf8(const ANSICHAR* Source, int32 Length)
	{
		std::u16string Out;
		UE::Core::Private::AppendUtf8AsUtf16(reinterpret_cast<const uint8*>(Source), Length, Out);
		return Out;
	}
}

FTCHARToUTF8::FTCHARToUTF8(const TCHAR* Source)
	: FTCHARToUTF8(Source, FCString::Strlen(Source))
{
}

FTCHARToUTF8::FTCHARToUTF8(const TCHAR* Source, int32 SourceLength)
{
	if (Source)
	{
		Converted = EncodeUtf8(Source, SourceLength);
	}
}

FUTF8ToTCHAR::FUTF8ToTCHAR(const ANSICHAR* Source)
	: FUTF8ToTCHAR(Source, FCStringAnsi::Strlen(Source))
{
}

FUTF8ToTCHAR::FUTF8ToTCHAR(const ANSICHAR* Source, int32 SourceLength)
{
	if (Source)
	{
		Converted = DecodeUtf8(Source, SourceLength);
	}
}

FTCHARToANSI::FTCHARToANSI(const TCHAR* Source)
	: FTCHARToANSI(Source, FCString::Strlen(Source))
{
}

FTCHARToANSI::FTCHARToANSI(const TCHAR* Source, int32 SourceLength)
{
	Converted.reserve(SourceLength);
	for (int32 Index = 0; Source && Index < SourceLength; ++Index)
	{
		Converted += Source[Index] <= 0xFF ? static_cast<char>(Source[Index]) : '?';
	}
}

FANSIToTCHAR::FANSIToTCHAR(const ANSICHAR* Source)
	: FANSIToTCHAR(Source, FCStringAnsi::Strlen(Source))
{
}

FANSIToTCHAR::FANSIToTCHAR(const ANSICHAR* Source, int32 SourceLength)
{
	Converted.reserve(SourceLength);
	for (int32 Index = 0; Source && Index < SourceLength; ++Index)
	{
		Converted += static_cast<char16_t>(static_cast<unsigned char>(Source[Index]));
	}
}
