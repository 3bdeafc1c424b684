#include "Components/ProgressBar.h"
#include "Components/DefaultWidgetStyle.h"
#include "Rendering/SlateDrawList.h"

// The bar's own accessors are where its deprecated members may still be named.
PRAGMA_DISABLE_DEPRECATION_WARNINGS

UProgressBar::UProgressBar() = default;

UProgressBar::~UProgressBar() = default;

float UProgressBar::GetPercent() const
{
	return Percent;
}

void UProgressBar::SetPercent(float InPercent)
{
	Percent = InPercent;
}

FLinearColor UProgressBar::GetFillColorAndOpacity() const
{
	return FillColorAndOpacity;
}

void UProgressBar::SetFillColorAndOpacity(FLinearColor InColor)
{
	FillColorAndOpacity = InColor;
}

PRAGMA_ENABLE_DEPRECATION_WARNINGS

FVector2D UProgressBar::ComputeDesiredSize() const
{
	// The default style's background image.
	return FVector2D(16.0, 16.0);
}

void UProgressBar::PaintSelf(FSlateWindowElementList& OutDrawElements, const FGeometry& Geometry, float Opacity) const
{
	const FPaintRect Box = FPaintRect::FromBox(Geometry.GetAbsolutePosition(), Geometry.GetLocalSize());
	FSlateDrawElement::MakeBox(OutDrawElements, Box, DefaultWidgetStyle::Track, Opacity);
	const float Fraction = FMath::Clamp(GetPercent(), 0.0f, 1.0f);
	const int32 FillRight = Box.Left + static_cast<int32>(static_cast<float>(Box.Right - Box.Left) * Fraction + 0.5f);
	FSlateDrawElement::MakeBox(OutDrawElements, {Box.Left, Box.Top, FillRight, Box.Bottom}, GetFillColorAndOpacity().ToFColor(true), Opacity);
}
