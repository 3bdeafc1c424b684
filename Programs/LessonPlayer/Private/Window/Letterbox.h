#pragma once

// FLetterbox: where a picture sits when it is scaled to fit an output with its aspect kept, and
// the way back from an output point to a point of the picture. Pure arithmetic, so the window's
// drawing and its pointer mapping cannot disagree.

#include "CoreTypes.h"
#include "Math/IntPoint.h"
#include "Math/Vector2D.h"

/** The rectangle a picture fills inside an output, centred, the rest being black bars. */
struct FLetterbox
{
	/** Left edge in output pixels. */
	int32 X = 0;
	/** Top edge in output pixels. */
	int32 Y = 0;
	/** Width in output pixels; 0 when nothing can be shown. */
	int32 Width = 0;
	/** Height in output pixels; 0 when nothing can be shown. */
	int32 Height = 0;

	/** The largest rectangle of Picture's aspect that fits Output, centred; empty when either size is not positive. */
	static FLetterbox Fit(FIntPoint Picture, FIntPoint Output);

	/** True when the rectangle covers no pixel. */
	bool IsEmpty() const { return Width <= 0 || Height <= 0; }

	/**
	 * The point of a picture of PictureSize under OutputPoint (output pixels, fractions allowed).
	 * Points in the bars map outside the picture rather than being clamped, so nothing is hit
	 * there and a dragged slider still follows the pointer. Zero when the rectangle is empty.
	 */
	FVector2D ToPicture(const FVector2D& OutputPoint, const FVector2D& PictureSize) const;
};
