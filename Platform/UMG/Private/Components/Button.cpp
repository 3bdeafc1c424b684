#include "Components/Button.h"

#include "Components/ButtonSlot.h"
#include "Components/SingleChildLayout.h"

// The button's own accessors are where its deprecated member may still be named.
PRAGMA_DISABLE_DEPRECATION_WARNINGS

UButton::UButton() = default;

UButton::~UButton() = default;

FLinearColor UButton::GetBackgroundColor() const
{
	return BackgroundColor;
}

void UButton::SetBackgroundColor(FLinearColor InBackgroundColor)
{
	BackgroundColor = InBackgroundColor;
}

PRAGMA_ENABLE_DEPRECATION_WARNINGS

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
