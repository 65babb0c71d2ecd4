#include "Misc/Guid.h"

#include <mutex>
#include <random>

namespace
{
	const TCHAR UpperHexDigits[] = TEXT("0123456789ABCDEF");
	const TCHAR LowerHexDigits[] = TEXT("0123456789abcdef");
	const TCHAR Base36Digits[] = TEXT("0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ");
	const TCHAR UrlSafeBase64Digits[] = TEXT("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_");

	void AppendHex(FString& Out, uint32 Value, int32 Digits, bool bLower)
	{
		const TCHAR* Alphabet = bLower ? LowerHexDigits : UpperHexDigits;
		for (int32 Shift = (Digits - 1) * 4; Shift >= 0; Shift -= 4)
		{
			Out.AppendChar(Alphabet[(Value >> Shift) & 0xF]);
		}
	}

	int32 HexValue(TCHAR Char)
	{
		if (Char >= TEXT('0') && Char <= TEXT('9'))
		{
			return Char - TEXT('0');
		}
		if (Char >= TEXT('a') && Char <= TEXT('f'))
		{
			return Char - TEXT('a') + 10;
		}
		if (Char >= TEXT('A') && Char <= TEXT('F'))
		{
			return Char - TEXT('A') + 10;
		}
		return -1;
	}

	// Reads Count hex digits at Position; false if any of them isn't one.
	bool ReadHex(const FString& Text, int32 Position, int32 Count, uint32& OutValue)
	{
		if (Position < 0 || Position + Count > Text.Len())
		{
			return false;
		}
		uint32 Value = 0;
		for (int32 Index = 0; Index < Count; ++Index)
		{
			const int32 Digit = HexValue(Text[Position + Index]);
			if (Digit < 0)
			{
				return false;
			}
			Value = (Value << 4) | (uint32)Digit;
		}
		OutValue = Value;
		return true;
	}

	// The sixteen bytes as they lie in memory (each word little-endian), the order the short form encodes.
	void ToBytes(const FGuid& Guid, uint8 OutBytes[16])
	{
		const uint32 Words[4] = {Guid.A, Guid.B, Guid.C, Guid.D};
		for (int32 Word = 0; Word < 4; ++Word)
		{
			for (int32 Byte = 0; Byte < 4; ++Byte)
			{
				OutBytes[Word * 4 + Byte] = (uint8)(Words[Word] >> (Byte * 8));
			}
		}
	}

	FGuid FromBytes(const uint8 Bytes[16])
	{
		uint32 Words[4] = {0, 0, 0, 0};
		for (int32 Word = 0; Word < 4; ++Word)
		{
			for (int32 Byte = 0; Byte < 4; ++Byte)
			{
				Words[Word] |= (uint32)Bytes[Word * 4 + Byte] << (Byte * 8);
			}
		}
		return FGuid(Words[0], Words[1], Words[2], Words[3]);
	}

	bool CheckChar(const FString& Text, int32 Position, TCHAR Expected)
	{
		return Position < Text.Len() && Text[Position] == Expected;
	}

	bool ParseHyphenated(const FString& Text, int32 Offset, FGuid& OutGuid)
	{
		uint32 A, B1, B2, C1, C2, D;
		if (!ReadHex(Text, Offset, 8, A) || !CheckChar(Text, Offset + 8, TEXT('-'))
			|| !ReadHex(Text, Offset + 9, 4, B1) || !CheckChar(Text, Offset + 13, TEXT('-'))
			|| !ReadHex(Text, Offset + 14, 4, B2) || !CheckChar(Text, Offset + 18, TEXT('-'))
			|| !ReadHex(Text, Offset + 19, 4, C1) || !CheckChar(Text, Offset + 23, TEXT('-'))
			|| !ReadHex(Text, Offset + 24, 4, C2) || !ReadHex(Text, Offset + 28, 8, D))
		{
			return false;
		}
		OutGuid = FGuid(A, (B1 << 16) | B2, (C1 << 16) | C2, D);
		return true;
	}

