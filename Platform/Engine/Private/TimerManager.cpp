#include "TimerManager.h"

#include <algorithm>
#include <cmath>

namespace
{
	constexpr uint64 IndexBits = 24;
	constexpr uint64 IndexMask = (uint64(1) << IndexBits) - 1;

	/** Seconds to whole nanoseconds, rounded, so 60 steps of 1/60 s and 100 of 0.01 s meet exactly. */
	int64 ToNanoseconds(double Seconds)
	{
		return static_cast<int64>(std::llround(Seconds * 1e9));
	}

	float ToSeconds(int64 Nanoseconds)
	{
		return static_cast<float>(static_cast<double>(Nanoseconds) * 1e-9);
	}
}

FTimerManager::FTimerManager() = default;

FTimerManager::~FTimerManager() = default;

FTimerManager::FTimerSlot* FTimerManager::FindSlot(uint64 Handle)
{
	const uint64 Index = Handle & IndexMask;
	if (Handle == 0 || Index >= Slots.size())
	{
		return nullptr;
	}
	FTimerSlot& Slot = Slots[Index];
	const bool bLive = Slot.Status != ETimerStatus::Free && Slot.Status != ETimerStatus::ExecutingCleared;
	return bLive && Slot.Serial == uint32(Handle >> IndexBits) ? &Slot : nullptr;
}

const FTimerManager::FTimerSlot* FTimerManager::FindSlot(uint64 Handle) const
{
	return const_cast<FTimerManager*>(this)->FindSlot(Handle);
}

uint64 FTimerManager::AllocateSlot()
{
	uint32 Index;
	if (!FreeSlots.empty())
	{
		Index = FreeSlots.back();
		FreeSlots.pop_back();
	}
	else
	{
		checkf(Slots.size() < IndexMask, "Too many timers");
		Index = uint32(Slots.size());
		Slots.emplace_back();
	}
	++NumLiveTimers;
	return (uint64(Slots[Index].Serial) << IndexBits) | Index;
}

void FTimerManager::ReleaseSlot(uint64 Handle)
{
	const uint32 Index = uint32(Handle & IndexMask);
	FTimerSlot& Slot = Slots[Index];
	Slot.Delegate.Unbind();
	Slot.Status = ETimerStatus::Free;
	++Slot.Serial;
	if (Slot.Serial == 0)
	{
		Slot.Serial = 1; // 0 would let a wrapped handle look invalid-but-equal
	}
	FreeSlots.push_back(Index);
}

void FTimerManager::ClearByHandle(uint64 Handle)
{
	FTimerSlot* Slot = FindSlot(Handle);
	if (!Slot)
	{
		return;
	}
	--NumLiveTimers;
	if (Slot->Status == ETimerStatus::Executing)
	{
		// Its callback is on the stack: keep the delegate until the call returns.
		Slot->Status = ETimerStatus::ExecutingCleared;
		return;
	}
	ReleaseSlot(Handle);
}

void FTimerManager::InternalSetTimer(FTimerHandle& InOutHandle, FTimerUnifiedDelegate&& InDelegate, float InRate, bool InbLoop, float InFirstDelay)
{
	ClearByHandle(InOutHandle.Handle);
	InOutHandle.Invalidate();
	if (InRate <= 0.f)
	{
		return;
	}
	const uint64 Handle = AllocateSlot();
	FTimerSlot& Slot = Slots[Handle & IndexMask];
	Slot.Delegate = MoveTemp(InDelegate);
	Slot.RateNs = std::max<int64>(1, ToNanoseconds(InRate));
	Slot.ExpireNs = NowNs + (InFirstDelay >= 0.f ? ToNanoseconds(InFirstDelay) : Slot.RateNs);
	Slot.bLoop = InbLoop;
	Slot.Sequence = NextSequence++;
	Slot.Status = bInTick ? ETimerStatus::Pending : ETimerStatus::Active;
	InOutHandle.Handle = Handle;
}

FTimerHandle FTimerManager::SetTimerForNextTick(FTimerDelegate const& InDelegate)
{
	FTimerHandle Handle;
	InternalSetTimer(Handle, FTimerUnifiedDelegate(InDelegate), 1.f, false, 0.f);
	return Handle;
}

FTimerHandle FTimerManager::SetTimerForNextTick(TFunction<void()>&& Callback)
{
	FTimerHandle Handle;
	InternalSetTimer(Handle, FTimerUnifiedDelegate(MoveTemp(Callback)), 1.f, false, 0.f);
	return Handle;
}

void FTimerManager::ClearTimer(FTimerHandle& InHandle)
{
	ClearByHandle(InHandle.Handle);
	InHandle.Invalidate();
}

