#pragma once

#include "CoreMinimal.h"
#include "Containers/StringConv.h"

#include <string>

// Bridges between the engine's strings and the bytes libcurl reads and writes.
namespace HttpStringConv
{
	inline std::string ToUtf8(const FString& Text)
	{
		FTCHARToUTF8 Converted(*Text);
		return std::string(reinterpret_cast<const char*>(Converted.Get()), static_cast<size_t>(Converted.Length()));
	}

	inline FString FromUtf8(const char* Data, size_t Length)
	{
		if (Length == 0)
		{
			return FString();
		}
		FUTF8ToTCHAR Converted(reinterpret_cast<const ANSICHAR*>(Data), static_cast<int32>(Length));
		return FString::ConstructFromPtrSize(Converted.Get(), Converted.Length());
	}
}
