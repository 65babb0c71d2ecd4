#include "JsonTestHelpers.h"

#include <gtest/gtest.h>

#include <cmath>

TEST(JsonEdgeTest, NumberForms)
{
	TSharedPtr<FJsonValue> Value = ParseValue(TEXT("[-0, 1E2, 1e+2, 2.5E-1, 0.0, 12345678901234567890, 1e308, -5e-324]"));
	ASSERT_TRUE(Value.IsValid());
	const TArray<TSharedPtr<FJsonValue>>& Items = Value->AsArray();
	ASSERT_EQ(Items.Num(), 8);
	EXPECT_EQ(Items[0]->AsNumber(), 0.0);
	EXPECT_TRUE(std::signbit(Items[0]->AsNumber()));
	EXPECT_EQ(Items[1]->AsNumber(), 100.0);
	EXPECT_EQ(Items[2]->AsNumber(), 100.0);
	EXPECT_EQ(Items[3]->AsNumber(), 0.25);
	EXPECT_EQ(Items[4]->AsNumber(), 0.0);
	// Integers past 2^53 become the nearest double rather than failing or wrapping.
	EXPECT_EQ(Items[5]->AsNumber(), 12345678901234567890.0);
	EXPECT_EQ(Items[6]->AsNumber(), 1e308);
	EXPECT_LT(Items[7]->AsNumber(), 0.0);

	for (const TCHAR* Bad : {TEXT("-01"), TEXT("00"), TEXT("1.e5"), TEXT("-.5"), TEXT("0x10"), TEXT("1e+"), TEXT("--1"), TEXT("-1e400"), TEXT("1 2")})
	{
		FString Error;
		EXPECT_FALSE(ParseValue(Bad, &Error).IsValid()) << Utf8(Bad);
		EXPECT_FALSE(Error.IsEmpty()) << Utf8(Bad);
	}
}

TEST(JsonEdgeTest, NamesEscapesAndNestedDuplicates)
{
	TSharedPtr<FJsonObject> Object = ParseObject(TEXT(" \t\r\n{ \"\" : 1, \"\\ud83d\\ude00\\u00e9\" : [ ], \"o\" : { } , \"a\": {\"x\": 1}, \"a\": {\"y\": 2} }\n"));
	ASSERT_TRUE(Object.IsValid());
	EXPECT_EQ(Object->GetNumberField(TEXT("")), 1.0);
	EXPECT_TRUE(Object->HasTypedField<EJson::Array>(TEXT("\U0001F600\u00e9")));
	EXPECT_TRUE(Object->HasTypedField<EJson::Object>(TEXT("o")));
	// A repeated name replaces the whole earlier value; nothing of it is merged.
	const TSharedPtr<FJsonObject>* Inner = nullptr;
	ASSERT_TRUE(Object->TryGetObjectField(TEXT("a"), Inner));
	EXPECT_FALSE((*Inner)->HasField(TEXT("x")));
	EXPECT_EQ((*Inner)->GetNumberField(TEXT("y")), 2.0);

	// Several escaped pairs in a row, and escapes with upper-case hex.
	TSharedPtr<FJsonValue> Pairs = ParseValue(TEXT("\"\\uD83D\\uDE00\\uD83D\\uDE01\\u00C9\""));
	ASSERT_TRUE(Pairs.IsValid());
	EXPECT_EQ(Utf8(Pairs->AsString()), "\U0001F600\U0001F601\u00c9");
	// A high surrogate escape followed by a plain character is not a pair.
	EXPECT_FALSE(ParseValue(TEXT("\"\\ud83dx\"")).IsValid());
	EXPECT_FALSE(ParseValue(TEXT("\"\\u00e\"")).IsValid());
}

TEST(JsonEdgeTest, WriterLeavesTextThatNeedsNoEscapeAlone)
{
	TSharedRef<FJsonObject> Object = MakeShared<FJsonObject>();
	// Only quotes, backslashes and control characters are escaped: not "/", DEL or the line separators.
	Object->SetStringField(TEXT("html"), TEXT("</script>\x7f\u2028\u2029"));
	Object->SetStringField(TEXT("ctl"), FString(TEXT("\x1b\x0b")));
	EXPECT_EQ(Utf8(CondensedText(Object)), "{\"html\":\"</script>\x7f\u2028\u2029\",\"ctl\":\"\\u001b\\u000b\"}");

	// Whatever the writer produced reads back to the same text.
	FString Everything;
	for (int32 Code = 1; Code < 0x80; ++Code)
	{
		Everything.AppendChar(static_cast<TCHAR>(Code));
	}
	TSharedRef<FJsonObject> AllAscii = MakeShared<FJsonObject>();
	AllAscii->SetStringField(Everything, Everything);
	TSharedPtr<FJsonObject> Back = ParseObject(PrettyText(AllAscii));
	ASSERT_TRUE(Back.IsValid());
	ASSERT_EQ(Back->Values.Num(), 1);
	for (const TPair<FString, TSharedPtr<FJsonValue>>& Pair : Back->Values)
	{
		EXPECT_TRUE(Pair.Key.Equals(Everything, ESearchCase::CaseSensitive));
		EXPECT_TRUE(Pair.Value->AsString().Equals(Everything, ESearchCase::CaseSensitive));
	}
}
