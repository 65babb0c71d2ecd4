#include "CoreMinimal.h"
#include "CoreTestPrinters.h"
#include "HAL/StandInClock.h"
#include "Misc/App.h"
#include "Misc/DateTime.h"
#include "Misc/EngineVersion.h"
#include "Misc/Guid.h"
#include "Misc/Timespan.h"

#include <gtest/gtest.h>

#include <ctime>
#include <random>

TEST(FDateTimeTest, EngineAndStrftimeFormats)
{
	const FDateTime Moment(2024, 2, 29, 13, 5, 9, 7);
	EXPECT_EQ(Moment.ToString(), FString(TEXT("2024.02.29-13.05.09")));
	EXPECT_EQ(Moment.ToString(TEXT("%Y-%m-%d")), FString(TEXT("2024-02-29")));
	EXPECT_EQ(Moment.ToString(TEXT("%H:%M:%S")), FString(TEXT("13:05:09")));
	EXPECT_EQ(Moment.ToString(TEXT("%Y%m%d_%H%M%S")), FString(TEXT("20240229_130509")));
	EXPECT_EQ(Moment.ToString(TEXT("%y|%D|%s|%h%a|%A")), FString(TEXT("24|060|007|01pm|PM")));
	// An unknown code stands for itself, "%%" for a percent sign, and a last lone '%' stays.
	EXPECT_EQ(Moment.ToString(TEXT("%q %% 100%")), FString(TEXT("q % 100%")));
	EXPECT_EQ(Moment.ToIso8601(), FString(TEXT("2024-02-29T13:05:09.007Z")));
	EXPECT_EQ(Moment.ToFormattedString(TEXT("%a %A %b %B %e %l %I %p %P %j %w")), FString(TEXT("Thu Thursday Feb February 29 1 01 PM pm 060 4")));
	EXPECT_EQ(FDateTime(1994, 11, 6, 8, 49, 37).ToHttpDate(), FString(TEXT("Sun, 06 Nov 1994 08:49:37 GMT")));

	const FDateTime Midnight(2023, 12, 31);
	EXPECT_EQ(Midnight.ToString(TEXT("%h %a %D")), FString(TEXT("12 am 365")));
	EXPECT_EQ(Midnight.ToFormattedString(TEXT("%l%p %j %w")), FString(TEXT("12AM 365 0")));
}

TEST(FDateTimeTest, CalendarArithmeticAgreesDayByDay)
{
	// Walk every day of four centuries (leap rules of 1700, 1900, 2000 included) and check each step.
	FDateTime Day(1699, 12, 31);
	int32 Year = 1699, Month = 12, DayOfMonth = 31;
	int32 DayOfWeek = static_cast<int32>(Day.GetDayOfWeek());
	for (int32 Step = 0; Step < 146097; ++Step)
	{
		Day += FTimespan(ETimespan::TicksPerDay);
		++DayOfMonth;
		if (DayOfMonth > FDateTime::DaysInMonth(Year, Month))
		{
			DayOfMonth = 1;
			if (++Month > 12)
			{
				Month = 1;
				++Year;
			}
		}
		DayOfWeek = (DayOfWeek + 1) % 7;
		int32 GotYear, GotMonth, GotDay;
		Day.GetDate(GotYear, GotMonth, GotDay);
		ASSERT_TRUE(GotYear == Year && GotMonth == Month && GotDay == DayOfMonth) << Year << "-" << Month << "-" << DayOfMonth;
		ASSERT_EQ(static_cast<int32>(Day.GetDayOfWeek()), DayOfWeek);
		ASSERT_EQ(FDateTime(Year, Month, DayOfMonth), Day);
	}

	EXPECT_EQ(FDateTime::DaysInMonth(1900, 2), 28);
	EXPECT_EQ(FDateTime::DaysInMonth(2000, 2), 29);
	EXPECT_EQ(FDateTime(2024, 2, 29).GetDayOfWeek(), EDayOfWeek::Thursday);
	EXPECT_EQ(FDateTime(1, 1, 1).GetDayOfWeek(), EDayOfWeek::Monday);
	EXPECT_EQ(FDateTime(2024, 12, 31).GetDayOfYear(), 366);

	const FDateTime Max = FDateTime::MaxValue();
	EXPECT_EQ(Max.ToString(TEXT("%Y-%m-%d %H:%M:%S.%s")), FString(TEXT("9999-12-31 23:59:59.999")));
	EXPECT_EQ(FDateTime::FromUnixTimestamp(0), FDateTime(1970, 1, 1));
	EXPECT_EQ(FDateTime(2038, 1, 19, 3, 14, 8).ToUnixTimestamp(), 2147483648LL);
	EXPECT_EQ(FDateTime::FromUnixTimestamp(1700000000).ToUnixTimestamp(), 1700000000);

	// Differences of times are spans; a month of ticks is exactly its days.
	const FTimespan Span = FDateTime(2024, 3, 31) - FDateTime(2024, 3, 1);
	EXPECT_EQ(Span.GetTicks(), 30 * ETimespan::TicksPerDay);
	EXPECT_DOUBLE_EQ(Span.GetTotalDays(), 30.0);
	EXPECT_EQ(FDateTime(2024, 3, 1) + FTimespan::FromHours(36), FDateTime(2024, 3, 2, 12));
	EXPECT_TRUE(FDateTime(2024, 3, 1) < FDateTime(2024, 3, 1, 0, 0, 0, 1));
}

