#include "JsonTestHelpers.h"

#include <gtest/gtest.h>

namespace
{
	FString Repeated(const TCHAR* Piece, int32 Count)
	{
		FString Result;
		for (int32 Index = 0; Index < Count; ++Index)
		{
			Result.Append(Piece);
		}
		return Result;
	}
}

TEST(JsonReaderTest, EscapesAndNonAsciiDecode)
{
	TSharedPtr<FJsonValue> Value = ParseValue(TEXT("[\"\\\"\\\\\\/\\b\\f\\n\\r\\t\", \"\\u0041\\u00E9\\u4e2d\\ud83d\\ude00\", \"A\u00e9\u4e2d\U0001F600\", \"\\u0000x\"]"));
	ASSERT_TRUE(Value.IsValid());
	const TArray<TSharedPtr<FJsonValue>>& Items = Value->AsArray();
	ASSERT_EQ(Items.Num(), 4);
	EXPECT_EQ(Utf8(Items[0]->AsString()), "\"\\/\b\f\n\r\t");
	EXPECT_EQ(Utf8(Items[1]->AsString()), "A\u00e9\u4e2d\U0001F600");
	EXPECT_TRUE(Items[1]->AsString().Equals(Items[2]->AsString(), ESearchCase::CaseSensitive));
	// An escaped NUL is kept as a character of the string.
	ASSERT_EQ(Items[3]->AsString().Len(), 2);
	EXPECT_EQ(Items[3]->AsString()[0], TCHAR(0));
}

TEST(JsonReaderTest, MalformedTextFailsWithAMessage)
{
	const TCHAR* Malformed[] = {
		TEXT(""), TEXT("  \r\n"), TEXT("{"), TEXT("["), TEXT("{\"a\""), TEXT("{\"a\":"), TEXT("{\"a\":1"), TEXT("[1,"),
		TEXT("[1 2]"), TEXT("{\"a\" 1}"), TEXT("{a:1}"), TEXT("{'a':1}"), TEXT("[1,]"), TEXT("{\"a\":1,}"), TEXT("\"abc"),
		TEXT("\"\\x\""), TEXT("\"\\u12G4\""), TEXT("\"\\ud800\""), TEXT("\"\\udc00\""), TEXT("\"\\ud800\\u0041\""),
		TEXT("\"tab\there\""), TEXT("\"line\nbreak\""), TEXT("01"), TEXT("1."), TEXT(".5"), TEXT("-"), TEXT("1e"), TEXT("+1"),
		TEXT("tru"), TEXT("nul"), TEXT("NaN"), TEXT("Infinity"), TEXT("{} x"), TEXT("[] []"), TEXT("1e400"), TEXT("[1.8e308]"),
		TEXT("{\"a\":1}}"), TEXT("]"), TEXT("\\u0041"),
	};
	for (const TCHAR* Text : Malformed)
	{
		FString Error;
		EXPECT_FALSE(ParseValue(Text, &Error).IsValid()) << Utf8(Text);
		EXPECT_FALSE(Error.IsEmpty()) << Utf8(Text);
	}

	// Raw unpaired surrogates, and a NUL followed by more text.
	const TCHAR LoneHigh[] = { TEXT('"'), 0xD800, TEXT('a'), TEXT('"') };
	const TCHAR LoneLow[] = { TEXT('['), TEXT('"'), 0xDC00, TEXT('"'), TEXT(']') };
	const TCHAR NulThenText[] = { TEXT('{'), TEXT('}'), 0, TEXT('{'), TEXT('}') };
	EXPECT_FALSE(ParseValue(FString(4, LoneHigh)).IsValid());
	EXPECT_FALSE(ParseValue(FString(5, LoneLow)).IsValid());
	EXPECT_FALSE(ParseValue(FString(5, NulThenText)).IsValid());

	// The message names the fault and where it is.
	FString Error;
	EXPECT_FALSE(ParseValue(TEXT("{\"a\": 1,\n  \"b\" 2}"), &Error).IsValid());
	EXPECT_EQ(Utf8(Error), "Expected ':' after a member name. Line: 2 Ch: 7");
	EXPECT_FALSE(ParseValue(TEXT("{\"a\": [1, 2"), &Error).IsValid());
	EXPECT_EQ(Utf8(Error), "Unexpected end of the text. Expected ',' or ']' after an array element. Line: 1 Ch: 12");
	EXPECT_FALSE(ParseValue(TEXT("\"a\x01\""), &Error).IsValid());
	EXPECT_EQ(Utf8(Error), "Control character in a string; it must be escaped. Line: 1 Ch: 3");
	EXPECT_FALSE(ParseValue(TEXT("[\"ok\", \"a\\qb\"]"), &Error).IsValid());
	EXPECT_EQ(Utf8(Error), "Invalid escape sequence in a string. Line: 1 Ch: 10");
	EXPECT_FALSE(ParseValue(TEXT("\"abc"), &Error).IsValid());
	EXPECT_EQ(Utf8(Error), "Unexpected end of the text. Missing the closing quote of a string. Line: 1 Ch: 5");
	EXPECT_FALSE(ParseValue(TEXT("\"\\udc00\""), &Error).IsValid());
	EXPECT_EQ(Utf8(Error), "Unpaired low surrogate escape in a string. Line: 1 Ch: 9");
	EXPECT_FALSE(ParseValue(TEXT("{}\r\n,"), &Error).IsValid());
	EXPECT_EQ(Utf8(Error), "Unexpected text after the JSON value. Line: 2 Ch: 1");
	EXPECT_FALSE(ParseValue(TEXT(" "), &Error).IsValid());
	EXPECT_EQ(Utf8(Error), "The text holds no JSON value. Line: 1 Ch: 2");
}

