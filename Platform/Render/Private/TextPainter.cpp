#include "TextPainter.h"

#include "Components/TextBlock.h"
#include "Fonts/FontMeasure.h"
#include "Fonts/SlateTextPainter.h"
#include "FramePainter.h"
#include "Layout/Geometry.h"
#include "RenderFrame.h"

namespace
{
	FSlateTextCanvas CanvasOf(const FFramePainter& Painter)
	{
		FRenderFrame& Frame = Painter.GetFrame();
		const FPaintRect& Clip = Painter.GetClip();
		return FSlateTextCanvas{Frame.GetData(), Frame.GetWidth(), Frame.GetHeight(), Frame.GetStride(), Clip.Left, Clip.Top, Clip.Right, Clip.Bottom};
	}
}

void RenderText::PaintTextBlock(const FFramePainter& Painter, const UTextBlock& Text, const FGeometry& Geometry, float Opacity)
{
	const FString String = Text.GetText().ToString();
	if (String.IsEmpty())
	{
		return;
	}
	FVector2D Position = Geometry.GetAbsolutePosition();
	if (Text.Justification != ETextJustify::Left)
	{
		// The slot may give more room than the text needs; justification places the text in it.
		const FVector2D Measured = FSlateFontMeasure::Get().Measure(String, Text.GetFont());
		const double Spare = Geometry.GetLocalSize().X - Measured.X;
		Position.X += Text.Justification == ETextJustify::Center ? Spare * 0.5 : Spare;
	}
	FSlateTextLook Look;
	Look.Font = &Text.GetFont();
	Look.Color = Text.GetColorAndOpacity().GetSpecifiedColor();
	Look.ShadowOffset = Text.GetShadowOffset();
	Look.ShadowColor = Text.GetShadowColorAndOpacity();
	Look.Opacity = Opacity;
	FSlateTextPainter::Get().Draw(CanvasOf(Painter), Position, String, Look);
}

FVector2D RenderText::PaintLine(const FFramePainter& Painter, const FVector2D& Position, const FString& Text, const FSlateFontInfo& Font, const FLinearColor& Color,
	float Opacity, bool bShadow, float FontScale)
{
	FSlateTextLook Look;
	Look.Font = &Font;
	Look.Color = Color;
	Look.Opacity = Opacity;
	Look.FontScale = FontScale;
	if (bShadow)
	{
		Look.ShadowOffset = FVector2D(1.0, 1.0);
		Look.ShadowColor = FLinearColor::Black;
	}
	return FSlateTextPainter::Get().Draw(CanvasOf(Painter), Position, Text, Look);
}
