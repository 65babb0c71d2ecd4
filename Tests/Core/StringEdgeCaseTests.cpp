#include "CoreMinimal.h"
#include "CoreTestPrinters.h"

#include <gtest/gtest.h>

#include <string>

namespace
{
	// Exact text, since FString's == folds case and would hide a wrong spelling.
	std::string Exact(const FString& Text)
	{
		return std::string(TCHAR_TO_UTF8(*Text));
	}
}

TEST(FStringEdgeTest, PiecesWithNegativeAndOversizedCounts)
{
	const FString Text(TEXT("Hello"));
	EXPECT_EQ(Exact(Text.Right(-1)), "");
	EXPECT_EQ(Exact(Text.Right(99)), "Hello");
	EXPECT_EQ(Exact(Text.LeftChop(-1)), "Hello");
	EXPECT_EQ(Exact(Text.LeftChop(99)), "");
	EXPECT_EQ(Exact(Text.RightChop(-1)), "Hello");
	EXPECT_EQ(Exact(Text.Mid(2, -1)), "");
	EXPECT_EQ(Exact(Text.Mid(-2)), "Hello");
	EXPECT_EQ(Exact(Text.Mid(5)), "");
	// A huge count from a late start must not overflow into a negative length.
	EXPECT_EQ(Exact(Text.Mid(3, MAX_int32)), "lo");

	FString Inline(TEXT("Hello"));
	Inline.MidInline(1, 100);
	EXPECT_EQ(Exact(Inline), "ello");
	Inline.LeftChopInline(10);
	EXPECT_EQ(Exact(Inline), "");
	FString Chopped(TEXT("Hello"));
	Chopped.RightChopInline(-3);
	EXPECT_EQ(Exact(Chopped), "Hello");
	Chopped.RightInline(2);
	EXPECT_EQ(Exact(Chopped), "lo");
}

TEST(FStringEdgeTest, SplitAndParseFollowTheirOwnCaseRules)
{
	FString Left(TEXT("keep")), Right(TEXT("keep"));
	// Not found: false, and the outputs are left as they were.
	EXPECT_FALSE(FString(TEXT("FooBar")).Split(TEXT("BAR"), &Left, &Right, ESearchCase::CaseSensitive));
	EXPECT_EQ(Exact(Left), "keep");
	EXPECT_EQ(Exact(Right), "keep");
	EXPECT_TRUE(FString(TEXT("FooBarbar")).Split(TEXT("BAR"), &Left, &Right));
	EXPECT_EQ(Exact(Left), "Foo");
	EXPECT_EQ(Exact(Right), "bar");
	EXPECT_TRUE(FString(TEXT("FooBarbar")).Split(TEXT("BAR"), &Left, &Right, ESearchCase::IgnoreCase, ESearchDir::FromEnd));
	EXPECT_EQ(Exact(Left), "FooBar");
	EXPECT_EQ(Exact(Right), "");
	EXPECT_TRUE(FString(TEXT("a::b::c")).Split(TEXT("::"), nullptr, &Right));
	EXPECT_EQ(Exact(Right), "b::c");
	EXPECT_FALSE(FString(TEXT("abc")).Split(TEXT(""), &Left, &Right));

	// ParseIntoArray matches its delimiter exactly, empties the output first and takes long delimiters whole.
	TArray<FString> Parts{TEXT("stale")};
	EXPECT_EQ(FString(TEXT("aXbxc")).ParseIntoArray(Parts, TEXT("x")), 2);
	EXPECT_EQ(Exact(Parts[0]), "aXb");
	EXPECT_EQ(Exact(Parts[1]), "c");
	EXPECT_EQ(FString(TEXT("a::b:::c::")).ParseIntoArray(Parts, TEXT("::"), false), 4);
	EXPECT_EQ(Exact(Parts[2]), ":c");
	EXPECT_EQ(Exact(Parts[3]), "");
	EXPECT_EQ(FString(TEXT("abc")).ParseIntoArray(Parts, TEXT(""), true), 1);
	EXPECT_EQ(Exact(Parts[0]), "abc");
	EXPECT_EQ(FString(TEXT(",,,")).ParseIntoArray(Parts, TEXT(","), true), 0);

	// Several delimiters at once, the longest is not required to come first.
	const TCHAR* Delimiters[] = {TEXT(";"), TEXT(";;"), TEXT(" ")};
	EXPECT_EQ(FString(TEXT("a;;b c;d")).ParseIntoArray(Parts, Delimiters, 3, true), 4);
	EXPECT_EQ(Exact(Parts[3]), "d");
}

