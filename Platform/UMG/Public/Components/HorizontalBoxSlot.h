#pragma once

// UHorizontalBoxSlot: one child of a horizontal box: its share of the width, padding and alignment.

#include "CoreMinimal.h"
#include "Components/PanelSlot.h"
#include "Layout/Margin.h"
#include "Types/SlateEnums.h"
#include "Components/SlateWrapperTypes.h"
#include "HorizontalBoxSlot.generated.h"

/** The slot of a horizontal box child: padding and alignment. */
UCLASS()
class UMG_API UHorizontalBoxSlot : public UPanelSlot
{
	GENERATED_BODY()

public:
	/** Sets the space around the child. */
	UFUNCTION(BlueprintCallable, Category = "Layout|HorizontalBox Slot")
	void SetPadding(FMargin InPadding) { Padding = InPadding; }
	/** Sets where the child sits horizontally. */
	UFUNCTION(BlueprintCallable, Category = "Layout|HorizontalBox Slot")
	void SetHorizontalAlignment(EHorizontalAlignment InHorizontalAlignment) { HorizontalAlignment = InHorizontalAlignment; }
	/** Sets where the child sits vertically. */
	UFUNCTION(BlueprintCallable, Category = "Layout|HorizontalBox Slot")
	void SetVerticalAlignment(EVerticalAlignment InVerticalAlignment) { VerticalAlignment = InVerticalAlignment; }
	/** Sets how the slot sizes its child along the box. */
	UFUNCTION(BlueprintCallable, Category = "Layout|Box Slot")
	void SetSize(FSlateChildSize InSize) { Size = InSize; }

	/** Space around the child. */
	UPROPERTY(EditAnywhere, Category = "Layout|HorizontalBox Slot")
	FMargin Padding = FMargin();

	/** Where the child sits horizontally. */
	UPROPERTY(EditAnywhere, Category = "Layout|HorizontalBox Slot")
	EHorizontalAlignment HorizontalAlignment = HAlign_Fill;

	/** Where the child sits vertically. */
	UPROPERTY(EditAnywhere, Category = "Layout|HorizontalBox Slot")
	EVerticalAlignment VerticalAlignment = VAlign_Fill;

	/** Automatic (desired size) or a share of the free room. */
	UPROPERTY(EditAnywhere, Category = "Layout|Box Slot")
	FSlateChildSize Size = FSlateChildSize(ESlateSizeRule::Automatic);
};
