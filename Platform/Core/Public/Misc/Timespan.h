#pragma once

#include "CoreTypes.h"
#include "Containers/UnrealString.h"

namespace ETimespan
{
	/** One tick is 100 nanoseconds. */
	inline constexpr int64 NanosecondsPerTick = 100;
	inline constexpr int64 TicksPerMicrosecond = 10;
	inline constexpr int64 TicksPerMillisecond = 10000;
	inline constexpr int64 TicksPerSecond = 10000000;
	inline constexpr int64 TicksPerMinute = 600000000;
	inline constexpr int64 TicksPerHour = 36000000000;
	inline constexpr int64 TicksPerDay = 864000000000;
	inline constexpr int64 TicksPerWeek = 6048000000000;
	inline constexpr int64 TicksPerYear = 365 * TicksPerDay;
	inline constexpr int64 MaxTicks = 9223372036854775807;
	inline constexpr int64 MinTicks = -9223372036854775807 - 1;
}

/** A span of time in 100-nanosecond ticks; may be negative. */
struct FTimespan
{
public:
	FTimespan()
		: Ticks(0)
	{
	}

	FTimespan(int64 InTicks)
		: Ticks(InTicks)
	{
	}

	FTimespan(int32 Hours, int32 Minutes, int32 Seconds);
	FTimespan(int32 Days, int32 Hours, int32 Minutes, int32 Seconds);
	FTimespan(int32 Days, int32 Hours, int32 Minutes, int32 Seconds, int32 FractionNano);

	FTimespan operator+(const FTimespan& Other) const
	{
		return FTimespan(Ticks + Other.Ticks);
	}
	FTimespan& operator+=(const FTimespan& Other)
	{
		Ticks += Other.Ticks;
		return *this;
	}
	FTimespan operator-() const
	{
		return FTimespan(-Ticks);
	}
	FTimespan operator-(const FTimespan& Other) const
	{
		return FTimespan(Ticks - Other.Ticks);
	}
	FTimespan& operator-=(const FTimespan& Other)
	{
		Ticks -= Other.Ticks;
		return *this;
	}
	FTimespan operator*(double Scalar) const;
	FTimespan& operator*=(double Scalar)
	{
		*this = *this * Scalar;
		return *this;
	}
	FTimespan operator/(double Scalar) const;
	FTimespan& operator/=(double Scalar)
	{
		*this = *this / Scalar;
		return *this;
	}
	FTimespan operator%(const FTimespan& Other) const
	{
		return FTimespan(Other.Ticks == 0 ? 0 : Ticks % Other.Ticks);
	}

	bool operator==(const FTimespan& Other) const
	{
		return Ticks == Other.Ticks;
	}
	bool operator!=(const FTimespan& Other) const
	{
		return Ticks != Other.Ticks;
	}
	bool operator<(const FTimespan& Other) const
	{
		return Ticks < Other.Ticks;
	}
	bool operator<=(const FTimespan& Other) const
	{
		return Ticks <= Other.Ticks;
	}
	bool operator>(const FTimespan& Other) const
	{
		return Ticks > Other.Ticks;
	}
	bool operator>=(const FTimespan& Other) const
	{
		return Ticks >= Other.Ticks;
	}

	int32 GetDays() const
	{
		return (int32)(Ticks / ETimespan::TicksPerDay);
	}
	int32 GetHours() const
	{
		return (int32)((Ticks / ETimespan::TicksPerHour) % 24);
	}
	int32 GetMinutes() const
	{
		return (int32)((Ticks / ETimespan::TicksPerMinute) % 60);
	}
	int32 GetSeconds() const
	{
		return (int32)((Ticks / ETimespan::TicksPerSecond) % 60);
	}
	int32 GetFractionMilli() const
	{
		return (int32)((Ticks % ETimespan::TicksPerSecond) / ETimespan::TicksPerMillisecond);
	}
	int32 GetFractionMicro() const
	{
		return (int32)((Ticks % ETimespan::TicksPerSecond) / ETimespan::TicksPerMicrosecond);
	}
	int32 GetFractionNano() const
	{
		return (int32)((Ticks % ETimespan::TicksPerSecond) * ETimespan::NanosecondsPerTick);
	}
	int32 GetFractionTicks() const
	{
		return (int32)(Ticks % ETimespan::TicksPerSecond);
	}
	int64 GetTicks() const
	{
		return Ticks;
	}
	FTimespan GetDuration() const
	{
		return FTimespan(Ticks >= 0 ? Ticks : -Ticks);
	}
	bool IsZero() const
	{
		return Ticks == 0;
	}

	double GetTotalDays() const
	{
		return (double)Ticks / ETimespan::TicksPerDay;
	}
	double GetTotalHours() const
	{
		return (double)Ticks / ETimespan::TicksPerHour;
	}
	double GetTotalMinutes() const
	{
		return (double)Ticks / ETimespan::TicksPerMinute;
	}
	double GetTotalSeconds() const
	{
		return (double)Ticks / ETimespan::TicksPerSecond;
	}
	double GetTotalMilliseconds() const
	{
		return (double)Ticks / ETimespan::TicksPerMillisecond;
	}
	double GetTotalMicroseconds() const
	{
		return (double)Ticks / ETimespan::TicksPerMicrosecond;
	}

	/** "+hh:mm:ss.fff", with "d." after the sign when the span is a day or more. */
	FString ToString() const;

	/**
	 * The span after a sign ('+' or '-'), with %d days, %D days (8 digits), %h hours, %m minutes, %s seconds
	 * (two digits each), %f milliseconds (3 digits), %u microseconds (6), %n nanoseconds (9); others as is.
	 */
	FString ToString(const TCHAR* Format) const;

	static FTimespan FromDays(double Days);
	static FTimespan FromHours(double Hours);
	static FTimespan FromMinutes(double Minutes);
	static FTimespan FromSeconds(double Seconds);
	static FTimespan FromMilliseconds(double Milliseconds);
	static FTimespan FromMicroseconds(double Microseconds);

	static FTimespan MaxValue()
	{
		return FTimespan(ETimespan::MaxTicks);
	}
	static FTimespan MinValue()
	{
		return FTimespan(ETimespan::MinTicks);
	}
	static FTimespan Zero()
	{
		return FTimespan(0);
	}
	static double Ratio(FTimespan Dividend, FTimespan Divisor)
	{
		return (double)Dividend.GetTicks() / (double)Divisor.GetTicks();
	}

	friend uint32 GetTypeHash(const FTimespan& Timespan)
	{
		return (uint32)(Timespan.Ticks ^ (Timespan.Ticks >> 32));
	}

private:
	int64 Ticks;
};

inline FTimespan operator*(double Scalar, const FTimespan& Timespan)
{
	return Timespan * Scalar;
}