	bool ParseHexValuesInBraces(const FString& Text, FGuid& OutGuid)
	{
		// {0xAAAAAAAA,0xBBBB,0xBBBB,{0xCC,0xCC,0xCC,0xCC,0xDD,0xDD,0xDD,0xDD}}
		if (Text.Len() != 68 || Text[0] != TEXT('{') || Text[67] != TEXT('}'))
		{
			return false;
		}
		uint32 A, B1, B2;
		if (!Text.Mid(1, 2).Equals(TEXT("0x"), ESearchCase::IgnoreCase) || !ReadHex(Text, 3, 8, A) || !CheckChar(Text, 11, TEXT(','))
			|| !Text.Mid(12, 2).Equals(TEXT("0x"), ESearchCase::IgnoreCase) || !ReadHex(Text, 14, 4, B1) || !CheckChar(Text, 18, TEXT(','))
			|| !Text.Mid(19, 2).Equals(TEXT("0x"), ESearchCase::IgnoreCase) || !ReadHex(Text, 21, 4, B2) || !CheckChar(Text, 25, TEXT(','))
			|| !CheckChar(Text, 26, TEXT('{')))
		{
			return false;
		}
		uint32 Tail[8];
		for (int32 Index = 0; Index < 8; ++Index)
		{
			const int32 Position = 27 + Index * 5;
			const TCHAR Expected = Index < 7 ? TEXT(',') : TEXT('}');
			if (!Text.Mid(Position, 2).Equals(TEXT("0x"), ESearchCase::IgnoreCase) || !ReadHex(Text, Position + 2, 2, Tail[Index]) || !CheckChar(Text, Position + 4, Expected))
			{
				return false;
			}
		}
		OutGuid = FGuid(A, (B1 << 16) | B2, (Tail[0] << 24) | (Tail[1] << 16) | (Tail[2] << 8) | Tail[3], (Tail[4] << 24) | (Tail[5] << 16) | (Tail[6] << 8) | Tail[7]);
		return true;
	}

	bool ParseShort(const FString& Text, FGuid& OutGuid)
	{
		if (Text.Len() != 22)
		{
			return false;
		}
		uint8 Bytes[18] = {};
		uint32 Bits = 0;
		int32 BitCount = 0;
		int32 ByteCount = 0;
		for (int32 Index = 0; Index < Text.Len(); ++Index)
		{
			int32 Value = -1;
			for (int32 Digit = 0; Digit < 64; ++Digit)
			{
				if (UrlSafeBase64Digits[Digit] == Text[Index])
				{
					Value = Digit;
					break;
				}
			}
			if (Value < 0)
			{
				return false;
			}
			Bits = (Bits << 6) | (uint32)Value;
			BitCount += 6;
			if (BitCount >= 8)
			{
				BitCount -= 8;
				Bytes[ByteCount++] = (uint8)(Bits >> BitCount);
			}
		}
		if (ByteCount != 16)
		{
			return false;
		}
		OutGuid = FromBytes(Bytes);
		return true;
	}

	// The GUID as one 128-bit number, A most significant, held as four 32-bit limbs.
	bool ParseBase36(const FString& Text, FGuid& OutGuid)
	{
		if (Text.Len() != 25)
		{
			return false;
		}
		uint64 Limbs[4] = {0, 0, 0, 0};
		for (int32 Index = 0; Index < Text.Len(); ++Index)
		{
			TCHAR Char = Text[Index];
			if (Char >= TEXT('a') && Char <= TEXT('z'))
			{
				Char = (TCHAR)(Char - TEXT('a') + TEXT('A'));
			}
			int32 Value = -1;
			for (int32 Digit = 0; Digit < 36; ++Digit)
			{
				if (Base36Digits[Digit] == Char)
				{
					Value = Digit;
					break;
				}
			}
			if (Value < 0)
			{
				return false;
			}
			uint64 Carry = (uint64)Value;
			for (int32 Limb = 3; Limb >= 0; --Limb)
			{
				const uint64 Product = Limbs[Limb] * 36 + Carry;
				Limbs[Limb] = Product & 0xFFFFFFFFu;
				Carry = Product >> 32;
			}
			if (Carry != 0)
			{
				return false;
			}
		}
		OutGuid = FGuid((uint32)Limbs[0], (uint32)Limbs[1], (uint32)Limbs[2], (uint32)Limbs[3]);
		return true;
	}
}

FGuid::FGuid(const FString& InGuidStr)
	: FGuid()
{
	if (!Parse(InGuidStr, *this))
	{
		Invalidate();
	}
}

