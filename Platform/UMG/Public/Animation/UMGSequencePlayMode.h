#pragma once

// EUMGSequencePlayMode: which way a widget animation runs.

#include "CoreMinimal.h"
#include "UMGSequencePlayMode.generated.h"

/** Direction of a widget animation. */
UENUM(BlueprintType)
namespace EUMGSequencePlayMode
{
	enum Type
	{
		/** From the start to the end. */
		Forward,
		/** From the end to the start. */
		Reverse,
		/** Forward, then back, each pass counting as a loop. */
		PingPong
	};
}
