#pragma once

// UImage: draws a brush (a texture or a material) at the brush's image size.

#include "CoreMinimal.h"
#include "Misc/CoreMiscDefines.h"
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
	/** A white 32 by 32 brush with no resource. */
	UImage();
	/** Defined where the deprecated members may be named. */
	~UImage() override;

	/** Sets the tint of the image. */
	UFUNCTION(BlueprintCallable, Category = "Appearance")
	void SetColorAndOpacity(FLinearColor InColorAndOpacity);
	/** The tint of the image. */
	const FLinearColor& GetColorAndOpacity() const;
	/** Sets the opacity of the tint, keeping its hue. */
	UFUNCTION(BlueprintCallable, Category = "Appearance")
	void SetOpacity(float InOpacity);
	/** Sets the brush's own tint. */
	UFUNCTION(BlueprintCallable, Category = "Appearance")
	void SetBrushTintColor(FSlateColor TintColor);
	/** Sets the brush's resource object (a texture or a material). */
	UFUNCTION(BlueprintCallable, Category = "Appearance")
	void SetBrushResourceObject(UObject* ResourceObject);
	/** Replaces the brush. */
	UFUNCTION(BlueprintCallable, Category = "Appearance")
	virtual void SetBrush(const FSlateBrush& InBrush);
	/** The brush. */
	const FSlateBrush& GetBrush() const;
	/** Draws Material through the brush; the image size stays. */
	UFUNCTION(BlueprintCallable, Category = "Appearance")
	virtual void SetBrushFromMaterial(UMaterialInterface* Material);

	UE_DEPRECATED(5.2, "Direct access to Brush is deprecated. Please use the getter or setter.")
	/** What is drawn. */
	UPROPERTY(EditAnywhere, BlueprintReadWrite, Category = "Appearance")
	FSlateBrush Brush;

	UE_DEPRECATED(5.2, "Direct access to ColorAndOpacity is deprecated. Please use the getter or setter.")
	/** Tint of the image. */
	UPROPERTY(EditAnywhere, BlueprintReadWrite, Category = "Appearance")
	FLinearColor ColorAndOpacity = FLinearColor::White;

private:
	FVector2D ComputeDesiredSize() const override { return GetBrush().ImageSize; }
	void PaintSelf(FSlateWindowElementList& OutDrawElements, const FGeometry& Geometry, float Opacity) const override;
};
