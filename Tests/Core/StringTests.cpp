#include "CoreMinimal.h"
#include "CoreTestPrinters.h"

#include <gtest/gtest.h>

TEST(FStringTest, CaseRulesOfComparisonAndSearch)
{
	const FString Name(TEXT("PlayerController"));
	EXPECT_TRUE(Name == TEXT("playercontroller"));
	EXPECT_TRUE(Name == FString(TEXT("PLAYERCONTROLLER")));
	EXPECT_FALSE(Name.Equals(TEXT("playercontroller")));
	EXPECT_TRUE(Name.Equals(TEXT("playercontroller"), ESearchCase::IgnoreCase));
	EXPECT_EQ(Name.Compare(TEXT("PlayerController")), 0);
	EXPECT_LT(FString(TEXT("apple")), FString(TEXT("Banana")));

	// Find, StartsWith and EndsWith ignore case unless told otherwise.
	EXPECT_EQ(Name.Find(TEXT("CONTROLLER")), 6);
	EXPECT_EQ(Name.Find(TEXT("CONTROLLER"), ESearchCase::CaseSensitive), INDEX_NONE);
	EXPECT_TRUE(Name.StartsWith(TEXT("player")));
	EXPECT_FALSE(Name.StartsWith(TEXT("player"), ESearchCase::CaseSensitive));
	EXPECT_TRUE(Name.EndsWith(TEXT("Controller"), ESearchCase::CaseSensitive));
	EXPECT_FALSE(Name.StartsWith(TEXT("")));

	// Non-ASCII letters are not folded.
	EXPECT_FALSE(FString(TEXT("Ärger")) == TEXT("ärger"));
}

TEST(FStringTest, FindFromEitherEndAndStartPositions)
{
	const FString Text(TEXT("abcabcabc"));
	EXPECT_EQ(Text.Find(TEXT("abc"), ESearchCase::CaseSensitive, ESearchDir::FromStart, 1), 3);
	EXPECT_EQ(Text.Find(TEXT("abc"), ESearchCase::CaseSensitive, ESearchDir::FromEnd), 6);
	// From the end a match must end at or before the start position.
	EXPECT_EQ(Text.Find(TEXT("abc"), ESearchCase::CaseSensitive, ESearchDir::FromEnd, 8), 3);
	EXPECT_EQ(Text.Find(TEXT("abc"), ESearchCase::CaseSensitive, ESearchDir::FromStart, 100), INDEX_NONE);
	EXPECT_EQ(Text.Find(TEXT("")), INDEX_NONE);
	EXPECT_EQ(FString().Find(TEXT("a")), INDEX_NONE);

	FString Left, Right;
	EXPECT_TRUE(FString(TEXT("a.b.c")).Split(TEXT("."), &Left, &Right, ESearchCase::IgnoreCase, ESearchDir::FromEnd));
	EXPECT_EQ(Left, TEXT("a.b"));
	EXPECT_EQ(Right, TEXT("c"));
}

TEST(FStringTest, ReplaceCountsLeftToRightWithoutOverlap)
{
	FString Text(TEXT("aaaa"));
	EXPECT_EQ(Text.ReplaceInline(TEXT("aa"), TEXT("b")), 2);
	EXPECT_EQ(Text, TEXT("bb"));

	FString Mixed(TEXT("Foo foo FOO"));
	EXPECT_EQ(Mixed.ReplaceInline(TEXT("foo"), TEXT("x"), ESearchCase::CaseSensitive), 1);
	EXPECT_EQ(Mixed, TEXT("Foo x FOO"));
	EXPECT_EQ(Mixed.ReplaceInline(TEXT("foo"), TEXT("foofoo")), 2);
	EXPECT_TRUE(Mixed.Equals(TEXT("foofoo x foofoo")));

	FString Empty;
	EXPECT_EQ(Empty.ReplaceInline(TEXT("a"), TEXT("b")), 0);
	EXPECT_EQ(FString(TEXT("abc")).Replace(TEXT(""), TEXT("x")), TEXT("abc"));
	EXPECT_EQ(FString(TEXT("a\r\nb")).Replace(TEXT("\r\n"), TEXT("\n")), TEXT("a\nb"));
}