TEST(FDateTimeTest, ParsingAcceptsTheWrittenFormsAndRejectsTheRest)
{
	FDateTime Parsed;
	ASSERT_TRUE(FDateTime::Parse(TEXT("2024.02.29-13.05.09"), Parsed));
	EXPECT_EQ(Parsed, FDateTime(2024, 2, 29, 13, 5, 9));
	ASSERT_TRUE(FDateTime::Parse(TEXT("2024.02.29-13.05.09:250"), Parsed));
	EXPECT_EQ(Parsed.GetMillisecond(), 250);
	ASSERT_TRUE(FDateTime::Parse(TEXT("2024.02.29"), Parsed));
	EXPECT_EQ(Parsed, FDateTime(2024, 2, 29));
	for (const TCHAR* Bad : {TEXT(""), TEXT("2023.02.29"), TEXT("2024.13.01"), TEXT("2024.02.29-24.00.00"), TEXT("2024.02.29-13.05"), TEXT("2024.02.29x"), TEXT("abc")})
	{
		EXPECT_FALSE(FDateTime::Parse(Bad, Parsed)) << TCHAR_TO_UTF8(Bad);
	}

	ASSERT_TRUE(FDateTime::ParseIso8601(TEXT("2024-02-29T13:05:09.0071Z"), Parsed));
	EXPECT_EQ(Parsed, FDateTime(2024, 2, 29, 13, 5, 9, 7));
	ASSERT_TRUE(FDateTime::ParseIso8601(TEXT("2024-02-29T13:05:09+02:00"), Parsed));
	EXPECT_EQ(Parsed, FDateTime(2024, 2, 29, 11, 5, 9));
	ASSERT_TRUE(FDateTime::ParseIso8601(TEXT("2024-02-29"), Parsed));
	EXPECT_EQ(Parsed, FDateTime(2024, 2, 29));
	EXPECT_TRUE(FDateTime::ParseIso8601(*FDateTime(2001, 2, 3, 4, 5, 6, 7).ToIso8601(), Parsed));
	EXPECT_EQ(Parsed, FDateTime(2001, 2, 3, 4, 5, 6, 7));
	EXPECT_FALSE(FDateTime::ParseIso8601(TEXT("2024-02-29T13"), Parsed));
	EXPECT_FALSE(FDateTime::ParseIso8601(TEXT("2024-2-29"), Parsed));
	EXPECT_FALSE(FDateTime::ParseIso8601(nullptr, Parsed));
}

