#pragma once

// UCanvasPanelSlot: where a child sits on a canvas. With point anchors the offsets are a position
// and a size; with stretched anchors they are margins from the anchor box. Auto size replaces the
// size with the child's desired size.

#include "CoreMinimal.h"
#include "Components/PanelSlot.h"
#include "Layout/Margin.h"
#include "Widgets/Layout/Anchors.h"
#include "CanvasPanelSlot.generated.h"

/** The layout data of a canvas child: offsets, anchors and alignment. */
USTRUCT(BlueprintType)
struct UMG_API FAnchorData
{
	GENERATED_BODY()

	/** Position and size (point anchors) or margins (stretched anchors). */
	UPROPERTY(EditAnywhere, Category = "Layout")
	FMargin Offsets = FMargin(0.f, 0.f, 100.f, 30.f);

	/** Where the child is pinned on the canvas. */
	UPROPERTY(EditAnywhere, Category = "Layout")
	FAnchors Anchors;

	/** The child's pivot, as a fraction of its size, placed at the position. */
	UPROPERTY(EditAnywhere, Category = "Layout")
	FVector2D Alignment = FVector2D::ZeroVector;
};

/** The slot of a canvas panel child. */
UCLASS()
class UMG_API UCanvasPanelSlot : public UPanelSlot
{
	GENERATED_BODY()

public:
	/** Sets offsets, anchors and alignment at once. */
	UFUNCTION(BlueprintCallable, Category = "Layout|Canvas Slot")
	void SetLayout(const FAnchorData& InLayoutData) { LayoutData = InLayoutData; }
	/** Offsets, anchors and alignment. */
	UFUNCTION(BlueprintCallable, Category = "Layout|Canvas Slot")
	FAnchorData GetLayout() const { return LayoutData; }
	/** Sets the position relative to the anchors. */
	UFUNCTION(BlueprintCallable, Category = "Layout|Canvas Slot")
	void SetPosition(FVector2D InPosition);
	/** The position relative to the anchors. */
	UFUNCTION(BlueprintCallable, Category = "Layout|Canvas Slot")
	FVector2D GetPosition() const { return FVector2D(LayoutData.Offsets.Left, LayoutData.Offsets.Top); }
	/** Sets the size (used unless auto size is on). */
	UFUNCTION(BlueprintCallable, Category = "Layout|Canvas Slot")
	void SetSize(FVector2D InSize);
	/** The size (as set; auto size does not change it). */
	UFUNCTION(BlueprintCallable, Category = "Layout|Canvas Slot")
	FVector2D GetSize() const { return FVector2D(LayoutData.Offsets.Right, LayoutData.Offsets.Bottom); }
	/** Sets all four offsets. */
	UFUNCTION(BlueprintCallable, Category = "Layout|Canvas Slot")
	void SetOffsets(FMargin InOffset) { LayoutData.Offsets = InOffset; }
	/** The four offsets. */
	UFUNCTION(BlueprintCallable, Category = "Layout|Canvas Slot")
	FMargin GetOffsets() const { return LayoutData.Offsets; }
	/** Sets the anchors. */
	UFUNCTION(BlueprintCallable, Category = "Layout|Canvas Slot")
	void SetAnchors(FAnchors InAnchors) { LayoutData.Anchors = InAnchors; }
	/** The anchors. */
	UFUNCTION(BlueprintCallable, Category = "Layout|Canvas Slot")
	FAnchors GetAnchors() const { return LayoutData.Anchors; }
	/** Sets the pivot, as a fraction of the child's size. */
	UFUNCTION(BlueprintCallable, Category = "Layout|Canvas Slot")
	void SetAlignment(FVector2D InAlignment) { LayoutData.Alignment = InAlignment; }
	/** The pivot. */
	UFUNCTION(BlueprintCallable, Category = "Layout|Canvas Slot")
	FVector2D GetAlignment() const { return LayoutData.Alignment; }
	/** When true, the child takes its desired size instead of the slot's size. */
	UFUNCTION(BlueprintCallable, Category = "Layout|Canvas Slot")
	void SetAutoSize(bool InbAutoSize) { bAutoSize = InbAutoSize; }
	/** Whether the child takes its desired size. */
	UFUNCTION(BlueprintCallable, Category = "Layout|Canvas Slot")
	bool GetAutoSize() const { return bAutoSize; }
	/** Sets the drawing order; higher is on top. */
	UFUNCTION(BlueprintCallable, Category = "Layout|Canvas Slot")
	void SetZOrder(int32 InZOrder) { ZOrder = InZOrder; }
	/** The drawing order. */
	UFUNCTION(BlueprintCallable, Category = "Layout|Canvas Slot")
	int32 GetZOrder() const { return ZOrder; }

	/** Offsets, anchors and alignment. */
	UPROPERTY(EditAnywhere, Category = "Layout|Canvas Slot")
	FAnchorData LayoutData;

	/** When true, the child takes its desired size. */
	UPROPERTY(EditAnywhere, Category = "Layout|Canvas Slot")
	bool bAutoSize = false;

	/** Drawing order among the canvas children; higher is on top. */
	UPROPERTY(EditAnywhere, Category = "Layout|Canvas Slot")
	int32 ZOrder = 0;
};
