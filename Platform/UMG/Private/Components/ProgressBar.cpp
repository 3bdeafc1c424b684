#include "Components/ProgressBar.h"

FVector2D UProgressBar::ComputeDesiredSize() const
{
	// The default style's background image.
	return FVector2D(16.0, 16.0);
}
