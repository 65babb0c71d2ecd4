#pragma once

#include "CoreMinimal.h"
#include "Containers/StringView.h"

/** Platform helpers of the Http module. */
class FPlatformHttp
{
public:
	/** Percent-encodes the UTF-8 bytes of every character but the unreserved ones (A-Z a-z 0-9 - _ . ~). */
	static FString UrlEncode(const FStringView Source);
	/** Undoes UrlEncode; '+' stands for a blank, as in form data. */
	static FString UrlDecode(const FStringView EncodedString);
};
