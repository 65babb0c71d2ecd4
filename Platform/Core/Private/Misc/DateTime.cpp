#include "Misc/DateTime.h"

#include "HAL/StandInClock.h"

#include <cmath>
#include <ctime>

namespace
{
	constexpr int32 DaysPer400Years = 146097;
	constexpr int32 DaysPer100Years = 36524;
	constexpr int32 DaysPer4Years = 1461;

	// Days before the first of each month in a common year; index 12 is the year's length.
	constexpr int32 CumulativeDays[13] = {0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334, 365};

	const TCHAR* const ShortDayNames[7] = {TEXT("Mon"), TEXT("Tue"), TEXT("Wed"), TEXT("Thu"), TEXT("Fri"), TEXT("Sat"), TEXT("Sun")};
	const TCHAR* const LongDayNames[7] = {TEXT("Monday"), TEXT("Tuesday"), TEXT("Wednesday"), TEXT("Thursday"), TEXT("Friday"), TEXT("Saturday"), TEXT("Sunday")};
	const TCHAR* const ShortMonthNames[12] = {TEXT("Jan"), TEXT("Feb"), TEXT("Mar"), TEXT("Apr"), TEXT("May"), TEXT("Jun"), TEXT("Jul"), TEXT("Aug"), TEXT("Sep"), TEXT("Oct"), TEXT("Nov"), TEXT("Dec")};
	const TCHAR* const LongMonthNames[12] = {TEXT("January"), TEXT("February"), TEXT("March"), TEXT("April"), TEXT("May"), TEXT("June"), TEXT("July"), TEXT("August"), TEXT("September"), TEXT("October"), TEXT("November"), TEXT("December")};

	int64 DaysBeforeYear(int64 Year)
	{
		const int64 PriorYears = Year - 1;
		return PriorYears * 365 + PriorYears / 4 - PriorYears / 100 + PriorYears / 400;
	}

	// Splits a count of days since 0001-01-01 into year, month (1-12), day (1-31) and 0-based day of year.
	void SplitDays(int64 Days, int32& OutYear, int32& OutMonth, int32& OutDay, int32& OutDayOfYear)
	{
		if (Days < 0)
		{
			Days = 0;
		}
		const int64 Cycles400 = Days / DaysPer400Years;
		int64 Rest = Days % DaysPer400Years;
		int64 Cycles100 = Rest / DaysPer100Years;
		// The last day of a 400-year cycle belongs to its fourth century.
		if (Cycles100 == 4)
		{
			Cycles100 = 3;
		}
		Rest -= Cycles100 * DaysPer100Years;
		const int64 Cycles4 = Rest / DaysPer4Years;
		Rest %= DaysPer4Years;
		int64 Years = Rest / 365;
		if (Years == 4)
		{
			Years = 3;
		}
		Rest -= Years * 365;

		OutYear = (int32)(Cycles400 * 400 + Cycles100 * 100 + Cycles4 * 4 + Years + 1);
		OutDayOfYear = (int32)Rest;

		const bool bLeap = FDateTime::IsLeapYear(OutYear);
		int32 Month = 1;
		while (Month < 12)
		{
			const int32 NextStart = CumulativeDays[Month] + ((bLeap && Month >= 2) ? 1 : 0);
			if (Rest < NextStart)
			{
				break;
			}
			++Month;
		}
		const int32 MonthStart = CumulativeDays[Month - 1] + ((bLeap && Month > 2) ? 1 : 0);
		OutMonth = Month;
		OutDay = (int32)(Rest - MonthStart + 1);
	}

	void AppendNumber(FString& Out, int64 Value, int32 MinDigits)
	{
		TCHAR Digits[24];
		int32 Count = 0;
		const bool bNegative = Value < 0;
		uint64 Magnitude = bNegative ? (uint64)(-(Value + 1)) + 1 : (uint64)Value;
		do
		{
			Digits[Count++] = (TCHAR)(TEXT('0') + (Magnitude % 10));
			Magnitude /= 10;
		}
		while (Magnitude != 0);
		while (Count < MinDigits && Count < 20)
		{
			Digits[Count++] = TEXT('0');
		}
		if (bNegative)
		{
			Out.AppendChar(TEXT('-'));
		}
		while (Count > 0)
		{
			Out.AppendChar(Digits[--Count]);
		}
	}

