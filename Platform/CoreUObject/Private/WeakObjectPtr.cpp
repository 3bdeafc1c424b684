#include "UObject/WeakObjectPtr.h"

#include "UObject/Object.h"
#include "UObject/UObjectArray.h"

FWeakObjectPtr& FWeakObjectPtr::operator=(const UObject* Object)
{
	if (Object && Object->GetUniqueID() != INDEX_NONE)
	{
		ObjectIndex = Object->GetUniqueID();
		ObjectSerialNumber = FUObjectArray::Get().GetSerialNumber(ObjectIndex);
	}
	else
	{
		Reset();
	}
	return *this;
}

UObject* FWeakObjectPtr::Get() const
{
	const FUObjectArray::FItem* Item = FUObjectArray::Get().GetItem(ObjectIndex);
	if (!Item || Item->SerialNumber != ObjectSerialNumber || !Item->Object)
	{
		return nullptr;
	}
	// An object whose destruction has begun is as good as gone to a weak reference: bindings on it
	// must not run, even while something strong still holds its memory.
	return Item->Object->HasBegunDestroy() ? nullptr : Item->Object;
}

bool FWeakObjectPtr::IsStale() const
{
	return ObjectSerialNumber != 0 && Get() == nullptr;
}
