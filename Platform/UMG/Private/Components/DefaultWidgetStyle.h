#pragma once

// The greys of the engine's default widget style, sRGB, in which the stand-in draws the input
// widgets simply but recognisably.

#include "CoreMinimal.h"
#include "Math/Color.h"

namespace DefaultWidgetStyle
{
	/** A slider's or progress bar's empty track. */
	inline const FColor Track(60, 60, 60);
	/** The part of a slider's track left of the thumb. */
	inline const FColor TrackFill(150, 150, 150);
	/** A slider's thumb. */
	inline const FColor Thumb(230, 230, 230);
	/** The edge of a check box or combo box. */
	inline const FColor BoxEdge(200, 200, 200);
	/** The inside of a check box. */
	inline const FColor BoxInside(30, 30, 30);
	/** A tick, a dash or an arrow. */
	inline const FColor Tick(240, 240, 240);
	/** A button's or combo box's face. */
	inline const FColor ButtonFace(90, 90, 90);
} // namespace DefaultWidgetStyle