TEST(FStringTest, ParseIntoArrayAndLines)
{
	TArray<FString> Parts;
	EXPECT_EQ(FString(TEXT("5.5.4")).ParseIntoArray(Parts, TEXT("."), true), 3);
	EXPECT_EQ(Parts[2], TEXT("4"));
	EXPECT_EQ(FString(TEXT(".a..b.")).ParseIntoArray(Parts, TEXT("."), true), 2);
	EXPECT_EQ(FString(TEXT(".a..b.")).ParseIntoArray(Parts, TEXT("."), false), 5);
	EXPECT_EQ(Parts[0], TEXT(""));
	EXPECT_EQ(Parts[2], TEXT(""));
	EXPECT_EQ(Parts[4], TEXT(""));
	EXPECT_EQ(FString().ParseIntoArray(Parts, TEXT("."), false), 0);

	// CR LF is one break, a lone CR or LF another.
	EXPECT_EQ(FString(TEXT("one\r\ntwo\rthree\n\nfive")).ParseIntoArrayLines(Parts, false), 5);
	EXPECT_EQ(Parts[1], TEXT("two"));
	EXPECT_EQ(Parts[3], TEXT(""));
	EXPECT_EQ(FString(TEXT("one\r\ntwo\rthree\n\nfive")).ParseIntoArrayLines(Parts), 4);
	EXPECT_EQ(FString(TEXT("end\n")).ParseIntoArrayLines(Parts, false), 2);

	EXPECT_EQ(FString(TEXT("  a \t b\nc ")).ParseIntoArrayWS(Parts), 3);
}

TEST(FStringTest, TrimAndPiecesClamp)
{
	EXPECT_EQ(FString(TEXT(" \t x y \r\n")).TrimStartAndEnd(), TEXT("x y"));
	EXPECT_EQ(FString(TEXT("  x")).TrimStart(), TEXT("x"));
	EXPECT_EQ(FString(TEXT("x  ")).TrimEnd(), TEXT("x"));
	EXPECT_EQ(FString(TEXT("   ")).TrimStartAndEnd().Len(), 0);

	const FString Text(TEXT("Hello"));
	EXPECT_EQ(Text.Left(2), TEXT("He"));
	EXPECT_EQ(Text.Left(99), TEXT("Hello"));
	EXPECT_EQ(Text.Left(-1), TEXT(""));
	EXPECT_EQ(Text.Right(3), TEXT("llo"));
	EXPECT_EQ(Text.LeftChop(2), TEXT("Hel"));
	EXPECT_EQ(Text.RightChop(2), TEXT("llo"));
	EXPECT_EQ(Text.RightChop(10), TEXT(""));
	EXPECT_EQ(Text.Mid(1, 3), TEXT("ell"));
	EXPECT_EQ(Text.Mid(3), TEXT("lo"));
	EXPECT_EQ(Text.Mid(-2, 4), TEXT("He"));
	EXPECT_EQ(Text.Mid(10, 2), TEXT(""));

	FString Path(TEXT("Source/Game.cpp"));
	EXPECT_TRUE(Path.RemoveFromEnd(TEXT(".CPP")));
	EXPECT_EQ(Path, TEXT("Source/Game"));
	EXPECT_EQ(FString(TEXT("a/")) / TEXT("/b"), TEXT("a/b"));
	EXPECT_EQ(FString(TEXT("a")) / TEXT("b"), TEXT("a/b"));
	EXPECT_EQ(FString() / TEXT("b"), TEXT("b"));
}

