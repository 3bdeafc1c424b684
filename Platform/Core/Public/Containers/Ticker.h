#pragma once

// FTSTicker: callbacks run from a frame's tick. The core ticker is the one the frame loop ticks
// (step 2, the media step), so a system that must advance every frame without an owner of its
// own (media players, the audio mixer) registers there.

#include "CoreTypes.h"
#include "Delegates/Delegate.h"
#include "Templates/Function.h"
#include "Templates/SharedPointer.h"

#include <atomic>
#include <mutex>

/** Called with the tick's DeltaTime in seconds; returns true to keep ticking, false to be removed. */
DECLARE_DELEGATE_RetVal_OneParam(bool, FTickerDelegate, float);

/**
 * A list of ticker callbacks. Adding and removing is safe from any thread; Tick belongs to one
 * thread (the game thread for the core ticker). A callback added during a Tick first runs on the
 * next Tick; one removed during a Tick does not run again, even later in the same Tick.
 */
class CORE_API FTSTicker
{
	struct FElement;

public:
	/** Names one registered callback; stays safe to use after the callback or the ticker is gone. */
	using FDelegateHandle = TWeakPtr<FElement>;

	FTSTicker() = default;
	FTSTicker(const FTSTicker&) = delete;
	FTSTicker& operator=(const FTSTicker&) = delete;

	/** The ticker the frame loop ticks once per frame, at its media step. */
	static FTSTicker& GetCoreTicker();

	/** Registers Delegate to run every Delay seconds (0: every tick); the first run is Delay from now. */
	FDelegateHandle AddTicker(const FTickerDelegate& Delegate, float Delay = 0.f);

	/** Same, from a callable; Name is for diagnostics only. */
	FDelegateHandle AddTicker(const TCHAR* Name, float Delay, TFunction<bool(float)> Function);

	/** Removes a callback from whichever ticker holds it; a stale or empty handle does nothing. */
	static void RemoveTicker(FDelegateHandle Handle);

	/** Advances this ticker's time by DeltaTime and runs every callback that is due, in order of addition. */
	void Tick(float DeltaTime);

	/** Number of callbacks still registered (removed ones may linger until the next Tick). */
	int32 Num() const;

private:
	struct FElement
	{
		// What to run; only the ticking thread calls it.
		FTickerDelegate Delegate;
		// Seconds between runs.
		double Delay = 0.0;
		// Ticker time at which it runs next; ticking thread only once added.
		double FireTime = 0.0;
		// Set by RemoveTicker from any thread, or when the callback returns false.
		std::atomic<bool> bRemoved{false};
	};

	// Guards Elements and Pending.
	mutable std::mutex Mutex;
	// Registered callbacks in order of addition.
	TArray<TSharedPtr<FElement>> Elements;
	// Added since the last Tick began; joined to Elements at the start of the next one.
	TArray<TSharedPtr<FElement>> Pending;
	// Seconds ticked so far; ticking thread only, read under Mutex by AddTicker.
	double CurrentTime = 0.0;
};
