#pragma once

// UBorder: draws a brush behind its one child, which sits inside the border slot's padding.

#include "CoreMinimal.h"
#include "Misc/CoreMiscDefines.h"
#include "Components/ContentWidget.h"
#include "Layout/Margin.h"
#include "Styling/SlateBrush.h"
#include "Border.generated.h"

class UBorderSlot;

/** A box with a background brush around one child. */
UCLASS()
class UMG_API UBorder : public UContentWidget
{
	GENERATED_BODY()

public:
	/** A white background brush with no resource. */
	UBorder();
	/** Defined where the deprecated members may be named. */
	~UBorder() override;

	/** The colour the background brush is tinted with. */
	FLinearColor GetBrushColor() const;
	/** Sets the colour the background brush is tinted with. */
	UFUNCTION(BlueprintCallable, Category = "Appearance")
	void SetBrushColor(FLinearColor InBrushColor);
	/** Sets the background brush. */
	UFUNCTION(BlueprintCallable, Category = "Appearance")
	void SetBrush(const FSlateBrush& InBrush);
	/** The space between the border and its content. */
	FMargin GetPadding() const;
	/** Sets the space between the border and its content. */
	UFUNCTION(BlueprintCallable, Category = "Appearance")
	void SetPadding(FMargin InPadding);

	/** The background brush. */
	UPROPERTY(EditAnywhere, BlueprintReadOnly, Category = "Appearance")
	FSlateBrush Background;

	UE_DEPRECATED(5.1, "Direct access to BrushColor is deprecated. Please use the getter or setter.")
	/** Tint of the background brush. */
	UPROPERTY(EditAnywhere, BlueprintReadWrite, Category = "Appearance")
	FLinearColor BrushColor = FLinearColor::White;

protected:
	UClass* GetSlotClass() const override;

private:
	FVector2D ComputeDesiredSize() const override;
	void PaintSelf(FSlateWindowElementList& OutDrawElements, const FGeometry& Geometry, float Opacity) const override;
	void ArrangeChildren(const FGeometry& AllottedGeometry, TArray<FArrangedChildWidget>& OutChildren) const override;
};