	// Reads an unsigned decimal of exactly Digits digits, or of 1 or more when Digits is 0.
	bool ReadNumber(const TCHAR*& Cursor, int32 Digits, int32& OutValue)
	{
		int64 Value = 0;
		int32 Count = 0;
		while (*Cursor >= TEXT('0') && *Cursor <= TEXT('9') && (Digits == 0 || Count < Digits) && Count < 9)
		{
			Value = Value * 10 + (*Cursor - TEXT('0'));
			++Cursor;
			++Count;
		}
		OutValue = (int32)Value;
		return Digits == 0 ? Count > 0 : Count == Digits;
	}

	FDateTime FromUnixSecondsToMilliseconds(double UnixSeconds)
	{
		const int64 Milliseconds = (int64)std::floor(UnixSeconds * 1000.0);
		return FDateTime(1970, 1, 1) + FTimespan(Milliseconds * ETimespan::TicksPerMillisecond);
	}
}

FDateTime::FDateTime(int32 Year, int32 Month, int32 Day, int32 Hour, int32 Minute, int32 Second, int32 Millisecond)
{
	int64 Days = DaysBeforeYear(Year);
	if (Month >= 1 && Month <= 12)
	{
		Days += CumulativeDays[Month - 1] + ((Month > 2 && IsLeapYear(Year)) ? 1 : 0);
	}
	Days += Day - 1;
	Ticks = Days * ETimespan::TicksPerDay
		+ Hour * ETimespan::TicksPerHour
		+ Minute * ETimespan::TicksPerMinute
		+ Second * ETimespan::TicksPerSecond
		+ Millisecond * ETimespan::TicksPerMillisecond;
}

void FDateTime::GetDate(int32& OutYear, int32& OutMonth, int32& OutDay) const
{
	int32 DayOfYear = 0;
	SplitDays(Ticks / ETimespan::TicksPerDay, OutYear, OutMonth, OutDay, DayOfYear);
}

int32 FDateTime::GetDay() const
{
	int32 Year, Month, Day;
	GetDate(Year, Month, Day);
	return Day;
}

EDayOfWeek FDateTime::GetDayOfWeek() const
{
	// 0001-01-01 was a Monday.
	return static_cast<EDayOfWeek>((Ticks / ETimespan::TicksPerDay) % 7);
}

int32 FDateTime::GetDayOfYear() const
{
	int32 Year, Month, Day, DayOfYear;
	SplitDays(Ticks / ETimespan::TicksPerDay, Year, Month, Day, DayOfYear);
	return DayOfYear + 1;
}

int32 FDateTime::GetHour12() const
{
	const int32 Hour = GetHour() % 12;
	return Hour == 0 ? 12 : Hour;
}

int32 FDateTime::GetMonth() const
{
	int32 Year, Month, Day;
	GetDate(Year, Month, Day);
	return Month;
}

int32 FDateTime::GetYear() const
{
	int32 Year, Month, Day;
	GetDate(Year, Month, Day);
	return Year;
}

FString FDateTime::ToString() const
{
	return ToString(TEXT("%Y.%m.%d-%H.%M.%S"));
}

FString FDateTime::ToString(const TCHAR* Format) const
{
	FString Result;
	if (Format == nullptr)
	{
		return Result;
	}
	int32 Year, Month, Day, DayOfYear;
	SplitDays(Ticks / ETimespan::TicksPerDay, Year, Month, Day, DayOfYear);

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
		case TEXT('a'): Result += IsMorning() ? TEXT("am") : TEXT("pm"); break;
		case TEXT('A'): Result += IsMorning() ? TEXT("AM") : TEXT("PM"); break;
		case TEXT('d'): AppendNumber(Result, Day, 2); break;
		case TEXT('D'): AppendNumber(Result, DayOfYear + 1, 3); break;
		case TEXT('m'): AppendNumber(Result, Month, 2); break;
		case TEXT('y'): AppendNumber(Result, Year % 100, 2); break;
		case TEXT('Y'): AppendNumber(Result, Year, 4); break;
		case TEXT('h'): AppendNumber(Result, GetHour12(), 2); break;
		case TEXT('H'): AppendNumber(Result, GetHour(), 2); break;
		case TEXT('M'): AppendNumber(Result, GetMinute(), 2); break;
		case TEXT('S'): AppendNumber(Result, GetSecond(), 2); break;
		case TEXT('s'): AppendNumber(Result, GetMillisecond(), 3); break;
		default: Result.AppendChar(*Format); break;
		}
	}
	return Result;
}

