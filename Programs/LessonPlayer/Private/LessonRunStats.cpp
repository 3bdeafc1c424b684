#include "LessonRunStats.h"

#include <chrono>
#include <cstdio>
#include <unistd.h>

namespace
{
	double Now()
	{
		return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
	}

	/** Redraws per second on a terminal: enough to look alive, few enough to cost nothing. */
	constexpr double RedrawsPerSecond = 8.0;
	constexpr int32 BarWidth = 30;
} // namespace

FLessonRunStats::FLessonRunStats()
	: StartSeconds(Now())
	, bTerminal(isatty(fileno(stderr)) != 0)
{
}

void FLessonRunStats::AddFrame(const FEngineLoopFrameTimings& Timings, int32 CommentsInFlight)
{
	CommentFrames += CommentsInFlight;
	MostComments = FMath::Max(MostComments, CommentsInFlight);
	Sum.Input += Timings.Input;
	Sum.Media += Timings.Media;
	Sum.Timers += Timings.Timers;
	Sum.Widgets += Timings.Widgets;
	Sum.Layout += Timings.Layout;
	Sum.Paint += Timings.Paint;
	Sum.End += Timings.End;
	++Frames;
}

double FLessonRunStats::GetWallSeconds() const
{
	return Now() - StartSeconds;
}

void FLessonRunStats::ShowProgress(double LoopSeconds, double GoalSeconds, double LessonSeconds, double LessonDuration, int32 Entry, int32 EntryCount)
{
	// Without a goal of its own the run goes until the lesson ends, so the lesson's clock is the measure.
	const double Fraction = GoalSeconds > 0.0 ? LoopSeconds / GoalSeconds : (LessonDuration > 0.0 ? LessonSeconds / LessonDuration : 0.0);
	const double Clamped = FMath::Clamp(Fraction, 0.0, 1.0);
	const double Wall = GetWallSeconds();
	const double Speed = Wall > 0.0 ? LoopSeconds / Wall : 0.0;
	if (bTerminal)
	{
		const double Time = Now();
		if (LastDrawSeconds >= 0.0 && Time - LastDrawSeconds < 1.0 / RedrawsPerSecond && Clamped < 1.0)
		{
			return;
		}
		LastDrawSeconds = Time;
		char Bar[BarWidth + 1];
		const int32 Filled = static_cast<int32>(Clamped * BarWidth);
		for (int32 Index = 0; Index < BarWidth; ++Index)
		{
			Bar[Index] = Index < Filled ? '#' : '.';
		}
		Bar[BarWidth] = '\0';
		fprintf(stderr, "\r[%s] %3d%%  lesson %d/%d at %6.1f / %.1f s  %.1fx realtime ", Bar, static_cast<int32>(Clamped * 100.0), Entry + 1, EntryCount, LessonSeconds, LessonDuration, Speed);
		fflush(stderr);
		bLineOpen = true;
		return;
	}
	const int32 Tenth = static_cast<int32>(Clamped * 10.0);
	if (Tenth > LastTenthPrinted)
	{
		LastTenthPrinted = Tenth;
		fprintf(stderr, "vidaria-player: %3d%%  lesson %d/%d at %.1f / %.1f s  %.1fx realtime\n", Tenth * 10, Entry + 1, EntryCount, LessonSeconds, LessonDuration, Speed);
	}
}

void FLessonRunStats::FinishProgress()
{
	if (bLineOpen)
	{
		fprintf(stderr, "\n");
		bLineOpen = false;
	}
}

void FLessonRunStats::PrintSummary(double LoopSeconds, double RecordingSeconds) const
{
	const double Wall = GetWallSeconds();
	const double Count = Frames > 0 ? static_cast<double>(Frames) : 1.0;
	const double PerFrameMs = Wall * 1000.0 / Count;
	auto Line = [&](const char* Name, double Seconds)
	{
		fprintf(stderr, "  %-28s %7.2f ms/frame  %5.1f%%\n", Name, Seconds * 1000.0 / Count, Wall > 0.0 ? 100.0 * Seconds / Wall : 0.0);
	};
	fprintf(stderr, "vidaria-player: %lld frames in %.2f s wall for %.2f s of lesson: %.1f frames/s, %.2fx realtime, %.2f ms/frame\n",
		static_cast<long long>(Frames), Wall, LoopSeconds, Count / (Wall > 0.0 ? Wall : 1.0), Wall > 0.0 ? LoopSeconds / Wall : 0.0, PerFrameMs);
	fprintf(stderr, "  comments in flight: %.0f on average, %d at most\n", static_cast<double>(CommentFrames) / Count, MostComments);
	Line("decode and media events", Sum.Media);
	Line("input", Sum.Input);
	Line("timers", Sum.Timers);
	Line("widget tick and animations", Sum.Widgets);
	Line("layout", Sum.Layout);
	Line("drawing", Sum.Paint);
	Line("end of frame", Sum.End);
	Line("recording (encode)", RecordingSeconds);
	Line("other (host, screenshots)", FMath::Max(0.0, Wall - Sum.Total() - RecordingSeconds));
}

void FLessonRunStats::PrintTextCache(const FTextSpriteCacheStats& TextCache) const
{
	const int64 Runs = TextCache.Hits + TextCache.Misses;
	fprintf(stderr, "  text runs drawn: %lld, %.2f%% rasterised (%lld), %lld dropped past the cap; cache %d runs, %.1f MB\n", static_cast<long long>(Runs),
		Runs > 0 ? 100.0 * static_cast<double>(TextCache.Misses) / static_cast<double>(Runs) : 0.0, static_cast<long long>(TextCache.Misses),
		static_cast<long long>(TextCache.Evictions), TextCache.Entries, static_cast<double>(TextCache.Bytes) / (1024.0 * 1024.0));
}
