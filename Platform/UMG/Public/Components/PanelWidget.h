#pragma once

// UPanelWidget: a widget that holds children, each through a slot of the panel's slot class.
// Adding a child that already has a parent takes it out of that parent first, so adding an
// existing child of this panel moves it to the end.

#include "CoreMinimal.h"
#include "Components/Widget.h"
#include "PanelWidget.generated.h"

class UPanelSlot;

/** The base of widgets with children. */
UCLASS(Abstract)
class UMG_API UPanelWidget : public UWidget
{
	GENERATED_BODY()

public:
	/** Appends Content as the last child; a child of this or another panel is taken out first. Null for null content or a full panel. */
	UFUNCTION(BlueprintCallable, Category = "Widget|Panel")
	UPanelSlot* AddChild(UWidget* Content);
	/** The child's index, or -1 when it is not a child of this panel. */
	UFUNCTION(BlueprintCallable, Category = "Widget|Panel")
	int32 GetChildIndex(const UWidget* Content) const;
	/** The child at Index, or null when there is none. */
	UFUNCTION(BlueprintCallable, Category = "Widget|Panel")
	UWidget* GetChildAt(int32 Index) const;
	/** How many children the panel has. */
	UFUNCTION(BlueprintCallable, Category = "Widget|Panel")
	int32 GetChildrenCount() const { return Slots.Num(); }
	/** A copy of the child list, in order. */
	UFUNCTION(BlueprintCallable, Category = "Widget|Panel")
	TArray<UWidget*> GetAllChildren() const;
	/** True when Content is a child of this panel. */
	UFUNCTION(BlueprintCallable, Category = "Widget|Panel")
	bool HasChild(UWidget* Content) const { return GetChildIndex(Content) != INDEX_NONE; }
	/** True when the panel has at least one child. */
	UFUNCTION(BlueprintCallable, Category = "Widget|Panel")
	bool HasAnyChildren() const { return Slots.Num() > 0; }
	/** Takes Content out of the panel; false when it was not a child. */
	UFUNCTION(BlueprintCallable, Category = "Widget|Panel")
	bool RemoveChild(UWidget* Content);
	/** Takes the child at Index out; false when there is none. */
	UFUNCTION(BlueprintCallable, Category = "Widget|Panel")
	bool RemoveChildAt(int32 Index);
	/** Takes every child out. */
	UFUNCTION(BlueprintCallable, Category = "Widget|Panel")
	virtual void ClearChildren();
	/** True when the panel takes more than one child. */
	bool CanHaveMultipleChildren() const { return bCanHaveMultipleChildren; }

	/** The slots, in child order. */
	const TArray<TObjectPtr<UPanelSlot>>& GetSlots() const { return Slots; }

protected:
	/** The slot class this panel makes for each child. */
	virtual UClass* GetSlotClass() const;

	/** The panel's slots, one per child, in order. */
	UPROPERTY()
	TArray<TObjectPtr<UPanelSlot>> Slots;

	/** False for panels that hold one child only; set by their constructors. */
	bool bCanHaveMultipleChildren = true;

private:
	void GetLayoutChildren(TArray<UWidget*>& OutChildren) const override;
};
