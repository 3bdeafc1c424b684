#pragma once

// FWeakObjectPtr: a reference that does not keep its object alive and reads null once the object
// has begun destruction or has been collected. An object index plus the slot's serial number.

#include "CoreTypes.h"
#include "Templates/TypeHash.h"

class UObject;

struct COREUOBJECT_API FWeakObjectPtr
{
	FWeakObjectPtr() = default;
	FWeakObjectPtr(std::nullptr_t) {}
	FWeakObjectPtr(const UObject* Object) { *this = Object; }

	FWeakObjectPtr& operator=(const UObject* Object);

	/** The object, or null if it is gone or on its way out. */
	UObject* Get() const;
	bool IsValid() const { return Get() != nullptr; }
	/** True for a pointer that was set once and whose object has gone since. */
	bool IsStale() const;
	void Reset() { ObjectIndex = INDEX_NONE; ObjectSerialNumber = 0; }

	bool operator==(const FWeakObjectPtr& Other) const
	{
		return ObjectIndex == Other.ObjectIndex && ObjectSerialNumber == Other.ObjectSerialNumber;
	}

	friend uint32 GetTypeHash(const FWeakObjectPtr& Ptr) { return HashCombineFast(GetTypeHash(Ptr.ObjectIndex), GetTypeHash(Ptr.ObjectSerialNumber)); }

private:
	int32 ObjectIndex = INDEX_NONE;
	int32 ObjectSerialNumber = 0;
};
