#pragma once

// UProgressBar: a bar filled to a fraction, left to right.

#include "CoreMinimal.h"
#include "Misc/CoreMiscDefines.h"
#include "Components/Widget.h"
#include "Math/Color.h"
#include "ProgressBar.generated.h"

/** A bar showing a fraction from 0 to 1. */
UCLASS()
class UMG_API UProgressBar : public UWidget
{
	GENERATED_BODY()

public:
	/** An empty bar with a white fill. */
	UProgressBar();
	/** Defined where the deprecated members may be named. */
	~UProgressBar() override;

	/** The filled fraction. */
	float GetPercent() const;
	/** Sets the filled fraction, 0 to 1. */
	UFUNCTION(BlueprintCallable, Category = "Progress")
	void SetPercent(float InPercent);
	/** The colour of the filled part. */
	FLinearColor GetFillColorAndOpacity() const;
	/** Sets the colour of the filled part. */
	UFUNCTION(BlueprintCallable, Category = "Progress")
	void SetFillColorAndOpacity(FLinearColor InColor);

	UE_DEPRECATED(5.1, "Direct access to Percent is deprecated. Please use the getter or setter.")
	/** The filled fraction, 0 to 1. */
	UPROPERTY(EditAnywhere, BlueprintReadWrite, Category = "Progress")
	float Percent = 0.0f;

	UE_DEPRECATED(5.1, "Direct access to FillColorAndOpacity is deprecated. Please use the getter or setter.")
	/** Colour of the filled part. */
	UPROPERTY(EditAnywhere, BlueprintReadWrite, Category = "Appearance")
	FLinearColor FillColorAndOpacity = FLinearColor::White;

private:
	FVector2D ComputeDesiredSize() const override;
	void PaintSelf(FSlateWindowElementList& OutDrawElements, const FGeometry& Geometry, float Opacity) const override;
};
