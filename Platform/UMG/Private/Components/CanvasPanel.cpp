#include "Components/CanvasPanel.h"

#include "Components/CanvasPanelSlot.h"
#include "Components/SlotArrangement.h"
#include "Slate/ArrangedChildWidget.h"

#include <algorithm>

namespace
{
	/**
	 * Position and size along one axis. Point anchors: the offsets are position and size (or the
	 * desired size with auto size), moved back by the alignment. Stretched anchors: the offsets
	 * are margins from the anchor lines.
	 */
	void PlaceAxis(double CanvasSize, double AnchorMin, double AnchorMax, double OffsetStart, double OffsetEnd, bool bAutoSize,
		double Desired, double Alignment, double& OutPosition, double& OutSize)
	{
		if (AnchorMin == AnchorMax)
		{
			OutSize = bAutoSize ? Desired : OffsetEnd;
			OutPosition = AnchorMin * CanvasSize + OffsetStart - Alignment * OutSize;
		}
		else
		{
			OutPosition = AnchorMin * CanvasSize + OffsetStart;
			OutSize = FMath::Max(0.0, AnchorMax * CanvasSize - OffsetEnd - OutPosition);
		}
	}

	/** The canvas slots in paint order: by ZOrder, then child order. */
	TArray<UCanvasPanelSlot*> SlotsInPaintOrder(const TArray<TObjectPtr<UPanelSlot>>& Slots)
	{
		TArray<UCanvasPanelSlot*> Ordered;
		for (const TObjectPtr<UPanelSlot>& PanelSlot : Slots)
		{
			Ordered.Add(static_cast<UCanvasPanelSlot*>(PanelSlot.Get()));
		}
		std::stable_sort(Ordered.begin(), Ordered.end(), [](const UCanvasPanelSlot* A, const UCanvasPanelSlot* B) { return A->GetZOrder() < B->GetZOrder(); });
		return Ordered;
	}
}

UCanvasPanelSlot* UCanvasPanel::AddChildToCanvas(UWidget* Content)
{
	return Cast<UCanvasPanelSlot>(AddChild(Content));
}

UClass* UCanvasPanel::GetSlotClass() const
{
	return UCanvasPanelSlot::StaticClass();
}

FVector2D UCanvasPanel::ComputeDesiredSize() const
{
	// Room for every point-anchored child at its offset; stretched children follow the canvas.
	FVector2D Desired = FVector2D::ZeroVector;
	for (const TObjectPtr<UPanelSlot>& PanelSlot : Slots)
	{
		const UCanvasPanelSlot* CanvasSlot = static_cast<const UCanvasPanelSlot*>(PanelSlot.Get());
		const UWidget* Child = CanvasSlot->Content.Get();
		if (!UE::UMG::TakesRoom(Child))
		{
			continue;
		}
		const FAnchorData Layout = CanvasSlot->GetLayout();
		const FVector2D Size = CanvasSlot->GetAutoSize() ? Child->GetDesiredSize() : FVector2D(Layout.Offsets.Right, Layout.Offsets.Bottom);
		if (!Layout.Anchors.IsStretchedHorizontal())
		{
			Desired.X = FMath::Max(Desired.X, double(Layout.Offsets.Left) + Size.X);
		}
		if (!Layout.Anchors.IsStretchedVertical())
		{
			Desired.Y = FMath::Max(Desired.Y, double(Layout.Offsets.Top) + Size.Y);
		}
	}
	return Desired;
}

void UCanvasPanel::ArrangeChildren(const FGeometry& AllottedGeometry, TArray<FArrangedChildWidget>& OutChildren) const
{
	const FVector2D CanvasSize = AllottedGeometry.GetLocalSize();
	for (const UCanvasPanelSlot* CanvasSlot : SlotsInPaintOrder(Slots))
	{
		UWidget* Child = CanvasSlot->Content.Get();
		if (!UE::UMG::TakesRoom(Child))
		{
			continue;
		}
		const FAnchorData Layout = CanvasSlot->GetLayout();
		const FVector2D Desired = Child->GetDesiredSize();
		double X = 0.0, Y = 0.0, Width = 0.0, Height = 0.0;
		PlaceAxis(CanvasSize.X, Layout.Anchors.Minimum.X, Layout.Anchors.Maximum.X, Layout.Offsets.Left, Layout.Offsets.Right,
			CanvasSlot->GetAutoSize(), Desired.X, Layout.Alignment.X, X, Width);
		PlaceAxis(CanvasSize.Y, Layout.Anchors.Minimum.Y, Layout.Anchors.Maximum.Y, Layout.Offsets.Top, Layout.Offsets.Bottom,
			CanvasSlot->GetAutoSize(), Desired.Y, Layout.Alignment.Y, Y, Height);
		OutChildren.Add({ Child, AllottedGeometry.MakeChild(FVector2D(X, Y), FVector2D(Width, Height)) });
	}
}

void UCanvasPanel::GetLayoutChildren(TArray<UWidget*>& OutChildren) const
{
	for (const UCanvasPanelSlot* CanvasSlot : SlotsInPaintOrder(Slots))
	{
		if (UWidget* Child = CanvasSlot->Content.Get())
		{
			OutChildren.Add(Child);
		}
	}
}
