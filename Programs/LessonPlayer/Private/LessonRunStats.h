#pragma once

// FLessonRunStats: where the time of the run's frames went, and the progress line a headless run
// shows on the terminal while it works.

#include "CoreMinimal.h"
#include "FrameRenderer.h"
#include "LaunchEngineLoop.h"

/** Sums of the frame loop's step timings over a run, with the progress display. */
class FLessonRunStats
{
public:
	/** Starts the wall clock. */
	FLessonRunStats();

	/** Adds one frame's step timings and the number of comments flying in it. */
	void AddFrame(const FEngineLoopFrameTimings& Timings, int32 CommentsInFlight);

	/**
	 * Redraws the progress line: loop time against the goal (0 for "until the end"), the lesson's
	 * own clock, and the speed. On a terminal it rewrites one line; otherwise it prints a line at
	 * every tenth of the goal.
	 */
	void ShowProgress(double LoopSeconds, double GoalSeconds, double LessonSeconds, double LessonDuration, int32 Entry, int32 EntryCount);
	/** Ends the progress line. */
	void FinishProgress();

	/** Prints the per-step share of the frames and the realtime multiple, plus the recorder's share. */
	void PrintSummary(double LoopSeconds, double RecordingSeconds) const;
	/** Prints how often drawn text came from the renderer's cache, and the cache's size. */
	void PrintTextCache(const FTextSpriteCacheStats& TextCache) const;

	/** Frames counted. */
	int64 GetFrames() const { return Frames; }
	/** Wall seconds since the start. */
	double GetWallSeconds() const;

private:
	// Sum of the step timings.
	FEngineLoopFrameTimings Sum;
	// Frames added.
	int64 Frames = 0;
	// Comments in flight, summed over the frames, and the most in one frame.
	int64 CommentFrames = 0;
	int32 MostComments = 0;
	// When the run started, in steady-clock seconds.
	double StartSeconds = 0.0;
	// Progress goes to a terminal that can rewrite its line.
	bool bTerminal = false;
	// The last tenth printed when not on a terminal.
	int32 LastTenthPrinted = -1;
	// A progress line is open on the terminal.
	bool bLineOpen = false;
	// Wall time of the last redraw, to redraw a few times a second only.
	double LastDrawSeconds = -1.0;
};
