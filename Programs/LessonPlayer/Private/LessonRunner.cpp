#include "LessonRunner.h"

#include "AudioSink.h"
#include "AudioSinkTee.h"
#include "HeadlessApplication.h"
#include "LaunchEngineLoop.h"
#include "LessonCapture.h"
#include "LessonPlayerMessages.h"
#include "LessonPlayerOptions.h"
#include "LessonRunStats.h"
#include "LessonSession.h"
#include "MediaClockPolicy.h"
#include "MediaPlayer.h"
#include "Window/LessonWindow.h"

#include <chrono>
#include <thread>

namespace
{
	using LessonPlayerMessages::Tell;

	/** A run that never gets a lesson open gives up after this much loop time. */
	constexpr double OpenGiveUpSeconds = 30.0;
	/** How long a headless run holds its clock for one open before it lets time run on. */
	constexpr double OpenWaitSeconds = 15.0;
	/** A window that falls further behind real time than this drops the lost time instead of racing. */
	constexpr double MaxLagSeconds = 0.25;

	/** True when the run should stop: the goal reached, or nothing left to play. */
	bool IsRunOver(const FLessonSession& Session, double LoopSeconds, const FLessonPlayerOptions& Options, bool bStopAtEnd)
	{
		if (Options.Seconds > 0.0 && LoopSeconds + 1e-9 >= Options.Seconds)
		{
			return true;
		}
		if (bStopAtEnd && Session.IsFinished())
		{
			return true;
		}
		if (!Session.HasPlayedAnything() && LoopSeconds >= OpenGiveUpSeconds && Options.Seconds <= 0.0)
		{
			Tell(TEXT("no lesson opened in 30 s; giving up"));
			return true;
		}
		return false;
	}

	/**
	 * Opening runs on the media worker in wall time. A headless run holds the lesson clock (frames
	 * of zero length still deliver the player's events) until the open is over, so every run
	 * shows the same frames from the lesson's first one, however fast the loop goes.
	 */
	void WaitWhilePreparing(FLessonSession& Session)
	{
		const auto GiveUpAt = std::chrono::steady_clock::now() + std::chrono::duration<double>(OpenWaitSeconds);
		while (Session.GetMediaPlayer()->IsPreparing() && std::chrono::steady_clock::now() < GiveUpAt)
		{
			std::this_thread::sleep_for(std::chrono::milliseconds(2));
			Session.Tick(0.0f);
		}
	}

	void ShowProgress(FLessonRunStats& Stats, const FLessonSession& Session, double LoopSeconds, const FLessonPlayerOptions& Options)
	{
		const UMediaPlayer* Player = Session.GetMediaPlayer();
		Stats.ShowProgress(LoopSeconds, Options.Seconds, Player->GetTime().GetTotalSeconds(), Player->GetDuration().GetTotalSeconds(),
			Session.GetCurrentEntry(), Session.GetEntryCount());
	}

	/** What a run leaves: the recording finished, the statistics, and the exit code. */
	int32 EndRun(FLessonSession& Session, FLessonCapture& Capture, FLessonRunStats& Stats, double LoopSeconds, const FLessonPlayerOptions& Options)
	{
		Stats.FinishProgress();
		const bool bRecorded = Capture.End();
		if (!Options.RecordPath.IsEmpty() && bRecorded)
		{
			Tell(FString::Printf(TEXT("recorded %.1f s into %s"), LoopSeconds, *Options.RecordPath));
		}
		if (Capture.GetScreenshotCount() > 0)
		{
			Tell(FString::Printf(TEXT("wrote %d screenshots into %s"), Capture.GetScreenshotCount(), *Options.ScreenshotDir));
		}
		if (Options.bStats)
		{
			Stats.PrintSummary(LoopSeconds, Capture.GetRecordingSeconds());
			Stats.PrintTextCache(Capture.GetTextCacheStats());
		}
		return Session.HasPlayedAnything() && bRecorded ? 0 : 1;
	}
} // namespace

