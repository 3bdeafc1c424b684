#pragma once

// The Json module's log category: missing or mistyped fields and refused documents are reported
// here as "LogJson: Warning: ...".

#include "CoreMinimal.h"

JSON_API DECLARE_LOG_CATEGORY_EXTERN(LogJson, Log, All);
