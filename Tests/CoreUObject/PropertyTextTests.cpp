// The text forms of property values: what export writes, what import reads back, and what it refuses.
#include "ReflectionTestTypes.h"
#include "CoreUObject.h"
#include "CoreTestPrinters.h"
#include <gtest/gtest.h>

namespace
{
	FProperty* FindProperty(const TCHAR* Name)
	{
		return UReflectionTestSettings::StaticClass()->FindPropertyByName(FName(Name));
	}

	// The value itself as the comparison base writes it whatever it is, as the engine's callers do.
	FString Export(UObject* Object, const TCHAR* Name, int32 PortFlags = PPF_None)
	{
		FString Text;
		FindProperty(Name)->ExportText_InContainer(0, Text, Object, Object, Object, PortFlags);
		return Text;
	}

	// The text after what was read, or "<refused>".
	FString Import(UObject* Object, const TCHAR* Name, const TCHAR* Text, int32 PortFlags = PPF_None)
	{
		const TCHAR* End = FindProperty(Name)->ImportText_InContainer(Text, Object, Object, PortFlags);
		return End ? FString(End) : FString(TEXT("<refused>"));
	}
}

TEST(PropertyText, ValuesExportInTheEngineFormsAndReadBack)
{
	UReflectionTestSettings* Object = NewObject<UReflectionTestSettings>();
	Object->ApiKey = TEXT("a \"quoted\" key");
	Object->ScrollSeconds = 2.5f;
	Object->bFirstFlag = true;
	Object->BigNumber = -9000000000LL;
	Object->FavoriteName = FName(TEXT("Gold"));

	EXPECT_EQ(Export(Object, TEXT("ApiKey")), TEXT("a \"quoted\" key"));
	EXPECT_EQ(Export(Object, TEXT("ApiKey"), PPF_Delimited), TEXT("\"a \\\"quoted\\\" key\""));
	EXPECT_EQ(Export(Object, TEXT("bShowChanges")), TEXT("True"));
	EXPECT_EQ(Export(Object, TEXT("bFirstFlag")), TEXT("True"));
	EXPECT_EQ(Export(Object, TEXT("bSecondFlag")), TEXT("True"));
	EXPECT_EQ(Export(Object, TEXT("bResetList")), TEXT("False"));
	EXPECT_EQ(Export(Object, TEXT("RetentionDays")), TEXT("30"));
	EXPECT_EQ(Export(Object, TEXT("ScrollSeconds")), TEXT("2.500000"));
	EXPECT_EQ(Export(Object, TEXT("BigNumber")), TEXT("-9000000000"));
	EXPECT_EQ(Export(Object, TEXT("AnswerMode")), TEXT("VeryTalkative"));
	EXPECT_EQ(Export(Object, TEXT("LegacyColor")), TEXT("TLC_Green"));
	EXPECT_EQ(Export(Object, TEXT("FavoriteName")), TEXT("Gold"));
	EXPECT_EQ(Export(Object, TEXT("Extensions")), TEXT("(\"py\",\"cs\",\"json\")"));

	UReflectionTestSettings* Copy = NewObject<UReflectionTestSettings>();
	for (const TCHAR* Name : {TEXT("ApiKey"), TEXT("ScrollSeconds"), TEXT("bFirstFlag"), TEXT("BigNumber"), TEXT("FavoriteName"), TEXT("AnswerMode"), TEXT("LegacyColor")})
	{
		const int32 PortFlags = FCString::Strcmp(Name, TEXT("ApiKey")) == 0 ? PPF_Delimited : PPF_None;
		EXPECT_EQ(Import(Copy, Name, *Export(Object, Name, PortFlags), PortFlags), FString()) << TCHAR_TO_UTF8(Name);
		EXPECT_TRUE(FindProperty(Name)->Identical_InContainer(Copy, Object)) << TCHAR_TO_UTF8(Name);
	}

	// Setting one bit of a bitfield leaves its neighbour alone.
	EXPECT_EQ(Import(Copy, TEXT("bFirstFlag"), TEXT("false")), FString());
	EXPECT_FALSE(Copy->bFirstFlag);
	EXPECT_TRUE(Copy->bSecondFlag);
	EXPECT_EQ(Import(Copy, TEXT("bSecondFlag"), TEXT("Off")), FString());
	EXPECT_FALSE(Copy->bSecondFlag);

	EXPECT_EQ(Import(Copy, TEXT("Extensions"), TEXT(" ( \"a,b\" , plain , \"\" ) rest")), TEXT(" rest"));
	ASSERT_EQ(Copy->Extensions.Num(), 3);
	EXPECT_EQ(Copy->Extensions[0], TEXT("a,b"));
	EXPECT_EQ(Copy->Extensions[1], TEXT("plain"));
	EXPECT_EQ(Copy->Extensions[2], FString());
	EXPECT_EQ(Import(Copy, TEXT("Extensions"), TEXT("()")), FString());
	EXPECT_EQ(Copy->Extensions.Num(), 0);

	// Enum entries read by short or full name, in any case, or by a number the enum has.
	EXPECT_EQ(Import(Copy, TEXT("AnswerMode"), TEXT("ETestAnswerMode::Quiet")), FString());
	EXPECT_EQ(Copy->AnswerMode, ETestAnswerMode::Quiet);
	EXPECT_EQ(Import(Copy, TEXT("AnswerMode"), TEXT("verytalkative")), FString());
	EXPECT_EQ(Copy->AnswerMode, ETestAnswerMode::VeryTalkative);
	EXPECT_EQ(Import(Copy, TEXT("LegacyColor"), TEXT("0")), FString());
	EXPECT_EQ(Copy->LegacyColor, TLC_Red);
	EXPECT_EQ(Import(Copy, TEXT("RetentionDays"), TEXT("0x10")), FString());
	EXPECT_EQ(Copy->RetentionDays, 16);
	EXPECT_EQ(Import(Copy, TEXT("RetentionDays"), TEXT("-3.7")), FString());
	EXPECT_EQ(Copy->RetentionDays, -3);
}

