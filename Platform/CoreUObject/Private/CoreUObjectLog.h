#pragma once

#include "CoreMinimal.h"

DECLARE_LOG_CATEGORY_EXTERN(LogUObjectGlobals, Log, All);
DECLARE_LOG_CATEGORY_EXTERN(LogGarbage, Log, All);
