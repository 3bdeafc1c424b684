#include "BadPlainClassProperty.generated.h"

class FNotReflected
{
	int32 Plain = 0;
	UPROPERTY()
	int32 Value;
};
