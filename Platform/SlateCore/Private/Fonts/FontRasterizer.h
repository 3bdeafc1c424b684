#pragma once

#include "Fonts/FontHandle.h"
#include "Fonts/FontLocator.h"
#include "Fonts/PixelTarget.h"
#include "Fonts/TextDrawStyle.h"
#include "Fonts/TextExtent.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

class FFontGlyphCache;

/**
 * Measures and draws text with real fonts (FreeType). Sizes are in pixels: convert engine point
 * sizes with FontPointsToPixels. Text is code points (UTF-32: an FString's surrogate pairs joined,
 * see UE::Core::Private::ToCodePoints); '\n' starts a new line. Every call is thread-safe (one lock), and a call never fails: a missing
 * font falls back to the default, a character no font has draws as the font's missing-glyph box,
 * and with no font installed at all text measures 0 x 0 and draws nothing.
 */
class FFontRasterizer
{
public:
	using FLogSink = std::function<void(const std::string& Message)>;

	/** Opens the default fonts the locator finds. Problems go to Sink, or to stderr when it is empty. */
	explicit FFontRasterizer(const FFontLocator& Locator = FFontLocator(), FLogSink Sink = {});
	~FFontRasterizer();
	FFontRasterizer(const FFontRasterizer&) = delete;
	FFontRasterizer& operator=(const FFontRasterizer&) = delete;

	/** The process-wide rasterizer over the system's fonts, made on first use and never destroyed. */
	static FFontRasterizer& Get();

	/** False when not even one default font could be opened (nothing will be drawn). */
	bool HasDefaultFont() const;

	FFontId GetDefaultFont(EFontWeight Weight = EFontWeight::Regular) const;

	/** Opens a font file (face FaceIndex of a collection), backed by the default font for what it lacks. */
	FFontLoadResult LoadFont(const std::string& Path, int32_t FaceIndex = 0);

	/** Size of the text's box as DrawText lays it out; Size and OutlineSize in pixels. */
	FTextExtent Measure(std::u32string_view Text, float Size, float OutlineSize = 0.0f, FFontId Font = {});

	/**
	 * Draws the text with its box's top-left corner at (X, Y), blending over Target and writing
	 * only pixels inside Clip. Returns the box, the same as Measure. The shadow is drawn at the
	 * box plus the shadow offset and is not part of the box.
	 */
	FTextExtent DrawText(const FPixelTarget& Target, float X, float Y, std::u32string_view Text, const FTextDrawStyle& Style, const FPixelRect& Clip);

	/** Where later problems (a font that will not open) are reported; empty for none. Called under the lock: it must not call back in. */
	void SetLogSink(FLogSink Sink);

	/** Bytes of rendered glyphs kept before the glyph cache is emptied and refilled as needed. */
	void SetCacheBudget(size_t Bytes);

private:
	template <typename CharT>
	FTextExtent MeasureText(std::basic_string_view<CharT> Text, float Size, float OutlineSize, FFontId Font);
	template <typename CharT>
	FTextExtent DrawTextImpl(const FPixelTarget& Target, float X, float Y, std::basic_string_view<CharT> Text, const FTextDrawStyle& Style, const FPixelRect& Clip);

	/** Face slots of the given files that open, reporting those that do not. Needs the lock. */
	std::vector<int32_t> OpenFaces(const std::vector<FFontFile>& Files);
	/** Glyph-cache chain that a font id stands for; unknown ids mean the default regular font. Needs the lock. */
	int32_t ChainOf(FFontId Font) const;
	void Log(const std::string& Message);

	/** Guards everything below: the glyph cache, the font table, the sink. */
	mutable std::mutex Mutex;
	/** FreeType state and every cache. */
	std::unique_ptr<FFontGlyphCache> Cache;
	/** Cache chain of each FFontId, by its index: 0 is the default regular font, 1 the default bold. */
	std::vector<int32_t> FontChains;
	/** Fonts opened by LoadFont, by "path|face", so loading twice gives the same id. */
	std::unordered_map<std::string, FFontId> LoadedFonts;
	/** Faces of the default regular font, appended to every loaded font as its fallback. */
	std::vector<int32_t> DefaultRegularFaces;
	/** Receives problem reports. */
	FLogSink LogSink;
};
