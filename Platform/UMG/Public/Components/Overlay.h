#pragma once

// UOverlay: stacks its children on top of each other, each aligned in the overlay's box; later children are drawn on top.

#include "CoreMinimal.h"
#include "Components/PanelWidget.h"

#include "Overlay.generated.h"

class UOverlaySlot;

/** A panel that stacks its children. */
UCLASS()
class UMG_API UOverlay : public UPanelWidget
{
	GENERATED_BODY()

public:
	/** Adds Content on top of the other children and gives back its slot. */
	UFUNCTION(BlueprintCallable, Category = "Widget")
	UOverlaySlot* AddChildToOverlay(UWidget* Content);

protected:
	UClass* GetSlotClass() const override;

private:
	FVector2D ComputeDesiredSize() const override;
	void ArrangeChildren(const FGeometry& AllottedGeometry, TArray<FArrangedChildWidget>& OutChildren) const override;
};
