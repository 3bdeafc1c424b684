#pragma once

// FTimerHandle: names one timer of a FTimerManager. A default handle names no timer; the manager
// fills it in SetTimer and resets it in ClearTimer.

#include "CoreMinimal.h"

/** Identifies a timer set through FTimerManager::SetTimer; copyable, compares by value. */
struct FTimerHandle
{
	FTimerHandle() = default;

	/** True once SetTimer has filled the handle (the timer may have finished since). */
	bool IsValid() const { return Handle != 0; }

	/** Makes the handle name no timer; the timer itself is not touched. */
	void Invalidate() { Handle = 0; }

	bool operator==(const FTimerHandle& Other) const { return Handle == Other.Handle; }
	bool operator!=(const FTimerHandle& Other) const { return Handle != Other.Handle; }

	/** A readable form of the handle for logs. */
	FString ToString() const { return Handle == 0 ? FString(TEXT("Invalid")) : FString::Printf(TEXT("%llu"), static_cast<unsigned long long>(Handle)); }

	friend uint32 GetTypeHash(const FTimerHandle& InHandle) { return GetTypeHash(InHandle.Handle); }

private:
	friend class FTimerManager;

	// Slot index in the low 24 bits, the slot's serial number above: a stale handle never names a reused slot.
	uint64 Handle = 0;
};
