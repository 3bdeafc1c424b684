#pragma once

#include "CoreMinimal.h"
#include "Delegates.generated.h"

DECLARE_DYNAMIC_MULTICAST_DELEGATE(FOnMediaEvent);
DECLARE_DYNAMIC_MULTICAST_DELEGATE_OneParam(FOnVolumeChanged, float, Value);
DECLARE_DYNAMIC_DELEGATE_RetVal_TwoParams(bool, FOnAccept, const TMap<FString, int32>&, Options, UObject*, Sender);
