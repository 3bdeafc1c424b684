#pragma once

// USizeBoxSlot: the content of a size box.

#include "CoreMinimal.h"
#include "Components/PanelSlot.h"
#include "Layout/Margin.h"
#include "Types/SlateEnums.h"

#include "SizeBoxSlot.generated.h"

/** The slot of a size box child: padding and alignment. */
UCLASS()
class UMG_API USizeBoxSlot : public UPanelSlot
{
	GENERATED_BODY()

public:
	/** Sets the space around the child. */
	UFUNCTION(BlueprintCallable, Category = "Layout|SizeBox Slot")
	void SetPadding(FMargin InPadding) { Padding = InPadding; }
	/** Sets where the child sits horizontally. */
	UFUNCTION(BlueprintCallable, Category = "Layout|SizeBox Slot")
	void SetHorizontalAlignment(EHorizontalAlignment InHorizontalAlignment) { HorizontalAlignment = InHorizontalAlignment; }
	/** Sets where the child sits vertically. */
	UFUNCTION(BlueprintCallable, Category = "Layout|SizeBox Slot")
	void SetVerticalAlignment(EVerticalAlignment InVerticalAlignment) { VerticalAlignment = InVerticalAlignment; }

	/** Space around the child. */
	UPROPERTY(EditAnywhere, Category = "Layout|SizeBox Slot")
	FMargin Padding = FMargin();

	/** Where the child sits horizontally. */
	UPROPERTY(EditAnywhere, Category = "Layout|SizeBox Slot")
	EHorizontalAlignment HorizontalAlignment = HAlign_Fill;

	/** Where the child sits vertically. */
	UPROPERTY(EditAnywhere, Category = "Layout|SizeBox Slot")
	EVerticalAlignment VerticalAlignment = VAlign_Fill;
};
