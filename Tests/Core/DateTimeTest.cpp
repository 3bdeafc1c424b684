// FDateTime: calendar arithmetic, formatting and the two parsers.

#include "Containers/StringConv.h"
#include "Misc/DateTime.h"

#include <gtest/gtest.h>

#include <ostream>

void PrintTo(const FString& String, std::ostream* Stream)
{
	*Stream << '"' << FTCHARToUTF8(*String).Get() << '"';
}

void PrintTo(const FDateTime& DateTime, std::ostream* Stream)
{
	*Stream << FTCHARToUTF8(*DateTime.ToIso8601()).Get();
}

TEST(DateTime, CalendarFieldsAgreeWithTheConstructor)
{
	const FDateTime LeapDay(2024, 2, 29, 13, 5, 9, 250);
	EXPECT_EQ(LeapDay.GetYear(), 2024);
	EXPECT_EQ(LeapDay.GetMonth(), 2);
	EXPECT_EQ(LeapDay.GetDay(), 29);
	EXPECT_EQ(LeapDay.GetDayOfYear(), 60);
	EXPECT_EQ(LeapDay.GetDayOfWeek(), EDayOfWeek::Thursday);
	EXPECT_EQ(LeapDay.GetHour(), 13);
	EXPECT_EQ(LeapDay.GetHour12(), 1);
	EXPECT_EQ(LeapDay.GetMillisecond(), 250);
	EXPECT_EQ(LeapDay.GetTimeOfDay(), FTimespan(0, 13, 5, 9, 250000000));
	EXPECT_EQ(LeapDay.GetDate(), FDateTime(2024, 2, 29));

	EXPECT_TRUE(FDateTime::IsLeapYear(2000));
	EXPECT_FALSE(FDateTime::IsLeapYear(1900));
	EXPECT_EQ(FDateTime::DaysInMonth(2023, 2), 28);
	EXPECT_EQ(FDateTime::DaysInMonth(2024, 12), 31);
	EXPECT_FALSE(FDateTime::Validate(2023, 2, 29, 0, 0, 0, 0));
	EXPECT_FALSE(FDateTime::Validate(2024, 1, 1, 24, 0, 0, 0));
	EXPECT_EQ(FDateTime(1970, 1, 1).ToUnixTimestamp(), 0);
	EXPECT_EQ(FDateTime::FromUnixTimestamp(1700000000), FDateTime(2023, 11, 14, 22, 13, 20));
	EXPECT_EQ(FDateTime::MinValue(), FDateTime(1, 1, 1));
	EXPECT_EQ(FDateTime::MaxValue().GetDate(), FDateTime(9999, 12, 31));

	// Walk the calendar a day at a time across centuries and leap years: every date reads back.
	FDateTime Day(1899, 12, 25);
	for (int32 Step = 0; Step < 300 * 365; Step += 7)
	{
		const FDateTime Current = Day + FTimespan::FromDays(Step);
		int32 Year = 0;
		int32 Month = 0;
		int32 DayOfMonth = 0;
		Current.GetDate(Year, Month, DayOfMonth);
		ASSERT_EQ(FDateTime(Year, Month, DayOfMonth), Current) << Step;
		ASSERT_EQ(Current.GetDayOfWeek(), EDayOfWeek::Monday) << Step;
	}

	EXPECT_EQ(LeapDay.ToString(), TEXT("2024.02.29-13.05.09"));
	EXPECT_EQ(LeapDay.ToString(TEXT("%Y-%m-%d %H:%M:%S.%s %h%a %A %y %D %% %q")), TEXT("2024-02-29 13:05:09.250 01pm PM 24 060 % %q"));
	EXPECT_EQ(LeapDay.ToIso8601(), TEXT("2024-02-29T13:05:09.250Z"));
	EXPECT_EQ(LeapDay - FDateTime(2024, 2, 28, 13, 5, 9, 250), FTimespan::FromDays(1));
	EXPECT_GE(FDateTime::UtcNow().GetYear(), 2024);
	EXPECT_LE((FDateTime::Now() - FDateTime::UtcNow()).GetDuration(), FTimespan::FromHours(15));
}

