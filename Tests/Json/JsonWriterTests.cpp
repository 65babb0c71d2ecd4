#include "JsonTestHelpers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>

namespace
{
	TSharedRef<FJsonObject> MakeMixedDocument()
	{
		TSharedRef<FJsonObject> Root = MakeShared<FJsonObject>();
		Root->SetStringField(TEXT("name"), TEXT("x"));
		TSharedPtr<FJsonObject> Nested = MakeShared<FJsonObject>();
		Nested->SetNumberField(TEXT("a"), 1);
		Root->SetObjectField(TEXT("nested"), Nested);
		Root->SetObjectField(TEXT("empty_object"), MakeShared<FJsonObject>());
		Root->SetArrayField(TEXT("empty_array"), TArray<TSharedPtr<FJsonValue>>());
		Root->SetArrayField(TEXT("numbers"), { MakeShared<FJsonValueNumber>(1), MakeShared<FJsonValueNumber>(2.5), MakeShared<FJsonValueBoolean>(true), MakeShared<FJsonValueNull>() });
		Root->SetArrayField(TEXT("strings"), { MakeShared<FJsonValueString>(TEXT("a")), MakeShared<FJsonValueString>(TEXT("b")) });
		TSharedPtr<FJsonObject> Element = MakeShared<FJsonObject>();
		Element->SetStringField(TEXT("k"), TEXT("v"));
		Root->SetArrayField(TEXT("objects"), { MakeShared<FJsonValueObject>(Element) });
		return Root;
	}
}

TEST(JsonWriterTest, PrettyFormIsTheEngineLayoutByteForByte)
{
	TSharedRef<FJsonObject> Simple = MakeShared<FJsonObject>();
	Simple->SetStringField(TEXT("Key1"), TEXT("Value1"));
	Simple->SetNumberField(TEXT("Key2"), 42);
	Simple->SetBoolField(TEXT("Key3"), true);
	EXPECT_EQ(Utf8(PrettyText(Simple)), "{\r\n\t\"Key1\": \"Value1\",\r\n\t\"Key2\": 42,\r\n\t\"Key3\": true\r\n}");

	// Named objects open on their own line; short values share the line of their array; strings and
	// containers in arrays take one line each; an empty array stays on one line, an empty object doesn't.
	EXPECT_EQ(Utf8(PrettyText(MakeMixedDocument())),
		"{\r\n"
		"\t\"name\": \"x\",\r\n"
		"\t\"nested\":\r\n"
		"\t{\r\n"
		"\t\t\"a\": 1\r\n"
		"\t},\r\n"
		"\t\"empty_object\":\r\n"
		"\t{\r\n"
		"\t},\r\n"
		"\t\"empty_array\": [],\r\n"
		"\t\"numbers\": [ 1, 2.5, true, null ],\r\n"
		"\t\"strings\": [\r\n"
		"\t\t\"a\",\r\n"
		"\t\t\"b\"\r\n"
		"\t],\r\n"
		"\t\"objects\": [\r\n"
		"\t\t{\r\n"
		"\t\t\t\"k\": \"v\"\r\n"
		"\t\t}\r\n"
		"\t]\r\n"
		"}");

	EXPECT_EQ(Utf8(PrettyText(MakeShared<FJsonObject>())), "{\r\n}");

	FString ArrayText;
	TArray<TSharedPtr<FJsonValue>> Results = { MakeShared<FJsonValueObject>(MakeShared<FJsonObject>()) };
	Results[0]->AsObject()->SetStringField(TEXT("tool_use_id"), TEXT("t1"));
	EXPECT_TRUE(FJsonSerializer::Serialize(Results, TJsonWriterFactory<>::Create(&ArrayText)));
	EXPECT_EQ(Utf8(ArrayText), "[\r\n\t{\r\n\t\t\"tool_use_id\": \"t1\"\r\n\t}\r\n]");

	FString EmptyArrayText;
	EXPECT_TRUE(FJsonSerializer::Serialize(TArray<TSharedPtr<FJsonValue>>(), TJsonWriterFactory<>::Create(&EmptyArrayText)));
	EXPECT_EQ(Utf8(EmptyArrayText), "[]");
}

TEST(JsonWriterTest, CondensedFormHasNoWhiteSpaceAndKeepsKeyOrder)
{
	EXPECT_EQ(Utf8(CondensedText(MakeMixedDocument())),
		"{\"name\":\"x\",\"nested\":{\"a\":1},\"empty_object\":{},\"empty_array\":[],\"numbers\":[1,2.5,true,null],"
		"\"strings\":[\"a\",\"b\"],\"objects\":[{\"k\":\"v\"}]}");

	// Insertion order, not key order; replacing a value keeps its place.
	TSharedRef<FJsonObject> Ordered = MakeShared<FJsonObject>();
	Ordered->SetNumberField(TEXT("zeta"), 1);
	Ordered->SetNumberField(TEXT("alpha"), 2);
	Ordered->SetNumberField(TEXT("mu"), 3);
	Ordered->SetNumberField(TEXT("alpha"), 4);
	EXPECT_EQ(Utf8(CondensedText(Ordered)), "{\"zeta\":1,\"alpha\":4,\"mu\":3}");
}

