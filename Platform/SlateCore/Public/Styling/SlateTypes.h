#pragma once

// Style-level types of the common widgets: the states a check box can be in.

#include "CoreMinimal.h"
#include "SlateTypes.generated.h"

/** The state of a check box. */
UENUM(BlueprintType)
enum class ECheckBoxState : uint8
{
	/** Not checked. */
	Unchecked,
	/** Checked. */
	Checked,
	/** Neither: shown for a mixed selection; a click makes it checked. */
	Undetermined
};
