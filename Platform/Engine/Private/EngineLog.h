#pragma once

// The Engine module's log categories, named as the engine's are so log lines read the same.

#include "CoreMinimal.h"

DECLARE_LOG_CATEGORY_EXTERN(LogEngine, Log, All);
DECLARE_LOG_CATEGORY_EXTERN(LogSaveGame, Log, All);
DECLARE_LOG_CATEGORY_EXTERN(LogStreaming, Log, All);
