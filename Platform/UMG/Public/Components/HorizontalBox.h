#pragma once

// UHorizontalBox: lays its children out left to right: automatic slots take their desired width, fill slots share what is left by their values.

#include "CoreMinimal.h"
#include "Components/PanelWidget.h"

#include "HorizontalBox.generated.h"

class UHorizontalBoxSlot;

/** A panel that lays children out in a row. */
UCLASS()
class UMG_API UHorizontalBox : public UPanelWidget
{
	GENERATED_BODY()

public:
	/** Adds Content at the right end and gives back its slot. */
	UFUNCTION(BlueprintCallable, Category = "Widget")
	UHorizontalBoxSlot* AddChildToHorizontalBox(UWidget* Content);

protected:
	UClass* GetSlotClass() const override;

private:
	FVector2D ComputeDesiredSize() const override;
	void ArrangeChildren(const FGeometry& AllottedGeometry, TArray<FArrangedChildWidget>& OutChildren) const override;
};
