// Small helpers shared by the Json tests: exact text comparison and one-call parse and print.
#pragma once

#include "CoreMinimal.h"
#include "CoreTestPrinters.h"
#include "Json.h"

#include <gtest/gtest.h>

#include <string>

// UTF-8 of a string, so that comparisons are exact (FString's == ignores case) and failures readable.
inline std::string Utf8(const FString& Text)
{
	return std::string(TCHAR_TO_UTF8(*Text));
}

inline FString PrettyText(const TSharedRef<FJsonObject>& Object)
{
	FString Out;
	TSharedRef<TJsonWriter<>> Writer = TJsonWriterFactory<>::Create(&Out);
	EXPECT_TRUE(FJsonSerializer::Serialize(Object, Writer));
	return Out;
}

inline FString CondensedText(const TSharedRef<FJsonObject>& Object)
{
	FString Out;
	TSharedRef<TJsonWriter<TCHAR, TCondensedJsonPrintPolicy<TCHAR>>> Writer = TJsonWriterFactory<TCHAR, TCondensedJsonPrintPolicy<TCHAR>>::Create(&Out);
	EXPECT_TRUE(FJsonSerializer::Serialize(Object, Writer));
	return Out;
}

// Parses any JSON value; on failure gives null and the reader's message.
inline TSharedPtr<FJsonValue> ParseValue(const FString& Text, FString* OutError = nullptr)
{
	TSharedRef<TJsonReader<>> Reader = TJsonReaderFactory<>::Create(Text);
	TSharedPtr<FJsonValue> Value;
	if (!FJsonSerializer::Deserialize(Reader, Value))
	{
		if (OutError != nullptr)
		{
			*OutError = Reader->GetErrorMessage();
		}
		return nullptr;
	}
	return Value;
}

inline TSharedPtr<FJsonObject> ParseObject(const FString& Text)
{
	TSharedPtr<FJsonObject> Object;
	return FJsonSerializer::Deserialize(TJsonReaderFactory<>::Create(Text), Object) ? Object : nullptr;
}