TEST(FDateTimeTest, NowAndUtcNowFollowTheManualClock)
{
	FStandInClock::UseManualTime(true);
	const FDateTime StartUtc = FDateTime::UtcNow();
	const FDateTime StartLocal = FDateTime::Now();
	FStandInClock::Advance(31.0 * 24 * 3600 + 0.5);
	const FTimespan Elapsed = FDateTime::UtcNow() - StartUtc;
	const FTimespan ElapsedLocal = FDateTime::Now() - StartLocal;
	FStandInClock::UseManualTime(false);

	EXPECT_EQ(Elapsed.GetTicks(), FTimespan::FromSeconds(31.0 * 24 * 3600 + 0.5).GetTicks());
	// Local time moves alike, but for a change of daylight saving time in that month.
	EXPECT_LE((ElapsedLocal - Elapsed).GetDuration(), FTimespan::FromHours(1));

	// Local time is UTC moved by the zone's offset.
	const time_t Seconds = (time_t)StartUtc.ToUnixTimestamp();
	std::tm Local = {};
	localtime_r(&Seconds, &Local);
	EXPECT_EQ((StartLocal - StartUtc).GetTicks() / ETimespan::TicksPerSecond, (int64)Local.tm_gmtoff);
	EXPECT_EQ(FDateTime::Today(), FDateTime::Now().GetDate());
}

TEST(FTimespanTest, UnitsAndText)
{
	EXPECT_EQ(FTimespan::FromDays(30).GetTicks(), 30 * 864000000000LL);
	EXPECT_EQ(FTimespan::FromSeconds(1.5).GetTicks(), 15000000);
	EXPECT_EQ(FTimespan(1, 2, 3).GetTotalSeconds(), 3723.0);
	EXPECT_EQ(FTimespan(2, 3, 4, 5).GetHours(), 3);
	EXPECT_EQ(FTimespan::FromMilliseconds(90500).ToString(), FString(TEXT("+00:01:30.500")));
	EXPECT_EQ((-FTimespan(1, 2, 0, 0)).ToString(), FString(TEXT("-1.02:00:00.000")));
	EXPECT_EQ(FTimespan::FromMicroseconds(1.5).ToString(TEXT("%s.%u %n")), FString(TEXT("+00.000001 000001500")));
	EXPECT_EQ(FTimespan::FromDays(1e300), FTimespan::MaxValue());
	EXPECT_EQ((FTimespan::FromHours(2) * 0.5), FTimespan::FromHours(1));
	EXPECT_EQ(FTimespan::FromHours(2) % FTimespan(), FTimespan());
}

TEST(FGuidTest, FormatsParseBack)
{
	const FGuid Guid(0x01234567, 0x89ABCDEF, 0xDEADBEEF, 0x0000000A);
	EXPECT_EQ(Guid.ToString(), FString(TEXT("0123456789ABCDEFDEADBEEF0000000A")));
	EXPECT_EQ(Guid.ToString(EGuidFormats::DigitsLower), FString(TEXT("0123456789abcdefdeadbeef0000000a")));
	EXPECT_EQ(Guid.ToString(EGuidFormats::DigitsWithHyphens), FString(TEXT("01234567-89AB-CDEF-DEAD-BEEF0000000A")));
	EXPECT_EQ(Guid.ToString(EGuidFormats::DigitsWithHyphensInBraces), FString(TEXT("{01234567-89AB-CDEF-DEAD-BEEF0000000A}")));
	EXPECT_EQ(Guid.ToString(EGuidFormats::DigitsWithHyphensInParentheses), FString(TEXT("(01234567-89AB-CDEF-DEAD-BEEF0000000A)")));
	EXPECT_EQ(Guid.ToString(EGuidFormats::HexValuesInBraces), FString(TEXT("{0x01234567,0x89AB,0xCDEF,{0xDE,0xAD,0xBE,0xEF,0x00,0x00,0x00,0x0A}}")));
	EXPECT_EQ(Guid.ToString(EGuidFormats::UniqueObjectGuid), FString(TEXT("01234567-89ABCDEF-DEADBEEF-0000000A")));
	EXPECT_EQ(Guid.ToString(EGuidFormats::Short).Len(), 22);
	EXPECT_EQ(Guid.ToString(EGuidFormats::Base36Encoded).Len(), 25);

	for (EGuidFormats Format : {EGuidFormats::Digits, EGuidFormats::DigitsLower, EGuidFormats::DigitsWithHyphens, EGuidFormats::DigitsWithHyphensLower, EGuidFormats::DigitsWithHyphensInBraces,
			EGuidFormats::DigitsWithHyphensInParentheses, EGuidFormats::HexValuesInBraces, EGuidFormats::UniqueObjectGuid, EGuidFormats::Short, EGuidFormats::Base36Encoded})
	{
		FGuid Parsed;
		EXPECT_TRUE(FGuid::ParseExact(Guid.ToString(Format), Format, Parsed)) << static_cast<int32>(Format);
		EXPECT_EQ(Parsed, Guid) << static_cast<int32>(Format);
	}
	const FGuid Largest(0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF);
	FGuid Parsed;
	ASSERT_TRUE(FGuid::ParseExact(Largest.ToString(EGuidFormats::Base36Encoded), EGuidFormats::Base36Encoded, Parsed));
	EXPECT_EQ(Parsed, Largest);
	EXPECT_FALSE(FGuid::ParseExact(TEXT("ZZZZZZZZZZZZZZZZZZZZZZZZZ"), EGuidFormats::Base36Encoded, Parsed));

	for (const TCHAR* Bad : {TEXT(""), TEXT("0123456789ABCDEFDEADBEEF0000000"), TEXT("0123456789ABCDEFDEADBEEF0000000G"), TEXT("01234567089AB-CDEF-DEAD-BEEF0000000A"), TEXT("{01234567-89AB-CDEF-DEAD-BEEF0000000A)")})
	{
		EXPECT_FALSE(FGuid::Parse(Bad, Parsed)) << TCHAR_TO_UTF8(Bad);
		EXPECT_FALSE(FGuid(FString(Bad)).IsValid());
	}
	EXPECT_EQ(FGuid(FString(TEXT("01234567-89ab-cdef-dead-beef0000000a"))), Guid);
}

