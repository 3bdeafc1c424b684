#include "Fonts/CoverageBlend.h"

#include <cstddef>

void BlendCoverage(const FPixelTarget& Target, const FPixelRect& Clip, int32_t X, int32_t Y, const uint8_t* Coverage, int32_t Width, int32_t Height, FTextColor Color, float Opacity)
{
	if (!Target.IsValid() || !Coverage || Width <= 0 || Height <= 0)
	{
		return;
	}
	const FPixelRect Area = Clip.Intersect(Target.Bounds()).Intersect({X, Y, X + Width, Y + Height});
	const float AlphaScale = (Color.A / 255.0f) * Opacity / 255.0f;
	if (Area.IsEmpty() || AlphaScale <= 0.0f)
	{
		return;
	}

	const float SourceRgb[3] = {float(Color.R), float(Color.G), float(Color.B)};
	for (int32_t PixelY = Area.Top; PixelY < Area.Bottom; ++PixelY)
	{
		const uint8_t* MaskRow = Coverage + static_cast<std::ptrdiff_t>(PixelY - Y) * Width;
		uint8_t* Row = Target.Pixels + static_cast<std::ptrdiff_t>(PixelY) * Target.Stride;
		for (int32_t PixelX = Area.Left; PixelX < Area.Right; ++PixelX)
		{
			const uint8_t Mask = MaskRow[PixelX - X];
			if (Mask == 0)
			{
				continue;
			}
			uint8_t* Pixel = Row + PixelX * 4;
			const float SourceAlpha = Mask * AlphaScale;
			const float DestAlpha = Pixel[3] / 255.0f;
			const float OutAlpha = SourceAlpha + DestAlpha * (1.0f - SourceAlpha);
			if (OutAlpha <= 0.0f)
			{
				continue;
			}
			// Straight alpha: the colours are weighted by how much each side contributes to the
			// result's coverage, so text over a transparent pixel keeps its own colour.
			const float SourceWeight = SourceAlpha / OutAlpha;
			const float DestWeight = 1.0f - SourceWeight;
			for (int32_t Channel = 0; Channel < 3; ++Channel)
			{
				Pixel[Channel] = static_cast<uint8_t>(SourceRgb[Channel] * SourceWeight + Pixel[Channel] * DestWeight + 0.5f);
			}
			Pixel[3] = static_cast<uint8_t>(OutAlpha * 255.0f + 0.5f);
		}
	}
}
