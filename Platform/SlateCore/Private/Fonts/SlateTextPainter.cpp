#include "Fonts/SlateTextPainter.h"

#include "Containers/StringConv.h"
#include "Fonts/FontRasterizer.h"
#include "Fonts/FontUnits.h"
#include "Fonts/SlateFontInfo.h"

#include <string_view>

namespace
{
	/** The image stores sRGB bytes, as the engine's back buffer does; widget colours are linear. */
	FTextColor ToTextColor(const FLinearColor& Color)
	{
		const FColor Encoded = Color.ToFColor(true);
		return FTextColor{Encoded.R, Encoded.G, Encoded.B, Encoded.A};
	}
}

FSlateTextPainter& FSlateTextPainter::Get()
{
	static FSlateTextPainter Instance;
	return Instance;
}

FVector2D FSlateTextPainter::Draw(const FSlateTextCanvas& Canvas, const FVector2D& Position, const FString& Text, const FSlateTextLook& Look) const
{
	if (!Look.Font || !Canvas.Pixels)
	{
		return FVector2D::ZeroVector;
	}
	FFontRasterizer& Rasterizer = FFontRasterizer::Get();
	const FSlateFontInfo& Font = *Look.Font;
	FTextDrawStyle Style;
	Style.Font = Rasterizer.GetDefaultFont(Font.IsBold() ? EFontWeight::Bold : EFontWeight::Regular);
	// Same conversions as FSlateFontMeasure, so the drawn box is the one layout reserved.
	Style.Size = FontPointsToPixels(static_cast<float>(Font.Size) * Look.FontScale);
	Style.Color = ToTextColor(Look.Color);
	Style.OutlineSize = static_cast<float>(Font.OutlineSettings.OutlineSize) * Look.FontScale;
	Style.OutlineColor = ToTextColor(Font.OutlineSettings.OutlineColor);
	Style.ShadowOffsetX = static_cast<float>(Look.ShadowOffset.X);
	Style.ShadowOffsetY = static_cast<float>(Look.ShadowOffset.Y);
	Style.ShadowColor = ToTextColor(Look.ShadowColor);
	Style.Opacity = Look.Opacity;
	const FPixelTarget Target{Canvas.Pixels, Canvas.Width, Canvas.Height, Canvas.Stride};
	const FPixelRect Clip{Canvas.ClipLeft, Canvas.ClipTop, Canvas.ClipRight, Canvas.ClipBottom};
	const FTextExtent Extent = Rasterizer.DrawText(Target, static_cast<float>(Position.X), static_cast<float>(Position.Y),
		UE::Core::Private::ToCodePoints(*Text, Text.Len()), Style, Clip);
	return FVector2D(Extent.Width, Extent.Height);
}
