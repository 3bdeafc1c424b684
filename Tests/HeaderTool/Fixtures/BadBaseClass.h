#include "BadBaseClass.generated.h"

UCLASS()
class UBadBaseClass : UObject
{
	GENERATED_BODY()
};
