#pragma once

// The garbage collector. CollectGarbage marks every object reachable from the roots (rooted and
// standalone objects, FGCObject referencers) through reflected strong references (TObjectPtr and raw
// object pointers marked UPROPERTY, arrays and structs of them, and AddReferencedObjects), then
// runs BeginDestroy and FinishDestroy on the rest and frees them. An object keeps its outer alive,
// not the other way round. Weak references to a freed object read null.

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "UObject/ObjectPtr.h"

#include <vector>

class UObject;

/** Handed to whatever reports references during marking. */
class COREUOBJECT_API FReferenceCollector
{
public:
	virtual ~FReferenceCollector() = default;

	/** Marks Object reachable; null is fine. */
	virtual void AddReferencedObject(const UObject* Object) = 0;

	template<class T>
	void AddReferencedObject(const TObjectPtr<T>& Object) { AddReferencedObject(static_cast<const UObject*>(Object.Get())); }

	template<class T>
	void AddReferencedObjects(const TArray<T*>& Objects)
	{
		for (const T* Object : Objects)
		{
			AddReferencedObject(static_cast<const UObject*>(Object));
		}
	}

	template<class T>
	void AddReferencedObjects(const TArray<TObjectPtr<T>>& Objects)
	{
		for (const TObjectPtr<T>& Object : Objects)
		{
			AddReferencedObject(Object);
		}
	}
};

/** A native (non-UObject) holder of object references, as the engine's FGCObject: while it lives,
 *  its AddReferencedObjects is asked at every collection. */
class COREUOBJECT_API FGCObject
{
public:
	FGCObject();
	virtual ~FGCObject();
	FGCObject(const FGCObject&);
	FGCObject& operator=(const FGCObject&) { return *this; }

	virtual void AddReferencedObjects(FReferenceCollector& Collector) = 0;
	virtual FString GetReferencerName() const = 0;
};

/** Collects every object not reachable from a root. KeepFlags keeps objects with any of them too. */
COREUOBJECT_API void CollectGarbage(EObjectFlags KeepFlags = RF_NoFlags, bool bPerformFullPurge = true);

#if PLAIN_PLATFORM_INTERNALS
/** The stand-in's: how many objects the last collection freed, for tests and logs. */
COREUOBJECT_API int32 GetLastGarbageCollectionFreedCount();
#endif
