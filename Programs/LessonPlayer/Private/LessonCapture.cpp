#include "LessonCapture.h"

#include "HAL/FileManager.h"
#include "LaunchEngineLoop.h"
#include "LessonPlayerMessages.h"
#include "LessonPlayerOptions.h"
#include "Misc/Paths.h"
#include "Slate/WidgetViewport.h"
#include "AudioSink.h"

#include <chrono>

using LessonPlayerMessages::Tell;

FLessonCapture::~FLessonCapture()
{
	if (Loop)
	{
		Loop->SetPaintHandler(FEngineLoop::FPaintHandler());
	}
}

bool FLessonCapture::Begin(const FLessonPlayerOptions& Options, FEngineLoop& InLoop, bool bInAlwaysPaint)
{
	Loop = &InLoop;
	bAlwaysPaint = bInAlwaysPaint || Options.bStats;
	ScreenshotDir = Options.ScreenshotDir;
	ScreenshotEvery = Options.ScreenshotEverySeconds;
	NextScreenshotAt = ScreenshotEvery;

	if (!ScreenshotDir.IsEmpty() && !IFileManager::Get().MakeDirectory(*ScreenshotDir, true))
	{
		Tell(FString::Printf(TEXT("%s: cannot make the screenshot folder"), *ScreenshotDir));
		return false;
	}
	if (!Options.RecordPath.IsEmpty())
	{
		FLessonRecorderSettings Settings;
		Settings.Path = Options.RecordPath;
		Settings.Width = Options.Width;
		Settings.Height = Options.Height;
		Settings.FramesPerSecond = FMath::Max(1, static_cast<int32>(FMath::RoundToInt(1.0 / Options.StepSeconds)));
		FString Error;
		if (!Recorder.Open(Settings, Error))
		{
			Tell(Error);
			return false;
		}
		UE::Audio::SetAudioSink(Recorder.MakeAudioSink());
	}
	Loop->SetPaintHandler([this](const FWidgetViewport& Viewport)
	{
		if (WillPaint())
		{
			Renderer.Render(Viewport, Frame);
		}
	});
	return true;
}

bool FLessonCapture::IsScreenshotDue(double LoopSeconds) const
{
	return !ScreenshotDir.IsEmpty() && LoopSeconds + 1e-9 >= NextScreenshotAt;
}

void FLessonCapture::AfterFrame(double LoopSeconds, double NextDeltaSeconds)
{
	if (Recorder.IsOpen())
	{
		const auto Start = std::chrono::steady_clock::now();
		Recorder.AddVideoFrame(Frame);
		RecordingSeconds += std::chrono::duration<double>(std::chrono::steady_clock::now() - Start).count();
	}
	if (IsScreenshotDue(LoopSeconds))
	{
		NextScreenshotAt += ScreenshotEvery;
		if (!bScreenshotsFromCaller)
		{
			WriteScreenshot(Frame);
		}
	}
	// Paint the next frame when it will be a screenshot's.
	bScreenshotDue = IsScreenshotDue(LoopSeconds + NextDeltaSeconds);
}

bool FLessonCapture::WriteScreenshot(const FRenderFrame& Picture)
{
	const FString Path = FPaths::Combine(ScreenshotDir, FString::Printf(TEXT("screenshot-%04d.png"), ScreenshotCount + 1));
	if (!Picture.SavePng(Path))
	{
		return false;
	}
	++ScreenshotCount;
	return true;
}

bool FLessonCapture::End()
{
	if (!Recorder.IsOpen())
	{
		return true;
	}
	UE::Audio::SetAudioSink(nullptr);
	FString Error;
	if (!Recorder.Finish(Error))
	{
		Tell(Error);
		return false;
	}
	return true;
}
