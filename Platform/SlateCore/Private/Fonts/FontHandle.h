#pragma once

#include <cstdint>
#include <string>

/** Which of the default fonts a caller wants. A weight that is not installed falls back to Regular. */
enum class EFontWeight : uint8_t
{
	Regular,
	Bold,
};

/**
 * Names a font known to an FFontRasterizer: a primary face plus the faces it falls back to for
 * characters the primary lacks. A default-constructed id means "the default regular font", so a
 * caller that never loads a font still measures and draws with a real one.
 * Ids are only meaningful to the rasterizer that gave them out.
 */
struct FFontId
{
	/** Index into the rasterizer's font table; -1 selects the default regular font. */
	int32_t Index = -1;

	bool IsDefault() const { return Index < 0; }
	friend bool operator==(FFontId, FFontId) = default;
};

/**
 * What FFontRasterizer::LoadFont gives back. Font is always usable: when the file could not be
 * opened it is the default font and bLoaded is false, with Error saying what went wrong.
 */
struct FFontLoadResult
{
	/** The loaded font, or the default font when loading failed. */
	FFontId Font;
	/** True when Font really is the requested file. */
	bool bLoaded = false;
	/** Human-readable reason for a failure (path and FreeType's error); empty on success. */
	std::string Error;
};