TEST(FStringEdgeTest, TrimQuotesAndWhitespaceAtTheEdges)
{
	bool bRemoved = false;
	EXPECT_EQ(Exact(FString(TEXT("\"abc\"")).TrimQuotes(&bRemoved)), "abc");
	EXPECT_TRUE(bRemoved);
	// Each side is trimmed on its own; a lone quote leaves nothing.
	EXPECT_EQ(Exact(FString(TEXT("\"abc")).TrimQuotes(&bRemoved)), "abc");
	EXPECT_TRUE(bRemoved);
	EXPECT_EQ(Exact(FString(TEXT("\"")).TrimQuotes()), "");
	EXPECT_EQ(Exact(FString(TEXT("abc")).TrimQuotes(&bRemoved)), "abc");
	EXPECT_FALSE(bRemoved);
	EXPECT_EQ(Exact(FString(TEXT("'abc'")).TrimQuotes()), "'abc'");

	// Vertical tab and form feed are white space too; a NUL-free inner run is untouched.
	EXPECT_EQ(Exact(FString(TEXT("\v\f a \t b \f\v")).TrimStartAndEnd()), "a \t b");
	FString Spaces(TEXT(" \r\n\t "));
	Spaces.TrimStartAndEndInline();
	EXPECT_TRUE(Spaces.IsEmpty());

	FString Prefixed(TEXT("PrefixPrefixBody"));
	EXPECT_TRUE(Prefixed.RemoveFromStart(TEXT("prefix")));
	EXPECT_EQ(Exact(Prefixed), "PrefixBody");
	EXPECT_FALSE(Prefixed.RemoveFromStart(TEXT("prefix"), ESearchCase::CaseSensitive));
	EXPECT_FALSE(Prefixed.RemoveFromEnd(TEXT("")));
	EXPECT_EQ(Exact(Prefixed), "PrefixBody");
}

TEST(FStringEdgeTest, SearchStartPositionsAreClamped)
{
	const FString Text(TEXT("abcABCabc"));
	// A negative start counts as the first character.
	EXPECT_EQ(Text.Find(TEXT("abc"), ESearchCase::CaseSensitive, ESearchDir::FromStart, -5), 0);
	EXPECT_EQ(Text.Find(TEXT("ABC"), ESearchCase::IgnoreCase, ESearchDir::FromStart, 1), 3);
	EXPECT_EQ(Text.Find(TEXT("ABC"), ESearchCase::IgnoreCase, ESearchDir::FromEnd), 6);
	EXPECT_EQ(Text.Find(TEXT("ABC"), ESearchCase::IgnoreCase, ESearchDir::FromEnd, 5), 0);
	EXPECT_EQ(Text.Find(TEXT("abc"), ESearchCase::CaseSensitive, ESearchDir::FromEnd, 0), INDEX_NONE);
	EXPECT_EQ(Text.Find(TEXT("abc"), ESearchCase::CaseSensitive, ESearchDir::FromEnd, 100), 6);
	EXPECT_EQ(Text.Find(TEXT("abcABCabcX")), INDEX_NONE);
	EXPECT_TRUE(Text.Contains(TEXT("CAB")));
	EXPECT_FALSE(Text.Contains(TEXT("CAB"), ESearchCase::CaseSensitive));

	int32 Index = 0;
	EXPECT_TRUE(Text.FindChar(TEXT('A'), Index));
	EXPECT_EQ(Index, 3);
	EXPECT_TRUE(Text.FindLastChar(TEXT('a'), Index));
	EXPECT_EQ(Index, 6);
	EXPECT_FALSE(Text.FindChar(TEXT('z'), Index));
	EXPECT_EQ(Index, INDEX_NONE);

	// Surrogate pairs are two code units; searching finds them by unit position.
	const FString Emoji(TEXT("x😀y"));
	EXPECT_EQ(Emoji.Len(), 4);
	EXPECT_EQ(Emoji.Find(TEXT("y")), 3);
	EXPECT_EQ(Exact(Emoji.Mid(1, 2)), "😀");
}

