#pragma once

// UCanvasPanel: places each child freely, by its slot's anchors, offsets and alignment. Children
// are drawn (and hit) in ZOrder, then in child order.

#include "CoreMinimal.h"
#include "Components/PanelWidget.h"
#include "CanvasPanel.generated.h"

class UCanvasPanelSlot;

/** A panel that places children at explicit positions. */
UCLASS()
class UMG_API UCanvasPanel : public UPanelWidget
{
	GENERATED_BODY()

public:
	/** Adds Content and gives back its canvas slot. */
	UFUNCTION(BlueprintCallable, Category = "Canvas Panel")
	UCanvasPanelSlot* AddChildToCanvas(UWidget* Content);

protected:
	UClass* GetSlotClass() const override;

private:
	FVector2D ComputeDesiredSize() const override;
	void ArrangeChildren(const FGeometry& AllottedGeometry, TArray<FArrangedChildWidget>& OutChildren) const override;
	void GetLayoutChildren(TArray<UWidget*>& OutChildren) const override;
};