TEST(JsonWriterTest, StringsAreEscapedPerRfc8259)
{
	FString Special(TEXT("q\" b\\ s/ \b\f\n\r\t"));
	Special.AppendChar(TCHAR(0x01));
	Special.AppendChar(TCHAR(0x1F));
	Special.Append(TEXT(" \u00e9\u4e2d\U0001F600"));

	TSharedRef<FJsonObject> Object = MakeShared<FJsonObject>();
	Object->SetStringField(TEXT("k\"\n"), Special);
	// Non-ASCII characters, surrogate pairs included, are written as they are.
	EXPECT_EQ(Utf8(CondensedText(Object)), "{\"k\\\"\\n\":\"q\\\" b\\\\ s/ \\b\\f\\n\\r\\t\\u0001\\u001f \u00e9\u4e2d\U0001F600\"}");

	// Every control character survives a write and a read.
	FString Controls;
	for (TCHAR Char = 1; Char < 0x20; ++Char)
	{
		Controls.AppendChar(Char);
	}
	Object->SetStringField(TEXT("c"), Controls);
	TSharedPtr<FJsonObject> Back = ParseObject(PrettyText(Object));
	ASSERT_TRUE(Back.IsValid());
	EXPECT_TRUE(Back->GetStringField(TEXT("c")).Equals(Controls, ESearchCase::CaseSensitive));
	EXPECT_TRUE(Back->GetStringField(TEXT("k\"\n")).Equals(Special, ESearchCase::CaseSensitive));
}

TEST(JsonWriterTest, NumbersAreShortAndReadBackExactly)
{
	struct FCase
	{
		double Value;
		const char* Text;
	};
	const FCase Cases[] = {
		{ 0.0, "0" }, { -0.0, "0" }, { 42.0, "42" }, { -7.0, "-7" }, { 1e15, "1000000000000000" },
		{ 0.1, "0.1" }, { 2.5, "2.5" }, { 1.0 / 3.0, "0.3333333333333333" }, { 1e21, "1e+21" },
		{ 1.5e-7, "1.5e-07" }, { 0.0001, "0.0001" }, { 123456.789, "123456.789" }, { NAN, "null" }, { INFINITY, "null" },
	};
	for (const FCase& Case : Cases)
	{
		FString Out;
		TSharedRef<TJsonWriter<TCHAR, TCondensedJsonPrintPolicy<TCHAR>>> Writer = TJsonWriterFactory<TCHAR, TCondensedJsonPrintPolicy<TCHAR>>::Create(&Out);
		Writer->WriteValue(Case.Value);
		EXPECT_TRUE(Writer->Close());
		EXPECT_EQ(Utf8(Out), Case.Text) << Case.Value;
	}

	const double RoundTrips[] = { 0.1, 1.0 / 3.0, 5e-324, 1.7976931348623157e308, 9007199254740994.0, -1e-300, 123.456, 6.02214076e23 };
	for (const double Value : RoundTrips)
	{
		TSharedRef<FJsonObject> Object = MakeShared<FJsonObject>();
		Object->SetNumberField(TEXT("n"), Value);
		TSharedPtr<FJsonObject> Back = ParseObject(CondensedText(Object));
		ASSERT_TRUE(Back.IsValid());
		const double Read = Back->GetNumberField(TEXT("n"));
		EXPECT_EQ(std::memcmp(&Read, &Value, sizeof(double)), 0) << Value;
	}

	FString Integers;
	TSharedRef<TJsonWriter<>> Writer = TJsonWriterFactory<>::Create(&Integers);
	Writer->WriteArrayStart();
	Writer->WriteValue(MAX_int64);
	Writer->WriteValue(MAX_uint64);
	Writer->WriteValue(-5);
	Writer->WriteValue(0.5f);
	Writer->WriteArrayEnd();
	EXPECT_TRUE(Writer->Close());
	EXPECT_EQ(Utf8(Integers), "[ 9223372036854775807, 18446744073709551615, -5, 0.5 ]");
}