TEST(FStringEdgeTest, PrintfFlagsWidthsAndPrecision)
{
	EXPECT_EQ(Exact(FString::Printf(TEXT("%+d|%+d|% d"), 5, -5, 5)), "+5|-5| 5");
	EXPECT_EQ(Exact(FString::Printf(TEXT("%08.3f|%-8.2f|%.0f"), -3.5, 3.14159, 2.5)), "-003.500|3.14    |2");
	EXPECT_EQ(Exact(FString::Printf(TEXT("%i|%3i"), -12, 7)), "-12|  7");
	EXPECT_EQ(Exact(FString::Printf(TEXT("%08x|%#x|%lx"), 0xBEEFu, 255u, 0x123456789ULL)), "0000beef|0xff|123456789");
	EXPECT_EQ(Exact(FString::Printf(TEXT("%d%%|%%d|%5.1f%%"), 50, 99.94)), "50%|%d| 99.9%");
	EXPECT_EQ(Exact(FString::Printf(TEXT("%lld|%lld"), MAX_int64, MIN_int64)), "9223372036854775807|-9223372036854775808");
	EXPECT_EQ(Exact(FString::Printf(TEXT("%d"), MIN_int32)), "-2147483648");
	EXPECT_EQ(Exact(FString::Printf(TEXT("%u"), MAX_uint32)), "4294967295");
	EXPECT_EQ(Exact(FString::Printf(TEXT("%.3e|%g"), 12345.678, 0.0001)), "1.235e+04|0.0001");
	// %s takes TCHAR text whole, including characters outside the basic plane.
	EXPECT_EQ(Exact(FString::Printf(TEXT("<%s>"), TEXT("é😀"))), "<é😀>");
	EXPECT_EQ(Exact(FString::Printf(TEXT("%-3s|%3s"), TEXT("😀"), TEXT("é"))), "😀 |  é");
	// A lone % at the end is kept rather than read past.
	EXPECT_EQ(Exact(FString::Printf(TEXT("100%"))), "100%");
	// Text far longer than any internal buffer.
	const FString Long = FString::ChrN(5000, TEXT('z'));
	EXPECT_EQ(FString::Printf(TEXT("[%s]"), *Long).Len(), 5002);
}

TEST(FStringEdgeTest, NumberParsingOnBadText)
{
	EXPECT_EQ(FCString::Atoi(TEXT("  +7")), 7);
	EXPECT_EQ(FCString::Atoi(TEXT("\t\n-5x")), -5);
	EXPECT_EQ(FCString::Atoi(TEXT("0x1A")), 0);
	EXPECT_EQ(FCString::Atoi(TEXT("")), 0);
	EXPECT_EQ(FCString::Atoi(TEXT("- 5")), 0);
	EXPECT_EQ(FCString::Atoi(TEXT("2147483647")), MAX_int32);
	EXPECT_EQ(FCString::Atoi64(TEXT("-9000000000")), -9000000000LL);
	// Out of range saturates as C's conversions do instead of wrapping.
	EXPECT_EQ(FCString::Atoi64(TEXT("99999999999999999999")), MAX_int64);
	EXPECT_EQ(FCString::Atoi64(TEXT("-99999999999999999999")), MIN_int64);
	// The unsigned form keeps the full 64 bits that the signed one would saturate.
	EXPECT_EQ(FCString::Strtoui64(TEXT("ffffffffffffffff"), nullptr, 16), MAX_uint64);
	EXPECT_EQ(FCString::Strtoui64(TEXT("8000000000000001"), nullptr, 16), 0x8000000000000001ULL);
	EXPECT_EQ(FCString::Strtoui64(TEXT("1ffffffffffffffff"), nullptr, 16), MAX_uint64);
	EXPECT_EQ(FCString::Strtoi64(TEXT("-9223372036854775808"), nullptr, 10), MIN_int64);
	EXPECT_EQ(FCString::Strtoi64(TEXT("9223372036854775808"), nullptr, 10), MAX_int64);
	EXPECT_EQ(FCString::Strtoi(TEXT("ff"), nullptr, 16), 255);
	EXPECT_EQ(FCString::Strtoi(TEXT("0x1A"), nullptr, 16), 26);
	EXPECT_EQ(FCString::Strtoi(TEXT("017"), nullptr, 0), 15);
	TCHAR* End = nullptr;
	const TCHAR* Digits = TEXT("12ab");
	EXPECT_EQ(FCString::Strtoi(Digits, &End, 10), 12);
	EXPECT_EQ(End, Digits + 2);
	const TCHAR* NoDigits = TEXT("  xyz");
	EXPECT_EQ(FCString::Strtoi(NoDigits, &End, 10), 0);
	EXPECT_EQ(End, NoDigits);

	EXPECT_DOUBLE_EQ(FCString::Atod(TEXT("1.5abc")), 1.5);
	EXPECT_DOUBLE_EQ(FCString::Atod(TEXT("abc")), 0.0);
	EXPECT_DOUBLE_EQ(FCString::Atod(TEXT("  -.25")), -0.25);
	EXPECT_DOUBLE_EQ(FCString::Atod(TEXT("1e-3")), 0.001);
	EXPECT_FLOAT_EQ(FCString::Atof(TEXT("3.5f")), 3.5f);

	EXPECT_TRUE(FCString::ToBool(TEXT("True")));
	EXPECT_TRUE(FCString::ToBool(TEXT("yes")));
	EXPECT_TRUE(FCString::ToBool(TEXT("on")));
	EXPECT_TRUE(FCString::ToBool(TEXT("2")));
	EXPECT_FALSE(FCString::ToBool(TEXT("0")));
	EXPECT_FALSE(FCString::ToBool(TEXT("off")));
	EXPECT_FALSE(FCString::ToBool(TEXT("")));
	EXPECT_FALSE(FCString::ToBool(TEXT("nope")));
}

