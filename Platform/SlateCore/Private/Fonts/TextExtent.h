#pragma once

#include <cstdint>

/**
 * Size of a block of laid-out text in whole pixels: the box DrawText fills when given the same
 * text, size and outline. Width is the widest line's advance; Height is the sum of the lines'
 * heights (ascender to descender), so empty text is zero wide and still one line tall.
 */
struct FTextExtent
{
	/** Widest line, in pixels, outline included on both sides. */
	float Width = 0.0f;
	/** All lines stacked, in pixels, outline included above and below. */
	float Height = 0.0f;
	/** Number of lines: one more than the number of '\n' in the text. */
	int32_t LineCount = 0;

	friend bool operator==(const FTextExtent&, const FTextExtent&) = default;
};
