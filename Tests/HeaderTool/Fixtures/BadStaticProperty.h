#include "BadStaticProperty.generated.h"

UCLASS()
class UBadStaticProperty : public UObject
{
	GENERATED_BODY()
	UPROPERTY()
	static int32 Count;
};
