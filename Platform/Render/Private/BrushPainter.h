#pragma once

// How a brush is drawn: a picture when its resource has one (a media texture, or a material whose
// display texture is a media texture), otherwise its tint as a flat box.

#include "CoreMinimal.h"

class FFramePainter;
class UObject;
struct FLinearColor;
struct FPaintRect;

namespace RenderBrush
{
	/** Draws a brush's Resource into Box, multiplied by Tint (the brush's tint times the widget's colour) and Opacity. */
	void Paint(const FFramePainter& Painter, const FPaintRect& Box, UObject* Resource, const FLinearColor& Tint, float Opacity);
}
