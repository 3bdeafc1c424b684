#pragma once

// A UObject that timers call back into, counting calls and running an optional action inside
// the callback (to clear or set timers from there).

#include "CoreMinimal.h"
#include "TimerManager.h"
#include "UObject/Object.h"
#include "TimerManagerTestTypes.generated.h"

UCLASS()
class UTimerTestTarget : public UObject
{
	GENERATED_BODY()

public:
	void OnFire()
	{
		++Calls;
		if (Action)
		{
			Action();
		}
	}

	void OnFireConst() const { ++ConstCalls; }

	int32 Calls = 0;
	mutable int32 ConstCalls = 0;
	TFunction<void()> Action;
};
