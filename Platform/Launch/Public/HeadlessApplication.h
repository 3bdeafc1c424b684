#pragma once

// FHeadlessApplication: a world, the widget viewport and the frame loop, ticked with a fixed step
// and drawn nowhere unless a renderer sets a paint handler. The host program runs it in headless
// mode and every widget test runs on it. One at a time per process: the viewport is global, as the
// engine's game viewport is.

#include "CoreMinimal.h"
#include "Math/Vector2D.h"
#include "Templates/Function.h"
#include "Templates/UniquePtr.h"

class FEngineLoop;
class FWidgetViewport;
class UWorld;

/** What a headless application is made with. */
struct FHeadlessApplicationSettings
{
	/** The viewport's size in pixels. */
	FVector2D ViewportSize = FVector2D(1280.0, 720.0);
	/** The length of every frame in seconds. */
	float FixedDeltaSeconds = 1.f / 60.f;
};

/** Owns a world and runs the loop at a fixed step; tearing it down clears the viewport and collects. */
class LAUNCH_API FHeadlessApplication
{
public:
	explicit FHeadlessApplication(const FHeadlessApplicationSettings& InSettings = FHeadlessApplicationSettings());
	~FHeadlessApplication();
	FHeadlessApplication(const FHeadlessApplication&) = delete;
	FHeadlessApplication& operator=(const FHeadlessApplication&) = delete;

	/** Runs one frame of the fixed step. */
	void TickFrame();
	/** Runs Count frames. */
	void TickFrames(int32 Count);
	/** Runs as many whole frames as fit in Seconds (at least one when Seconds > 0). */
	void TickSeconds(double Seconds);
	/** Runs frames until Condition holds (checked before each frame) or MaxFrames have run; true if it held. */
	bool TickUntil(TFunctionRef<bool()> Condition, int32 MaxFrames = 600);

	UWorld* GetWorld() const { return World; }
	FWidgetViewport& GetViewport() const;
	FEngineLoop& GetLoop() const { return *Loop; }
	float GetFixedDeltaSeconds() const { return Settings.FixedDeltaSeconds; }

private:
	// What the application was made with.
	FHeadlessApplicationSettings Settings;
	// The world, rooted by CreateWorld until the destructor destroys it.
	UWorld* World = nullptr;
	// The frame loop over World and the viewport.
	TUniquePtr<FEngineLoop> Loop;
};
