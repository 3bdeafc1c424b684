#pragma once

// FTextSprite: a run of text rasterised once, shadow, outline and fill together, as premultiplied
// RGBA8 (bytes R, G, B, A), trimmed to the pixels it covers. Drawing the text again is one blend
// of the sprite over the frame.

#include "CoreMinimal.h"

#include <vector>

typedef union pixman_image pixman_image_t;

/** The pixels of one text run and where they sit against the text's measured box. */
struct FTextSprite
{
	FTextSprite() = default;
	~FTextSprite();
	FTextSprite(const FTextSprite&) = delete;
	FTextSprite& operator=(const FTextSprite&) = delete;

	/** From the top-left corner of the text's box to the sprite's top-left pixel (negative where a glyph or shadow pokes out). */
	int32 OffsetX = 0;
	int32 OffsetY = 0;
	/** Size in pixels; 0 x 0 when the text covers no pixel. */
	int32 Width = 0;
	int32 Height = 0;
	/** Width * Height * 4 bytes, rows top to bottom, colour premultiplied by alpha. */
	std::vector<uint8> Pixels;
	/** pixman's view of Pixels, made on first use; the sprite owns it. */
	mutable pixman_image_t* Image = nullptr;

	/** Bytes the sprite holds. */
	size_t GetMemoryBytes() const { return sizeof(FTextSprite) + Pixels.capacity(); }
};
