#include "JsonTestHelpers.h"

#include "Misc/OutputDeviceRedirector.h"

#include <gtest/gtest.h>

namespace
{
	// Collects what the Json module logs while it is alive.
	struct FJsonLogCapture : FOutputDevice
	{
		FJsonLogCapture()
		{
			GLog->AddOutputDevice(this);
		}
		virtual ~FJsonLogCapture() override
		{
			GLog->RemoveOutputDevice(this);
		}
		virtual void Serialize(const TCHAR* V, ELogVerbosity::Type Verbosity, const FName& Category) override
		{
			if (Category == FName(TEXT("LogJson")))
			{
				Lines.Add(FString(V));
			}
		}
		TArray<FString> Lines;
	};
}

TEST(JsonDomTest, GettersOnMissingFieldsGiveDefaults)
{
	const TSharedRef<FJsonObject> Object = MakeShared<FJsonObject>();
	{
		// As the engine: the getter warns about the field, the conversion about the null it got.
		FJsonLogCapture Log;
		EXPECT_TRUE(Object->GetStringField(TEXT("missing")).IsEmpty());
		ASSERT_EQ(Log.Lines.Num(), 2);
		EXPECT_EQ(Utf8(Log.Lines[0]), "Field missing was not found.");
		EXPECT_EQ(Utf8(Log.Lines[1]), "Json Value of type 'Null' used as a 'String'.");
	}
	EXPECT_EQ(Object->GetNumberField(TEXT("missing")), 0.0);
	EXPECT_EQ(Object->GetIntegerField(TEXT("missing")), 0);
	EXPECT_FALSE(Object->GetBoolField(TEXT("missing")));
	EXPECT_EQ(Object->GetArrayField(TEXT("missing")).Num(), 0);
	// A missing object field gives an empty object, so that chained reads don't crash.
	ASSERT_TRUE(Object->GetObjectField(TEXT("missing")).IsValid());
	EXPECT_TRUE(Object->GetObjectField(TEXT("missing"))->GetStringField(TEXT("x")).IsEmpty());
	EXPECT_FALSE(Object->TryGetField(TEXT("missing")).IsValid());
	EXPECT_TRUE(Object->GetField<EJson::None>(TEXT("missing"))->IsNull());

	FString Text;
	double Number = 0;
	bool bFlag = false;
	const TArray<TSharedPtr<FJsonValue>>* Array = nullptr;
	const TSharedPtr<FJsonObject>* Nested = nullptr;
	EXPECT_FALSE(Object->TryGetStringField(TEXT("missing"), Text));
	EXPECT_FALSE(Object->TryGetNumberField(TEXT("missing"), Number));
	EXPECT_FALSE(Object->TryGetBoolField(TEXT("missing"), bFlag));
	EXPECT_FALSE(Object->TryGetArrayField(TEXT("missing"), Array));
	EXPECT_FALSE(Object->TryGetObjectField(TEXT("missing"), Nested));
}

