#include "BadBitfield.generated.h"

UCLASS()
class UBadBitfield : public UObject
{
	GENERATED_BODY()
	UPROPERTY()
	uint8 bFlag : 1;
};
