// Turns JSON text into FJsonObject / FJsonValue trees and back.
#pragma once

#include "CoreMinimal.h"
#include "JsonGlobals.h"
#include "Dom/JsonObject.h"
#include "Dom/JsonValue.h"
#include "Serialization/JsonReader.h"
#include "Serialization/JsonWriter.h"

namespace UE::Json::Private
{
	// Parses a whole text into one value. Nesting deeper than this is refused, not recursed into.
	inline constexpr int32 MaxParseDepth = 512;

	// Expected is the kind the root must have (EJson::None accepts any). On failure OutValue is
	// left alone and OutError says what and where.
	JSON_API bool ParseJsonText(const FString& Text, EJson Expected, bool bStoreNumbersAsStrings, TSharedPtr<FJsonValue>& OutValue, FString& OutError);

	JSON_API bool SerializeObject(const FJsonObject& Object, FJsonTextWriter& Writer, bool bCloseWriter);
	JSON_API bool SerializeArray(const TArray<TSharedPtr<FJsonValue>>& Array, FJsonTextWriter& Writer, bool bCloseWriter);
	JSON_API bool SerializeValue(const TSharedPtr<FJsonValue>& Value, const FString& Identifier, FJsonTextWriter& Writer, bool bCloseWriter);
}

class FJsonSerializer
{
public:
	enum class EFlags
	{
		None = 0,
		// Keep numbers as their text (FJsonValueNumberString), so that no digit is lost.
		StoreNumbersAsStrings = 1
	};

	template<class CharType>
	static bool Deserialize(TJsonReader<CharType>& Reader, TSharedPtr<FJsonObject>& OutObject, EFlags InOptions = EFlags::None)
	{
		TSharedPtr<FJsonValue> Root;
		if (!Parse(Reader, EJson::Object, InOptions, Root))
		{
			return false;
		}
		OutObject = Root->AsObject();
		return true;
	}
	template<class CharType>
	static bool Deserialize(const TSharedRef<TJsonReader<CharType>>& Reader, TSharedPtr<FJsonObject>& OutObject, EFlags InOptions = EFlags::None)
	{
		return Deserialize(Reader.Get(), OutObject, InOptions);
	}

	template<class CharType>
	static bool Deserialize(TJsonReader<CharType>& Reader, TArray<TSharedPtr<FJsonValue>>& OutArray, EFlags InOptions = EFlags::None)
	{
		TSharedPtr<FJsonValue> Root;
		if (!Parse(Reader, EJson::Array, InOptions, Root))
		{
			return false;
		}
		TArray<TSharedPtr<FJsonValue>>* Parsed = nullptr;
		Root->TryGetArray(Parsed);
		OutArray = MoveTemp(*Parsed);
		return true;
	}
	template<class CharType>
	static bool Deserialize(const TSharedRef<TJsonReader<CharType>>& Reader, TArray<TSharedPtr<FJsonValue>>& OutArray, EFlags InOptions = EFlags::None)
	{
		return Deserialize(Reader.Get(), OutArray, InOptions);
	}

	template<class CharType>
	static bool Deserialize(TJsonReader<CharType>& Reader, TSharedPtr<FJsonValue>& OutValue, EFlags InOptions = EFlags::None)
	{
		return Parse(Reader, EJson::None, InOptions, OutValue);
	}
	template<class CharType>
	static bool Deserialize(const TSharedRef<TJsonReader<CharType>>& Reader, TSharedPtr<FJsonValue>& OutValue, EFlags InOptions = EFlags::None)
	{
		return Deserialize(Reader.Get(), OutValue, InOptions);
	}

	template<class CharType, class PrintPolicy>
	static bool Serialize(const TSharedRef<FJsonObject>& Object, TJsonWriter<CharType, PrintPolicy>& Writer, bool bCloseWriter = true)
	{
		return UE::Json::Private::SerializeObject(Object.Get(), Writer, bCloseWriter);
	}
	template<class CharType, class PrintPolicy>
	static bool Serialize(const TSharedRef<FJsonObject>& Object, const TSharedRef<TJsonWriter<CharType, PrintPolicy>>& Writer, bool bCloseWriter = true)
	{
		return UE::Json::Private::SerializeObject(Object.Get(), Writer.Get(), bCloseWriter);
	}

	template<class CharType, class PrintPolicy>
	static bool Serialize(const TArray<TSharedPtr<FJsonValue>>& Array, TJsonWriter<CharType, PrintPolicy>& Writer, bool bCloseWriter = true)
	{
		return UE::Json::Private::SerializeArray(Array, Writer, bCloseWriter);
	}
	template<class CharType, class PrintPolicy>
	static bool Serialize(const TArray<TSharedPtr<FJsonValue>>& Array, const TSharedRef<TJsonWriter<CharType, PrintPolicy>>& Writer, bool bCloseWriter = true)
	{
		return UE::Json::Private::SerializeArray(Array, Writer.Get(), bCloseWriter);
	}

	// An empty Identifier writes the value on its own (at the top, or as an array element).
	template<class CharType, class PrintPolicy>
	static bool Serialize(const TSharedPtr<FJsonValue>& Value, const FString& Identifier, TJsonWriter<CharType, PrintPolicy>& Writer, bool bCloseWriter = true)
	{
		return UE::Json::Private::SerializeValue(Value, Identifier, Writer, bCloseWriter);
	}
	template<class CharType, class PrintPolicy>
	static bool Serialize(const TSharedPtr<FJsonValue>& Value, const FString& Identifier, const TSharedRef<TJsonWriter<CharType, PrintPolicy>>& Writer, bool bCloseWriter = true)
	{
		return UE::Json::Private::SerializeValue(Value, Identifier, Writer.Get(), bCloseWriter);
	}

private:
	template<class CharType>
	static bool Parse(TJsonReader<CharType>& Reader, EJson Expected, EFlags InOptions, TSharedPtr<FJsonValue>& OutValue)
	{
		Reader.ErrorMessage.Reset();
		const bool bStoreNumbersAsStrings = (static_cast<int32>(InOptions) & static_cast<int32>(EFlags::StoreNumbersAsStrings)) != 0;
		return UE::Json::Private::ParseJsonText(Reader.Text, Expected, bStoreNumbersAsStrings, OutValue, Reader.ErrorMessage);
	}
};

ENUM_CLASS_FLAGS(FJsonSerializer::EFlags);