TEST(JsonWriterTest, WritesOutOfOrderFailToCloseWithoutCrashing)
{
	FString Out;
	TSharedRef<TJsonWriter<>> Named = TJsonWriterFactory<>::Create(&Out);
	Named->WriteArrayStart();
	Named->WriteValue(TEXT("name"), 1);
	Named->WriteArrayEnd();
	EXPECT_FALSE(Named->Close());

	TSharedRef<TJsonWriter<>> Unnamed = TJsonWriterFactory<>::Create(&Out);
	Unnamed->WriteObjectStart();
	Unnamed->WriteValue(TEXT("no name"));
	Unnamed->WriteObjectEnd();
	EXPECT_FALSE(Unnamed->Close());

	TSharedRef<TJsonWriter<>> Unbalanced = TJsonWriterFactory<>::Create(&Out);
	Unbalanced->WriteObjectEnd();
	Unbalanced->WriteArrayEnd();
	EXPECT_FALSE(Unbalanced->Close());

	TSharedRef<TJsonWriter<>> Open = TJsonWriterFactory<>::Create(&Out);
	Open->WriteObjectStart();
	EXPECT_FALSE(Open->Close());

	// The identifier prefix lets any value follow a name, containers included.
	FString Prefixed;
	TSharedRef<TJsonWriter<TCHAR, TCondensedJsonPrintPolicy<TCHAR>>> Writer = TJsonWriterFactory<TCHAR, TCondensedJsonPrintPolicy<TCHAR>>::Create(&Prefixed);
	Writer->WriteObjectStart();
	Writer->WriteIdentifierPrefix(TEXT("list"));
	Writer->WriteArrayStart();
	Writer->WriteNull();
	Writer->WriteArrayEnd();
	Writer->WriteIdentifierPrefix(TEXT("n"));
	Writer->WriteValue(1);
	Writer->WriteObjectEnd();
	EXPECT_TRUE(Writer->Close());
	EXPECT_EQ(Utf8(Prefixed), "{\"list\":[null],\"n\":1}");
}

TEST(JsonWriterTest, ComposesIntoOpenWritersWithAnInitialIndent)
{
	FString Indented;
	TSharedRef<FJsonObject> Object = MakeShared<FJsonObject>();
	Object->SetNumberField(TEXT("a"), 1);
	EXPECT_TRUE(FJsonSerializer::Serialize(Object, TJsonWriterFactory<>::Create(&Indented, 1)));
	EXPECT_EQ(Utf8(Indented), "{\r\n\t\t\"a\": 1\r\n\t}");

	// Serialising without closing lets values be written into an object the caller opened.
	FString Composed(TEXT("prefix:"));
	TSharedRef<TJsonWriter<TCHAR, TCondensedJsonPrintPolicy<TCHAR>>> Writer = TJsonWriterFactory<TCHAR, TCondensedJsonPrintPolicy<TCHAR>>::Create(&Composed);
	Writer->WriteObjectStart();
	EXPECT_TRUE(FJsonSerializer::Serialize(MakeShared<FJsonValueObject>(Object), TEXT("inner"), Writer, false));
	EXPECT_TRUE(FJsonSerializer::Serialize(MakeShared<FJsonValueNumberString>(TEXT("1.50")), TEXT("raw"), Writer, false));
	Writer->WriteValue(TEXT("list"), TArray<FString>{ TEXT("x"), TEXT("y") });
	Writer->WriteObjectEnd();
	EXPECT_TRUE(Writer->Close());
	EXPECT_EQ(Utf8(Composed), "prefix:{\"inner\":{\"a\":1},\"raw\":1.50,\"list\":[\"x\",\"y\"]}");

	// Without an output string the writer drops what it is given and says so at the end.
	TSharedRef<TJsonWriter<>> Nowhere = TJsonWriterFactory<>::Create(nullptr);
	Nowhere->WriteObjectStart();
	Nowhere->WriteObjectEnd();
	EXPECT_FALSE(Nowhere->Close());
}

TEST(JsonWriterTest, TreesThatContainThemselvesFailInsteadOfHanging)
{
	TSharedPtr<FJsonObject> Loop = MakeShared<FJsonObject>();
	Loop->SetObjectField(TEXT("self"), Loop);
	FString Out;
	EXPECT_FALSE(FJsonSerializer::Serialize(Loop.ToSharedRef(), TJsonWriterFactory<TCHAR, TCondensedJsonPrintPolicy<TCHAR>>::Create(&Out)));
	Loop->Values.Empty();

	TSharedPtr<FJsonValue> Deep = MakeShared<FJsonValueNull>();
	for (int32 Depth = 0; Depth < 100; ++Depth)
	{
		Deep = MakeShared<FJsonValueArray>(TArray<TSharedPtr<FJsonValue>>{ Deep });
	}
	FString DeepText;
	EXPECT_TRUE(FJsonSerializer::Serialize(Deep->AsArray(), TJsonWriterFactory<TCHAR, TCondensedJsonPrintPolicy<TCHAR>>::Create(&DeepText)));
	EXPECT_EQ(DeepText.Len(), 100 * 2 + 4);
}