FString FDateTime::ToFormattedString(const TCHAR* Format) const
{
	FString Result;
	if (Format == nullptr)
	{
		return Result;
	}
	int32 Year, Month, Day, DayOfYear;
	SplitDays(Ticks / ETimespan::TicksPerDay, Year, Month, Day, DayOfYear);
	const int32 WeekDay = (int32)GetDayOfWeek();

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
		case TEXT('a'): Result += ShortDayNames[WeekDay]; break;
		case TEXT('A'): Result += LongDayNames[WeekDay]; break;
		case TEXT('w'): AppendNumber(Result, (WeekDay + 1) % 7, 1); break;
		case TEXT('y'): AppendNumber(Result, Year % 100, 2); break;
		case TEXT('Y'): AppendNumber(Result, Year, 4); break;
		case TEXT('b'): Result += ShortMonthNames[Month - 1]; break;
		case TEXT('B'): Result += LongMonthNames[Month - 1]; break;
		case TEXT('m'): AppendNumber(Result, Month, 2); break;
		case TEXT('d'): AppendNumber(Result, Day, 2); break;
		case TEXT('e'): AppendNumber(Result, Day, 1); break;
		case TEXT('l'): AppendNumber(Result, GetHour12(), 1); break;
		case TEXT('I'): AppendNumber(Result, GetHour12(), 2); break;
		case TEXT('H'): AppendNumber(Result, GetHour(), 2); break;
		case TEXT('M'): AppendNumber(Result, GetMinute(), 2); break;
		case TEXT('S'): AppendNumber(Result, GetSecond(), 2); break;
		case TEXT('p'): Result += IsMorning() ? TEXT("AM") : TEXT("PM"); break;
		case TEXT('P'): Result += IsMorning() ? TEXT("am") : TEXT("pm"); break;
		case TEXT('j'): AppendNumber(Result, DayOfYear + 1, 3); break;
		default: Result.AppendChar(*Format); break;
		}
	}
	return Result;
}

FString FDateTime::ToIso8601() const
{
	return ToString(TEXT("%Y-%m-%dT%H:%M:%S.%sZ"));
}

FString FDateTime::ToHttpDate() const
{
	return ToFormattedString(TEXT("%a, %d %b %Y %H:%M:%S GMT"));
}

int32 FDateTime::DaysInMonth(int32 Year, int32 Month)
{
	if (Month < 1 || Month > 12)
	{
		return 0;
	}
	if (Month == 2 && IsLeapYear(Year))
	{
		return 29;
	}
	return CumulativeDays[Month] - CumulativeDays[Month - 1];
}

int32 FDateTime::DaysInYear(int32 Year)
{
	return IsLeapYear(Year) ? 366 : 365;
}

bool FDateTime::IsLeapYear(int32 Year)
{
	return (Year % 4 == 0) && (Year % 100 != 0 || Year % 400 == 0);
}

FDateTime FDateTime::Now()
{
	// The wall clock follows the stand-in's manual time when tests have stopped it.
	const double UnixSeconds = FStandInClock::GetWallUnixSeconds();
	const time_t WholeSeconds = (time_t)std::floor(UnixSeconds);
	const int32 Millisecond = (int32)std::floor((UnixSeconds - (double)WholeSeconds) * 1000.0);
	std::tm Local = {};
	if (localtime_r(&WholeSeconds, &Local) == nullptr)
	{
		return UtcNow();
	}
	return FDateTime(Local.tm_year + 1900, Local.tm_mon + 1, Local.tm_mday, Local.tm_hour, Local.tm_min, Local.tm_sec, Millisecond);
}

FDateTime FDateTime::UtcNow()
{
	return FromUnixSecondsToMilliseconds(FStandInClock::GetWallUnixSeconds());
}

