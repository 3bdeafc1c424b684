#pragma once

#include <algorithm>
#include <cstdint>

/** A rectangle of pixels, right and bottom exclusive; empty when Right <= Left or Bottom <= Top. */
struct FPixelRect
{
	int32_t Left = 0;
	int32_t Top = 0;
	int32_t Right = 0;
	int32_t Bottom = 0;

	bool IsEmpty() const { return Right <= Left || Bottom <= Top; }

	FPixelRect Intersect(const FPixelRect& Other) const
	{
		return {std::max(Left, Other.Left), std::max(Top, Other.Top), std::min(Right, Other.Right), std::min(Bottom, Other.Bottom)};
	}
};

/**
 * A view of an RGBA8 image that text is drawn into: 4 bytes per pixel in R, G, B, A order,
 * straight (not premultiplied) alpha, rows Stride bytes apart. The view does not own the pixels;
 * they must outlive the draw call.
 */
struct FPixelTarget
{
	/** First byte of the top row. */
	uint8_t* Pixels = nullptr;
	/** Image width in pixels. */
	int32_t Width = 0;
	/** Image height in pixels. */
	int32_t Height = 0;
	/** Bytes from one row to the next; at least Width * 4. */
	int32_t Stride = 0;

	bool IsValid() const { return Pixels != nullptr && Width > 0 && Height > 0 && Stride >= Width * 4; }
	FPixelRect Bounds() const { return {0, 0, Width, Height}; }
};