TEST(FStringEdgeTest, Utf8ConversionsAtEveryEncodedLength)
{
	// One, two, three and four byte forms, and the last code point of each length.
	const char* Utf8Text = "A\x7F" "\xC2\x80\xDF\xBF" "\xE0\xA0\x80\xEF\xBF\xBF" "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF";
	const FString Decoded = UTF8_TO_TCHAR(Utf8Text);
	ASSERT_EQ(Decoded.Len(), 2 + 2 + 2 + 4);
	EXPECT_EQ(Decoded[2], TCHAR(0x80));
	EXPECT_EQ(Decoded[3], TCHAR(0x7FF));
	EXPECT_EQ(Decoded[4], TCHAR(0x800));
	EXPECT_EQ(Decoded[5], TCHAR(0xFFFF));
	EXPECT_EQ(Decoded[6], TCHAR(0xD800));
	EXPECT_EQ(Decoded[7], TCHAR(0xDC00));
	EXPECT_EQ(Decoded[8], TCHAR(0xDBFF));
	EXPECT_EQ(Decoded[9], TCHAR(0xDFFF));
	EXPECT_STREQ(TCHAR_TO_UTF8(*Decoded), Utf8Text);

	// Encoded surrogates and code points past U+10FFFF are not characters.
	const FString Surrogate = UTF8_TO_TCHAR("\xED\xA0\x80z");
	EXPECT_EQ(Surrogate[Surrogate.Len() - 1], TEXT('z'));
	for (int32 Index = 0; Index < Surrogate.Len() - 1; ++Index)
	{
		EXPECT_EQ(Surrogate[Index], TCHAR(0xFFFD));
	}
	const FString TooHigh = UTF8_TO_TCHAR("\xF4\x90\x80\x80z");
	EXPECT_EQ(TooHigh[TooHigh.Len() - 1], TEXT('z'));
	EXPECT_NE(TooHigh[0], TCHAR(0xDBFF));

	// A low surrogate before its high one is two bad units, not a pair.
	const TCHAR Swapped[] = {0xDC00, 0xD800, 0};
	EXPECT_STREQ(TCHAR_TO_UTF8(Swapped), "\xEF\xBF\xBD\xEF\xBF\xBD");
	const TCHAR HighAtEnd[] = {TEXT('a'), 0xD83D, 0};
	EXPECT_STREQ(TCHAR_TO_UTF8(HighAtEnd), "a\xEF\xBF\xBD");

	// Lengths given explicitly stop at the byte count, even inside a character.
	const FUTF8ToTCHAR Partial("ab\xC3\xA9", 3);
	EXPECT_EQ(Partial.Length(), 3);
	EXPECT_EQ(Partial.Get()[2], TCHAR(0xFFFD));
	const FString WithNul(3, TEXT("a\0b"));
	EXPECT_EQ(FTCHARToUTF8(*WithNul, WithNul.Len()).Length(), 3);
}