uint32& FGuid::operator[](int32 Index)
{
	switch (Index)
	{
	case 0: return A;
	case 1: return B;
	case 2: return C;
	default: return D;
	}
}

const uint32& FGuid::operator[](int32 Index) const
{
	switch (Index)
	{
	case 0: return A;
	case 1: return B;
	case 2: return C;
	default: return D;
	}
}

FString FGuid::ToString(EGuidFormats Format) const
{
	FString Result;
	AppendString(Result, Format);
	return Result;
}

void FGuid::AppendString(FString& Out, EGuidFormats Format) const
{
	switch (Format)
	{
	case EGuidFormats::DigitsWithHyphens:
	case EGuidFormats::DigitsWithHyphensLower:
	case EGuidFormats::DigitsWithHyphensInBraces:
	case EGuidFormats::DigitsWithHyphensInParentheses:
	{
		const bool bLower = Format == EGuidFormats::DigitsWithHyphensLower;
		if (Format == EGuidFormats::DigitsWithHyphensInBraces)
		{
			Out.AppendChar(TEXT('{'));
		}
		else if (Format == EGuidFormats::DigitsWithHyphensInParentheses)
		{
			Out.AppendChar(TEXT('('));
		}
		AppendHex(Out, A, 8, bLower);
		Out.AppendChar(TEXT('-'));
		AppendHex(Out, B >> 16, 4, bLower);
		Out.AppendChar(TEXT('-'));
		AppendHex(Out, B & 0xFFFF, 4, bLower);
		Out.AppendChar(TEXT('-'));
		AppendHex(Out, C >> 16, 4, bLower);
		Out.AppendChar(TEXT('-'));
		AppendHex(Out, C & 0xFFFF, 4, bLower);
		AppendHex(Out, D, 8, bLower);
		if (Format == EGuidFormats::DigitsWithHyphensInBraces)
		{
			Out.AppendChar(TEXT('}'));
		}
		else if (Format == EGuidFormats::DigitsWithHyphensInParentheses)
		{
			Out.AppendChar(TEXT(')'));
		}
		break;
	}
	case EGuidFormats::HexValuesInBraces:
	{
		Out += TEXT("{0x");
		AppendHex(Out, A, 8, false);
		Out += TEXT(",0x");
		AppendHex(Out, B >> 16, 4, false);
		Out += TEXT(",0x");
		AppendHex(Out, B & 0xFFFF, 4, false);
		Out += TEXT(",{");
		const uint32 Tail[2] = {C, D};
		for (int32 Index = 0; Index < 8; ++Index)
		{
			Out += Index == 0 ? TEXT("0x") : TEXT(",0x");
			AppendHex(Out, (Tail[Index / 4] >> (24 - (Index % 4) * 8)) & 0xFF, 2, false);
		}
		Out += TEXT("}}");
		break;
	}
	case EGuidFormats::UniqueObjectGuid:
		AppendHex(Out, A, 8, false);
		Out.AppendChar(TEXT('-'));
		AppendHex(Out, B, 8, false);
		Out.AppendChar(TEXT('-'));
		AppendHex(Out, C, 8, false);
		Out.AppendChar(TEXT('-'));
		AppendHex(Out, D, 8, false);
		break;
	case EGuidFormats::Short:
	{
		uint8 Bytes[16];
		ToBytes(*this, Bytes);
		uint32 Bits = 0;
		int32 BitCount = 0;
		for (int32 Index = 0; Index < 16; ++Index)
		{
			Bits = (Bits << 8) | Bytes[Index];
			BitCount += 8;
			while (BitCount >= 6)
			{
				BitCount -= 6;
				Out.AppendChar(UrlSafeBase64Digits[(Bits >> BitCount) & 0x3F]);
			}
		}
		if (BitCount > 0)
		{
			Out.AppendChar(UrlSafeBase64Digits[(Bits << (6 - BitCount)) & 0x3F]);
		}
		break;
	}
	case EGuidFormats::Base36Encoded:
	{
		uint64 Limbs[4] = {A, B, C, D};
		TCHAR Digits[25];
		for (int32 Index = 24; Index >= 0; --Index)
		{
			uint64 Remainder = 0;
			for (int32 Limb = 0; Limb < 4; ++Limb)
			{
				const uint64 Value = (Remainder << 32) | Limbs[Limb];
				Limbs[Limb] = Value / 36;
				Remainder = Value % 36;
			}
			Digits[Index] = Base36Digits[Remainder];
		}
		Out.Append(Digits, 25);
		break;
	}
	case EGuidFormats::DigitsLower:
		AppendHex(Out, A, 8, true);
		AppendHex(Out, B, 8, true);
		AppendHex(Out, C, 8, true);
		AppendHex(Out, D, 8, true);
		break;
	case EGuidFormats::Digits:
	default:
		AppendHex(Out, A, 8, false);
		AppendHex(Out, B, 8, false);
		AppendHex(Out, C, 8, false);
		AppendHex(Out, D, 8, false);
		break;
	}
}