TEST(PropertyText, CArraysAndArraysOfEnumsKeepEachElement)
{
	UReflectionTestSettings* Object = NewObject<UReflectionTestSettings>();
	FProperty* Slots = FindProperty(TEXT("Slots"));
	EXPECT_EQ(Slots->ArrayDim, 3);
	EXPECT_EQ(Slots->GetSize(), static_cast<int32>(sizeof(Object->Slots)));
	FString Text;
	EXPECT_TRUE(Slots->ExportText_InContainer(2, Text, Object, nullptr, Object, PPF_None));
	EXPECT_EQ(Text, TEXT("3"));
	EXPECT_FALSE(Slots->ExportText_InContainer(3, Text, Object, nullptr, Object, PPF_None));
	EXPECT_NE(Slots->ImportText_Direct(TEXT("42"), Slots->ContainerPtrToValuePtr<void>(Object, 1), Object, PPF_None), nullptr);
	EXPECT_EQ(Object->Slots[0], 1);
	EXPECT_EQ(Object->Slots[1], 42);
	EXPECT_EQ(Object->Slots[2], 3);
	UReflectionTestSettings* Copy = NewObject<UReflectionTestSettings>();
	Slots->CopyCompleteValue_InContainer(Copy, Object);
	EXPECT_EQ(Copy->Slots[1], 42);
	EXPECT_TRUE(Slots->Identical_InContainer(Copy, Object, 2));

	Object->AnswerHistory = {ETestAnswerMode::Quiet, ETestAnswerMode::VeryTalkative};
	EXPECT_EQ(Export(Object, TEXT("AnswerHistory")), TEXT("(Quiet,VeryTalkative)"));
	EXPECT_EQ(Import(Copy, TEXT("AnswerHistory"), TEXT("(VeryTalkative, ETestAnswerMode::Quiet, Quiet)")), FString());
	EXPECT_EQ(Copy->AnswerHistory, TArray<ETestAnswerMode>({ETestAnswerMode::VeryTalkative, ETestAnswerMode::Quiet, ETestAnswerMode::Quiet}));
	EXPECT_EQ(Import(Copy, TEXT("AnswerHistory"), TEXT("(Quiet,Loud)")), TEXT("<refused>"));
	EXPECT_EQ(Copy->AnswerHistory.Num(), 3);

	EXPECT_EQ(Export(Object, TEXT("Level")), TEXT("High"));
	EXPECT_EQ(Import(Copy, TEXT("Level"), TEXT("ETestNamespacedLevel::Low")), FString());
	EXPECT_EQ(Copy->Level, ETestNamespacedLevel::Low);
}

