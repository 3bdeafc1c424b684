#pragma once

// UImage: draws a brush (a texture or a material) at the brush's image size.

#include "CoreMinimal.h"
#include "Components/Widget.h"
#include "Styling/SlateBrush.h"
#include "Image.generated.h"

class UMaterialInterface;

/** A picture: a brush drawn in the widget's box. */
UCLASS()
class UMG_API UImage : public UWidget
{
	GENERATED_BODY()

public:
	/** Replaces the brush. */
	UFUNCTION(BlueprintCallable, Category = "Appearance")
	void SetBrush(const FSlateBrush& InBrush) { Brush = InBrush; }
	/** The brush. */
	UFUNCTION(BlueprintCallable, Category = "Appearance")
	FSlateBrush GetBrush() const { return Brush; }
	/** Draws Material through the brush; the image size stays. */
	UFUNCTION(BlueprintCallable, Category = "Appearance")
	void SetBrushFromMaterial(UMaterialInterface* Material);
	/** Sets the brush's resource object (a texture or a material). */
	UFUNCTION(BlueprintCallable, Category = "Appearance")
	void SetBrushResourceObject(UObject* ResourceObject) { Brush.SetResourceObject(ResourceObject); }
	/** Sets the tint of the image. */
	UFUNCTION(BlueprintCallable, Category = "Appearance")
	void SetColorAndOpacity(FLinearColor InColorAndOpacity) { ColorAndOpacity = InColorAndOpacity; }

	/** What is drawn. */
	UPROPERTY(EditAnywhere, Category = "Appearance")
	FSlateBrush Brush;

	/** Tint of the image. */
	UPROPERTY(EditAnywhere, Category = "Appearance")
	FLinearColor ColorAndOpacity = FLinearColor::White;

protected:
	FVector2D ComputeDesiredSize() const override { return Brush.ImageSize; }
};
