#pragma once

// UVerticalBox: lays its children out top to bottom: automatic slots take their desired height, fill slots share what is left by their values.

#include "CoreMinimal.h"
#include "Components/PanelWidget.h"

#include "VerticalBox.generated.h"

class UVerticalBoxSlot;

/** A panel that lays children out in a column. */
UCLASS()
class UMG_API UVerticalBox : public UPanelWidget
{
	GENERATED_BODY()

public:
	/** Adds Content at the bottom and gives back its slot. */
	UFUNCTION(BlueprintCallable, Category = "Widget")
	UVerticalBoxSlot* AddChildToVerticalBox(UWidget* Content);

protected:
	UClass* GetSlotClass() const override;

private:
	FVector2D ComputeDesiredSize() const override;
	void ArrangeChildren(const FGeometry& AllottedGeometry, TArray<FArrangedChildWidget>& OutChildren) const override;
};
