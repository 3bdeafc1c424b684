#include "WidgetPainter.h"

#include "BrushPainter.h"
#include "Components/Border.h"
#include "Components/Button.h"
#include "Components/CheckBox.h"
#include "Components/ComboBoxString.h"
#include "Components/Image.h"
#include "Components/ProgressBar.h"
#include "Components/Slider.h"
#include "Components/TextBlock.h"
#include "FramePainter.h"
#include "Fonts/SlateFontInfo.h"
#include "Layout/Geometry.h"
#include "TextPainter.h"
#include "Templates/Casts.h"

#include <algorithm>

namespace
{
	// The default style's greys, sRGB.
	const FColor TrackColor(60, 60, 60);
	const FColor TrackFillColor(150, 150, 150);
	const FColor ThumbColor(230, 230, 230);
	const FColor BoxEdgeColor(200, 200, 200);
	const FColor BoxInsideColor(30, 30, 30);
	const FColor TickColor(240, 240, 240);
	const FColor ButtonFaceColor(90, 90, 90);

	/** A byte colour scaled by a linear tint, as a widget's colour multiplies its style's. */
	FColor Tinted(FColor Base, const FLinearColor& Tint)
	{
		const FLinearColor Product = FLinearColor(Base) * Tint;
		return Product.ToFColor(true);
	}

	void PaintSlider(const FFramePainter& Painter, const USlider& Slider, const FPaintRect& Box, float Opacity)
	{
		const int32 Width = Box.Right - Box.Left;
		const int32 Middle = (Box.Top + Box.Bottom) / 2;
		const int32 ThumbWidth = std::min(8, Width);
		const float Value = FMath::Clamp(Slider.GetNormalizedValue(), 0.0f, 1.0f);
		// The thumb's centre travels between half a thumb from each end, so it never leaves the box.
		const int32 ThumbLeft = Box.Left + static_cast<int32>(static_cast<float>(Width - ThumbWidth) * Value + 0.5f);
		Painter.FillRect({Box.Left, Middle - 2, Box.Right, Middle + 2}, TrackColor, Opacity);
		Painter.FillRect({Box.Left, Middle - 2, ThumbLeft, Middle + 2}, TrackFillColor, Opacity);
		Painter.FillRect({ThumbLeft, Box.Top, ThumbLeft + ThumbWidth, Box.Bottom}, ThumbColor, Opacity);
	}

	void PaintCheckBox(const FFramePainter& Painter, const UCheckBox& CheckBox, const FPaintRect& Box, float Opacity)
	{
		// The 16 x 16 box sits at the left, centred vertically; any content is laid out beside it.
		const int32 Top = (Box.Top + Box.Bottom) / 2 - 8;
		const FPaintRect Square{Box.Left, Top, Box.Left + 16, Top + 16};
		Painter.FillRect(Square, BoxInsideColor, Opacity);
		Painter.FrameRect(Square, 1, BoxEdgeColor, Opacity);
		const FVector2D Origin(Square.Left, Square.Top);
		switch (CheckBox.GetCheckedState())
		{
		case ECheckBoxState::Checked:
			Painter.DrawLine(Origin + FVector2D(3.5, 8.5), Origin + FVector2D(6.5, 11.5), 2.0f, TickColor, Opacity);
			Painter.DrawLine(Origin + FVector2D(6.5, 11.5), Origin + FVector2D(12.5, 4.5), 2.0f, TickColor, Opacity);
			break;
		case ECheckBoxState::Undetermined:
			Painter.FillRect({Square.Left + 4, Square.Top + 7, Square.Right - 4, Square.Top + 9}, TickColor, Opacity);
			break;
		default:
			break;
		}
	}

	void PaintProgressBar(const FFramePainter& Painter, const UProgressBar& Bar, const FPaintRect& Box, float Opacity)
	{
		Painter.FillRect(Box, TrackColor, Opacity);
		const float Percent = FMath::Clamp(Bar.GetPercent(), 0.0f, 1.0f);
		const int32 FillRight = Box.Left + static_cast<int32>(static_cast<float>(Box.Right - Box.Left) * Percent + 0.5f);
		const FColor Fill = Bar.GetFillColorAndOpacity().ToFColor(true);
		Painter.FillRect({Box.Left, Box.Top, FillRight, Box.Bottom}, Fill, Opacity);
	}

