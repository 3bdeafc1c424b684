#pragma once

// FFramePainter: the drawing operations the renderer draws the elements of a draw list with, over
// one frame and one clip rectangle: filled rectangles, thick lines, a picture scaled into a box,
// and a premultiplied sprite (cached text). Colours are sRGB bytes with straight alpha; Opacity
// multiplies the source alpha.

#include "CoreMinimal.h"
#include "Math/Color.h"
#include "Math/Vector2D.h"
#include "FrameRenderer.h"
#include "Rendering/SlateDrawList.h"

class FRenderFrame;
struct FMediaTextureSample;
struct FTextSprite;
typedef union pixman_image pixman_image_t;


/** Blends shapes and pictures into a frame, never touching pixels outside the clip. */
class FFramePainter
{
public:
	/**
	 * Paints into Frame; the clip is the whole frame. bOpaqueFrame promises that every pixel of
	 * the frame is opaque (it was cleared to an opaque colour), which lets sprites be blended as
	 * premultiplied colour, where straight and premultiplied are the same.
	 */
	explicit FFramePainter(FRenderFrame& InFrame, bool bInOpaqueFrame = false, ESpriteBlender InBlender = ESpriteBlender::Pixman);
	~FFramePainter();
	FFramePainter(const FFramePainter&) = delete;
	FFramePainter& operator=(const FFramePainter&) = delete;

	/** Limits later drawing to Rect (within the frame). */
	void SetClip(const FPaintRect& Rect);
	/** The current clip. */
	const FPaintRect& GetClip() const { return Clip; }
	/** The frame painted into. */
	FRenderFrame& GetFrame() const { return Frame; }

	/** Blends Color over every pixel of Rect. */
	void FillRect(const FPaintRect& Rect, FColor Color, float Opacity) const;
	/** Blends a line from A to B, Thickness pixels wide, by stamping squares along it. */
	void DrawLine(const FVector2D& A, const FVector2D& B, float Thickness, FColor Color, float Opacity) const;
	/** Draws Sample scaled into Rect with bilinear filtering, each texel multiplied by Tint (linear). */
	void DrawPicture(const FPaintRect& Rect, const FMediaTextureSample& Sample, const FLinearColor& Tint, float Opacity) const;
	/** Blends Sprite (premultiplied) over the frame with its top-left pixel at (X, Y). */
	void DrawSprite(int32 X, int32 Y, const FTextSprite& Sprite) const;

private:
	// The frame every call writes.
	FRenderFrame& Frame;
	// Where drawing may land, always inside the frame.
	FPaintRect Clip;
	// Every pixel of the frame is opaque, and stays so (everything is blended over it).
	bool bOpaqueFrame = false;
	// Who blends sprites into an opaque frame.
	ESpriteBlender Blender = ESpriteBlender::Pixman;
	// pixman's view of the frame, made on the first sprite; null until then.
	mutable pixman_image_t* FrameImage = nullptr;
};