int32 LessonRunner::RunHeadless(FLessonSession& Session, FHeadlessApplication& App, const FLessonPlayerOptions& Options)
{
	FLessonCapture Capture;
	if (!Capture.Begin(Options, App.GetLoop(), false))
	{
		return 1;
	}
	// The loop runs as fast as the machine goes, so the media must hold each frame until what is
	// due at it is decoded, network lessons included.
	SetMediaClockPolicy(EMediaClockPolicy::FixedStep);
	FLessonRunStats Stats;
	const float Step = static_cast<float>(Options.StepSeconds);
	while (!IsRunOver(Session, App.GetLoop().GetLoopSeconds(), Options, true))
	{
		WaitWhilePreparing(Session);
		Session.Tick(Step);
		Stats.AddFrame(App.GetLoop().GetLastFrameTimings(), Session.CountCommentsInFlight());
		Capture.AfterFrame(App.GetLoop().GetLoopSeconds(), Step);
		ShowProgress(Stats, Session, App.GetLoop().GetLoopSeconds(), Options);
	}
	return EndRun(Session, Capture, Stats, App.GetLoop().GetLoopSeconds(), Options);
}

int32 LessonRunner::RunInWindow(FLessonSession& Session, FHeadlessApplication& App, const FLessonPlayerOptions& Options)
{
	FLessonWindow Window;
	FString Error;
	if (!Window.Open(TEXT("vidaria-player"), Options.Width, Options.Height, Error))
	{
		Tell(Error + TEXT("; running headless"));
		return RunHeadless(Session, App, Options);
	}
	FLessonCapture Capture;
	if (!Capture.Begin(Options, App.GetLoop(), true))
	{
		return 1;
	}
	// The sound goes to the speakers when there are any, and to the recording as well when there is one.
	TSharedPtr<UE::Audio::IAudioSink> Speakers = Window.OpenAudioDevice(Error);
	if (Speakers)
	{
		UE::Audio::SetAudioSink(MakeShared<FAudioSinkTee>(UE::Audio::GetAudioSink(), Speakers));
	}
	else
	{
		Tell(Error + TEXT("; playing without sound"));
	}
	Capture.SetScreenshotsFromCaller(true);
	// Paced to the wall clock: a late network picture shows late rather than freezing the window.
	SetMediaClockPolicy(EMediaClockPolicy::WallClock);

	// The window runs the same fixed step as a headless run, paced to the wall clock, so a
	// recording made from a window has the same constant frame rate.
	using FClock = std::chrono::steady_clock;
	const float Step = static_cast<float>(Options.StepSeconds);
	const auto StepDuration = std::chrono::duration_cast<FClock::duration>(std::chrono::duration<double>(Options.StepSeconds));
	auto NextFrameAt = FClock::now();
	FLessonRunStats Stats;
	TArray<ELessonKey> Keys;
	bool bOpen = true;
	// Unless a recording or screenshots read the frame after it is shown, it is painted in the window's own picture.
	FRenderFrame* PaintInPlace = Capture.GetFrameToPaintInPlace();
	while (bOpen && !IsRunOver(Session, App.GetLoop().GetLoopSeconds(), Options, false))
	{
		Keys.Reset();
		bOpen = Window.PumpEvents(Keys);
		for (ELessonKey Key : Keys)
		{
			if (Key == ELessonKey::Quit)
			{
				bOpen = false;
			}
			else if (Key == ELessonKey::ToggleFullScreen)
			{
				Window.ToggleFullScreen();
			}
			else
			{
				Session.HandleKey(Key);
			}
		}
		if (PaintInPlace)
		{
			Window.BeginPicture(*PaintInPlace);
		}
		Session.Tick(Step);
		Stats.AddFrame(App.GetLoop().GetLastFrameTimings(), Session.CountCommentsInFlight());
		Window.Present(Capture.GetFrame());
		const double LoopSeconds = App.GetLoop().GetLoopSeconds();
		if (Capture.IsScreenshotDue(LoopSeconds))
		{
			FRenderFrame Shown;
			Capture.WriteScreenshot(Window.CaptureWindow(Shown) ? Shown : Capture.GetFrame());
		}
		Capture.AfterFrame(LoopSeconds, Step);

		NextFrameAt += StepDuration;
		const auto Now = FClock::now();
		if (Now - NextFrameAt > std::chrono::duration<double>(MaxLagSeconds))
		{
			NextFrameAt = Now;
		}
		std::this_thread::sleep_until(NextFrameAt);
	}
	UE::Audio::SetAudioSink(nullptr);
	return EndRun(Session, Capture, Stats, App.GetLoop().GetLoopSeconds(), Options);
}
