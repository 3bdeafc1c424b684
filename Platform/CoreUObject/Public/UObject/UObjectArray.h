#pragma once

// FUObjectArray: every live object's slot, with a serial number per slot so a weak reference can
// tell its object from a later one that reuses the slot. Game thread only.

#include "CoreTypes.h"

#include <vector>

class UObject;

class COREUOBJECT_API FUObjectArray
{
public:
	/** One slot: the object (null when free) and the serial of the object now in it. */
	struct FItem
	{
		UObject* Object = nullptr;
		int32 SerialNumber = 0;
	};

	static FUObjectArray& Get();

	/** Gives the object a slot and a fresh serial number. */
	void AllocateIndex(UObject& Object);
	/** Frees the object's slot; weak references to it read null from now on. */
	void FreeIndex(UObject& Object);

	const FItem* GetItem(int32 Index) const;
	int32 GetSerialNumber(int32 Index) const;
	/** Number of slots, used and free. */
	int32 Num() const { return static_cast<int32>(Items.size()); }
	int32 GetLiveObjectCount() const { return LiveCount; }
	UObject* GetObject(int32 Index) const;

private:
	/** Slots by index; a freed slot goes to FreeIndices and is reused. */
	std::vector<FItem> Items;
	std::vector<int32> FreeIndices;
	/** Serials only grow, so an old weak reference never matches a new object. */
	int32 NextSerial = 1;
	int32 LiveCount = 0;
};
