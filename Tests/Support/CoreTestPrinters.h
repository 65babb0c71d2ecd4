// Lets GoogleTest print engine strings in failure messages.
#pragma once

#include "CoreMinimal.h"

#include <ostream>

inline void PrintTo(const FString& String, std::ostream* Stream)
{
	*Stream << '"' << TCHAR_TO_UTF8(*String) << '"';
}

inline void PrintTo(const FName& Name, std::ostream* Stream)
{
	*Stream << TCHAR_TO_UTF8(*Name.ToString());
}
