#pragma once

// UProgressBar: a bar filled to a fraction, left to right.

#include "CoreMinimal.h"
#include "Components/Widget.h"
#include "Math/Color.h"
#include "ProgressBar.generated.h"

/** A bar showing a fraction from 0 to 1. */
UCLASS()
class UMG_API UProgressBar : public UWidget
{
	GENERATED_BODY()

public:
	/** Sets the filled fraction, 0 to 1. */
	UFUNCTION(BlueprintCallable, Category = "Progress")
	void SetPercent(float InPercent) { Percent = InPercent; }
	/** The filled fraction. */
	UFUNCTION(BlueprintCallable, Category = "Progress")
	float GetPercent() const { return Percent; }
	/** Sets the colour of the filled part. */
	UFUNCTION(BlueprintCallable, Category = "Progress")
	void SetFillColorAndOpacity(FLinearColor InColor) { FillColorAndOpacity = InColor; }

	/** The filled fraction, 0 to 1. */
	UPROPERTY(EditAnywhere, Category = "Progress")
	float Percent = 0.0f;

	/** Colour of the filled part. */
	UPROPERTY(EditAnywhere, Category = "Appearance")
	FLinearColor FillColorAndOpacity = FLinearColor::White;

protected:
	FVector2D ComputeDesiredSize() const override;
};
