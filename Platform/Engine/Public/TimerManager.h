#pragma once

// FTimerManager: the timers of one world. Time advances only through Tick (the frame loop's timer
// step), never by the wall clock, so a run with a fixed step fires the same timers every time.
//
// Rules the plug-in relies on, as the engine has them: a rate <= 0 clears the timer; setting a
// handle that names a live timer clears that timer first; a first delay < 0 means "the rate"; a
// looping timer fires once for every interval that has elapsed during a frame; a timer set inside
// a callback first fires on the next Tick; a timer whose object has gone is dropped silently; a
// callback may clear or set any timer, its own included. Game thread only.

#include "CoreMinimal.h"
#include "Delegates/Delegate.h"
#include "Engine/TimerHandle.h"
#include "Templates/Function.h"
#include "UObject/WeakObjectPtrTemplates.h"

#include <deque>
#include <vector>

class UObject;

DECLARE_DELEGATE(FTimerDelegate);

/** Whatever a timer calls: a FTimerDelegate or a TFunction. Move-only in practice. */
struct FTimerUnifiedDelegate
{
	FTimerUnifiedDelegate() = default;
	/** Wraps a delegate; a UObject binding keeps the object weakly. */
	explicit FTimerUnifiedDelegate(const FTimerDelegate& InDelegate) : FuncDelegate(InDelegate) {}
	/** Takes over a delegate without copying its binding. */
	explicit FTimerUnifiedDelegate(FTimerDelegate&& InDelegate) : FuncDelegate(MoveTemp(InDelegate)) {}
	/** Wraps a plain function, which has no object and so never goes stale. */
	explicit FTimerUnifiedDelegate(TFunction<void()>&& InCallback) : FuncCallback(MoveTemp(InCallback)) {}

	/** Calls whatever is bound, if its object is still alive. */
	void Execute() const
	{
		if (FuncDelegate.IsBound())
		{
			FuncDelegate.Execute();
		}
		else if (FuncCallback)
		{
			FuncCallback();
		}
	}

	/** False when nothing is bound or a weakly held object has gone. */
	bool IsBound() const { return FuncDelegate.IsBound() || static_cast<bool>(FuncCallback); }

	/** The object a delegate binding calls into, or null (plain functions, static bindings). */
	const void* GetBoundObject() const
	{
		const FTimerDelegate::InstanceType* Instance = FuncDelegate.GetDelegateInstance();
		return Instance ? Instance->GetBoundObject() : nullptr;
	}

	/** Drops the binding. */
	void Unbind()
	{
		FuncDelegate.Unbind();
		FuncCallback.Reset();
	}

	/** The native delegate form, when bound that way. */
	FTimerDelegate FuncDelegate;
	/** The plain function form, when bound that way. */
	TFunction<void()> FuncCallback;
};

class ENGINE_API FTimerManager
{
public:
	/** An empty manager at time zero. */
	FTimerManager();
	~FTimerManager();
	FTimerManager(const FTimerManager&) = delete;
	FTimerManager& operator=(const FTimerManager&) = delete;

	/** Calls InTimerMethod on InObj (held weakly) after InFirstDelay (or InRate), every InRate seconds if looping. */
	template<class UserClass>
	void SetTimer(FTimerHandle& InOutHandle, UserClass* InObj, typename FTimerDelegate::template TMethodPtr<UserClass> InTimerMethod, float InRate, bool InbLoop = false, float InFirstDelay = -1.f)
	{
		InternalSetTimer(InOutHandle, FTimerUnifiedDelegate(FTimerDelegate::CreateUObject(InObj, InTimerMethod)), InRate, InbLoop, InFirstDelay);
	}
	/** As above, for a const member function. */
	template<class UserClass>
	void SetTimer(FTimerHandle& InOutHandle, UserClass* InObj, typename FTimerDelegate::template TConstMethodPtr<UserClass> InTimerMethod, float InRate, bool InbLoop = false, float InFirstDelay = -1.f)
	{
		InternalSetTimer(InOutHandle, FTimerUnifiedDelegate(FTimerDelegate::CreateUObject(InObj, InTimerMethod)), InRate, InbLoop, InFirstDelay);
	}
	/** Runs a ready-made delegate. */
	void SetTimer(FTimerHandle& InOutHandle, FTimerDelegate const& InDelegate, float InRate, bool InbLoop, float InFirstDelay = -1.f)
	{
		InternalSetTimer(InOutHandle, FTimerUnifiedDelegate(InDelegate), InRate, InbLoop, InFirstDelay);
	}
	/** Runs a plain function; nothing makes it stale, so clear it when its captures die. */
	void SetTimer(FTimerHandle& InOutHandle, TFunction<void()>&& Callback, float InRate, bool InbLoop, float InFirstDelay = -1.f)
	{
		InternalSetTimer(InOutHandle, FTimerUnifiedDelegate(MoveTemp(Callback)), InRate, InbLoop, InFirstDelay);
	}
	/** Runs the delegate once, on the next Tick. */
	FTimerHandle SetTimerForNextTick(FTimerDelegate const& InDelegate);
	/** Runs the function once, on the next Tick. */
	FTimerHandle SetTimerForNextTick(TFunction<void()>&& Callback);

