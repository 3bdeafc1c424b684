// The media stand-in's costs: decoding a 720p lesson through UMediaPlayer's FFmpeg backend against
// the ffmpeg program decoding the same clip on one thread, and what the media step costs the game
// thread each frame.

#include "AllocationCounter.h"

#include "Containers/Ticker.h"
#include "CoreMinimal.h"
#include "MediaPlayer.h"
#include "PlainSampleMedia.h"
#include "UObject/UObjectGlobals.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdlib>
#include <string>

namespace
{
	using FClock = std::chrono::steady_clock;

	// A 6 s 1280x720 lesson, made on first use beside the tests' sample.
	const std::string& Clip720p()
	{
		static const std::string Path = [] {
			const std::string Out = PLAIN_SAMPLE_MEDIA_DIR "/lesson-720p.mp4";
			const std::string Command = std::string("'") + PLAIN_SAMPLE_LESSON_SCRIPT + "' '" + Out + "' 6 1280x720 >/dev/null";
			return std::system(Command.c_str()) == 0 ? Out : std::string();
		}();
		return Path;
	}

	double SecondsOf(const std::string& Command)
	{
		const FClock::time_point Start = FClock::now();
		if (std::system(Command.c_str()) != 0)
		{
			return 0.0;
		}
		return std::chrono::duration<double>(FClock::now() - Start).count();
	}

	// Opens Path and ticks the media step at 30 steps a second until the end; false on failure.
	bool PlayToEnd(UMediaPlayer* Player, const std::string& Path)
	{
		if (!Player->OpenFile(FString(Path.c_str())))
		{
			return false;
		}
		while (Player->IsPreparing())
		{
			FTSTicker::GetCoreTicker().Tick(0.f);
		}
		while (Player->IsPlaying())
		{
			FTSTicker::GetCoreTicker().Tick(1.f / 30.f);
		}
		const bool bEnded = Player->IsReady();
		Player->Close();
		return bEnded;
	}
}

// Wall time to decode the whole 720p clip (picture converted to RGBA, sound to 48 kHz float)
// through the backend; speed_vs_ffmpeg is ffmpeg's time divided by ours (goal: 0.8 or more).
static void DecodeLesson720pThroughBackend(benchmark::State& State)
{
	const std::string& Clip = Clip720p();
	if (Clip.empty())
	{
		State.SkipWithError("cannot make the 720p clip (is the ffmpeg program installed?)");
		return;
	}
	const double FFmpegSeconds = SecondsOf("ffmpeg -hide_banner -loglevel error -threads 1 -i '" + Clip + "' -f null -");
	UMediaPlayer* Player = NewObject<UMediaPlayer>();
	Player->AddToRoot();
	double Ours = 0.0;
	for (auto _ : State)
	{
		const FClock::time_point Start = FClock::now();
		if (!PlayToEnd(Player, Clip))
		{
			State.SkipWithError("the clip did not play to its end");
			break;
		}
		Ours += std::chrono::duration<double>(FClock::now() - Start).count();
	}
	Player->RemoveFromRoot();
	const double PerRun = Ours / static_cast<double>(std::max<int64_t>(1, State.iterations()));
	State.counters["ffmpeg_s"] = FFmpegSeconds;
	State.counters["backend_s"] = PerRun;
	State.counters["speed_vs_ffmpeg"] = PerRun > 0.0 ? FFmpegSeconds / PerRun : 0.0;
}
BENCHMARK(DecodeLesson720pThroughBackend)->Unit(benchmark::kMillisecond)->Iterations(3)->UseRealTime();

// One media step (60 a second) of a playing 320x180 lesson: events, clock, picture hand-over.
static void MediaStepPlayingLesson(benchmark::State& State)
{
	UMediaPlayer* Player = NewObject<UMediaPlayer>();
	Player->AddToRoot();
	Player->SetLooping(true);
	Player->OpenFile(TEXT(PLAIN_SAMPLE_MEDIA_DIR "/lesson.mp4"));
	while (Player->IsPreparing())
	{
		FTSTicker::GetCoreTicker().Tick(0.f);
	}
	const uint64 Before = GetAllocationCount();
	for (auto _ : State)
	{
		FTSTicker::GetCoreTicker().Tick(1.f / 60.f);
	}
	State.counters["allocs"] = benchmark::Counter(static_cast<double>(GetAllocationCount() - Before), benchmark::Counter::kAvgIterations);
	Player->Close();
	Player->RemoveFromRoot();
}
BENCHMARK(MediaStepPlayingLesson)->Unit(benchmark::kMicrosecond);

// One media step with 16 players that have nothing open: the floor every frame pays.
static void MediaStepIdlePlayers(benchmark::State& State)
{
	TArray<UMediaPlayer*> Players;
	for (int32 Index = 0; Index < 16; ++Index)
	{
		Players.Add(NewObject<UMediaPlayer>());
		Players.Last()->AddToRoot();
	}
	const uint64 Before = GetAllocationCount();
	for (auto _ : State)
	{
		FTSTicker::GetCoreTicker().Tick(1.f / 60.f);
	}
	State.counters["allocs"] = benchmark::Counter(static_cast<double>(GetAllocationCount() - Before), benchmark::Counter::kAvgIterations);
	for (UMediaPlayer* Player : Players)
	{
		Player->RemoveFromRoot();
	}
}
BENCHMARK(MediaStepIdlePlayers)->Unit(benchmark::kMicrosecond);
