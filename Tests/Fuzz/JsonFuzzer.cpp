// Any bytes through the engine's Json API: parsing never crashes, and what parses writes out as text
// that parses again to the same text (the writer and the reader agree on every value).

#include "CoreMinimal.h"
#include "Containers/StringConv.h"
#include "Dom/JsonValue.h"
#include "Serialization/JsonReader.h"
#include "Serialization/JsonSerializer.h"
#include "Serialization/JsonWriter.h"

#include <cstdio>
#include <cstdlib>

namespace
{
	FString Write(const TSharedPtr<FJsonValue>& Value)
	{
		FString Text;
		const TSharedRef<TJsonWriter<>> Writer = TJsonWriterFactory<>::Create(&Text);
		if (!FJsonSerializer::Serialize(Value, FString(), Writer))
		{
			std::fprintf(stderr, "a parsed value could not be written\n");
			std::abort();
		}
		return Text;
	}

	TSharedPtr<FJsonValue> Read(const FString& Text, FJsonSerializer::EFlags Flags)
	{
		TSharedPtr<FJsonValue> Value;
		FJsonSerializer::Deserialize(TJsonReaderFactory<>::Create(Text), Value, Flags);
		return Value;
	}
}

extern "C" int LLVMFuzzerTestOneInput(const uint8* Data, size_t Size)
{
	if (Size == 0 || Size > 1024 * 1024)
	{
		return 0;
	}
	// The first byte picks the options, so both number forms are explored.
	const FJsonSerializer::EFlags Flags = (Data[0] & 1) != 0 ? FJsonSerializer::EFlags::StoreNumbersAsStrings : FJsonSerializer::EFlags::None;
	const FUTF8ToTCHAR Converted(reinterpret_cast<const ANSICHAR*>(Data + 1), static_cast<int32>(Size - 1));
	const FString Text(Converted.Length(), Converted.Get());

	const TSharedPtr<FJsonValue> Value = Read(Text, Flags);
	TSharedPtr<FJsonObject> Object;
	FJsonSerializer::Deserialize(TJsonReaderFactory<>::Create(Text), Object, Flags);
	if (!Value.IsValid())
	{
		return 0;
	}
	const FString Written = Write(Value);
	const TSharedPtr<FJsonValue> Again = Read(Written, Flags);
	if (!Again.IsValid() || !Write(Again).Equals(Written, ESearchCase::CaseSensitive))
	{
		std::fprintf(stderr, "written text does not read back the same: %s\n", TCHAR_TO_UTF8(*Written));
		std::abort();
	}
	return 0;
}
