#include "Components/Button.h"
#include "Components/DefaultWidgetStyle.h"
#include "Rendering/SlateDrawList.h"

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

void UButton::PaintSelf(FSlateWindowElementList& OutDrawElements, const FGeometry& Geometry, float Opacity) const
{
	const FPaintRect Box = FPaintRect::FromBox(Geometry.GetAbsolutePosition(), Geometry.GetLocalSize());
	// The background colour multiplies the style's face, as the engine tints a button's brush.
	const FColor Face = (FLinearColor(DefaultWidgetStyle::ButtonFace) * GetBackgroundColor()).ToFColor(true);
	FSlateDrawElement::MakeBox(OutDrawElements, Box, Face, Opacity);
	// A raised bevel: light from the top left; pressed, the light comes from below.
	const FColor Light(200, 200, 200, 160);
	const FColor Dark(0, 0, 0, 160);
	const FColor& TopLeft = IsPressed() ? Dark : Light;
	const FColor& BottomRight = IsPressed() ? Light : Dark;
	FSlateDrawElement::MakeBox(OutDrawElements, {Box.Left, Box.Top, Box.Right, Box.Top + 1}, TopLeft, Opacity);
	FSlateDrawElement::MakeBox(OutDrawElements, {Box.Left, Box.Top + 1, Box.Left + 1, Box.Bottom}, TopLeft, Opacity);
	FSlateDrawElement::MakeBox(OutDrawElements, {Box.Left + 1, Box.Bottom - 1, Box.Right, Box.Bottom}, BottomRight, Opacity);
	FSlateDrawElement::MakeBox(OutDrawElements, {Box.Right - 1, Box.Top + 1, Box.Right, Box.Bottom - 1}, BottomRight, Opacity);
}