TEST(DateTimeParse, ReadsSixOrSevenFieldsBetweenAnyOfItsFourSeparators)
{
	struct FCase
	{
		const TCHAR* Text;
		FDateTime Expected;
	};
	const FCase Cases[] = {
		{TEXT("2024.02.29-13.05.09"), FDateTime(2024, 2, 29, 13, 5, 9)},
		{TEXT("2024.02.29-13.05.09.250"), FDateTime(2024, 2, 29, 13, 5, 9, 250)},
		{TEXT("2024.02.29-13.05.09.25"), FDateTime(2024, 2, 29, 13, 5, 9, 25)},
		{TEXT("0001-01-01 00:00:00"), FDateTime::MinValue()},
		{TEXT("9999-12-31 23:59:59.999"), FDateTime(9999, 12, 31, 23, 59, 59, 999)},
		{TEXT("2024.2.9-1.2.3"), FDateTime(2024, 2, 9, 1, 2, 3)},
		{TEXT(" 2024..02:29 13-05-09 "), FDateTime(2024, 2, 29, 13, 5, 9)},
		{TEXT("2024.02.29-13.05.09x"), FDateTime(2024, 2, 29, 13, 5, 9)},
	};
	for (const FCase& Case : Cases)
	{
		FDateTime Parsed;
		ASSERT_TRUE(FDateTime::Parse(Case.Text, Parsed)) << FTCHARToUTF8(Case.Text).Get();
		EXPECT_EQ(Parsed, Case.Expected) << FTCHARToUTF8(Case.Text).Get();
	}
	const FDateTime Original(1987, 6, 5, 4, 3, 2);
	FDateTime Parsed;
	ASSERT_TRUE(FDateTime::Parse(Original.ToString(), Parsed));
	EXPECT_EQ(Parsed, Original);
}

TEST(DateTimeParse, FailsOnImpossibleDatesAndOtherFieldCountsLeavingTheTargetUntouched)
{
	const FDateTime Sentinel(2000, 1, 2, 3, 4, 5);
	for (const TCHAR* Text : {TEXT("2023.02.29-00.00.00"), TEXT("2024.13.01-00.00.00"), TEXT("2024.02.30-00.00.00"), TEXT("2024.00.10-00.00.00"),
			 TEXT("2024.01.01-24.00.00"), TEXT("2024.01.01-00.60.00"), TEXT("0000.01.01-00.00.00"), TEXT("2024.01.01-00.00.00.1000"),
			 TEXT("2024-02-29T13:05:09"), TEXT("2024.02.29"), TEXT(""), TEXT("2024.02.29-13.05.09.250.1"), TEXT("yesterday")})
	{
		FDateTime Target = Sentinel;
		EXPECT_FALSE(FDateTime::Parse(Text, Target)) << FTCHARToUTF8(Text).Get();
		EXPECT_EQ(Target, Sentinel) << FTCHARToUTF8(Text).Get();
	}
}

TEST(DateTimeParseIso8601, AppliesTheZoneOffsetSoTheResultIsUtc)
{
	FDateTime Parsed;
	ASSERT_TRUE(FDateTime::ParseIso8601(TEXT("2024-03-10T12:00:00+02:00"), Parsed));
	EXPECT_EQ(Parsed, FDateTime(2024, 3, 10, 10, 0, 0));
	ASSERT_TRUE(FDateTime::ParseIso8601(TEXT("2024-03-10T23:45:00-0530"), Parsed));
	EXPECT_EQ(Parsed, FDateTime(2024, 3, 11, 5, 15, 0));
	ASSERT_TRUE(FDateTime::ParseIso8601(TEXT("2024-03-10T12:00:00.5Z"), Parsed));
	EXPECT_EQ(Parsed, FDateTime(2024, 3, 10, 12, 0, 0, 500));
	ASSERT_TRUE(FDateTime::ParseIso8601(TEXT("2024-03-10T12:00"), Parsed));
	EXPECT_EQ(Parsed, FDateTime(2024, 3, 10, 12, 0, 0));
	ASSERT_TRUE(FDateTime::ParseIso8601(TEXT("2024-03-10"), Parsed));
	EXPECT_EQ(Parsed, FDateTime(2024, 3, 10));
	ASSERT_TRUE(FDateTime::ParseIso8601(*FDateTime(2001, 2, 3, 4, 5, 6, 7).ToIso8601(), Parsed));
	EXPECT_EQ(Parsed, FDateTime(2001, 2, 3, 4, 5, 6, 7));

	const FDateTime Sentinel(2000, 1, 1);
	for (const TCHAR* Text : {TEXT("2024-02-30"), TEXT("2024-03-10T12"), TEXT("2024-03-10T12:00:00+25:00"), TEXT("2024-03-10T12:00:00."),
			 TEXT("0001-01-01T00:00:00+01:00"), TEXT("2024-03-10 12:00:00"), TEXT("20240310T120000Z"), TEXT("")})
	{
		FDateTime Target = Sentinel;
		EXPECT_FALSE(FDateTime::ParseIso8601(Text, Target)) << FTCHARToUTF8(Text).Get();
		EXPECT_EQ(Target, Sentinel) << FTCHARToUTF8(Text).Get();
	}
	EXPECT_FALSE(FDateTime::ParseIso8601(nullptr, Parsed));
}
