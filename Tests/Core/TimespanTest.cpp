// FTimespan: components, formatting, parsing, saturation, hashing.

#include "Containers/StringConv.h"
#include "Misc/Timespan.h"

#include <gtest/gtest.h>

#include <cmath>
#include <ostream>

void PrintTo(const FString& String, std::ostream* Stream)
{
	*Stream << '"' << FTCHARToUTF8(*String).Get() << '"';
}

void PrintTo(const FTimespan& Span, std::ostream* Stream)
{
	*Stream << Span.GetTicks() << " ticks";
}

TEST(TimespanToString, AlwaysLeadsWithASign)
{
	EXPECT_EQ(FTimespan::FromSeconds(30).ToString(TEXT("%h:%m:%s")), TEXT("+00:00:30"));
	EXPECT_EQ(FTimespan::Zero().ToString(TEXT("%h:%m:%s")), TEXT("+00:00:00"));
	EXPECT_EQ(FTimespan::FromSeconds(-30).ToString(TEXT("%h:%m:%s")), TEXT("-00:00:30"));
	EXPECT_EQ(FTimespan::FromHours(25).ToString(TEXT("%h:%m:%s")), TEXT("+01:00:00"));
	EXPECT_EQ(FTimespan::FromHours(25).ToString(TEXT("%d.%h")), TEXT("+1.01"));
	EXPECT_EQ(FTimespan::FromHours(25).ToString(TEXT("%D")), TEXT("+00000001"));
	EXPECT_EQ(FTimespan(0, 0, 0, 1, 123456789).ToString(TEXT("%s.%f %u %n")), TEXT("+01.123 123456 123456700"));
	EXPECT_EQ(FTimespan::FromMinutes(90).ToString(TEXT("%m min, 100%% [%x]")), TEXT("+30 min, 100% [%x]"));

	EXPECT_EQ(FTimespan::FromMilliseconds(36457).ToString(), TEXT("+00:00:36.457"));
	EXPECT_EQ(-FTimespan(42, 15, 11, 36, 457000000), FTimespan::FromSeconds(-(42 * 86400 + 15 * 3600 + 11 * 60 + 36.457)));
	EXPECT_EQ(FTimespan(-42, -15, -11, -36, -457000000).ToString(), TEXT("-42.15:11:36.457"));
	EXPECT_EQ(FTimespan::MinValue().ToString(), TEXT("-10675199.02:48:05.477"));
	EXPECT_EQ(FTimespan::MaxValue().ToString(), TEXT("+10675199.02:48:05.477"));
}

TEST(TimespanParse, ReadsFieldsFromTheRightWithLooseSeparators)
{
	struct FCase
	{
		const TCHAR* Text;
		FTimespan Expected;
	};
	const FCase Cases[] = {
		{TEXT("00:00:03"), FTimespan::FromSeconds(3)},
		{TEXT("01:30"), FTimespan::FromSeconds(90)},
		{TEXT("5"), FTimespan::FromSeconds(5)},
		{TEXT("1,5"), FTimespan::FromSeconds(65)},
		{TEXT("00:00:05.5"), FTimespan::FromSeconds(5.5)},
		{TEXT("-00:00:05"), FTimespan::FromSeconds(-5)},
		{TEXT("1:00:00:00.0"), FTimespan::FromDays(1)},
		// The '.' is a separator too, so this is hours, minutes, seconds and a fraction, not a day.
		{TEXT("1.00:00:03"), FTimespan::FromHours(1) + FTimespan::FromMilliseconds(30)},
		{TEXT("+00:00:30"), FTimespan::FromSeconds(30)},
		{TEXT("-42.15:11:36.457"), FTimespan(-42, -15, -11, -36, -457000000)},
		{TEXT("00:00:00.123456789123"), FTimespan(1234567)},
		{TEXT("0023::5:"), FTimespan(0, 23, 5)},
		{TEXT(""), FTimespan::Zero()},
	};
	for (const FCase& Case : Cases)
	{
		FTimespan Span = FTimespan::FromDays(99);
		ASSERT_TRUE(FTimespan::Parse(Case.Text, Span)) << FTCHARToUTF8(Case.Text).Get();
		EXPECT_EQ(Span, Case.Expected) << FTCHARToUTF8(Case.Text).Get();
	}

	for (const FTimespan Original : {FTimespan::Zero(), FTimespan::FromMilliseconds(-1), FTimespan(3, 23, 59, 59, 999000000),
			 FTimespan::FromMilliseconds(-36457), FTimespan::FromDays(10675198)})
	{
		FTimespan RoundTrip;
		ASSERT_TRUE(FTimespan::Parse(Original.ToString(), RoundTrip)) << FTCHARToUTF8(*Original.ToString()).Get();
		EXPECT_EQ(RoundTrip, Original);
	}
}