void FTimerManager::InternalClearAllTimers(void const* Object)
{
	if (!Object)
	{
		return;
	}
	for (uint64 Index = 0; Index < Slots.size(); ++Index)
	{
		const FTimerSlot& Slot = Slots[Index];
		if (Slot.Status != ETimerStatus::Free && Slot.Status != ETimerStatus::ExecutingCleared && Slot.Delegate.GetBoundObject() == Object)
		{
			ClearByHandle((uint64(Slot.Serial) << IndexBits) | Index);
		}
	}
}

void FTimerManager::ClearAllTimers()
{
	for (uint64 Index = 0; Index < Slots.size(); ++Index)
	{
		ClearByHandle((uint64(Slots[Index].Serial) << IndexBits) | Index);
	}
}

bool FTimerManager::IsTimerActive(FTimerHandle InHandle) const
{
	return FindSlot(InHandle.Handle) != nullptr;
}

bool FTimerManager::TimerExists(FTimerHandle InHandle) const
{
	return FindSlot(InHandle.Handle) != nullptr;
}

float FTimerManager::GetTimerRemaining(FTimerHandle InHandle) const
{
	const FTimerSlot* Slot = FindSlot(InHandle.Handle);
	return Slot ? ToSeconds(std::max<int64>(0, Slot->ExpireNs - NowNs)) : -1.f;
}

float FTimerManager::GetTimerElapsed(FTimerHandle InHandle) const
{
	const FTimerSlot* Slot = FindSlot(InHandle.Handle);
	return Slot ? ToSeconds(std::max<int64>(0, Slot->RateNs - (Slot->ExpireNs - NowNs))) : -1.f;
}

float FTimerManager::GetTimerRate(FTimerHandle InHandle) const
{
	const FTimerSlot* Slot = FindSlot(InHandle.Handle);
	return Slot ? ToSeconds(Slot->RateNs) : -1.f;
}

void FTimerManager::Tick(float DeltaSeconds)
{
	if (bInTick)
	{
		return; // a callback ticking its own manager would fire timers out of order
	}
	NowNs += std::max<int64>(0, ToNanoseconds(DeltaSeconds));
	bInTick = true;

	DueTimers.clear();
	for (uint64 Index = 0; Index < Slots.size(); ++Index)
	{
		const FTimerSlot& Slot = Slots[Index];
		if (Slot.Status == ETimerStatus::Active && Slot.ExpireNs <= NowNs)
		{
			DueTimers.push_back({Slot.ExpireNs, Slot.Sequence, (uint64(Slot.Serial) << IndexBits) | Index});
		}
	}
	std::sort(DueTimers.begin(), DueTimers.end(), [](const FDueTimer& A, const FDueTimer& B)
		{ return A.ExpireNs != B.ExpireNs ? A.ExpireNs < B.ExpireNs : A.Sequence < B.Sequence; });

	// Index-based: a callback may not touch DueTimers, but keep the loop robust anyway.
	for (size_t Due = 0; Due < DueTimers.size(); ++Due)
	{
		FireDueTimer(DueTimers[Due].Handle);
	}

	for (FTimerSlot& Slot : Slots)
	{
		if (Slot.Status == ETimerStatus::Pending)
		{
			Slot.Status = ETimerStatus::Active;
		}
	}
	bInTick = false;
}

void FTimerManager::FireDueTimer(uint64 Handle)
{
	FTimerSlot* Slot = FindSlot(Handle);
	if (!Slot || Slot->Status != ETimerStatus::Active)
	{
		return; // cleared (or re-set) by an earlier callback this frame
	}
	// One call per interval that has fully elapsed; a one-shot timer is called once.
	const int64 CallCount = Slot->bLoop ? (NowNs - Slot->ExpireNs) / Slot->RateNs + 1 : 1;
	Slot->Status = ETimerStatus::Executing;
	for (int64 Call = 0; Call < CallCount; ++Call)
	{
		if (!Slot->Delegate.IsBound())
		{
			// The object it was bound to has gone: drop the timer without a word.
			--NumLiveTimers;
			ReleaseSlot(Handle);
			return;
		}
		Slot->Delegate.Execute();
		if (Slot->Status != ETimerStatus::Executing)
		{
			break; // the callback cleared its own timer
		}
	}
	if (Slot->Status == ETimerStatus::ExecutingCleared)
	{
		ReleaseSlot(Handle);
		return;
	}
	if (!Slot->bLoop)
	{
		--NumLiveTimers;
		ReleaseSlot(Handle);
		return;
	}
	Slot->ExpireNs += CallCount * Slot->RateNs;
	Slot->Status = ETimerStatus::Active;
}