TEST(JsonDomTest, MistypedFieldsConvertAsTheEngineDoes)
{
	TSharedPtr<FJsonObject> Object = ParseObject(TEXT("{\"num\": 5, \"frac\": 2.6, \"neg\": -1, \"tiny\": 1e-7, \"flag\": true, \"text\": \"12.5\", \"word\": \"yes\", \"list\": [\"a\", 2, true], \"obj\": {}, \"nil\": null}"));
	ASSERT_TRUE(Object.IsValid());

	// Numbers and booleans have a text form; objects, arrays and null have none.
	FString Text;
	EXPECT_TRUE(Object->TryGetStringField(TEXT("num"), Text));
	EXPECT_EQ(Utf8(Text), "5");
	EXPECT_TRUE(Object->TryGetStringField(TEXT("frac"), Text));
	EXPECT_EQ(Utf8(Text), "2.6");
	EXPECT_EQ(Utf8(Object->GetStringField(TEXT("tiny"))), "0");
	EXPECT_TRUE(Object->TryGetStringField(TEXT("flag"), Text));
	EXPECT_EQ(Utf8(Text), "true");
	EXPECT_FALSE(Object->TryGetStringField(TEXT("obj"), Text));
	EXPECT_FALSE(Object->TryGetStringField(TEXT("list"), Text));
	EXPECT_FALSE(Object->TryGetStringField(TEXT("nil"), Text));
	EXPECT_TRUE(Object->GetStringField(TEXT("obj")).IsEmpty());

	// Numeric text gives a number; other text none. Text gives a boolean by its words.
	double Number = 0;
	EXPECT_TRUE(Object->TryGetNumberField(TEXT("text"), Number));
	EXPECT_EQ(Number, 12.5);
	EXPECT_FALSE(Object->TryGetNumberField(TEXT("word"), Number));
	bool bFlag = false;
	EXPECT_TRUE(Object->TryGetBoolField(TEXT("word"), bFlag));
	EXPECT_TRUE(bFlag);
	EXPECT_TRUE(Object->TryGetBoolField(TEXT("num"), bFlag));
	EXPECT_TRUE(bFlag);
	EXPECT_FALSE(Object->TryGetBoolField(TEXT("obj"), bFlag));

	// Integer forms round to nearest, check their range; the integer getter truncates.
	int32 Int32 = 0;
	int8 Int8 = 0;
	uint32 UInt32 = 0;
	EXPECT_TRUE(Object->TryGetNumberField(TEXT("frac"), Int32));
	EXPECT_EQ(Int32, 3);
	EXPECT_EQ(Object->GetIntegerField(TEXT("frac")), 2);
	EXPECT_FALSE(Object->TryGetNumberField(TEXT("neg"), UInt32));
	EXPECT_TRUE(Object->TryGetNumberField(TEXT("text"), Int32));
	EXPECT_EQ(Int32, 12);
	TSharedRef<FJsonObject> Wide = MakeShared<FJsonObject>();
	Wide->SetNumberField(TEXT("n"), 200);
	EXPECT_FALSE(Wide->TryGetNumberField(TEXT("n"), Int8));

	const TArray<TSharedPtr<FJsonValue>>* Array = nullptr;
	const TSharedPtr<FJsonObject>* Nested = nullptr;
	EXPECT_FALSE(Object->TryGetArrayField(TEXT("obj"), Array));
	EXPECT_FALSE(Object->TryGetObjectField(TEXT("list"), Nested));
	EXPECT_TRUE(Object->TryGetObjectField(TEXT("obj"), Nested));
	EXPECT_EQ(Object->GetArrayField(TEXT("obj")).Num(), 0);
	EXPECT_TRUE(Object->HasField(TEXT("nil")));
	EXPECT_FALSE(Object->HasTypedField<EJson::String>(TEXT("num")));
	EXPECT_TRUE(Object->HasTypedField<EJson::Null>(TEXT("NIL")));

	TArray<FString> Strings;
	EXPECT_TRUE(Object->TryGetStringArrayField(TEXT("list"), Strings));
	ASSERT_EQ(Strings.Num(), 3);
	EXPECT_EQ(Utf8(Strings[2]), "true");
	TSharedPtr<FJsonObject> Mixed = ParseObject(TEXT("{\"list\": [\"a\", {}]}"));
	EXPECT_FALSE(Mixed->TryGetStringArrayField(TEXT("list"), Strings));
}

