#include "Window/Letterbox.h"

#include <algorithm>
#include <cmath>

FLetterbox FLetterbox::Fit(FIntPoint Picture, FIntPoint Output)
{
	FLetterbox Box;
	if (Picture.X <= 0 || Picture.Y <= 0 || Output.X <= 0 || Output.Y <= 0)
	{
		return Box;
	}
	const double Scale = std::min(double(Output.X) / Picture.X, double(Output.Y) / Picture.Y);
	// Rounding may overshoot by a pixel on the side that fits exactly; the clamp keeps it inside.
	Box.Width = std::clamp(int32(std::lround(Picture.X * Scale)), 1, Output.X);
	Box.Height = std::clamp(int32(std::lround(Picture.Y * Scale)), 1, Output.Y);
	Box.X = (Output.X - Box.Width) / 2;
	Box.Y = (Output.Y - Box.Height) / 2;
	return Box;
}

FVector2D FLetterbox::ToPicture(const FVector2D& OutputPoint, const FVector2D& PictureSize) const
{
	if (IsEmpty())
	{
		return FVector2D::ZeroVector;
	}
	return FVector2D((OutputPoint.X - X) * PictureSize.X / Width, (OutputPoint.Y - Y) * PictureSize.Y / Height);
}
