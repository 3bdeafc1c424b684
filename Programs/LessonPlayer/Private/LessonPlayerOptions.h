#pragma once

// What the viewer asked vidaria-player for on its command line.

#include "CoreMinimal.h"

/** The program's settings, as parsed from the command line. */
struct FLessonPlayerOptions
{
	/** Lessons to play, in order; one entry plays alone, more make a playlist. Empty: the bundled sample. */
	TArray<FString> Lessons;
	/** The comment document to fly over the lessons; empty: the sample comments with the sample lesson, none otherwise. */
	FString CommentsPath;
	/** Run without a window even when a display is there. */
	bool bHeadless = false;
	/** Seconds of loop time to run; 0 runs until the last lesson has ended. */
	double Seconds = 0.0;
	/** An MP4 file to record the picture and the sound into; empty records nothing. */
	FString RecordPath;
	/** A folder to write PNG screenshots into; empty writes none. */
	FString ScreenshotDir;
	/** Loop seconds between two screenshots. */
	double ScreenshotEverySeconds = 1.0;
	/** The fixed step of a headless run, in seconds. */
	double StepSeconds = 1.0 / 30.0;
	/** The viewport's size in pixels. */
	int32 Width = 1280;
	int32 Height = 720;
	/** Print per-step frame timings at the end. */
	bool bStats = false;
	/** Print the usage and stop. */
	bool bHelp = false;

	/** Reads Argv (without the program name); false and one line in OutError when an argument is wrong. */
	static bool Parse(const TArray<FString>& Arguments, FLessonPlayerOptions& Out, FString& OutError);
	/** The usage text that --help prints. */
	static FString Usage();
};
