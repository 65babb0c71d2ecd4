// Reading and writing the pieces of the engine's property text forms.
#pragma once

#include "CoreMinimal.h"

namespace UE::CoreUObject::Private
{
	const TCHAR* SkipWhitespace(const TCHAR* Buffer);
	// A double-quoted string with backslash escapes; null when the quote isn't closed.
	const TCHAR* ReadQuotedString(const TCHAR* Buffer, FString& Out);
	// Letters, digits and _ - + . ; with bAllowScope also ':' (for "EName::Entry").
	const TCHAR* ReadBareToken(const TCHAR* Buffer, FString& Out, bool bAllowScope = false);
	// A quoted string or a bare token; null when there is neither.
	const TCHAR* ReadToken(const TCHAR* Buffer, FString& Out, bool bAllowScope = false);
	// The string in double quotes, with quotes, backslashes and line breaks escaped.
	FString QuoteString(const FString& Value);

	// A decimal or hexadecimal number; null when the text doesn't start with one.
	const TCHAR* ReadSignedInteger(const TCHAR* Buffer, int64& OutValue);
	const TCHAR* ReadUnsignedInteger(const TCHAR* Buffer, uint64& OutValue);
	const TCHAR* ReadFloat(const TCHAR* Buffer, double& OutValue);
}