TEST(JsonDomTest, FieldNamesIgnoreCaseAndCopiesAreDeep)
{
	TSharedRef<FJsonObject> Object = MakeShared<FJsonObject>();
	Object->SetStringField(TEXT("VariableName"), TEXT("Health"));
	EXPECT_EQ(Utf8(Object->GetStringField(TEXT("variablename"))), "Health");
	Object->RemoveField(TEXT("VARIABLENAME"));
	EXPECT_FALSE(Object->HasField(TEXT("VariableName")));

	// A null object becomes a null value, not a dangling object value.
	Object->SetObjectField(TEXT("none"), nullptr);
	EXPECT_TRUE(Object->HasTypedField<EJson::Null>(TEXT("none")));

	TSharedPtr<FJsonObject> Inner = MakeShared<FJsonObject>();
	Inner->SetArrayField(TEXT("a"), { MakeShared<FJsonValueString>(TEXT("x")) });
	Object->SetObjectField(TEXT("inner"), Inner);
	TSharedPtr<FJsonObject> Copy = MakeShared<FJsonObject>();
	const TSharedPtr<FJsonObject> Source = Object;
	FJsonObject::Duplicate(Source, Copy);
	EXPECT_TRUE(FJsonValueObject(Copy) == FJsonValueObject(Object));
	Inner->SetStringField(TEXT("added"), TEXT("later"));
	EXPECT_FALSE(Copy->GetObjectField(TEXT("inner"))->HasField(TEXT("added")));
	EXPECT_FALSE(FJsonValueObject(Copy) == FJsonValueObject(Object));

	// String values compare with case, object keys without.
	EXPECT_FALSE(FJsonValueString(TEXT("a")) == FJsonValueString(TEXT("A")));
	EXPECT_TRUE(FJsonValueNumber(1) == FJsonValueNumberString(TEXT("1.0")));
}

TEST(JsonDomTest, ValueConvertersAndNumberTextKeepTheirRules)
{
	// Wrong-kind conversions log and give empty results that are safe to use.
	EXPECT_EQ(FJsonValueString(TEXT("abc")).AsNumber(), 0.0);
	EXPECT_FALSE(FJsonValueArray(TArray<TSharedPtr<FJsonValue>>()).AsBool());
	EXPECT_EQ(FJsonValueObject(MakeShared<FJsonObject>()).AsArray().Num(), 0);
	EXPECT_TRUE(FJsonValueString(TEXT("x")).AsObject().IsValid());
	EXPECT_TRUE(FJsonValueNull().AsString().IsEmpty());
	EXPECT_TRUE(FJsonValueNull().IsNull());

	// Text converts as the engine's text-to-number does: integers truncate, other text fails.
	int32 Int32 = 0;
	uint32 UInt32 = 0;
	EXPECT_TRUE(FJsonValueString(TEXT("-3.9")).TryGetNumber(Int32));
	EXPECT_EQ(Int32, -3);
	EXPECT_TRUE(FJsonValueString(TEXT("+7")).TryGetNumber(Int32));
	EXPECT_EQ(Int32, 7);
	EXPECT_FALSE(FJsonValueString(TEXT(" 12")).TryGetNumber(Int32));
	EXPECT_FALSE(FJsonValueString(TEXT("1e3")).TryGetNumber(Int32));
	EXPECT_FALSE(FJsonValueString(TEXT("-1")).TryGetNumber(UInt32));
	EXPECT_FALSE(FJsonValueString(TEXT("99999999999")).TryGetNumber(Int32));

	// Numbers kept as text convert exactly when they are integers, by value otherwise.
	int64 Int64 = 0;
	int8 Int8 = 0;
	EXPECT_TRUE(FJsonValueNumberString(TEXT("-9223372036854775808")).TryGetNumber(Int64));
	EXPECT_EQ(Int64, MIN_int64);
	EXPECT_TRUE(FJsonValueNumberString(TEXT("1e3")).TryGetNumber(Int32));
	EXPECT_EQ(Int32, 1000);
	EXPECT_FALSE(FJsonValueNumberString(TEXT("128")).TryGetNumber(Int8));
	EXPECT_FALSE(FJsonValueNumberString(TEXT("12abc")).TryGetNumber(Int32));
	TSharedPtr<FJsonValue> Copy = FJsonValue::Duplicate(TSharedPtr<FJsonValue>(MakeShared<FJsonValueNumberString>(TEXT("0.10"))));
	EXPECT_EQ(Utf8(Copy->AsString()), "0.10");

	// Plain numbers: half rounds away from zero, and the range is checked before narrowing.
	EXPECT_TRUE(FJsonValueNumber(-2.5).TryGetNumber(Int32));
	EXPECT_EQ(Int32, -3);
	EXPECT_FALSE(FJsonValueNumber(1e19).TryGetNumber(Int64));
	EXPECT_FALSE(FJsonValueNumber(NAN).TryGetNumber(Int64));
	float Float = 0;
	EXPECT_FALSE(FJsonValueNumber(1e300).TryGetNumber(Float));
}
