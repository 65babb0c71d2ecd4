// Base of the print policies: how a writer puts characters into its output text.
#pragma once

#include "CoreMinimal.h"

template<class CharType>
struct TJsonPrintPolicy
{
	static void WriteChar(FString* Stream, CharType Char)
	{
		Stream->AppendChar(Char);
	}

	static void WriteString(FString* Stream, const FString& String)
	{
		Stream->Append(String);
	}
};
