#include "BadFixedArray.generated.h"

USTRUCT()
struct FBadFixedArray
{
	GENERATED_BODY()
	UPROPERTY()
	int32 Values[4];
};
