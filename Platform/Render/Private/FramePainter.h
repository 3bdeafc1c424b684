#pragma once

// FFramePainter: the drawing operations the renderer builds widgets from, over one frame and one
// clip rectangle: filled and framed rectangles, thick lines, and a picture scaled into a box.
// Colours are sRGB bytes with straight alpha; Opacity multiplies the source alpha.

#include "CoreMinimal.h"
#include "Math/Color.h"
#include "Math/Vector2D.h"

class FRenderFrame;
struct FMediaTextureSample;

/** A rectangle of whole pixels, right and bottom exclusive. */
struct FPaintRect
{
	int32 Left = 0;
	int32 Top = 0;
	int32 Right = 0;
	int32 Bottom = 0;

	/** True when no pixel is inside. */
	bool IsEmpty() const { return Right <= Left || Bottom <= Top; }
	/** The pixels inside both. */
	FPaintRect Intersect(const FPaintRect& Other) const;
	/** The pixels a box at Position of Size covers, edges rounded to the nearest pixel. */
	static FPaintRect FromBox(const FVector2D& Position, const FVector2D& Size);
};

/** Blends shapes and pictures into a frame, never touching pixels outside the clip. */
class FFramePainter
{
public:
	/** Paints into Frame; the clip is the whole frame. */
	explicit FFramePainter(FRenderFrame& InFrame);

	/** Limits later drawing to Rect (within the frame). */
	void SetClip(const FPaintRect& Rect);
	/** The current clip. */
	const FPaintRect& GetClip() const { return Clip; }
	/** The frame painted into. */
	FRenderFrame& GetFrame() const { return Frame; }

	/** Blends Color over every pixel of Rect. */
	void FillRect(const FPaintRect& Rect, FColor Color, float Opacity) const;
	/** Blends a frame of Thickness pixels inside the edges of Rect. */
	void FrameRect(const FPaintRect& Rect, int32 Thickness, FColor Color, float Opacity) const;
	/** Blends a line from A to B, Thickness pixels wide, by stamping squares along it. */
	void DrawLine(const FVector2D& A, const FVector2D& B, float Thickness, FColor Color, float Opacity) const;
	/** Draws Sample scaled into Rect with bilinear filtering, each texel multiplied by Tint (linear). */
	void DrawPicture(const FPaintRect& Rect, const FMediaTextureSample& Sample, const FLinearColor& Tint, float Opacity) const;

private:
	// The frame every call writes.
	FRenderFrame& Frame;
	// Where drawing may land, always inside the frame.
	FPaintRect Clip;
};
