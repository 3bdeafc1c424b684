#pragma once

#include "CoreMinimal.h"
#include "DeprecatedMembers.generated.h"

UCLASS()
class FIXTURES_API UDeprecatedMembers : public UObject
{
	GENERATED_BODY()

public:
	UE_DEPRECATED(5.1, "Direct access to Opacity is deprecated. Please use the getter or setter.")
	/** Read through GetOpacity. */
	UPROPERTY(EditAnywhere, Category = "Rendering")
	float Opacity = 1.0f;

	UPROPERTY(EditAnywhere, Category = "Rendering")
	UE_DEPRECATED(5.2, "Direct access to Tint is deprecated.")
	FLinearColor Tint;

	UPROPERTY(EditAnywhere, Category = "Rendering")
	float Scale = 1.0f;

	UE_DEPRECATED(5.1, "Use SetOpacity.")
	UFUNCTION(BlueprintCallable)
	void Fade(float Amount);

	UE_DEPRECATED(5.0, "A plain member: the next reflected one is not deprecated.")
	int32 Legacy = 0;

	UFUNCTION(BlueprintCallable)
	float GetOpacity() const;
};
