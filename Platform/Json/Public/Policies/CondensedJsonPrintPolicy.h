// Compact layout: no white space at all between tokens.
#pragma once

#include "Policies/JsonPrintPolicy.h"

template<class CharType>
struct TCondensedJsonPrintPolicy : public TJsonPrintPolicy<CharType>
{
	static void WriteLineTerminator(FString* Stream)
	{
	}

	static void WriteTabs(FString* Stream, int32 Count)
	{
	}

	static void WriteSpace(FString* Stream)
	{
	}
};
