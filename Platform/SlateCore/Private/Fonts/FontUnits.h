#pragma once

// Font sizes come in two units. A font asset's size (FSlateFontInfo::Size in the engine) is in
// points, and the engine rasterizes its fonts at 96 DPI, so a 24 pt font is 32 pixels tall on
// screen. Everything under Fonts/ works in pixels; callers holding an engine font size convert
// with FontPointsToPixels first, and nowhere else, so the factor is applied exactly once.

/** Dots per inch at which the engine turns point sizes into pixels. */
inline constexpr float FontRenderDpi = 96.0f;

/** Points in one inch, by the typographic definition. */
inline constexpr float FontPointsPerInch = 72.0f;

/** Pixel size of a font given in points (24 pt -> 32 px). */
constexpr float FontPointsToPixels(float Points)
{
	return Points * (FontRenderDpi / FontPointsPerInch);
}

/** Point size of a font given in pixels (32 px -> 24 pt). */
constexpr float FontPixelsToPoints(float Pixels)
{
	return Pixels * (FontPointsPerInch / FontRenderDpi);
}
