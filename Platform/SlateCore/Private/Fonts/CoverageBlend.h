#pragma once

#include "Fonts/PixelTarget.h"
#include "Fonts/TextDrawStyle.h"

#include <cstdint>

/**
 * Paints Color over Target through an 8-bit coverage mask whose top-left pixel lands at (X, Y):
 * source-over on straight alpha, the source alpha being Color.A x coverage x Opacity. Only
 * pixels inside both Clip and the target are written; the mask may lie partly or wholly outside.
 */
void BlendCoverage(const FPixelTarget& Target, const FPixelRect& Clip, int32_t X, int32_t Y, const uint8_t* Coverage, int32_t Width, int32_t Height, FTextColor Color, float Opacity);
