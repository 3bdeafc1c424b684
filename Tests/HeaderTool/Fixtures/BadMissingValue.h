#include "BadMissingValue.generated.h"

USTRUCT()
struct FBadMissingValue
{
	GENERATED_BODY()
	UPROPERTY(EditAnywhere, Category)
	int32 Value;
};
