#include "Misc/Timespan.h"

#include <cmath>

namespace
{
	void AppendDigits(FString& Out, int64 Value, int32 MinDigits)
	{
		TCHAR Digits[24];
		int32 Count = 0;
		do
		{
			Digits[Count++] = (TCHAR)(TEXT('0') + (Value % 10));
			Value /= 10;
		}
		while (Value != 0);
		while (Count < MinDigits && Count < 20)
		{
			Digits[Count++] = TEXT('0');
		}
		while (Count > 0)
		{
			Out.AppendChar(Digits[--Count]);
		}
	}

	// Rounds to whole ticks and saturates instead of overflowing on huge inputs.
	FTimespan FromScaledValue(double Value, double TicksPerUnit)
	{
		const double Ticks = std::round(Value * TicksPerUnit);
		if (!(Ticks < 9.2233720368547758e18))
		{
			return FTimespan::MaxValue();
		}
		if (!(Ticks > -9.2233720368547758e18))
		{
			return FTimespan::MinValue();
		}
		return FTimespan((int64)Ticks);
	}
}

FTimespan::FTimespan(int32 Hours, int32 Minutes, int32 Seconds)
	: Ticks(Hours * ETimespan::TicksPerHour + Minutes * ETimespan::TicksPerMinute + Seconds * ETimespan::TicksPerSecond)
{
}

FTimespan::FTimespan(int32 Days, int32 Hours, int32 Minutes, int32 Seconds)
	: Ticks(Days * ETimespan::TicksPerDay + Hours * ETimespan::TicksPerHour + Minutes * ETimespan::TicksPerMinute + Seconds * ETimespan::TicksPerSecond)
{
}

FTimespan::FTimespan(int32 Days, int32 Hours, int32 Minutes, int32 Seconds, int32 FractionNano)
	: Ticks(Days * ETimespan::TicksPerDay + Hours * ETimespan::TicksPerHour + Minutes * ETimespan::TicksPerMinute + Seconds * ETimespan::TicksPerSecond + FractionNano / ETimespan::NanosecondsPerTick)
{
}

FTimespan FTimespan::operator*(double Scalar) const
{
	return FromScaledValue((double)Ticks, Scalar);
}

FTimespan FTimespan::operator/(double Scalar) const
{
	return FromScaledValue((double)Ticks, 1.0 / Scalar);
}

FString FTimespan::ToString() const
{
	return ToString(GetDays() == 0 ? TEXT("%h:%m:%s.%f") : TEXT("%d.%h:%m:%s.%f"));
}

FString FTimespan::ToString(const TCHAR* Format) const
{
	FString Result;
	Result.AppendChar(Ticks < 0 ? TEXT('-') : TEXT('+'));
	if (Format == nullptr)
	{
		return Result;
	}
	// Parts of the magnitude, so that a negative span prints as "-" and positive digits.
	const uint64 Magnitude = Ticks < 0 ? (uint64)(-(Ticks + 1)) + 1 : (uint64)Ticks;
	const int64 Days = (int64)(Magnitude / ETimespan::TicksPerDay);
	const int64 Hours = (int64)((Magnitude / ETimespan::TicksPerHour) % 24);
	const int64 Minutes = (int64)((Magnitude / ETimespan::TicksPerMinute) % 60);
	const int64 Seconds = (int64)((Magnitude / ETimespan::TicksPerSecond) % 60);
	const int64 FractionTicks = (int64)(Magnitude % ETimespan::TicksPerSecond);

	for (; *Format != 0; ++Format)
	{
		if (*Format != TEXT('%') || Format[1] == 0)
		{
			Result.AppendChar(*Format);
			continue;
		}
		++Format;
		switch (*Format)
		{
		case TEXT('d'): AppendDigits(Result, Days, 1); break;
		case TEXT('D'): AppendDigits(Result, Days, 8); break;
		case TEXT('h'): AppendDigits(Result, Hours, 2); break;
		case TEXT('m'): AppendDigits(Result, Minutes, 2); break;
		case TEXT('s'): AppendDigits(Result, Seconds, 2); break;
		case TEXT('f'): AppendDigits(Result, FractionTicks / ETimespan::TicksPerMillisecond, 3); break;
		case TEXT('u'): AppendDigits(Result, FractionTicks / ETimespan::TicksPerMicrosecond, 6); break;
		case TEXT('n'): AppendDigits(Result, FractionTicks * ETimespan::NanosecondsPerTick, 9); break;
		default: Result.AppendChar(*Format); break;
		}
	}
	return Result;
}

FTimespan FTimespan::FromDays(double Days)
{
	return FromScaledValue(Days, (double)ETimespan::TicksPerDay);
}

FTimespan FTimespan::FromHours(double Hours)
{
	return FromScaledValue(Hours, (double)ETimespan::TicksPerHour);
}

FTimespan FTimespan::FromMinutes(double Minutes)
{
	return FromScaledValue(Minutes, (double)ETimespan::TicksPerMinute);
}

FTimespan FTimespan::FromSeconds(double Seconds)
{
	return FromScaledValue(Seconds, (double)ETimespan::TicksPerSecond);
}

FTimespan FTimespan::FromMilliseconds(double Milliseconds)
{
	return FromScaledValue(Milliseconds, (double)ETimespan::TicksPerMillisecond);
}

FTimespan FTimespan::FromMicroseconds(double Microseconds)
{
	return FromScaledValue(Microseconds, (double)ETimespan::TicksPerMicrosecond);
}
