#pragma once

// UButtonSlot: the content of a button, centred inside the button's padding.

#include "CoreMinimal.h"
#include "Components/PanelSlot.h"
#include "Layout/Margin.h"
#include "Types/SlateEnums.h"

#include "ButtonSlot.generated.h"

/** The slot of a button child: padding and alignment. */
UCLASS()
class UMG_API UButtonSlot : public UPanelSlot
{
	GENERATED_BODY()

public:
	/** Sets the space around the child. */
	UFUNCTION(BlueprintCallable, Category = "Layout|Button Slot")
	void SetPadding(FMargin InPadding) { Padding = InPadding; }
	/** Sets where the child sits horizontally. */
	UFUNCTION(BlueprintCallable, Category = "Layout|Button Slot")
	void SetHorizontalAlignment(EHorizontalAlignment InHorizontalAlignment) { HorizontalAlignment = InHorizontalAlignment; }
	/** Sets where the child sits vertically. */
	UFUNCTION(BlueprintCallable, Category = "Layout|Button Slot")
	void SetVerticalAlignment(EVerticalAlignment InVerticalAlignment) { VerticalAlignment = InVerticalAlignment; }

	/** Space around the child. */
	UPROPERTY(EditAnywhere, Category = "Layout|Button Slot")
	FMargin Padding = FMargin(4.f, 2.f);

	/** Where the child sits horizontally. */
	UPROPERTY(EditAnywhere, Category = "Layout|Button Slot")
	EHorizontalAlignment HorizontalAlignment = HAlign_Center;

	/** Where the child sits vertically. */
	UPROPERTY(EditAnywhere, Category = "Layout|Button Slot")
	EVerticalAlignment VerticalAlignment = VAlign_Center;
};
