// What showing a 1280x720 frame in the window costs, the two ways the program can do it: painting
// into the frame's own memory and uploading it (SDL_UpdateTexture), or painting straight into the
// locked streaming texture. Both clear the frame first, as the renderer does, so the figures
// compare whole presents. Needs a display: run under Xvfb (xvfb-run -a ...); skipped without one.

#include "RenderFrame.h"
#include "Slate/WidgetViewport.h"
#include "Window/LessonWindow.h"

#include <benchmark/benchmark.h>

namespace
{
	bool OpenWindow(benchmark::State& State, FLessonWindow& Window)
	{
		FString Error;
		if (!FLessonWindow::IsDisplayAvailable() || !Window.Open(TEXT("WindowBenchmark"), 1280, 720, Error))
		{
			State.SkipWithError("no display (run under xvfb-run)");
			return false;
		}
		FWidgetViewport::Get().SetViewportSize(FVector2D(1280.0, 720.0));
		return true;
	}
} // namespace

static void BM_PresentUploaded720p(benchmark::State& State)
{
	FLessonWindow Window;
	if (!OpenWindow(State, Window))
	{
		return;
	}
	FRenderFrame Frame(1280, 720);
	uint8 Shade = 0;
	for (auto _ : State)
	{
		Frame.Clear(FColor(Shade++, 80, 160));
		Window.Present(Frame);
	}
}
BENCHMARK(BM_PresentUploaded720p)->Unit(benchmark::kMillisecond);

static void BM_PresentPaintedInPlace720p(benchmark::State& State)
{
	FLessonWindow Window;
	if (!OpenWindow(State, Window))
	{
		return;
	}
	FRenderFrame Frame;
	uint8 Shade = 0;
	for (auto _ : State)
	{
		if (!Window.BeginPicture(Frame))
		{
			State.SkipWithError("the texture cannot be locked");
			return;
		}
		Frame.Clear(FColor(Shade++, 80, 160));
		Window.Present(Frame);
	}
}
BENCHMARK(BM_PresentPaintedInPlace720p)->Unit(benchmark::kMillisecond);
