#include "Fonts/FontMeasure.h"

#include "Containers/StringConv.h"

#include "Fonts/FontRasterizer.h"
#include "Fonts/FontUnits.h"
#include "Fonts/SlateFontInfo.h"

#include <string_view>

namespace
{
	/** The rasterizer's font for a font info: only the typeface picks anything, bold or regular. */
	FFontId FontIdFor(FFontRasterizer& Rasterizer, const FSlateFontInfo& FontInfo)
	{
		return Rasterizer.GetDefaultFont(FontInfo.IsBold() ? EFontWeight::Bold : EFontWeight::Regular);
	}
}

FSlateFontMeasure& FSlateFontMeasure::Get()
{
	static FSlateFontMeasure Instance;
	return Instance;
}

FVector2D FSlateFontMeasure::Measure(const FString& Text, const FSlateFontInfo& InFontInfo, float FontScale) const
{
	FFontRasterizer& Rasterizer = FFontRasterizer::Get();
	// Engine sizes are points, the rasterizer works in pixels; the outline is already in pixels.
	const float Pixels = FontPointsToPixels(static_cast<float>(InFontInfo.Size) * FontScale);
	const float Outline = static_cast<float>(InFontInfo.OutlineSettings.OutlineSize) * FontScale;
	const FTextExtent Extent = Rasterizer.Measure(UE::Core::Private::ToCodePoints(*Text, Text.Len()), Pixels, Outline, FontIdFor(Rasterizer, InFontInfo));
	return FVector2D(Extent.Width, Extent.Height);
}

float FSlateFontMeasure::GetMaxCharacterHeight(const FSlateFontInfo& InFontInfo, float FontScale) const
{
	FFontRasterizer& Rasterizer = FFontRasterizer::Get();
	const float Pixels = FontPointsToPixels(static_cast<float>(InFontInfo.Size) * FontScale);
	return Rasterizer.Measure(std::u32string_view(), Pixels, 0.0f, FontIdFor(Rasterizer, InFontInfo)).Height;
}
