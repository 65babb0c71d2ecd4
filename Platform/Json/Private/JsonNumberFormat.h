// Number text of the Json module: how numbers are written, read back and shown as text.
#pragma once

#include "CoreMinimal.h"

namespace UE::Json::Private
{
	// JSON text of a number: whole values below 2^53 as integers ("42"), others in the shortest
	// form that reads back to the same double ("0.1", "1e+300"). NaN and infinities, which JSON
	// can't hold, are written as null.
	void AppendJsonNumber(FString& Out, double Value);
	void AppendJsonNumber(FString& Out, float Value);
	void AppendJsonNumber(FString& Out, int64 Value);
	void AppendJsonNumber(FString& Out, uint64 Value);

	// Reads a whole text as a number, in JSON's grammar. False on anything else, or on overflow;
	// values too small for a double become zero.
	bool ParseNumberText(const TCHAR* Text, int32 Length, double& OutValue);

	// Reads a whole text as an integer; false if it isn't one or doesn't fit.
	bool ParseIntegerText(const TCHAR* Text, int32 Length, int64& OutValue);
	bool ParseUnsignedText(const TCHAR* Text, int32 Length, uint64& OutValue);

	// Round half away from zero into the integer type; false when out of range or not a number.
	bool RoundToInt64(double Value, int64& OutValue);
	bool RoundToUInt64(double Value, uint64& OutValue);
}
