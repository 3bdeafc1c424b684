#include "Rendering/SlateDrawList.h"

#include "Styling/SlateBrush.h"

#include <algorithm>
#include <cmath>

FPaintRect FPaintRect::Intersect(const FPaintRect& Other) const
{
	return {std::max(Left, Other.Left), std::max(Top, Other.Top), std::min(Right, Other.Right), std::min(Bottom, Other.Bottom)};
}

FPaintRect FPaintRect::FromBox(const FVector2D& Position, const FVector2D& Size)
{
	// Rounding both edges (not position and size) keeps neighbouring boxes from gapping or overlapping.
	const double Left = std::round(Position.X);
	const double Top = std::round(Position.Y);
	const double Right = std::round(Position.X + Size.X);
	const double Bottom = std::round(Position.Y + Size.Y);
	// Far-off boxes (a widget translated away) are kept in int range; the clip drops them anyway.
	auto ToInt = [](double Value) { return static_cast<int32>(std::clamp(Value, -16777216.0, 16777216.0)); };
	return {ToInt(Left), ToInt(Top), ToInt(Right), ToInt(Bottom)};
}

FSlateDrawElement& FSlateWindowElementList::Add()
{
	if (Count == Elements.Num())
	{
		Elements.AddDefaulted();
	}
	return Elements[Count++];
}

void FSlateDrawElement::MakeBox(FSlateWindowElementList& List, const FPaintRect& Box, FColor Color, float Opacity)
{
	FSlateDrawElement& Element = List.Add();
	Element.Kind = ESlateDrawElementKind::Box;
	Element.Box = Box;
	Element.Color = Color;
	Element.Opacity = Opacity;
}

void FSlateDrawElement::MakeBox(FSlateWindowElementList& List, const FPaintRect& Box, const FSlateBrush& Brush, const FLinearColor& Tint, float Opacity)
{
	FSlateDrawElement& Element = List.Add();
	Element.Kind = ESlateDrawElementKind::Image;
	Element.Box = Box;
	Element.Tint = Brush.TintColor.GetSpecifiedColor() * Tint;
	Element.Resource = Brush.GetResourceObject();
	Element.Opacity = Opacity;
}

void FSlateDrawElement::MakeFrame(FSlateWindowElementList& List, const FPaintRect& Box, int32 Thickness, FColor Color, float Opacity)
{
	if (Box.IsEmpty())
	{
		return;
	}
	const int32 T = std::max(1, std::min({Thickness, (Box.Right - Box.Left) / 2, (Box.Bottom - Box.Top) / 2}));
	MakeBox(List, {Box.Left, Box.Top, Box.Right, Box.Top + T}, Color, Opacity);
	MakeBox(List, {Box.Left, Box.Bottom - T, Box.Right, Box.Bottom}, Color, Opacity);
	MakeBox(List, {Box.Left, Box.Top + T, Box.Left + T, Box.Bottom - T}, Color, Opacity);
	MakeBox(List, {Box.Right - T, Box.Top + T, Box.Right, Box.Bottom - T}, Color, Opacity);
}

void FSlateDrawElement::MakeText(FSlateWindowElementList& List, const FVector2D& Position, const FString& Text, const FSlateFontInfo& Font, const FLinearColor& Color,
                                 float Opacity, const FVector2D& ShadowOffset, const FLinearColor& ShadowColor, float FontScale)
{
	FSlateDrawElement& Element = List.Add();
	Element.Kind = ESlateDrawElementKind::Text;
	Element.Position = Position;
	// Assigned, not swapped: the element's string keeps its storage from the last frame.
	Element.Text = Text;
	Element.Font = Font;
	Element.Tint = Color;
	Element.Opacity = Opacity;
	Element.ShadowOffset = ShadowOffset;
	Element.ShadowColor = ShadowColor;
	Element.FontScale = FontScale;
}

void FSlateDrawElement::MakeLine(FSlateWindowElementList& List, const FVector2D& A, const FVector2D& B, float Thickness, FColor Color, float Opacity)
{
	FSlateDrawElement& Element = List.Add();
	Element.Kind = ESlateDrawElementKind::Line;
	Element.Position = A;
	Element.End = B;
	Element.Thickness = Thickness;
	Element.Color = Color;
	Element.Opacity = Opacity;
}
