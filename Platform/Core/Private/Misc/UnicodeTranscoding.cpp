#include "Misc/UnicodeTranscoding.h"

namespace UE::Core::Private
{
	namespace
	{
		constexpr char32_t ReplacementCharacter = 0xFFFD;

		// Length of the sequence that a lead byte opens, or 0 for a byte that can't open one.
		int32 SequenceLength(uint8 Lead)
		{
			if (Lead < 0x80)
			{
				return 1;
			}
			if (Lead >= 0xC2 && Lead <= 0xDF)
			{
				return 2;
			}
			if (Lead >= 0xE0 && Lead <= 0xEF)
			{
				return 3;
			}
			if (Lead >= 0xF0 && Lead <= 0xF4)
			{
				return 4;
			}
			return 0;
		}

		// Decodes one sequence at Bytes[Index]; returns its length, or 0 when it is malformed.
		int32 DecodeOne(const uint8* Bytes, int64 Count, int64 Index, char32_t& OutCodePoint)
		{
			const uint8 Lead = Bytes[Index];
			const int32 Length = SequenceLength(Lead);
			if (Length == 0 || Index + Length > Count)
			{
				return 0;
			}
			if (Length == 1)
			{
				OutCodePoint = Lead;
				return 1;
			}
			char32_t CodePoint = Lead & (0x7F >> Length);
			for (int32 Offset = 1; Offset < Length; ++Offset)
			{
				const uint8 Continuation = Bytes[Index + Offset];
				if ((Continuation & 0xC0) != 0x80)
				{
					return 0;
				}
				CodePoint = (CodePoint << 6) | (Continuation & 0x3F);
			}
			// Overlong forms, surrogates and values past the last plane are not UTF-8.
			const bool bOverlong = (Length == 3 && CodePoint < 0x800) || (Length == 4 && CodePoint < 0x10000);
			const bool bSurrogate = CodePoint >= 0xD800 && CodePoint <= 0xDFFF;
			if (bOverlong || bSurrogate || CodePoint > 0x10FFFF)
			{
				return 0;
			}
			OutCodePoint = CodePoint;
			return Length;
		}

		void AppendCodePointAsUtf16(char32_t CodePoint, std::u16string& Out)
		{
			if (CodePoint < 0x10000)
			{
				Out.push_back(static_cast<char16_t>(CodePoint));
			}
			else
			{
				const char32_t Offset = CodePoint - 0x10000;
				Out.push_back(static_cast<char16_t>(0xD800 + (Offset >> 10)));
				Out.push_back(static_cast<char16_t>(0xDC00 + (Offset & 0x3FF)));
			}
		}

		void AppendCodePointAsUtf8(char32_t CodePoint, std::string& Out)
		{
			if (CodePoint < 0x80)
			{
				Out.push_back(static_cast<char>(CodePoint));
			}
			else if (CodePoint < 0x800)
			{
				Out.push_back(static_cast<char>(0xC0 | (CodePoint >> 6)));
				Out.push_back(static_cast<char>(0x80 | (CodePoint & 0x3F)));
			}
			else if (CodePoint < 0x10000)
			{
				Out.push_back(static_cast<char>(0xE0 | (CodePoint >> 12)));
				Out.push_back(static_cast<char>(0x80 | ((CodePoint >> 6) & 0x3F)));
				Out.push_back(static_cast<char>(0x80 | (CodePoint & 0x3F)));
			}
			else
			{
				Out.push_back(static_cast<char>(0xF0 | (CodePoint >> 18)));
				Out.push_back(static_cast<char>(0x80 | ((CodePoint >> 12) & 0x3F)));
				Out.push_back(static_cast<char>(0x80 | ((CodePoint >> 6) & 0x3F)));
				Out.push_back(static_cast<char>(0x80 | (CodePoint & 0x3F)));
			}
		}
	}

	bool IsValidUtf8(const uint8* Bytes, int64 Count)
	{
		int64 Index = 0;
		while (Index < Count)
		{
			// Runs of ASCII are the common case in source files; skip them without decoding.
			if (Bytes[Index] < 0x80)
			{
				++Index;
				continue;
			}
			char32_t CodePoint = 0;
			const int32 Length = DecodeOne(Bytes, Count, Index, CodePoint);
			if (Length == 0)
			{
				return false;
			}
			Index += Length;
		}
		return true;
	}

	void AppendUtf8AsUtf16(const uint8* Bytes, int64 Count, std::u16string& Out)
	{
		Out.reserve(Out.size() + static_cast<size_t>(Count));
		int64 Index = 0;
		while (Index < Count)
		{
			if (Bytes[Index] < 0x80)
			{
				Out.push_back(static_cast<char16_t>(Bytes[Index]));
				++Index;
				continue;
			}
			char32_t CodePoint = 0;
			const int32 Length = DecodeOne(Bytes, Count, Index, CodePoint);
			if (Length == 0)
			{
				// Callers check validity first; a stray byte still yields something visible rather than nothing.
				Out.push_back(static_cast<char16_t>(ReplacementCharacter));
				++Index;
				continue;
			}
			AppendCodePointAsUtf16(CodePoint, Out);
			Index += Length;
		}
	}

	void AppendUtf16AsUtf8(const TCHAR* Chars, int64 Count, std::string& Out)
	{
		Out.reserve(Out.size() + static_cast<size_t>(Count));
		for (int64 Index = 0; Index < Count; ++Index)
		{
			const char32_t Unit = Chars[Index];
			if (Unit < 0x80)
			{
				Out.push_back(static_cast<char>(Unit));
			}
			else if (Unit >= 0xD800 && Unit <= 0xDBFF && Index + 1 < Count && Chars[Index + 1] >= 0xDC00 && Chars[Index + 1] <= 0xDFFF)
			{
				const char32_t Low = Chars[Index + 1];
				AppendCodePointAsUtf8(0x10000 + ((Unit - 0xD800) << 10) + (Low - 0xDC00), Out);
				++Index;
			}
			else if (Unit >= 0xD800 && Unit <= 0xDFFF)
			{
				AppendCodePointAsUtf8(ReplacementCharacter, Out);
			}
			else
			{
				AppendCodePointAsUtf8(Unit, Out);
			}
		}
	}

	std::string ToFileSystemString(const TCHAR* Chars)
	{
		std::string Out;
		if (Chars != nullptr)
		{
			int64 Count = 0;
			while (Chars[Count] != 0)
			{
				++Count;
			}
			AppendUtf16AsUtf8(Chars, Count, Out);
		}
		return Out;
	}

	std::u16string FromFileSystemString(const char* Bytes, int64 Count)
	{
		std::u16string Out;
		const uint8* Unsigned = reinterpret_cast<const uint8*>(Bytes);
		if (IsValidUtf8(Unsigned, Count))
		{
			AppendUtf8AsUtf16(Unsigned, Count, Out);
		}
		else
		{
			Out.reserve(static_cast<size_t>(Count));
			for (int64 Index = 0; Index < Count; ++Index)
			{
				Out.push_back(static_cast<char16_t>(Unsigned[Index]));
			}
		}
		return Out;
	}
}
