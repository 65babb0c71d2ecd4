// Human-readable layout: CR LF line ends, one tab per level, a blank after each colon.
#pragma once

#include "Policies/JsonPrintPolicy.h"

template<class CharType>
struct TPrettyJsonPrintPolicy : public TJsonPrintPolicy<CharType>
{
	static void WriteLineTerminator(FString* Stream)
	{
		Stream->AppendChar(CharType('\r'));
		Stream->AppendChar(CharType('\n'));
	}

	static void WriteTabs(FString* Stream, int32 Count)
	{
		for (int32 Index = 0; Index < Count; ++Index)
		{
			Stream->AppendChar(CharType('\t'));
		}
	}

	static void WriteSpace(FString* Stream)
	{
		Stream->AppendChar(CharType(' '));
	}
};
