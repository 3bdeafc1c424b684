// FString::Printf and Appendf.

#include "Containers/StringConv.h"
#include "Containers/UnrealString.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <ostream>

void PrintTo(const FString& String, std::ostream* Stream)
{
	*Stream << '"' << FTCHARToUTF8(*String).Get() << '"';
}

namespace
{
	// Printf results are compared case-sensitively: "%x" and "%X" must differ.
	::testing::AssertionResult Formats(const FString& Actual, const TCHAR* Expected)
	{
		if (Actual.Equals(Expected))
		{
			return ::testing::AssertionSuccess();
		}
		return ::testing::AssertionFailure() << "got \"" << FTCHARToUTF8(*Actual).Get() << "\", expected \"" << FTCHARToUTF8(Expected).Get() << '"';
	}
}

TEST(StringPrintf, FormatsThePlayerTimeDisplay)
{
	const int32 Position = 65;
	const int32 Duration = 3723;
	EXPECT_TRUE(Formats(FString::Printf(TEXT("%02d:%02d:%02d/%02d:%02d:%02d"), Position / 3600, Position / 60 % 60, Position % 60, Duration / 3600,
		Duration / 60 % 60, Duration % 60), TEXT("00:01:05/01:02:03")));
	EXPECT_TRUE(Formats(FString::Printf(TEXT("%02d"), 123), TEXT("123")));
	EXPECT_TRUE(Formats(FString::Printf(TEXT("%02d"), -5), TEXT("-5")));
}

TEST(StringPrintf, StringDirectivesTakeTcharAndUtf8Pointers)
{
	const FString Title(TEXT("Lesson 中文"));
	EXPECT_TRUE(Formats(FString::Printf(TEXT("%s"), *Title), TEXT("Lesson 中文")));
	EXPECT_TRUE(Formats(FString::Printf(TEXT("[%s]"), "caf\xC3\xA9"), TEXT("[café]")));
	EXPECT_TRUE(Formats(FString::Printf(TEXT("[%-6s|%6s]"), TEXT("ab"), TEXT("cd")), TEXT("[ab    |    cd]")));
	EXPECT_TRUE(Formats(FString::Printf(TEXT("[%.3s]"), TEXT("abcdef")), TEXT("[abc]")));
	EXPECT_TRUE(Formats(FString::Printf(TEXT("%s"), static_cast<const TCHAR*>(nullptr)), TEXT("(null)")));
	EXPECT_TRUE(Formats(FString::Printf(TEXT("%c%c"), TEXT('o'), 'k'), TEXT("ok")));
	EXPECT_TRUE(Formats(FString::Printf(TEXT("%c"), 0x4E2D), TEXT("中")));
	EXPECT_TRUE(Formats(FString::Printf(TEXT("plain %% text")), TEXT("plain % text")));
}

TEST(StringPrintf, HonoursWidthsPrecisionsAndFlags)
{
	EXPECT_TRUE(Formats(FString::Printf(TEXT("%5.1f|%.2f|%f"), 3.14159, 2.0f, 0.5), TEXT("  3.1|2.00|0.500000")));
	EXPECT_TRUE(Formats(FString::Printf(TEXT("%-5d|%05d|%+d|% d"), 42, 42, 42, 42), TEXT("42   |00042|+42| 42")));
	EXPECT_TRUE(Formats(FString::Printf(TEXT("%x %X %#x %o"), 255, 255, 255, 8), TEXT("ff FF 0xff 10")));
	EXPECT_TRUE(Formats(FString::Printf(TEXT("%x"), int32(-1)), TEXT("ffffffff")));
	EXPECT_TRUE(Formats(FString::Printf(TEXT("%u"), int8(-1)), TEXT("255")));
	EXPECT_TRUE(Formats(FString::Printf(TEXT("%lld %llu"), INT64_MIN, UINT64_MAX), TEXT("-9223372036854775808 18446744073709551615")));
	EXPECT_TRUE(Formats(FString::Printf(TEXT("%ld|%lu|%i"), 7L, 8UL, 9), TEXT("7|8|9")));
	EXPECT_TRUE(Formats(FString::Printf(TEXT("%e|%g|%g"), 1234.5, 0.0001, 1e20), TEXT("1.234500e+03|0.0001|1e+20")));
	EXPECT_TRUE(Formats(FString::Printf(TEXT("%*d|%-*d|%.*f"), 4, 7, 3, 8, 1, 2.25), TEXT("   7|8  |2.2")));
	EXPECT_TRUE(Formats(FString::Printf(TEXT("%d %d"), true, false), TEXT("1 0")));

	FString Line(TEXT("Frame"));
	Line.Appendf(TEXT(" %d of %d"), 3, 10);
	EXPECT_TRUE(Formats(Line, TEXT("Frame 3 of 10")));
}

TEST(StringPrintf, MismatchedOrMissingArgumentsPrintSomethingDefined)
{
	// Each of these is undefined behaviour for the C printf; here each has one defined result.
	EXPECT_TRUE(Formats(FString::Printf(TEXT("%d"), TEXT("text")), TEXT("text")));
	EXPECT_TRUE(Formats(FString::Printf(TEXT("%s"), 42), TEXT("42")));
	EXPECT_TRUE(Formats(FString::Printf(TEXT("%s"), 1.5), TEXT("1.5")));
	EXPECT_TRUE(Formats(FString::Printf(TEXT("%.1f"), 3), TEXT("3.0")));
	EXPECT_TRUE(Formats(FString::Printf(TEXT("%d"), 2.9), TEXT("2")));
	EXPECT_TRUE(Formats(FString::Printf(TEXT("%d"), 1e300), TEXT("9223372036854700032")));
	EXPECT_TRUE(Formats(FString::Printf(TEXT("%d and %d"), 1), TEXT("1 and %d")));
	EXPECT_TRUE(Formats(FString::Printf(TEXT("%s")), TEXT("%s")));
	EXPECT_TRUE(Formats(FString::Printf(TEXT("%y|%")), TEXT("%y|%")));
	EXPECT_TRUE(Formats(FString::Printf(TEXT("%d"), 1, 2, 3), TEXT("1")));
	EXPECT_TRUE(Formats(FString::Printf(TEXT("%c"), 0x110000), TEXT("\uFFFD")));
	EXPECT_TRUE(Formats(FString::Printf(TEXT("[%c]"), 0), TEXT("[]")));
	EXPECT_TRUE(Formats(FString::Printf(nullptr, 1), TEXT("")));
	EXPECT_EQ(FString::Printf(TEXT("%100000d"), 1).Len(), 65536);
}
