#pragma once

#if !PLAIN_PLATFORM_INTERNALS
#error "ObjectCensus.h belongs to the stand-in; the engine has no such header"
#endif

// FObjectCensus: how many objects and bindings the process holds right now. Stand-in only, for
// soak runs and leak tests: a long lesson must end with the counts it had after its first minutes,
// and a count that creeps up names the kind of thing that leaks. Game thread only.

#include "CoreMinimal.h"

class UClass;

/** One look at what is alive. */
struct COREUOBJECT_API FObjectCensus
{
	/** Objects that have a slot in the object array (reachable or waiting for the collector). */
	int32 Objects = 0;
	/** Bindings in the reflected dynamic delegates of those objects (AddDynamic), dead ones included. */
	int32 DynamicBindings = 0;
	/** Native delegate bindings alive in the process: delegates, multicast lists, timers, tickers. */
	int32 NativeBindings = 0;

	/** Counts everything above. Walks every object's reflected delegates: for a sample, not a frame. */
	static FObjectCensus Take();

	/** Live objects of Class or a class derived from it. */
	static int32 CountObjectsOf(const UClass* Class);
};
