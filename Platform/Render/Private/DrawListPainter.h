#pragma once

// How a frame's draw list becomes pixels: each element by its kind (a flat box, a brush's picture,
// a line, a text run from the sprite cache), in the list's order. Nothing here knows widgets.

#include "CoreMinimal.h"

class FFramePainter;
class FSlateWindowElementList;
class FTextSpriteCache;

namespace RenderDrawList
{
	/** Draws every element of List, first to last, through Painter; text runs come from Sprites. */
	void Draw(const FFramePainter& Painter, FTextSpriteCache& Sprites, const FSlateWindowElementList& List);
} // namespace RenderDrawList