TEST(FStringTest, PrintfConversions)
{
	EXPECT_EQ(FString::Printf(TEXT("%s=%d"), TEXT("Count"), 42), TEXT("Count=42"));
	EXPECT_EQ(FString::Printf(TEXT("%hs|%s"), "ansi", *FString(TEXT("wide"))), TEXT("ansi|wide"));
	EXPECT_EQ(FString::Printf(TEXT("%.2f %f"), 3.14159, 0.5f), TEXT("3.14 0.500000"));
	EXPECT_EQ(FString::Printf(TEXT("%5d|%-5d|%05d"), 42, 42, 42), TEXT("   42|42   |00042"));
	EXPECT_EQ(FString::Printf(TEXT("%x %X %u"), 255, 255u, 7u), TEXT("ff FF 7"));
	EXPECT_EQ(FString::Printf(TEXT("%x"), -1), TEXT("ffffffff"));
	EXPECT_EQ(FString::Printf(TEXT("%lld %llu"), int64(-9000000000LL), uint64(18000000000ULL)), TEXT("-9000000000 18000000000"));
	EXPECT_EQ(FString::Printf(TEXT("%c%c"), TEXT('o'), TEXT('k')), TEXT("ok"));
	EXPECT_EQ(FString::Printf(TEXT("100%%")), TEXT("100%"));
	EXPECT_EQ(FString::Printf(TEXT("[%8s][%-4s][%.2s]"), TEXT("abc"), TEXT("ab"), TEXT("abcdef")), TEXT("[     abc][ab  ][ab]"));
	EXPECT_EQ(FString::Printf(TEXT("%s"), static_cast<const TCHAR*>(nullptr)), TEXT("(null)"));
	EXPECT_EQ(FString::Printf(TEXT("%hs"), "\xC3\xA9t\xC3\xA9"), TEXT("été"));
	// Missing arguments leave their conversions empty rather than reading garbage.
	EXPECT_EQ(FString::Printf(TEXT("%d-%s"), 1), TEXT("1-"));

	EXPECT_EQ(FString::SanitizeFloat(2.0), TEXT("2.0"));
	EXPECT_EQ(FString::SanitizeFloat(1.25), TEXT("1.25"));
	EXPECT_EQ(FString::SanitizeFloat(3.0, 0), TEXT("3"));
	EXPECT_EQ(FString::FromInt(-7), TEXT("-7"));
}

TEST(FStringTest, NumbersAndConversionsAtTheEdges)
{
	EXPECT_EQ(FCString::Atoi(TEXT("  -12abc")), -12);
	EXPECT_EQ(FCString::Atoi(TEXT("abc")), 0);
	EXPECT_DOUBLE_EQ(FCString::Atod(TEXT("2.5e1")), 25.0);
	EXPECT_TRUE(FString(TEXT("-1.5")).IsNumeric());
	EXPECT_FALSE(FString(TEXT("1.2.3")).IsNumeric());
	EXPECT_FALSE(FString(TEXT("")).IsNumeric());
	EXPECT_FALSE(FString(TEXT("+")).IsNumeric());

	// UTF-16 with a surrogate pair survives the trip through UTF-8.
	const FString Original(TEXT("Grüße 😀 \"q\""));
	const FString RoundTrip = UTF8_TO_TCHAR(TCHAR_TO_UTF8(*Original));
	EXPECT_TRUE(RoundTrip.Equals(Original));
	EXPECT_EQ(FTCHARToUTF8(TEXT("é😀")).Length(), 6);

	// Invalid UTF-8 (a bare continuation, an overlong form, a truncated tail) decodes to U+FFFD, never a crash.
	const FString Broken = UTF8_TO_TCHAR("a\x80" "b\xC0\xAF" "c\xE2\x82");
	EXPECT_TRUE(Broken.StartsWith(TEXT("a\uFFFDb\uFFFD"), ESearchCase::CaseSensitive));
	EXPECT_TRUE(Broken.EndsWith(TEXT("c\uFFFD"), ESearchCase::CaseSensitive) || Broken.EndsWith(TEXT("c\uFFFD\uFFFD"), ESearchCase::CaseSensitive));
	// An unpaired surrogate encodes as U+FFFD.
	const TCHAR Lone[] = {0xD800, TEXT('x'), 0};
	EXPECT_STREQ(TCHAR_TO_UTF8(Lone), "\xEF\xBF\xBDx");
}
