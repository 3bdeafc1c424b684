// UE_LOG: categories, verbosity filtering, console lines and the capture tests read.

#include "CoreGlobals.h"
#include "Logging/LogCapture.h"
#include "Logging/LogMacros.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <thread>
#include <vector>

DEFINE_LOG_CATEGORY_STATIC(LogTestWarnings, Warning, All);
DEFINE_LOG_CATEGORY_STATIC(LogTestCompiledOut, Log, Warning);

namespace
{
	class FLogCapture : public ::testing::Test
	{
	protected:
		void SetUp() override { UE::Log::ClearCapturedLines(); }
		void TearDown() override { unsetenv("PLAIN_LOG_QUIET"); }
	};
}

TEST_F(FLogCapture, KeepsCategoryVerbosityAndTheFormattedMessage)
{
	UE_LOG(LogTemp, Display, TEXT("Media player %s at %02d:%02d"), TEXT("Pause"), 1, 5);
	const std::vector<UE::Log::FCapturedLine> Lines = UE::Log::GetCapturedLines();
	ASSERT_EQ(Lines.size(), 1u);
	EXPECT_TRUE(Lines[0].Category.Equals(TEXT("LogTemp")));
	EXPECT_EQ(Lines[0].Verbosity, ELogVerbosity::Display);
	EXPECT_TRUE(Lines[0].Message.Equals(TEXT("Media player Pause at 01:05")));

	UE::Log::ClearCapturedLines();
	EXPECT_TRUE(UE::Log::GetCapturedLines().empty());
}

TEST_F(FLogCapture, PrintsEngineStyleLinesUnlessQuiet)
{
	unsetenv("PLAIN_LOG_QUIET"); // the test command runs everything quiet
	::testing::internal::CaptureStderr();
	UE_LOG(LogTemp, Display, TEXT("Media player Pause"));
	UE_LOG(LogTemp, Log, TEXT("plain"));
	UE_LOG(LogTemp, Warning, TEXT("careful"));
	UE_LOG(LogTemp, Error, TEXT("broken %s"), "中文");
	setenv("PLAIN_LOG_QUIET", "1", 1);
	UE_LOG(LogTemp, Error, TEXT("not printed"));
	EXPECT_EQ(::testing::internal::GetCapturedStderr(),
		"LogTemp: Display: Media player Pause\nLogTemp: plain\nLogTemp: Warning: careful\nLogTemp: Error: broken \xE4\xB8\xAD\xE6\x96\x87\n");
	EXPECT_EQ(UE::Log::GetCapturedLines().size(), 5u) << "quiet silences the console, not the capture";
}

TEST_F(FLogCapture, DropsLinesAboveTheCategoryVerbosity)
{
	setenv("PLAIN_LOG_QUIET", "1", 1);
	UE_LOG(LogTestWarnings, Log, TEXT("dropped"));
	UE_LOG(LogTestWarnings, Warning, TEXT("kept"));
	LogTestWarnings.SetVerbosity(ELogVerbosity::Verbose);
	UE_LOG(LogTestWarnings, Verbose, TEXT("kept too"));
	UE_LOG(LogTestWarnings, VeryVerbose, TEXT("dropped too"));
	LogTestWarnings.ResetToDefault();

	// Above the compile-time verbosity nothing gets through, whatever is set at run time.
	LogTestCompiledOut.SetVerbosity(ELogVerbosity::VeryVerbose);
	EXPECT_EQ(LogTestCompiledOut.GetVerbosity(), ELogVerbosity::Warning);
	UE_LOG(LogTestCompiledOut, Log, TEXT("compiled out"));
	UE_CLOG(false, LogTemp, Warning, TEXT("condition false"));
	UE_CLOG(true, LogTemp, Warning, TEXT("condition %s"), TEXT("true"));

	const std::vector<UE::Log::FCapturedLine> Lines = UE::Log::GetCapturedLines();
	ASSERT_EQ(Lines.size(), 3u);
	EXPECT_TRUE(Lines[0].Message.Equals(TEXT("kept")));
	EXPECT_TRUE(Lines[1].Message.Equals(TEXT("kept too")));
	EXPECT_EQ(Lines[1].Verbosity, ELogVerbosity::Verbose);
	EXPECT_TRUE(Lines[2].Message.Equals(TEXT("condition true")));
}

TEST_F(FLogCapture, KeepsTheLastTenThousandLinesFromManyThreads)
{
	setenv("PLAIN_LOG_QUIET", "1", 1);
	std::vector<std::thread> Threads;
	for (int32 Thread = 0; Thread < 4; ++Thread)
	{
		Threads.emplace_back([Thread]
		{
			for (int32 Index = 0; Index < 3000; ++Index)
			{
				UE_LOG(LogTemp, Log, TEXT("worker %d line %d"), Thread, Index);
			}
		});
	}
	for (std::thread& Thread : Threads)
	{
		Thread.join();
	}
	const std::vector<UE::Log::FCapturedLine> Lines = UE::Log::GetCapturedLines();
	ASSERT_EQ(Lines.size(), static_cast<size_t>(UE::Log::MaxCapturedLines));
	for (const UE::Log::FCapturedLine& Line : Lines)
	{
		ASSERT_TRUE(Line.Message.StartsWith(TEXT("worker "))) << "every line arrives whole";
	}
	UE_LOG(LogTemp, Log, TEXT("newest"));
	EXPECT_TRUE(UE::Log::GetCapturedLines().back().Message.Equals(TEXT("newest")));
}

TEST(LogDeathTest, FatalPrintsThenStops)
{
	EXPECT_DEATH(UE_LOG(LogTemp, Fatal, TEXT("cannot go on: %d"), 7), "LogTemp: Fatal: cannot go on: 7");
}