	/** Stops the timer (if any) and invalidates the handle. */
	void ClearTimer(FTimerHandle& InHandle);
	/** Stops every timer whose delegate is bound to Object. */
	void ClearAllTimersForObject(void const* Object) { InternalClearAllTimers(Object); }

#if PLAIN_PLATFORM_INTERNALS
	/** The stand-in's: stops every timer (a world on its way out); safe inside a callback. */
	void ClearAllTimers();
#endif

	/** True while the timer will still fire (also for a timer set this frame). */
	bool IsTimerActive(FTimerHandle InHandle) const;
	/** True when the handle names a timer that has not finished or been cleared. */
	bool TimerExists(FTimerHandle InHandle) const;
	/** Seconds until the timer fires next, or -1 when it does not exist. */
	float GetTimerRemaining(FTimerHandle InHandle) const;
	/** Seconds since the timer last fired (or was set), or -1 when it does not exist. */
	float GetTimerElapsed(FTimerHandle InHandle) const;
	/** The timer's interval, or -1 when it does not exist. */
	float GetTimerRate(FTimerHandle InHandle) const;

	/** Advances this manager's clock and fires every timer that came due, in the order they came due. */
	void Tick(float DeltaSeconds);

	/** Seconds this manager has ticked. */
	double GetInternalTime() const { return static_cast<double>(NowNs) * 1e-9; }
#if PLAIN_PLATFORM_INTERNALS
	/** The stand-in's: how many timers exist (active or set this frame). */
	int32 GetNumTimers() const { return NumLiveTimers; }
#endif

private:
	/** Where every SetTimer overload ends: clears InOutHandle's timer, then (rate > 0) sets a new one into it. */
	void InternalSetTimer(FTimerHandle& InOutHandle, FTimerUnifiedDelegate&& InDelegate, float InRate, bool InbLoop, float InFirstDelay);
	/** Where ClearAllTimersForObject ends: clears every timer bound to Object (null clears nothing). */
	void InternalClearAllTimers(void const* Object);

	enum class ETimerStatus : uint8
	{
		Free,
		Pending,
		Active,
		Executing,
		ExecutingCleared,
	};

	struct FTimerSlot
	{
		// What the timer calls; kept alive while it executes even if it is cleared meanwhile.
		FTimerUnifiedDelegate Delegate;
		// Interval in nanoseconds (at least 1).
		int64 RateNs = 0;
		// The manager time at which it fires next.
		int64 ExpireNs = 0;
		// Creation order, to fire timers due at the same instant in the order they were set.
		uint64 Sequence = 0;
		// Bumped each time the slot is freed, so old handles stop matching.
		uint32 Serial = 1;
		// Fires repeatedly until cleared.
		bool bLoop = false;
		// Where the slot is in its life.
		ETimerStatus Status = ETimerStatus::Free;
	};

	struct FDueTimer
	{
		// When it came due.
		int64 ExpireNs;
		// Tie-break: order of setting.
		uint64 Sequence;
		// The timer.
		uint64 Handle;
	};

	/** The live timer a handle names, or null. */
	FTimerSlot* FindSlot(uint64 Handle);
	const FTimerSlot* FindSlot(uint64 Handle) const;
	/** Takes a free slot (or a new one) and counts a live timer; returns its handle. */
	uint64 AllocateSlot();
	/** Frees the slot and retires its serial number. */
	void ReleaseSlot(uint64 Handle);
	/** Clears one timer; one whose callback is running is only marked. */
	void ClearByHandle(uint64 Handle);
	/** Runs one due timer's calls for this tick and reschedules or frees it. */
	void FireDueTimer(uint64 Handle);

	// Timer storage; a deque so a slot stays put while its callback adds timers.
	std::deque<FTimerSlot> Slots;
	// Indices of free slots, reused last-in first-out.
	std::vector<uint32> FreeSlots;
	// Scratch list of timers due in the current Tick, kept to avoid allocating every frame.
	std::vector<FDueTimer> DueTimers;
	// This manager's clock, in nanoseconds of ticked time.
	int64 NowNs = 0;
	// Next creation sequence number.
	uint64 NextSequence = 1;
	// Timers that exist (pending, active or executing).
	int32 NumLiveTimers = 0;
	// True inside Tick: timers set now wait as Pending until it ends.
	bool bInTick = false;
};