TEST(PropertyText, MalformedTextIsRefusedAndChangesNothing)
{
	UReflectionTestSettings* Object = NewObject<UReflectionTestSettings>();
	const TArray<FString> ExtensionsBefore = Object->Extensions;

	EXPECT_EQ(Import(Object, TEXT("bShowChanges"), TEXT("maybe")), TEXT("<refused>"));
	EXPECT_TRUE(Object->bShowChanges);
	EXPECT_EQ(Import(Object, TEXT("RetentionDays"), TEXT("thirty")), TEXT("<refused>"));
	EXPECT_EQ(Import(Object, TEXT("RetentionDays"), TEXT("")), TEXT("<refused>"));
	EXPECT_EQ(Import(Object, TEXT("RetentionDays"), TEXT("99999999999999999999999")), TEXT("<refused>"));
	EXPECT_EQ(Object->RetentionDays, 30);
	EXPECT_EQ(Import(Object, TEXT("ScrollSeconds"), TEXT("-")), TEXT("<refused>"));
	EXPECT_EQ(Object->ScrollSeconds, 10.0f);
	EXPECT_EQ(Import(Object, TEXT("AnswerMode"), TEXT("Shouting")), TEXT("<refused>"));
	EXPECT_EQ(Import(Object, TEXT("AnswerMode"), TEXT("7")), TEXT("<refused>"));
	EXPECT_EQ(Object->AnswerMode, ETestAnswerMode::VeryTalkative);
	EXPECT_EQ(Import(Object, TEXT("LegacyColor"), TEXT("TLC_Blue")), TEXT("<refused>"));
	EXPECT_EQ(Object->LegacyColor, TLC_Green);

	// A list that breaks off halfway leaves the array as it was.
	for (const TCHAR* Broken : {TEXT("(\"a\",\"b\""), TEXT("(\"a\" \"b\")"), TEXT("\"a\",\"b\")"), TEXT("(\"unclosed)"), TEXT("(a,,b)")})
	{
		EXPECT_EQ(Import(Object, TEXT("Extensions"), Broken), TEXT("<refused>")) << TCHAR_TO_UTF8(Broken);
		EXPECT_EQ(Object->Extensions, ExtensionsBefore) << TCHAR_TO_UTF8(Broken);
	}
	EXPECT_EQ(FindProperty(TEXT("ApiKey"))->ImportText_InContainer(nullptr, Object, Object, PPF_None), nullptr);
}

TEST(PropertyText, CopyAndCompareWorkOnEveryKind)
{
	UReflectionTestSettings* Source = NewObject<UReflectionTestSettings>();
	UReflectionTestSettings* Target = NewObject<UReflectionTestSettings>();
	Source->ApiKey = TEXT("Key");
	Target->ApiKey = TEXT("key");
	// Strings that differ only in case are different values.
	EXPECT_FALSE(FindProperty(TEXT("ApiKey"))->Identical_InContainer(Source, Target));
	Source->Extensions.Add(TEXT("h"));
	Source->bFirstFlag = true;
	Source->AnswerMode = ETestAnswerMode::Quiet;
	for (TFieldIterator<FProperty> It(UReflectionTestSettings::StaticClass()); It; ++It)
	{
		It->CopyCompleteValue_InContainer(Target, Source);
		EXPECT_TRUE(It->Identical_InContainer(Target, Source)) << TCHAR_TO_UTF8(*It->GetName());
	}
	EXPECT_EQ(Target->Extensions.Num(), 4);
	EXPECT_TRUE(Target->bFirstFlag);
	EXPECT_TRUE(Target->bSecondFlag);

	FProperty* Extensions = FindProperty(TEXT("Extensions"));
	Extensions->ClearValue_InContainer(Target);
	EXPECT_EQ(Target->Extensions.Num(), 0);
	EXPECT_TRUE(Extensions->Identical_InContainer(Target, nullptr));
	FScriptArrayHelper Helper(CastField<FArrayProperty>(Extensions), Extensions->ContainerPtrToValuePtr<void>(Target));
	const int32 Index = Helper.AddValue();
	*reinterpret_cast<FString*>(Helper.GetRawPtr(Index)) = TEXT("added");
	Helper.InsertValues(0, 1);
	EXPECT_EQ(Target->Extensions, TArray<FString>({FString(), FString(TEXT("added"))}));
	Helper.RemoveValues(0, 1);
	EXPECT_EQ(Helper.Num(), 1);
}
