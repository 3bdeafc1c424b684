#include "BadUnknownMacroArgument.generated.h"

UCLASS()
class UBadUnknownMacroArgument : public UObject
{
	GENERATED_BODY()
	UPROPERTY(EditAnywhere,
		Foo)
	int32 Value;
};