bool FDateTime::Parse(const FString& DateTimeString, FDateTime& OutDateTime)
{
	const TCHAR* Cursor = *DateTimeString;
	int32 Parts[7] = {0, 0, 0, 0, 0, 0, 0};
	const TCHAR Separators[7] = {0, TEXT('.'), TEXT('.'), TEXT('-'), TEXT('.'), TEXT('.'), TEXT(':')};
	int32 Count = 0;
	while (Count < 7)
	{
		if (Count > 0)
		{
			if (*Cursor != Separators[Count])
			{
				break;
			}
			++Cursor;
		}
		if (!ReadNumber(Cursor, 0, Parts[Count]))
		{
			return false;
		}
		++Count;
	}
	if (*Cursor != 0 || (Count != 3 && Count != 6 && Count != 7))
	{
		return false;
	}
	if (!Validate(Parts[0], Parts[1], Parts[2], Parts[3], Parts[4], Parts[5], Parts[6]))
	{
		return false;
	}
	OutDateTime = FDateTime(Parts[0], Parts[1], Parts[2], Parts[3], Parts[4], Parts[5], Parts[6]);
	return true;
}

bool FDateTime::ParseIso8601(const TCHAR* DateTimeString, FDateTime& OutDateTime)
{
	if (DateTimeString == nullptr)
	{
		return false;
	}
	const TCHAR* Cursor = DateTimeString;
	int32 Year = 0, Month = 0, Day = 0, Hour = 0, Minute = 0, Second = 0, Millisecond = 0;
	if (!ReadNumber(Cursor, 4, Year) || *Cursor++ != TEXT('-') || !ReadNumber(Cursor, 2, Month) || *Cursor++ != TEXT('-') || !ReadNumber(Cursor, 2, Day))
	{
		return false;
	}
	int64 OffsetTicks = 0;
	if (*Cursor == TEXT('T') || *Cursor == TEXT('t'))
	{
		++Cursor;
		if (!ReadNumber(Cursor, 2, Hour) || *Cursor++ != TEXT(':') || !ReadNumber(Cursor, 2, Minute))
		{
			return false;
		}
		if (*Cursor == TEXT(':'))
		{
			++Cursor;
			if (!ReadNumber(Cursor, 2, Second))
			{
				return false;
			}
			if (*Cursor == TEXT('.'))
			{
				++Cursor;
				// Only the first three digits of the fraction count; the rest is precision we don't keep.
				int32 Digits = 0;
				while (*Cursor >= TEXT('0') && *Cursor <= TEXT('9'))
				{
					if (Digits < 3)
					{
						Millisecond = Millisecond * 10 + (*Cursor - TEXT('0'));
					}
					++Digits;
					++Cursor;
				}
				if (Digits == 0)
				{
					return false;
				}
				for (int32 Missing = Digits; Missing < 3; ++Missing)
				{
					Millisecond *= 10;
				}
			}
		}
		if (*Cursor == TEXT('Z') || *Cursor == TEXT('z'))
		{
			++Cursor;
		}
		else if (*Cursor == TEXT('+') || *Cursor == TEXT('-'))
		{
			const int64 Sign = (*Cursor == TEXT('-')) ? -1 : 1;
			++Cursor;
			int32 OffsetHours = 0, OffsetMinutes = 0;
			if (!ReadNumber(Cursor, 2, OffsetHours))
			{
				return false;
			}
			if (*Cursor == TEXT(':'))
			{
				++Cursor;
			}
			if (!ReadNumber(Cursor, 2, OffsetMinutes) || OffsetHours > 23 || OffsetMinutes > 59)
			{
				return false;
			}
			OffsetTicks = Sign * (OffsetHours * ETimespan::TicksPerHour + OffsetMinutes * ETimespan::TicksPerMinute);
		}
	}
	if (*Cursor != 0 || !Validate(Year, Month, Day, Hour, Minute, Second, Millisecond))
	{
		return false;
	}
	// An offset says how far local time is ahead of UTC.
	OutDateTime = FDateTime(Year, Month, Day, Hour, Minute, Second, Millisecond) - FTimespan(OffsetTicks);
	return true;
}

bool FDateTime::Validate(int32 Year, int32 Month, int32 Day, int32 Hour, int32 Minute, int32 Second, int32 Millisecond)
{
	return (Year >= 1) && (Year <= 9999)
		&& (Month >= 1) && (Month <= 12)
		&& (Day >= 1) && (Day <= DaysInMonth(Year, Month))
		&& (Hour >= 0) && (Hour <= 23)
		&& (Minute >= 0) && (Minute <= 59)
		&& (Second >= 0) && (Second <= 59)
		&& (Millisecond >= 0) && (Millisecond <= 999);
}
