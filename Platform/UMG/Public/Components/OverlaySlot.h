#pragma once

// UOverlaySlot: one child of an overlay, stacked over the others, aligned within the overlay's box.

#include "CoreMinimal.h"
#include "Components/PanelSlot.h"
#include "Layout/Margin.h"
#include "Types/SlateEnums.h"

#include "OverlaySlot.generated.h"

/** The slot of a overlay child: padding and alignment. */
UCLASS()
class UMG_API UOverlaySlot : public UPanelSlot
{
	GENERATED_BODY()

public:
	/** Sets the space around the child. */
	UFUNCTION(BlueprintCallable, Category = "Layout|Overlay Slot")
	void SetPadding(FMargin InPadding) { Padding = InPadding; }
	/** Sets where the child sits horizontally. */
	UFUNCTION(BlueprintCallable, Category = "Layout|Overlay Slot")
	void SetHorizontalAlignment(EHorizontalAlignment InHorizontalAlignment) { HorizontalAlignment = InHorizontalAlignment; }
	/** Sets where the child sits vertically. */
	UFUNCTION(BlueprintCallable, Category = "Layout|Overlay Slot")
	void SetVerticalAlignment(EVerticalAlignment InVerticalAlignment) { VerticalAlignment = InVerticalAlignment; }

	/** Space around the child. */
	UPROPERTY(EditAnywhere, Category = "Layout|Overlay Slot")
	FMargin Padding = FMargin();

	/** Where the child sits horizontally. */
	UPROPERTY(EditAnywhere, Category = "Layout|Overlay Slot")
	EHorizontalAlignment HorizontalAlignment = HAlign_Fill;

	/** Where the child sits vertically. */
	UPROPERTY(EditAnywhere, Category = "Layout|Overlay Slot")
	EVerticalAlignment VerticalAlignment = VAlign_Fill;
};