TEST(JsonReaderTest, NestingDepthIsBounded)
{
	FString Error;
	EXPECT_FALSE(ParseValue(Repeated(TEXT("["), 100000), &Error).IsValid());
	EXPECT_NE(Error.Find(TEXT("nested deeper than 512")), INDEX_NONE) << Utf8(Error);
	EXPECT_FALSE(ParseValue(Repeated(TEXT("{\"a\":"), 100000) + TEXT("1") + Repeated(TEXT("}"), 100000)).IsValid());

	EXPECT_TRUE(ParseValue(Repeated(TEXT("["), 512) + Repeated(TEXT("]"), 512)).IsValid());
	EXPECT_FALSE(ParseValue(Repeated(TEXT("["), 513) + Repeated(TEXT("]"), 513)).IsValid());
}

TEST(JsonReaderTest, DecodedInvalidUtf8IsRejectedOrReplacedNeverTrusted)
{
	// The decoder turns bad bytes into U+FFFD: outside a string that is a syntax error...
	EXPECT_FALSE(ParseValue(FString(UTF8_TO_TCHAR("{\"a\": \xff}"))).IsValid());
	EXPECT_FALSE(ParseValue(FString(UTF8_TO_TCHAR("[1, \xc0\xaf]"))).IsValid());
	// ...inside one the replacement character is kept, and nothing of the bad bytes gets through.
	TSharedPtr<FJsonValue> Value = ParseValue(FString(UTF8_TO_TCHAR("[\"a\xc3\x28z\"]")));
	ASSERT_TRUE(Value.IsValid());
	const FString Text = Value->AsArray()[0]->AsString();
	EXPECT_EQ(Text[0], TEXT('a'));
	EXPECT_EQ(Text[1], TCHAR(0xFFFD));
	EXPECT_EQ(Text[Text.Len() - 1], TEXT('z'));
}