	void PaintButton(const FFramePainter& Painter, const UButton& Button, const FPaintRect& Box, float Opacity)
	{
		const FColor Face = Tinted(ButtonFaceColor, Button.GetBackgroundColor());
		Painter.FillRect(Box, Face, Opacity);
		// A raised bevel: light from the top left; pressed, the light comes from below.
		const FColor Light(200, 200, 200, 160);
		const FColor Dark(0, 0, 0, 160);
		const FColor& TopLeft = Button.IsPressed() ? Dark : Light;
		const FColor& BottomRight = Button.IsPressed() ? Light : Dark;
		Painter.FillRect({Box.Left, Box.Top, Box.Right, Box.Top + 1}, TopLeft, Opacity);
		Painter.FillRect({Box.Left, Box.Top + 1, Box.Left + 1, Box.Bottom}, TopLeft, Opacity);
		Painter.FillRect({Box.Left + 1, Box.Bottom - 1, Box.Right, Box.Bottom}, BottomRight, Opacity);
		Painter.FillRect({Box.Right - 1, Box.Top + 1, Box.Right, Box.Bottom - 1}, BottomRight, Opacity);
	}

	void PaintComboBox(const FFramePainter& Painter, const UComboBoxString& Combo, const FGeometry& Geometry, const FPaintRect& Box, float Opacity)
	{
		Painter.FillRect(Box, ButtonFaceColor, Opacity);
		Painter.FrameRect(Box, 1, BoxEdgeColor, Opacity);
		const FVector2D Arrow(Box.Right - 14, (Box.Top + Box.Bottom) / 2 - 2);
		Painter.DrawLine(Arrow, Arrow + FVector2D(4, 4), 1.5f, TickColor, Opacity);
		Painter.DrawLine(Arrow + FVector2D(4, 4), Arrow + FVector2D(8, 0), 1.5f, TickColor, Opacity);
		RenderText::PaintLine(Painter, Geometry.GetAbsolutePosition() + FVector2D(4, 2), Combo.GetSelectedOption(), FSlateFontInfo(FName(TEXT("Regular")), 10), FLinearColor::White, Opacity);
	}
}

void RenderWidgets::Paint(const FFramePainter& Painter, UWidget& Widget, const FGeometry& Geometry, float Opacity)
{
	if (Opacity <= 0.0f)
	{
		return;
	}
	const FPaintRect Box = FPaintRect::FromBox(Geometry.GetAbsolutePosition(), Geometry.GetLocalSize());
	if (const UBorder* Border = Cast<UBorder>(&Widget))
	{
		RenderBrush::Paint(Painter, Box, Border->Background, Border->GetBrushColor(), Opacity);
	}
	else if (const UImage* Image = Cast<UImage>(&Widget))
	{
		RenderBrush::Paint(Painter, Box, Image->GetBrush(), Image->GetColorAndOpacity(), Opacity);
	}
	else if (const UTextBlock* Text = Cast<UTextBlock>(&Widget))
	{
		RenderText::PaintTextBlock(Painter, *Text, Geometry, Opacity);
	}
	else if (const USlider* Slider = Cast<USlider>(&Widget))
	{
		PaintSlider(Painter, *Slider, Box, Opacity);
	}
	else if (const UCheckBox* CheckBox = Cast<UCheckBox>(&Widget))
	{
		PaintCheckBox(Painter, *CheckBox, Box, Opacity);
	}
	else if (const UProgressBar* Bar = Cast<UProgressBar>(&Widget))
	{
		PaintProgressBar(Painter, *Bar, Box, Opacity);
	}
	else if (const UButton* Button = Cast<UButton>(&Widget))
	{
		PaintButton(Painter, *Button, Box, Opacity);
	}
	else if (const UComboBoxString* Combo = Cast<UComboBoxString>(&Widget))
	{
		PaintComboBox(Painter, *Combo, Geometry, Box, Opacity);
	}
}
