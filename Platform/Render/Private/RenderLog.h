#pragma once

// The Render module's log category.

#include "CoreMinimal.h"

DECLARE_LOG_CATEGORY_EXTERN(LogRender, Log, All);