TEST(JsonReaderTest, RootKindDuplicatesAndNumberText)
{
	TSharedPtr<FJsonObject> Object;
	TSharedRef<TJsonReader<>> ArrayReader = TJsonReaderFactory<>::Create(TEXT("[1]"));
	EXPECT_FALSE(FJsonSerializer::Deserialize(ArrayReader, Object));
	EXPECT_FALSE(Object.IsValid());
	EXPECT_EQ(Utf8(ArrayReader->GetErrorMessage()), "Expected an object at the top level but found an array.");

	TArray<TSharedPtr<FJsonValue>> Array;
	EXPECT_FALSE(FJsonSerializer::Deserialize(TJsonReaderFactory<>::Create(TEXT("{}")), Array));
	EXPECT_TRUE(FJsonSerializer::Deserialize(TJsonReaderFactory<>::Create(TEXT(" [1, \"a\"] \r\n")), Array));
	EXPECT_EQ(Array.Num(), 2);

	// The last of repeated names wins, and names match without regard to case.
	Object = ParseObject(TEXT("{\"a\": 1, \"b\": 3, \"a\": 4, \"Key\": 1, \"KEY\": 2}"));
	ASSERT_TRUE(Object.IsValid());
	EXPECT_EQ(Object->Values.Num(), 3);
	EXPECT_EQ(Object->GetNumberField(TEXT("a")), 4);
	EXPECT_EQ(Object->GetNumberField(TEXT("key")), 2);
	EXPECT_EQ(Utf8(CondensedText(Object.ToSharedRef())), "{\"a\":4,\"b\":3,\"KEY\":2}");

	// Numbers kept as text lose no digit, and go back out unchanged.
	TSharedPtr<FJsonObject> Exact;
	ASSERT_TRUE(FJsonSerializer::Deserialize(TJsonReaderFactory<>::Create(TEXT("{\"big\": 12345678901234567891, \"f\": 1.50}")), Exact, FJsonSerializer::EFlags::StoreNumbersAsStrings));
	uint64 Big = 0;
	EXPECT_TRUE(Exact->TryGetNumberField(TEXT("big"), Big));
	EXPECT_EQ(Big, 12345678901234567891ull);
	EXPECT_EQ(Exact->GetNumberField(TEXT("f")), 1.5);
	EXPECT_EQ(Utf8(CondensedText(Exact.ToSharedRef())), "{\"big\":12345678901234567891,\"f\":1.50}");
}

TEST(JsonReaderTest, LargeDocumentRoundTripsThroughBothForms)
{
	TSharedRef<FJsonObject> Root = MakeShared<FJsonObject>();
	TArray<TSharedPtr<FJsonValue>> Entries;
	for (int32 Index = 0; Index < 3000; ++Index)
	{
		TSharedPtr<FJsonObject> Entry = MakeShared<FJsonObject>();
		Entry->SetStringField(TEXT("path"), FString::Printf(TEXT("Source/Game/File_%d.cpp \"quoted\"\n\u00e9"), Index));
		Entry->SetNumberField(TEXT("size"), Index * 1.25);
		Entry->SetBoolField(TEXT("dirty"), Index % 3 == 0);
		Entries.Add(MakeShared<FJsonValueObject>(Entry));
	}
	Root->SetArrayField(TEXT("files"), Entries);

	const FString Pretty = PrettyText(Root);
	TSharedPtr<FJsonObject> FromPretty = ParseObject(Pretty);
	ASSERT_TRUE(FromPretty.IsValid());
	EXPECT_TRUE(FJsonValueObject(FromPretty) == FJsonValueObject(Root));
	EXPECT_TRUE(CondensedText(FromPretty.ToSharedRef()).Equals(CondensedText(Root), ESearchCase::CaseSensitive));
	TSharedPtr<FJsonObject> FromCondensed = ParseObject(CondensedText(Root));
	ASSERT_TRUE(FromCondensed.IsValid());
	EXPECT_TRUE(PrettyText(FromCondensed.ToSharedRef()).Equals(Pretty, ESearchCase::CaseSensitive));
}
