#pragma once

// UBorder: draws a brush behind its one child, which sits inside the border slot's padding.

#include "CoreMinimal.h"
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
	/** Sets the colour the background brush is tinted with. */
	UFUNCTION(BlueprintCallable, Category = "Appearance")
	void SetBrushColor(FLinearColor InBrushColor) { BrushColor = InBrushColor; }
	/** Sets the background brush. */
	UFUNCTION(BlueprintCallable, Category = "Appearance")
	void SetBrush(const FSlateBrush& InBrush) { Background = InBrush; }
	/** Sets the space between the border and its content. */
	UFUNCTION(BlueprintCallable, Category = "Appearance")
	void SetPadding(FMargin InPadding);

	/** The background brush. */
	UPROPERTY(EditAnywhere, Category = "Appearance")
	FSlateBrush Background;

	/** Tint of the background brush. */
	UPROPERTY(EditAnywhere, Category = "Appearance")
	FLinearColor BrushColor = FLinearColor::White;

protected:
	UClass* GetSlotClass() const override;
	FVector2D ComputeDesiredSize() const override;
	void ArrangeChildren(const FGeometry& AllottedGeometry, TArray<FArrangedChildWidget>& OutChildren) const override;
};
