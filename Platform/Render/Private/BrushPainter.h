#pragma once

// How a brush is drawn: a picture when its resource has one (a media texture, or a material whose
// display texture is a media texture), otherwise its tint as a flat box.

#include "CoreMinimal.h"

class FFramePainter;
struct FLinearColor;
struct FPaintRect;
struct FSlateBrush;

namespace RenderBrush
{
	/** Draws Brush into Box, multiplied by Color (the widget's brush or image colour) and Opacity. */
	void Paint(const FFramePainter& Painter, const FPaintRect& Box, const FSlateBrush& Brush, const FLinearColor& Color, float Opacity);
}
