#include "BadUnknownSpecifier.generated.h"

UCLASS()
class UBadUnknownSpecifier : public UObject
{
	GENERATED_BODY()
	UPROPERTY(EditAnywhere,
		Foo)
	int32 Value;
};
