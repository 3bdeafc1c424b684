#include "HeadlessApplication.h"

#include "Engine/World.h"
#include "LaunchEngineLoop.h"
#include "Slate/WidgetViewport.h"
#include "UObject/GarbageCollection.h"

FHeadlessApplication::FHeadlessApplication(const FHeadlessApplicationSettings& InSettings)
	: Settings(InSettings)
{
	World = UWorld::CreateWorld(TEXT("HeadlessWorld"));
	FWidgetViewport& Viewport = FWidgetViewport::Get();
	Viewport.Reset();
	Viewport.SetViewportSize(Settings.ViewportSize);
	Loop = MakeUnique<FEngineLoop>(*World, Viewport);
}

FHeadlessApplication::~FHeadlessApplication()
{
	// Widgets first, so their NativeDestruct still finds the world and its timers.
	FWidgetViewport::Get().Reset();
	Loop.Reset();
	World->DestroyWorld();
	World = nullptr;
	CollectGarbage();
}

FWidgetViewport& FHeadlessApplication::GetViewport() const
{
	return Loop->GetViewport();
}

void FHeadlessApplication::TickFrame()
{
	Loop->Tick(Settings.FixedDeltaSeconds);
}

void FHeadlessApplication::TickFrames(int32 Count)
{
	for (int32 Frame = 0; Frame < Count; ++Frame)
	{
		TickFrame();
	}
}

void FHeadlessApplication::TickSeconds(double Seconds)
{
	if (Seconds <= 0.0)
	{
		return;
	}
	// Rounded, so 1.0 s at 1/60 s is 60 frames even though 60 * (1/60.f) is not exactly 1.
	const int32 Frames = FMath::Max(1, int32(Seconds / Settings.FixedDeltaSeconds + 0.5));
	TickFrames(Frames);
}

bool FHeadlessApplication::TickUntil(TFunctionRef<bool()> Condition, int32 MaxFrames)
{
	for (int32 Frame = 0; Frame < MaxFrames; ++Frame)
	{
		if (Condition())
		{
			return true;
		}
		TickFrame();
	}
	return Condition();
}
