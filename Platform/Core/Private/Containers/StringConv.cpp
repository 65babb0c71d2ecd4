#include "Containers/StringConv.h"

#include "Misc/CString.h"

namespace
{
	constexpr char32_t ReplacementCharacter = 0xFFFD;

	void AppendUtf8(std::string& Out, char32_t CodePoint)
	{
		if (CodePoint < 0x80)
		{
			Out += static_cast<char>(CodePoint);
		}
		else if (CodePoint < 0x800)
		{
			Out += static_cast<char>(0xC0 | (CodePoint >> 6));
			Out += static_cast<char>(0x80 | (CodePoint & 0x3F));
		}
		else if (CodePoint < 0x10000)
		{
			Out += static_cast<char>(0xE0 | (CodePoint >> 12));
			Out += static_cast<char>(0x80 | ((CodePoint >> 6) & 0x3F));
			Out += static_cast<char>(0x80 | (CodePoint & 0x3F));
		}
		else
		{
			Out += static_cast<char>(0xF0 | (CodePoint >> 18));
			Out += static_cast<char>(0x80 | ((CodePoint >> 12) & 0x3F));
			Out += static_cast<char>(0x80 | ((CodePoint >> 6) & 0x3F));
			Out += static_cast<char>(0x80 | (CodePoint & 0x3F));
		}
	}

	void AppendUtf16(std::u16string& Out, char32_t CodePoint)
	{
		if (CodePoint < 0x10000)
		{
			Out += static_cast<char16_t>(CodePoint);
		}
		else
		{
			CodePoint -= 0x10000;
			Out += static_cast<char16_t>(0xD800 + (CodePoint >> 10));
			Out += static_cast<char16_t>(0xDC00 + (CodePoint & 0x3FF));
		}
	}

	std::string EncodeUtf8(const TCHAR* Source, int32 Length)
	{
		std::string Out;
		Out.reserve(Length);
		for (int32 Index = 0; Index < Length; ++Index)
		{
			const char32_t Unit = Source[Index];
			if (Unit >= 0xD800 && Unit <= 0xDBFF && Index + 1 < Length && Source[Index + 1] >= 0xDC00 && Source[Index + 1] <= 0xDFFF)
			{
				AppendUtf8(Out, 0x10000 + ((Unit - 0xD800) << 10) + (Source[Index + 1] - 0xDC00));
				++Index;
			}
			else if (Unit >= 0xD800 && Unit <= 0xDFFF)
			{
				AppendUtf8(Out, ReplacementCharacter);
			}
			else
			{
				AppendUtf8(Out, Unit);
			}
		}
		return Out;
	}

	// Strict decoding: overlong forms, surrogates and truncated sequences become U+FFFD.
	std::u16string DecodeUtf8(const ANSICHAR* Source, int32 Length)
	{
		std::u16string Out;
		Out.reserve(Length);
		const unsigned char* Bytes = reinterpret_cast<const unsigned char*>(Source);
		for (int32 Index = 0; Index < Length;)
		{
			const unsigned char Lead = Bytes[Index];
			if (Lead < 0x80)
			{
				Out += static_cast<char16_t>(Lead);
				++Index;
				continue;
			}
			int32 Extra;
			char32_t CodePoint;
			char32_t Minimum;
			if ((Lead & 0xE0) == 0xC0)
			{
				Extra = 1;
				CodePoint = Lead & 0x1F;
				Minimum = 0x80;
			}
			else if ((Lead & 0xF0) == 0xE0)
			{
				Extra = 2;
				CodePoint = Lead & 0x0F;
				Minimum = 0x800;
			}
			else if ((Lead & 0xF8) == 0xF0)
			{
				Extra = 3;
				CodePoint = Lead & 0x07;
				Minimum = 0x10000;
			}
			else
			{
				Out += static_cast<char16_t>(ReplacementCharacter);
				++Index;
				continue;
			}
			int32 Consumed = 1;
			bool bValid = true;
			for (; Consumed <= Extra; ++Consumed)
			{
				if (Index + Consumed >= Length || (Bytes[Index + Consumed] & 0xC0) != 0x80)
				{
					bValid = false;
					break;
				}
				CodePoint = (CodePoint << 6) | (Bytes[Index + Consumed] & 0x3F);
			}
			if (!bValid || CodePoint < Minimum || CodePoint > 0x10FFFF || (CodePoint >= 0xD800 && CodePoint <= 0xDFFF))
			{
				Out += static_cast<char16_t>(ReplacementCharacter);
				Index += bValid ? Consumed : (Consumed > 1 ? Consumed : 1);
				continue;
			}
			AppendUtf16(Out, CodePoint);
			Index += Consumed;
		}
		return Out;
	}
}

FTCHARToUTF8::FTCHARToUTF8(const TCHAR* Source)
	: FTCHARToUTF8(Source, FCString::Strlen(Source))
{
}

FTCHARToUTF8::FTCHARToUTF8(const TCHAR* Source, int32 SourceLength)
	: Converted(Source ? EncodeUtf8(Source, SourceLength) : std::string())
{
}

FUTF8ToTCHAR::FUTF8ToTCHAR(const ANSICHAR* Source)
	: FUTF8ToTCHAR(Source, FCStringAnsi::Strlen(Source))
{
}

FUTF8ToTCHAR::FUTF8ToTCHAR(const ANSICHAR* Source, int32 SourceLength)
	: Converted(Source ? DecodeUtf8(Source, SourceLength) : std::u16string())
{
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
