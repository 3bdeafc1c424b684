#pragma once

// FEngineLoop: one frame of the stand-in engine, in a fixed order that the plug-in relies on:
//   1. input      queued pointer events routed with the last frame's geometry
//   2. media      the core ticker (media players advance their clocks and raise their events)
//   3. timers     the world's clock and timer manager
//   4. widgets    NativeTick of the user widgets on screen, then their animations
//   5. layout     desired sizes and arrangement; a widget added in steps 1-4 first gets a size here
//   6. paint      the renderer's handler, when one is set
//   7. end        widgets that left the screen are destructed, on-screen messages age, and now and
//                 then the garbage collector runs
// The loop's DeltaSeconds is the only clock the logic sees, so a run with a fixed step is
// deterministic. Game thread only.

#include "CoreMinimal.h"
#include "Templates/Function.h"
#include "Engine/World.h"
#include "UObject/WeakObjectPtrTemplates.h"

class FWidgetViewport;
class UWorld;

/** Wall-clock seconds each step of the last frame took, for a host's statistics. */
struct FEngineLoopFrameTimings
{
	double Input = 0.0;
	double Media = 0.0;
	double Timers = 0.0;
	double Widgets = 0.0;
	double Layout = 0.0;
	double Paint = 0.0;
	double End = 0.0;

	double Total() const { return Input + Media + Timers + Widgets + Layout + Paint + End; }
};

/** Runs frames over one world and the widget viewport. */
class LAUNCH_API FEngineLoop
{
public:
	/** Draws the laid-out viewport; called at the paint step. */
	using FPaintHandler = TFunction<void(const FWidgetViewport& Viewport)>;

	FEngineLoop(UWorld& InWorld, FWidgetViewport& InViewport);

	/** Runs one frame of DeltaSeconds (negative values count as zero). */
	void Tick(float DeltaSeconds);

	/** Sets (or, with an empty handler, removes) what the paint step calls. */
	void SetPaintHandler(FPaintHandler Handler) { PaintHandler = MoveTemp(Handler); }

	/** Loop seconds between two garbage collections (0 collects every frame); 60 by default. */
	void SetGarbageCollectionInterval(double Seconds) { GarbageCollectionInterval = Seconds; }

	/** Frames run so far. */
	uint64 GetFrameCount() const { return FrameCount; }
	/** Loop seconds run so far: the sum of every frame's DeltaSeconds. */
	double GetLoopSeconds() const { return LoopSeconds; }
	/** How long each step of the last frame took. */
	const FEngineLoopFrameTimings& GetLastFrameTimings() const { return LastFrameTimings; }

	UWorld* GetWorld() const { return World.Get(); }
	FWidgetViewport& GetViewport() const { return Viewport; }

private:
	// The world whose timers tick at step 3; weak, because the application owns and destroys it.
	TWeakObjectPtr<UWorld> World;
	// The widget layer the input, widget, layout and end steps run on.
	FWidgetViewport& Viewport;
	// Set by the renderer; empty in a run that draws nothing.
	FPaintHandler PaintHandler;
	// Frames run.
	uint64 FrameCount = 0;
	// Loop time in seconds.
	double LoopSeconds = 0.0;
	// Loop time of the last garbage collection.
	double LastCollectionSeconds = 0.0;
	// Loop seconds between collections.
	double GarbageCollectionInterval = 60.0;
	// Step timings of the last frame.
	FEngineLoopFrameTimings LastFrameTimings;
};
