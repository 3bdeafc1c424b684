// vidaria-player's command line parser (FLessonPlayerOptions::Parse) on any argument list: the
// input is split at NUL bytes into arguments, each read from UTF-8 as main() reads argv. A refused
// command line must say why in one line of text; an accepted one must hold values the program
// can run with.

#include "FuzzKit.h"

#include "LessonPlayerOptions.h"

#include <cmath>

namespace
{
	bool IsOneLineOfText(const FString& Message)
	{
		for (const TCHAR Character : Message)
		{
			if (Character < 0x20 || Character == 0x7f)
			{
				return false;
			}
		}
		return !Message.IsEmpty();
	}

	bool IsPositiveSeconds(double Seconds)
	{
		return std::isfinite(Seconds) && Seconds > 0.0;
	}
}

extern "C" int LLVMFuzzerInitialize(int* Argc, char*** Argv)
{
	PlainFuzz::Start(false);
	return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* Data, size_t Size)
{
	TArray<FString> Arguments;
	size_t Start = 0;
	for (size_t Index = 0; Index <= Size; ++Index)
	{
		if (Index == Size || Data[Index] == 0)
		{
			// An input that ends in NUL has no empty argument after it, as argv has none.
			if (Index < Size || Index > Start)
			{
				Arguments.Add(PlainFuzz::Text(Data + Start, Index - Start));
			}
			Start = Index + 1;
		}
	}

	FLessonPlayerOptions Options;
	FString Error;
	if (!FLessonPlayerOptions::Parse(Arguments, Options, Error))
	{
		PlainFuzz::Expect(IsOneLineOfText(Error), "a refused command line is not explained in one line of text");
		return 0;
	}
	PlainFuzz::Expect(Error.IsEmpty(), "an accepted command line came with an error");
	PlainFuzz::Expect(Options.Seconds == 0.0 || IsPositiveSeconds(Options.Seconds), "--seconds accepted a value that is no positive time");
	PlainFuzz::Expect(IsPositiveSeconds(Options.ScreenshotEverySeconds), "--every accepted a value that is no positive time");
	// The frame loop steps in float seconds: a step must stay a step there.
	PlainFuzz::Expect(IsPositiveSeconds(Options.StepSeconds) && static_cast<float>(Options.StepSeconds) > 0.f, "--step accepted a step the frame loop cannot take");
	PlainFuzz::Expect(Options.Width >= 64 && Options.Width <= 7680 && Options.Height >= 64 && Options.Height <= 7680, "--size accepted a size out of range");
	for (const FString& Lesson : Options.Lessons)
	{
		PlainFuzz::Expect(!Lesson.StartsWith(TEXT("--")), "an option was taken for a lesson");
	}
	PlainFuzz::ForgetLog();
	return 0;
}
