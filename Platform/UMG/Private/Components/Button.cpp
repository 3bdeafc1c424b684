#include "Components/Button.h"

#include "Components/ButtonSlot.h"
#include "Components/SingleChildLayout.h"

UClass* UButton::GetSlotClass() const
{
	return UButtonSlot::StaticClass();
}

FVector2D UButton::ComputeDesiredSize() const
{
	return UE::UMG::PaddedContentSize<UButtonSlot>(Slots);
}

void UButton::ArrangeChildren(const FGeometry& AllottedGeometry, TArray<FArrangedChildWidget>& OutChildren) const
{
	UE::UMG::ArrangeContent<UButtonSlot>(Slots, AllottedGeometry, OutChildren);
}

bool UButton::HandlePointerPressed(const FGeometry& MyGeometry, const FPointerEvent& Event)
{
	bPressed = true;
	OnPressed.Broadcast();
	return true;
}

void UButton::HandlePointerReleased(const FGeometry& MyGeometry, const FPointerEvent& Event, bool bInside)
{
	// The engine's default click method: down and up over the button make a click.
	bPressed = false;
	OnReleased.Broadcast();
	if (bInside)
	{
		OnClicked.Broadcast();
	}
}