TEST(FGuidTest, NewGuidsAreValidDistinctAndThirtyTwoHexDigits)
{
	TSet<FString> Seen;
	for (int32 Index = 0; Index < 1000; ++Index)
	{
		const FGuid Guid = FGuid::NewGuid();
		ASSERT_TRUE(Guid.IsValid());
		const FString Digits = Guid.ToString(EGuidFormats::Digits);
		ASSERT_EQ(Digits.Len(), 32);
		for (TCHAR Char : Digits)
		{
			ASSERT_TRUE((Char >= TEXT('0') && Char <= TEXT('9')) || (Char >= TEXT('A') && Char <= TEXT('F')));
		}
		Seen.Add(Digits);
	}
	EXPECT_EQ(Seen.Num(), 1000);
	FGuid Guid = FGuid::NewGuid();
	Guid.Invalidate();
	EXPECT_FALSE(Guid.IsValid());
}

TEST(FEngineVersionTest, CurrentVersionAndBranchHaveTheEnginesForm)
{
	EXPECT_EQ(FApp::GetBranchName(), FString(TEXT("++UE5+Release-5.5")));
	const FEngineVersion& Current = FEngineVersion::Current();
	EXPECT_EQ(Current.ToString(), FString(TEXT("5.5.4-0+++UE5+Release-5.5")));
	EXPECT_EQ(Current.ToString(EVersionComponent::Branch), FString(TEXT("5.5.4-0+++UE5+Release-5.5")));
	EXPECT_EQ(Current.ToString(EVersionComponent::Changelist), FString(TEXT("5.5.4-0")));
	EXPECT_EQ(Current.ToString(EVersionComponent::Patch), FString(TEXT("5.5.4")));
	EXPECT_EQ(Current.ToString(EVersionComponent::Minor), FString(TEXT("5.5")));
	EXPECT_EQ(Current.ToString(EVersionComponent::Major), FString(TEXT("5")));
	EXPECT_EQ(Current.GetBranch(), FString(TEXT("//UE5/Release-5.5")));
	EXPECT_EQ(Current.GetMajor(), 5);
	EXPECT_EQ(Current.GetMinor(), 5);

	// The backend's header takes the first two pieces between dots.
	TArray<FString> Pieces;
	Current.ToString(EVersionComponent::Branch).ParseIntoArray(Pieces, TEXT("."));
	ASSERT_GE(Pieces.Num(), 2);
	EXPECT_EQ(Pieces[0] + TEXT(".") + Pieces[1], FString(TEXT("5.5")));

	FEngineVersion Parsed;
	ASSERT_TRUE(FEngineVersion::Parse(Current.ToString(), Parsed));
	EXPECT_TRUE(Parsed.ExactMatch(Current));
	ASSERT_TRUE(FEngineVersion::Parse(TEXT("5.4.1"), Parsed));
	EXPECT_EQ(Parsed.ToString(), FString(TEXT("5.4.1-0")));
	EXPECT_TRUE(Current.IsCompatibleWith(Parsed));
	EXPECT_FALSE(FEngineVersion::Parse(TEXT("5.x"), Parsed));
	EXPECT_FALSE(FEngineVersion::Parse(TEXT("5.5.4 extra"), Parsed));
	EXPECT_EQ(FEngineVersionBase::GetNewest(FEngineVersionBase(5, 4), FEngineVersionBase(5, 5), nullptr), EVersionComparison::Second);
}