FGuid FGuid::NewGuid()
{
	static std::mutex Mutex;
	static std::mt19937_64 Generator{std::random_device{}()};
	std::lock_guard<std::mutex> Lock(Mutex);
	FGuid Result;
	do
	{
		const uint64 High = Generator();
		const uint64 Low = Generator();
		Result = FGuid((uint32)(High >> 32), (uint32)High, (uint32)(Low >> 32), (uint32)Low);
	}
	while (!Result.IsValid());
	return Result;
}

bool FGuid::Parse(const FString& GuidString, FGuid& OutGuid)
{
	switch (GuidString.Len())
	{
	case 32:
		return ParseExact(GuidString, EGuidFormats::Digits, OutGuid);
	case 35:
		return ParseExact(GuidString, EGuidFormats::UniqueObjectGuid, OutGuid);
	case 36:
		return ParseExact(GuidString, EGuidFormats::DigitsWithHyphens, OutGuid);
	case 38:
		return GuidString[0] == TEXT('{')
			? ParseExact(GuidString, EGuidFormats::DigitsWithHyphensInBraces, OutGuid)
			: ParseExact(GuidString, EGuidFormats::DigitsWithHyphensInParentheses, OutGuid);
	case 68:
		return ParseExact(GuidString, EGuidFormats::HexValuesInBraces, OutGuid);
	default:
		return false;
	}
}

bool FGuid::ParseExact(const FString& GuidString, EGuidFormats Format, FGuid& OutGuid)
{
	switch (Format)
	{
	case EGuidFormats::Digits:
	case EGuidFormats::DigitsLower:
	{
		uint32 Words[4];
		if (GuidString.Len() != 32)
		{
			return false;
		}
		for (int32 Index = 0; Index < 4; ++Index)
		{
			if (!ReadHex(GuidString, Index * 8, 8, Words[Index]))
			{
				return false;
			}
		}
		OutGuid = FGuid(Words[0], Words[1], Words[2], Words[3]);
		return true;
	}
	case EGuidFormats::DigitsWithHyphens:
	case EGuidFormats::DigitsWithHyphensLower:
		return GuidString.Len() == 36 && ParseHyphenated(GuidString, 0, OutGuid);
	case EGuidFormats::DigitsWithHyphensInBraces:
		return GuidString.Len() == 38 && GuidString[0] == TEXT('{') && GuidString[37] == TEXT('}') && ParseHyphenated(GuidString, 1, OutGuid);
	case EGuidFormats::DigitsWithHyphensInParentheses:
		return GuidString.Len() == 38 && GuidString[0] == TEXT('(') && GuidString[37] == TEXT(')') && ParseHyphenated(GuidString, 1, OutGuid);
	case EGuidFormats::HexValuesInBraces:
		return ParseHexValuesInBraces(GuidString, OutGuid);
	case EGuidFormats::UniqueObjectGuid:
	{
		uint32 Words[4];
		if (GuidString.Len() != 35)
		{
			return false;
		}
		for (int32 Index = 0; Index < 4; ++Index)
		{
			if (!ReadHex(GuidString, Index * 9, 8, Words[Index]) || (Index < 3 && GuidString[Index * 9 + 8] != TEXT('-')))
			{
				return false;
			}
		}
		OutGuid = FGuid(Words[0], Words[1], Words[2], Words[3]);
		return true;
	}
	case EGuidFormats::Short:
		return ParseShort(GuidString, OutGuid);
	case EGuidFormats::Base36Encoded:
		return ParseBase36(GuidString, OutGuid);
	default:
		return false;
	}
}
