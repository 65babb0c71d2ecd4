#include "HttpStandInSettings.h"

#include <cstdlib>

namespace
{
	FString& ExtraCaFile()
	{
		static FString Path = []()
		{
			const char* FromEnvironment = std::getenv("TAVRINE_EXTRA_CA_FILE");
			return FromEnvironment != nullptr ? FString(UTF8_TO_TCHAR(FromEnvironment)) : FString();
		}();
		return Path;
	}

	int64 MaxResponseBodyBytes = FHttpStandInSettings::DefaultMaxResponseBodyBytes;
}

void FHttpStandInSettings::SetExtraCaFile(const FString& Path)
{
	ExtraCaFile() = Path;
}

FString FHttpStandInSettings::GetExtraCaFile()
{
	return ExtraCaFile();
}

void FHttpStandInSettings::SetMaxResponseBodyBytes(int64 Bytes)
{
	MaxResponseBodyBytes = FMath::Clamp<int64>(Bytes, 0, DefaultMaxResponseBodyBytes);
}

int64 FHttpStandInSettings::GetMaxResponseBodyBytes()
{
	return MaxResponseBodyBytes;
}
