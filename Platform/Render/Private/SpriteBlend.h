#pragma once

// The blends that put a premultiplied sprite on a frame: into an opaque frame with pixman or with
// a plain loop (the same bytes either way: both round as x / 255 to nearest), and into a frame of
// any alpha, kept as straight alpha.

#include "CoreMinimal.h"
#include "Rendering/SlateDrawList.h"

struct FTextSprite;
typedef union pixman_image pixman_image_t;

namespace RenderSprite
{
	/** pixman's view of RGBA8 pixels (rows Stride bytes apart, Stride a multiple of 4); release it with ReleaseImage. */
	pixman_image_t* WrapImage(uint8* Pixels, int32 Width, int32 Height, int32 Stride);
	/** Lets go of an image from WrapImage; null is fine. */
	void ReleaseImage(pixman_image_t* Image);

	/** Source-over of Sprite at (X, Y) onto the opaque frame Frame, writing only Area (inside the frame and the sprite). */
	void BlendOverOpaquePixman(pixman_image_t* Frame, const FPaintRect& Area, int32 X, int32 Y, const FTextSprite& Sprite);
	/** The same, eight pixels at a time with AVX2 (the plain loop where the processor has no AVX2). */
	void BlendOverOpaqueAvx2(uint8* Frame, int32 Stride, const FPaintRect& Area, int32 X, int32 Y, const FTextSprite& Sprite);
	/** True when the processor runs AVX2. */
	bool HasAvx2();
	/** The same, one pixel at a time. */
	void BlendOverOpaqueLoop(uint8* Frame, int32 Stride, const FPaintRect& Area, int32 X, int32 Y, const FTextSprite& Sprite);
	/** Source-over onto a straight-alpha frame whose pixels may be translucent. */
	void BlendOverStraight(uint8* Frame, int32 Stride, const FPaintRect& Area, int32 X, int32 Y, const FTextSprite& Sprite);
} // namespace RenderSprite
