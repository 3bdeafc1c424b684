#include "Components/ProgressBar.h"

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
