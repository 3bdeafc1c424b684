#pragma once

// Globals the engine's Core module shares with every module.

#include "CoreTypes.h"
#include "Logging/LogMacros.h"

/** The category for quick, unsorted logging. */
CORE_API DECLARE_LOG_CATEGORY_EXTERN(LogTemp, Log, All);
