#pragma once

// How each kind of widget looks when the CPU renderer draws it. Panels and user widgets draw
// nothing themselves; their children are visited on their own. The input widgets are drawn
// simply but recognisably, in the greys of the engine's default style.

#include "CoreMinimal.h"

class FFramePainter;
class UWidget;
struct FGeometry;

namespace RenderWidgets
{
	/** Draws Widget's own look into its box at Opacity (the product of the render opacities above it). */
	void Paint(const FFramePainter& Painter, UWidget& Widget, const FGeometry& Geometry, float Opacity);
}
