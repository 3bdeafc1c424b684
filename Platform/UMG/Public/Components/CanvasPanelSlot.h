#pragma once

// UCanvasPanelSlot: where a child sits on a canvas. With point anchors the offsets are a position
// and a size; with stretched anchors they are margins from the anchor box. Auto size replaces the
// size with the child's desired size.

#include "CoreMinimal.h"
#include "Misc/CoreMiscDefines.h"
#include "Components/PanelSlot.h"
#include "Layout/Margin.h"
#include "Widgets/Layout/Anchors.h"
#include "CanvasPanelSlot.generated.h"

/** The layout data of a canvas child: offsets, anchors and alignment. */
USTRUCT(BlueprintType)
struct FAnchorData
{
	GENERATED_BODY()

	/** Position and size (point anchors) or margins (stretched anchors). */
	UPROPERTY(EditAnywhere, BlueprintReadWrite, Category = "AnchorData")
	FMargin Offsets = FMargin(0.f, 0.f, 100.f, 30.f);

	/** Where the child is pinned on the canvas. */
	UPROPERTY(EditAnywhere, BlueprintReadWrite, Category = "AnchorData")
	FAnchors Anchors;

	/** The child's pivot, as a fraction of its size, placed at the position. */
	UPROPERTY(EditAnywhere, BlueprintReadWrite, Category = "AnchorData")
	FVector2D Alignment = FVector2D::ZeroVector;

	bool operator==(const FAnchorData& Other) const { return Offsets == Other.Offsets && Anchors == Other.Anchors && Alignment == Other.Alignment; }
	bool operator!=(const FAnchorData& Other) const { return !(*this == Other); }
};

/** The slot of a canvas panel child. */
UCLASS()
class UMG_API UCanvasPanelSlot : public UPanelSlot
{
	GENERATED_BODY()

public:
	/** A 100 by 30 box at the top-left corner, sized by the slot. */
	UCanvasPanelSlot();
	/** Defined where the deprecated members may be named. */
	~UCanvasPanelSlot() override;

	/** Sets offsets, anchors and alignment at once. */
	UFUNCTION(BlueprintCallable, Category = "Layout|Canvas Slot")
	void SetLayout(const FAnchorData& InLayoutData);
	/** Offsets, anchors and alignment. */
	UFUNCTION(BlueprintCallable, Category = "Layout|Canvas Slot")
	FAnchorData GetLayout() const;
	/** Sets the position relative to the anchors. */
	UFUNCTION(BlueprintCallable, Category = "Layout|Canvas Slot")
	void SetPosition(FVector2D InPosition);
	/** The position relative to the anchors. */
	UFUNCTION(BlueprintCallable, Category = "Layout|Canvas Slot")
	FVector2D GetPosition() const;
	/** Sets the size (used unless auto size is on). */
	UFUNCTION(BlueprintCallable, Category = "Layout|Canvas Slot")
	void SetSize(FVector2D InSize);
	/** The size (as set; auto size does not change it). */
	UFUNCTION(BlueprintCallable, Category = "Layout|Canvas Slot")
	FVector2D GetSize() const;
	/** Sets all four offsets. */
	UFUNCTION(BlueprintCallable, Category = "Layout|Canvas Slot")
	void SetOffsets(FMargin InOffset);
	/** The four offsets. */
	UFUNCTION(BlueprintCallable, Category = "Layout|Canvas Slot")
	FMargin GetOffsets() const;
	/** Sets the anchors. */
	UFUNCTION(BlueprintCallable, Category = "Layout|Canvas Slot")
	void SetAnchors(FAnchors InAnchors);
	/** The anchors. */
	UFUNCTION(BlueprintCallable, Category = "Layout|Canvas Slot")
	FAnchors GetAnchors() const;
	/** Sets the pivot, as a fraction of the child's size. */
	UFUNCTION(BlueprintCallable, Category = "Layout|Canvas Slot")
	void SetAlignment(FVector2D InAlignment);
	/** The pivot. */
	UFUNCTION(BlueprintCallable, Category = "Layout|Canvas Slot")
	FVector2D GetAlignment() const;
	/** When true, the child takes its desired size instead of the slot's size. */
	UFUNCTION(BlueprintCallable, Category = "Layout|Canvas Slot")
	void SetAutoSize(bool InbAutoSize);
	/** Whether the child takes its desired size. */
	UFUNCTION(BlueprintCallable, Category = "Layout|Canvas Slot")
	bool GetAutoSize() const;
	/** Sets the drawing order; higher is on top. */
	UFUNCTION(BlueprintCallable, Category = "Layout|Canvas Slot")
	void SetZOrder(int32 InZOrder);
	/** The drawing order. */
	UFUNCTION(BlueprintCallable, Category = "Layout|Canvas Slot")
	int32 GetZOrder() const;

	UE_DEPRECATED(5.1, "Direct access to LayoutData is deprecated. Please use the getter or setter.")
	/** Offsets, anchors and alignment. */
	UPROPERTY(EditAnywhere, BlueprintReadWrite, Category = "Layout|Canvas Slot")
	FAnchorData LayoutData;

	UE_DEPRECATED(5.1, "Direct access to bAutoSize is deprecated. Please use the getter or setter.")
	/** When true, the child takes its desired size. */
	UPROPERTY(EditAnywhere, BlueprintReadWrite, Category = "Layout|Canvas Slot", AdvancedDisplay)
	bool bAutoSize = false;

	UE_DEPRECATED(5.1, "Direct access to ZOrder is deprecated. Please use the getter or setter.")
	/** Drawing order among the canvas children; higher is on top. */
	UPROPERTY(EditAnywhere, BlueprintReadWrite, Category = "Layout|Canvas Slot")
	int32 ZOrder = 0;
};
