#pragma once

// UContentWidget: a panel with at most one child, its content.

#include "CoreMinimal.h"
#include "Components/PanelWidget.h"
#include "ContentWidget.generated.h"

/** A panel that holds a single child. */
UCLASS(Abstract)
class UMG_API UContentWidget : public UPanelWidget
{
	GENERATED_BODY()

public:
	/** A panel that takes one child. */
	UContentWidget();

	/** The child, or null. */
	UFUNCTION(BlueprintCallable, Category = "Panel")
	UWidget* GetContent() const { return GetChildAt(0); }
	/** Replaces the child with Content. */
	UFUNCTION(BlueprintCallable, Category = "Panel")
	UPanelSlot* SetContent(UWidget* Content);
	/** The slot of the child, or null. */
	UFUNCTION(BlueprintCallable, Category = "Panel")
	UPanelSlot* GetContentSlot() const { return Slots.Num() > 0 ? Slots[0].Get() : nullptr; }
};