TEST(FDateTimeTest, RandomMomentsRoundTripThroughTheirTexts)
{
	std::mt19937_64 Random(11);
	const int64 MaxTicks = FDateTime::MaxValue().GetTicks();
	for (int32 Round = 0; Round < 5000; ++Round)
	{
		const FDateTime Moment((int64)(Random() % (uint64)MaxTicks));
		const FDateTime ToMillisecond(Moment.GetTicks() - Moment.GetTicks() % ETimespan::TicksPerMillisecond);
		FDateTime Parsed;
		ASSERT_TRUE(FDateTime::Parse(Moment.ToString(TEXT("%Y.%m.%d-%H.%M.%S:%s")), Parsed)) << TCHAR_TO_UTF8(*Moment.ToString());
		ASSERT_EQ(Parsed, ToMillisecond);
		ASSERT_TRUE(FDateTime::ParseIso8601(*Moment.ToIso8601(), Parsed));
		ASSERT_EQ(Parsed, ToMillisecond);
		ASSERT_EQ(FDateTime(Moment.GetYear(), Moment.GetMonth(), Moment.GetDay(), Moment.GetHour(), Moment.GetMinute(), Moment.GetSecond(), Moment.GetMillisecond()), ToMillisecond);
		ASSERT_EQ(FDateTime::FromUnixTimestamp(Moment.ToUnixTimestamp()), FDateTime(Moment.GetTicks() - (Moment.GetTicks() - FDateTime(1970, 1, 1).GetTicks()) % ETimespan::TicksPerSecond));
	}
}

TEST(FGuidTest, RandomGuidsRoundTripInEveryFormat)
{
	std::mt19937 Random(3);
	for (int32 Round = 0; Round < 1000; ++Round)
	{
		// Words with runs of zero and all-one bits, where positional mistakes show.
		const uint32 Masks[] = {0xFFFFFFFFu, 0x0000FFFFu, 0xFFFF0000u, 0x000000FFu, 0xFF000000u, 0u};
		const FGuid Guid(Random() & Masks[Random() % 6], Random() & Masks[Random() % 6], Random() & Masks[Random() % 6], Random() & Masks[Random() % 6]);
		for (EGuidFormats Format : {EGuidFormats::Digits, EGuidFormats::DigitsWithHyphensLower, EGuidFormats::DigitsWithHyphensInBraces, EGuidFormats::HexValuesInBraces, EGuidFormats::UniqueObjectGuid, EGuidFormats::Short, EGuidFormats::Base36Encoded})
		{
			FGuid Parsed;
			ASSERT_TRUE(FGuid::ParseExact(Guid.ToString(Format), Format, Parsed));
			ASSERT_EQ(Parsed, Guid);
		}
		FGuid Parsed;
		ASSERT_TRUE(FGuid::Parse(Guid.ToString(EGuidFormats::HexValuesInBraces), Parsed));
		ASSERT_EQ(Parsed, Guid);
		// The digit forms order as the GUIDs do.
		const FGuid Other(Random(), Random(), Random(), Random());
		ASSERT_EQ(Guid < Other, Guid.ToString().Compare(Other.ToString()) < 0);
	}
}