TEST(TimespanParse, FailsOnRangeCharactersOrSixFieldsAndLeavesTheTargetUntouched)
{
	const FTimespan Sentinel = FTimespan::FromSeconds(12345.678);
	for (const TCHAR* Text : {TEXT("24:00:00"), TEXT("00:60:00"), TEXT("00:00:60"), TEXT("abc"), TEXT("1:2:3:4:5:6"), TEXT("1:2:3:4:5.6"),
			 TEXT("1h30m"), TEXT(" 00:00:30"), TEXT("00:00:30x"), TEXT("10675199.00:00:00.0"), TEXT("123456789012345678901:00:00:00.0")})
	{
		FTimespan Target = Sentinel;
		EXPECT_FALSE(FTimespan::Parse(Text, Target)) << FTCHARToUTF8(Text).Get();
		EXPECT_EQ(Target, Sentinel) << FTCHARToUTF8(Text).Get();
	}
}

TEST(Timespan, ComponentsCarryTheSignAndArithmeticSaturates)
{
	const FTimespan Span(1, 2, 3, 4, 5006007);
	EXPECT_EQ(Span.GetDays(), 1);
	EXPECT_EQ(Span.GetHours(), 2);
	EXPECT_EQ(Span.GetMinutes(), 3);
	EXPECT_EQ(Span.GetSeconds(), 4);
	EXPECT_EQ(Span.GetFractionMilli(), 5);
	EXPECT_EQ(Span.GetFractionMicro(), 5006);
	EXPECT_EQ(Span.GetFractionNano(), 5006000);
	EXPECT_EQ((-Span).GetHours(), -2);
	EXPECT_EQ((-Span).GetDuration(), Span);
	EXPECT_DOUBLE_EQ(FTimespan::FromMilliseconds(1500).GetTotalSeconds(), 1.5);
	EXPECT_DOUBLE_EQ(FTimespan::FromSeconds(90).GetTotalMinutes(), 1.5);
	EXPECT_EQ(FTimespan(1, 30, 0), FTimespan::FromMinutes(90));

	EXPECT_EQ(FTimespan::FromSeconds(0.00000005).GetTicks(), 1) << "rounds to the nearest tick";
	EXPECT_EQ(FTimespan::FromSeconds(std::nan("")), FTimespan::Zero());
	EXPECT_EQ(FTimespan::FromSeconds(1e300), FTimespan::MaxValue());
	EXPECT_EQ(FTimespan::FromSeconds(-1e300), FTimespan::MinValue());
	EXPECT_EQ(FTimespan::MaxValue() + FTimespan(1), FTimespan::MaxValue());
	EXPECT_EQ(FTimespan::MinValue() - FTimespan(1), FTimespan::MinValue());
	EXPECT_EQ(-FTimespan::MinValue(), FTimespan::MaxValue());
	EXPECT_EQ(FTimespan::MaxValue() * 2.0, FTimespan::MaxValue());

	EXPECT_EQ(FTimespan::FromSeconds(10) * 1.5, FTimespan::FromSeconds(15));
	EXPECT_EQ(2.0 * FTimespan::FromSeconds(10), FTimespan::FromSeconds(20));
	EXPECT_DOUBLE_EQ(FTimespan::FromSeconds(10) / FTimespan::FromSeconds(4), 2.5);
	EXPECT_EQ(FTimespan::FromSeconds(10) % FTimespan::FromSeconds(4), FTimespan::FromSeconds(2));
	EXPECT_LT(FTimespan::FromSeconds(-1), FTimespan::Zero());

	EXPECT_EQ(GetTypeHash(FTimespan::FromSeconds(7)), GetTypeHash(FTimespan(0, 0, 7)));
	// Spans that differ only in the high 32 bits must not collide.
	EXPECT_NE(GetTypeHash(FTimespan(int64(1) << 32)), GetTypeHash(FTimespan(int64(2) << 32)));
	EXPECT_NE(GetTypeHash(FTimespan(int64(1) << 40)), GetTypeHash(FTimespan::Zero()));
}
