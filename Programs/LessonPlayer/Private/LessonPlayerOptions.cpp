#include "LessonPlayerOptions.h"

#include "LessonPlayerMessages.h"
#include "Misc/CString.h"

#include <cstdlib>

namespace
{
	// The shortest frame step a headless run takes: the frame loop counts time in float seconds,
	// where a step much shorter would round to nothing and the run would never end.
	constexpr double ShortestStepSeconds = 1.0 / 1000.0;

	using LessonPlayerMessages::Printable;

	/** Reads a positive number of seconds; "1/60" is accepted as a fraction. */
	bool ParseSeconds(const FString& Text, double& Out)
	{
		FString Numerator;
		FString Denominator;
		double Value = 0.0;
		if (Text.Split(TEXT("/"), &Numerator, &Denominator))
		{
			const double Bottom = FCString::Atod(*Denominator);
			Value = Bottom > 0.0 ? FCString::Atod(*Numerator) / Bottom : 0.0;
		}
		else
		{
			Value = FCString::Atod(*Text);
		}
		if (!(Value > 0.0) || Value > 1.0e7)
		{
			return false;
		}
		Out = Value;
		return true;
	}

	/** Reads a side of a size: one to four decimal digits and nothing else (no sign, no space, no unit). */
	bool ParseSide(const FString& Text, int32& Out)
	{
		if (Text.IsEmpty() || Text.Len() > 4)
		{
			return false;
		}
		int32 Value = 0;
		for (const TCHAR Character : Text)
		{
			if (Character < TEXT('0') || Character > TEXT('9'))
			{
				return false;
			}
			Value = Value * 10 + (Character - TEXT('0'));
		}
		Out = Value;
		return true;
	}

	/**
	 * Reads "WxH" with both sides between 64 and 7680. The whole text must be the size: a third
	 * side or trailing letters are a mistake the viewer should hear about, not a size to guess.
	 */
	bool ParseSize(const FString& Text, int32& OutWidth, int32& OutHeight)
	{
		FString Left;
		FString Right;
		int32 W = 0;
		int32 H = 0;
		if (!Text.Split(TEXT("x"), &Left, &Right) || !ParseSide(Left, W) || !ParseSide(Right, H))
		{
			return false;
		}
		if (W < 64 || H < 64 || W > 7680 || H > 7680)
		{
			return false;
		}
		OutWidth = W;
		OutHeight = H;
		return true;
	}
} // namespace

bool FLessonPlayerOptions::Parse(const TArray<FString>& Arguments, FLessonPlayerOptions& Out, FString& OutError)
{
	Out = FLessonPlayerOptions();
	for (int32 Index = 0; Index < Arguments.Num(); ++Index)
	{
		const FString& Argument = Arguments[Index];
		// Every option but the switches takes the next argument as its value.
		auto TakeValue = [&](FString& Value) -> bool
		{
			if (Index + 1 >= Arguments.Num())
			{
				OutError = FString::Printf(TEXT("%s needs a value (see --help)"), *Printable(Argument));
				return false;
			}
			Value = Arguments[++Index];
			return true;
		};

		FString Value;
		if (Argument == TEXT("--help") || Argument == TEXT("-h"))
		{
			Out.bHelp = true;
		}
		else if (Argument == TEXT("--headless"))
		{
			Out.bHeadless = true;
		}
		else if (Argument == TEXT("--stats"))
		{
			Out.bStats = true;
		}
		else if (Argument == TEXT("--comments"))
		{
			if (!TakeValue(Out.CommentsPath))
			{
				return false;
			}
		}
		else if (Argument == TEXT("--record"))
		{
			if (!TakeValue(Out.RecordPath))
			{
				return false;
			}
		}
		else if (Argument == TEXT("--screenshots"))
		{
			if (!TakeValue(Out.ScreenshotDir))
			{
				return false;
			}
		}
		else if (Argument == TEXT("--seconds") || Argument == TEXT("--every") || Argument == TEXT("--step"))
		{
			double* Target = Argument == TEXT("--seconds") ? &Out.Seconds : Argument == TEXT("--every") ? &Out.ScreenshotEverySeconds : &Out.StepSeconds;
			if (!TakeValue(Value))
			{
				return false;
			}
			if (!ParseSeconds(Value, *Target))
			{
				OutError = FString::Printf(TEXT("%s wants a positive number of seconds such as 2.5 or 1/60, not \"%s\""), *Argument, *Printable(Value));
				return false;
			}
			if (Target == &Out.StepSeconds && Out.StepSeconds < ShortestStepSeconds)
			{
				OutError = FString::Printf(TEXT("--step wants a step of at least 1/1000 s, not \"%s\""), *Printable(Value));
				return false;
			}
		}
		else if (Argument == TEXT("--size"))
		{
			if (!TakeValue(Value))
			{
				return false;
			}
			if (!ParseSize(Value, Out.Width, Out.Height))
			{
				OutError = FString::Printf(TEXT("--size wants WIDTHxHEIGHT such as 1280x720, not \"%s\""), *Printable(Value));
				return false;
			}
		}
		else if (Argument.StartsWith(TEXT("--")))
		{
			OutError = FString::Printf(TEXT("unknown option %s (see --help)"), *Printable(Argument));
			return false;
		}
		else
		{
			Out.Lessons.Add(Argument);
		}
	}
	return true;
}

FString FLessonPlayerOptions::Usage()
{
	return TEXT(
		"usage: vidaria-player [FILE_OR_URL ...] [options]\n"
		"\n"
		"Plays video lessons with flying comments. With no lesson it plays the bundled sample lesson\n"
		"with its sample comments. Several lessons make a playlist (Prev/Next on the bar).\n"
		"\n"
		"  --comments DOC.json   comments to fly over the picture\n"
		"  --headless            run without a window (also when no display is there)\n"
		"  --seconds N           run N seconds, then stop (default: until the last lesson ends)\n"
		"  --record OUT.mp4      record the picture and the sound\n"
		"  --screenshots DIR     write PNG screenshots into DIR ...\n"
		"  --every S             ... every S seconds (default 1)\n"
		"  --step 1/30           the fixed frame step of a headless run (default 1/30)\n"
		"  --size 1280x720       the player's size in pixels\n"
		"  --stats               print where the time of a frame went\n"
		"\n"
		"Keys in the window: space pause, left/right seek 5 s, up/down volume, m mute,\n"
		"f full screen, c comments on/off, q or Escape quit.\n");
}
