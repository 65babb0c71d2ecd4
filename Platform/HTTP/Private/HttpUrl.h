#pragma once

#include "CoreMinimal.h"

namespace HttpUrl
{
	/** The decoded value of a query parameter of URL, or an empty string when it has none. */
	FString GetParameter(const FString& URL, const FString& ParameterName);
}
