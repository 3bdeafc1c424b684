#pragma once

#include "CoreMinimal.h"

// UMG's log: widget blueprints that cannot be read or bound, widgets that cannot be made.
DECLARE_LOG_CATEGORY_EXTERN(LogUMG, Log, All);
