#pragma once

#include "CoreTypes.h"
#include "Containers/UnrealString.h"
#include "Misc/Timespan.h"

enum class EDayOfWeek
{
	Monday = 0,
	Tuesday,
	Wednesday,
	Thursday,
	Friday,
	Saturday,
	Sunday
};

enum class EMonthOfYear
{
	January = 1,
	February,
	March,
	April,
	May,
	June,
	July,
	August,
	September,
	October,
	November,
	December
};

/**
 * A date and time of the Gregorian calendar in 100-nanosecond ticks since 0001-01-01 00:00:00. It holds no
 * time zone: Now gives local time, UtcNow universal time.
 */
struct FDateTime
{
public:
	FDateTime()
		: Ticks(0)
	{
	}

	FDateTime(int64 InTicks)
		: Ticks(InTicks)
	{
	}

	/** Parts outside their ranges are not checked here; see Validate. */
	FDateTime(int32 Year, int32 Month, int32 Day, int32 Hour = 0, int32 Minute = 0, int32 Second = 0, int32 Millisecond = 0);

	FDateTime operator+(const FTimespan& Other) const
	{
		return FDateTime(Ticks + Other.GetTicks());
	}
	FDateTime& operator+=(const FTimespan& Other)
	{
		Ticks += Other.GetTicks();
		return *this;
	}
	FDateTime operator-(const FTimespan& Other) const
	{
		return FDateTime(Ticks - Other.GetTicks());
	}
	FDateTime& operator-=(const FTimespan& Other)
	{
		Ticks -= Other.GetTicks();
		return *this;
	}
	FTimespan operator-(const FDateTime& Other) const
	{
		return FTimespan(Ticks - Other.Ticks);
	}

	bool operator==(const FDateTime& Other) const
	{
		return Ticks == Other.Ticks;
	}
	bool operator!=(const FDateTime& Other) const
	{
		return Ticks != Other.Ticks;
	}
	bool operator<(const FDateTime& Other) const
	{
		return Ticks < Other.Ticks;
	}
	bool operator<=(const FDateTime& Other) const
	{
		return Ticks <= Other.Ticks;
	}
	bool operator>(const FDateTime& Other) const
	{
		return Ticks > Other.Ticks;
	}
	bool operator>=(const FDateTime& Other) const
	{
		return Ticks >= Other.Ticks;
	}

	/** Midnight of the same day. */
	FDateTime GetDate() const
	{
		return FDateTime(Ticks - (Ticks % ETimespan::TicksPerDay));
	}
	void GetDate(int32& OutYear, int32& OutMonth, int32& OutDay) const;
	int32 GetDay() const;
	EDayOfWeek GetDayOfWeek() const;
	int32 GetDayOfYear() const;
	int32 GetHour() const
	{
		return (int32)((Ticks / ETimespan::TicksPerHour) % 24);
	}
	/** 1 to 12. */
	int32 GetHour12() const;
	int32 GetMillisecond() const
	{
		return (int32)((Ticks / ETimespan::TicksPerMillisecond) % 1000);
	}
	int32 GetMinute() const
	{
		return (int32)((Ticks / ETimespan::TicksPerMinute) % 60);
	}
	int32 GetMonth() const;
	EMonthOfYear GetMonthOfYear() const
	{
		return static_cast<EMonthOfYear>(GetMonth());
	}
	int32 GetSecond() const
	{
		return (int32)((Ticks / ETimespan::TicksPerSecond) % 60);
	}
	int64 GetTicks() const
	{
		return Ticks;
	}
	FTimespan GetTimeOfDay() const
	{
		return FTimespan(Ticks % ETimespan::TicksPerDay);
	}
	int32 GetYear() const;
	bool IsAfternoon() const
	{
		return GetHour() >= 12;
	}
	bool IsMorning() const
	{
		return GetHour() < 12;
	}
	double GetJulianDay() const
	{
		return 1721425.5 + (double)Ticks / ETimespan::TicksPerDay;
	}
	double GetModifiedJulianDay() const
	{
		return GetJulianDay() - 2400000.5;
	}

	/** "yyyy.mm.dd-hh.mm.ss". */
	FString ToString() const;

	/**
	 * The engine's own codes (not strftime): %a am/pm, %A AM/PM, %d day 01-31, %D day of year 001-366,
	 * %m month 01-12, %y two-digit year, %Y four-digit year, %h hour 01-12, %H hour 00-23, %M minute,
	 * %S second, %s millisecond 000-999. After '%' any other character stands for itself.
	 */
	FString ToString(const TCHAR* Format) const;

	/**
	 * strftime-like codes: %a Sun, %A Sunday, %w weekday 0-6 (Sunday 0), %y, %Y, %b Jan, %B January,
	 * %m 01-12, %d 01-31, %e 1-31, %l 1-12, %I 01-12, %H 00-23, %M, %S, %p AM/PM, %P am/pm, %j 001-366.
	 */
	FString ToFormattedString(const TCHAR* Format) const;

	/** "yyyy-mm-ddThh:mm:ss.sssZ". */
	FString ToIso8601() const;
	/** RFC 1123, e.g. "Sun, 06 Nov 1994 08:49:37 GMT". */
	FString ToHttpDate() const;

	int64 ToUnixTimestamp() const
	{
		return (Ticks - FDateTime(1970, 1, 1).Ticks) / ETimespan::TicksPerSecond;
	}
	double ToUnixTimestampDecimal() const
	{
		return (double)(Ticks - FDateTime(1970, 1, 1).Ticks) / ETimespan::TicksPerSecond;
	}

	static int32 DaysInMonth(int32 Year, int32 Month);
	static int32 DaysInYear(int32 Year);
	static bool IsLeapYear(int32 Year);
	static FDateTime FromJulianDay(double JulianDay)
	{
		return FDateTime((int64)((JulianDay - 1721425.5) * ETimespan::TicksPerDay));
	}
	static FDateTime FromUnixTimestamp(int64 UnixTime)
	{
		return FDateTime(1970, 1, 1) + FTimespan(UnixTime * ETimespan::TicksPerSecond);
	}
	static FDateTime FromUnixTimestampDecimal(double UnixTime)
	{
		return FDateTime(1970, 1, 1) + FTimespan((int64)(UnixTime * ETimespan::TicksPerSecond));
	}

	static FDateTime MaxValue()
	{
		return FDateTime(3652059 * ETimespan::TicksPerDay - 1);
	}
	static FDateTime MinValue()
	{
		return FDateTime(0);
	}

	/** Local date and time. */
	static FDateTime Now();
	/** Coordinated universal time. */
	static FDateTime UtcNow();
	/** Local date at midnight. */
	static FDateTime Today()
	{
		return Now().GetDate();
	}

	/** "yyyy.mm.dd-hh.mm.ss", "yyyy.mm.dd-hh.mm.ss:mmm" or "yyyy.mm.dd". */
	static bool Parse(const FString& DateTimeString, FDateTime& OutDateTime);
	/** "yyyy-mm-dd", "yyyy-mm-ddThh:mm:ss[.sss]" with "Z" or a "+hh:mm"/"-hh:mm" offset (result in UTC). */
	static bool ParseIso8601(const TCHAR* DateTimeString, FDateTime& OutDateTime);

	static bool Validate(int32 Year, int32 Month, int32 Day, int32 Hour, int32 Minute, int32 Second, int32 Millisecond);

	friend uint32 GetTypeHash(const FDateTime& DateTime)
	{
		return (uint32)(DateTime.Ticks ^ (DateTime.Ticks >> 32));
	}

private:
	int64 Ticks;
};
