// What the reference search tests share: a project of their own and the result read back as JSON.
#pragma once

#include "ObjectTestSupport.h"
#include "CoreTestPrinters.h"
#include "Agent/FindUtils.h"
#include "Dom/JsonObject.h"
#include "Dom/JsonValue.h"
#include "Serialization/JsonReader.h"
#include "Serialization/JsonSerializer.h"

inline void PrintTo(const TArray<FString>& Lines, std::ostream* Stream)
{
	*Stream << "{";
	for (const FString& Line : Lines)
	{
		*Stream << "\n  \"" << TCHAR_TO_UTF8(*Line) << "\"";
	}
	*Stream << "\n}";
}

namespace FindUtilsTest
{
	inline const FString& TempRoot()
	{
		static const FString Root(TEXT(FIND_UTILS_TESTS_TEMP_DIR));
		return Root;
	}

	inline TSharedPtr<FJsonObject> Find(const FString& ReferenceString)
	{
		TSharedPtr<FJsonObject> Result;
		FJsonSerializer::Deserialize(TJsonReaderFactory<>::Create(FTavrineFindUtils::FindInAllFiles(ReferenceString)), Result);
		return Result;
	}

	inline TArray<FString> Keys(const TSharedPtr<FJsonObject>& Object)
	{
		TArray<FString> Result;
		for (const auto& Field : Object->Values)
		{
			Result.Add(Field.Key);
		}
		return Result;
	}

	// Each reference as "Type=...|Name=...|Path=..." (its members in order, paths relative to the project), to compare whole lists at once.
	inline TArray<FString> Describe(const TSharedPtr<FJsonObject>& Result, const TCHAR* ArrayKey, const FString& StripPrefix)
	{
		TArray<FString> Lines;
		for (const TSharedPtr<FJsonValue>& Value : Result->GetArrayField(ArrayKey))
		{
			FString Line;
			for (const auto& Field : Value->AsObject()->Values)
			{
				FString Text = Field.Value->AsString();
				if (Field.Key == TEXT("Path") && Text.StartsWith(StripPrefix))
				{
					Text.RightChopInline(StripPrefix.Len());
				}
				Line += (Line.IsEmpty() ? TEXT("") : TEXT("|")) + Field.Key + TEXT("=") + Text;
			}
			Lines.Add(Line);
		}
		return Lines;
	}
}
