#include "BadNoGeneratedBody.generated.h"

UCLASS()
class UBadNoGeneratedBody : public UObject
{
	UPROPERTY()
	int32 Value;
};
