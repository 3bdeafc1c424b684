#pragma once

#include "Fonts/FontHandle.h"

#include <cstdint>

/** An 8-bit RGBA colour with straight alpha, as stored in the target image. */
struct FTextColor
{
	uint8_t R = 255;
	uint8_t G = 255;
	uint8_t B = 255;
	uint8_t A = 255;
};

/**
 * How a piece of text is drawn. All lengths are in pixels (convert engine point sizes with
 * FontPointsToPixels). Layers are painted shadow first, then outline, then fill, each for the
 * whole text, so one glyph's outline never covers its neighbour's fill.
 */
struct FTextDrawStyle
{
	/** Font to draw with; the default id is the default regular font. */
	FFontId Font;
	/** Pixel size of the font (the em height). Zero or less draws nothing. */
	float Size = 16.0f;
	/** Colour of the glyphs themselves. */
	FTextColor Color;
	/** Width of the outline around each glyph; 0 for none. */
	float OutlineSize = 0.0f;
	/** Colour of the outline. */
	FTextColor OutlineColor{0, 0, 0, 255};
	/** Where the shadow sits relative to the text; no shadow when both are 0. */
	float ShadowOffsetX = 0.0f;
	float ShadowOffsetY = 0.0f;
	/** Colour of the shadow; no shadow when its alpha is 0. */
	FTextColor ShadowColor{0, 0, 0, 0};
	/** Multiplies every layer's alpha: 0 draws nothing, 1 draws the colours as given. */
	float Opacity = 1.0f;
};
