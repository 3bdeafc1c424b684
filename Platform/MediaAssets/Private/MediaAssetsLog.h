#pragma once

// The media module's log category, named as the engine's is so log lines read the same.

#include "CoreMinimal.h"

DECLARE_LOG_CATEGORY_EXTERN(LogMediaAssets, Log, All);
