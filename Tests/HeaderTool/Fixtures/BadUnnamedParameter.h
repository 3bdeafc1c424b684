#include "BadUnnamedParameter.generated.h"

UCLASS()
class UBadUnnamedParameter : public UObject
{
	GENERATED_BODY()
	UFUNCTION()
	void Play(int32 Index,
		const FString&);
};
