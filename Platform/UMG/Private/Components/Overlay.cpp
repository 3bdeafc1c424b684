#include "Components/Overlay.h"

#include "Components/OverlaySlot.h"
#include "Components/SlotArrangement.h"
#include "Slate/ArrangedChildWidget.h"

UOverlaySlot* UOverlay::AddChildToOverlay(UWidget* Content)
{
	return Cast<UOverlaySlot>(AddChild(Content));
}

UClass* UOverlay::GetSlotClass() const
{
	return UOverlaySlot::StaticClass();
}

FVector2D UOverlay::ComputeDesiredSize() const
{
	FVector2D Desired = FVector2D::ZeroVector;
	for (const TObjectPtr<UPanelSlot>& PanelSlot : Slots)
	{
		const UOverlaySlot* OverlaySlot = static_cast<const UOverlaySlot*>(PanelSlot.Get());
		if (UE::UMG::TakesRoom(OverlaySlot->Content.Get()))
		{
			Desired = FVector2D::Max(Desired, OverlaySlot->Content->GetDesiredSize() + OverlaySlot->Padding.GetDesiredSize());
		}
	}
	return Desired;
}

void UOverlay::ArrangeChildren(const FGeometry& AllottedGeometry, TArray<FArrangedChildWidget>& OutChildren) const
{
	for (const TObjectPtr<UPanelSlot>& PanelSlot : Slots)
	{
		const UOverlaySlot* OverlaySlot = static_cast<const UOverlaySlot*>(PanelSlot.Get());
		UWidget* Child = OverlaySlot->Content.Get();
		if (UE::UMG::TakesRoom(Child))
		{
			OutChildren.Add({ Child, UE::UMG::AlignChild(AllottedGeometry, FVector2D::ZeroVector, AllottedGeometry.GetLocalSize(), Child->GetDesiredSize(),
				OverlaySlot->Padding, OverlaySlot->HorizontalAlignment, OverlaySlot->VerticalAlignment) });
		}
	}
}
