#include "LaunchEngineLoop.h"

#include "Containers/Ticker.h"
#include "Engine/Engine.h"
#include "Engine/World.h"
#include "Slate/WidgetViewport.h"
#include "UObject/GarbageCollection.h"

#include <chrono>

namespace
{
	// Wall-clock seconds spent in Step; used for statistics only, never by the logic.
	template<class StepType>
	double TimeStep(StepType&& Step)
	{
		const auto Start = std::chrono::steady_clock::now();
		Step();
		return std::chrono::duration<double>(std::chrono::steady_clock::now() - Start).count();
	}
}

FEngineLoop::FEngineLoop(UWorld& InWorld, FWidgetViewport& InViewport)
	: World(&InWorld)
	, Viewport(InViewport)
{
}

void FEngineLoop::Tick(float DeltaSeconds)
{
	DeltaSeconds = FMath::Max(DeltaSeconds, 0.f);
	FEngineLoopFrameTimings Timings;

	Timings.Input = TimeStep([this] { Viewport.ProcessInput(); });
	Timings.Media = TimeStep([DeltaSeconds] { FTSTicker::GetCoreTicker().Tick(DeltaSeconds); });
	Timings.Timers = TimeStep([this, DeltaSeconds] {
		if (UWorld* TickedWorld = World.Get())
		{
			TickedWorld->Tick(DeltaSeconds);
		}
	});
	Timings.Widgets = TimeStep([this, DeltaSeconds] { Viewport.TickWidgets(DeltaSeconds); });
	Timings.Layout = TimeStep([this] { Viewport.Layout(); });
	Timings.Paint = TimeStep([this] {
		if (PaintHandler)
		{
			PaintHandler(Viewport);
		}
	});
	Timings.End = TimeStep([this, DeltaSeconds] {
		Viewport.FinishFrame();
		if (GEngine)
		{
			GEngine->TickOnScreenMessages(DeltaSeconds);
		}
		LoopSeconds += DeltaSeconds;
		++FrameCount;
		// After the frame's destructs, so widgets that left the screen can already be collected.
		if (LoopSeconds - LastCollectionSeconds >= GarbageCollectionInterval)
		{
			LastCollectionSeconds = LoopSeconds;
			CollectGarbage();
		}
	});
	LastFrameTimings = Timings;
}
