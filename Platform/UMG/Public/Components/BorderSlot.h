#pragma once

// UBorderSlot: the content of a border, inside the border's padding.

#include "CoreMinimal.h"
#include "Components/PanelSlot.h"
#include "Layout/Margin.h"
#include "Types/SlateEnums.h"

#include "BorderSlot.generated.h"

/** The slot of a border child: padding and alignment. */
UCLASS()
class UMG_API UBorderSlot : public UPanelSlot
{
	GENERATED_BODY()

public:
	/** Sets the space around the child. */
	UFUNCTION(BlueprintCallable, Category = "Layout|Border Slot")
	void SetPadding(FMargin InPadding) { Padding = InPadding; }
	/** Sets where the child sits horizontally. */
	UFUNCTION(BlueprintCallable, Category = "Layout|Border Slot")
	void SetHorizontalAlignment(EHorizontalAlignment InHorizontalAlignment) { HorizontalAlignment = InHorizontalAlignment; }
	/** Sets where the child sits vertically. */
	UFUNCTION(BlueprintCallable, Category = "Layout|Border Slot")
	void SetVerticalAlignment(EVerticalAlignment InVerticalAlignment) { VerticalAlignment = InVerticalAlignment; }

	/** Space around the child. */
	UPROPERTY(EditAnywhere, Category = "Layout|Border Slot")
	FMargin Padding = FMargin(4.f, 2.f);

	/** Where the child sits horizontally. */
	UPROPERTY(EditAnywhere, Category = "Layout|Border Slot")
	EHorizontalAlignment HorizontalAlignment = HAlign_Fill;

	/** Where the child sits vertically. */
	UPROPERTY(EditAnywhere, Category = "Layout|Border Slot")
	EVerticalAlignment VerticalAlignment = VAlign_Fill;
};
