#pragma once

// How text is drawn: through SlateCore's text painter, so a text block fills exactly the box its
// measured size gave it, justified inside the box its slot gave it.

#include "CoreMinimal.h"
#include "Math/Color.h"
#include "Math/Vector2D.h"

class FFramePainter;
class UTextBlock;
struct FGeometry;
struct FSlateFontInfo;

namespace RenderText
{
	/** Draws a text block's text, colour, outline and shadow inside its geometry. */
	void PaintTextBlock(const FFramePainter& Painter, const UTextBlock& Text, const FGeometry& Geometry, float Opacity);

	/** Draws Text with its top-left corner at Position, with a one-pixel black shadow when bShadow; returns its size. */
	FVector2D PaintLine(const FFramePainter& Painter, const FVector2D& Position, const FString& Text, const FSlateFontInfo& Font, const FLinearColor& Color,
		float Opacity, bool bShadow = false, float FontScale = 1.0f);
}
