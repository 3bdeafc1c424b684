#pragma once

#include "Fonts/FontLocator.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_STROKER_H

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

// Sizes, advances and outline widths below are FreeType's 26.6 fixed point: pixels times 64.

/** Where one character comes from at one size, after walking the font's fallback chain. */
struct FGlyphMetrics
{
	/** Face that draws the character; -1 when the font has no face at all. */
	int32_t FaceSlot = -1;
	/** Glyph in that face; 0 is the face's missing-glyph box, used when no face has the character. */
	uint32_t GlyphIndex = 0;
	/** Horizontal advance, 26.6. */
	int32_t Advance = 0;
	/** Whether the face has a kerning table, so pairs are only looked up when they can exist. */
	bool bFaceHasKerning = false;
};

/** A face's vertical extent at one size in whole pixels, rounded outwards: a line is Ascender - Descender tall. */
struct FFaceLineMetrics
{
	/** Baseline to the top of the line; positive. */
	int32_t Ascender = 0;
	/** Baseline to the bottom of the line; zero or negative. */
	int32_t Descender = 0;
};

/** Anti-aliased coverage of one glyph, 0 to 255 per pixel, rows tightly packed. */
struct FGlyphBitmap
{
	/** Pixels from the pen position to the bitmap's left edge. */
	int32_t Left = 0;
	/** Pixels from the baseline up to the bitmap's top edge. */
	int32_t Top = 0;
	int32_t Width = 0;
	int32_t Height = 0;
	std::vector<uint8_t> Coverage;
};

/**
 * The FreeType side of text: the library, open faces, fallback chains of faces, and caches of
 * glyph metrics (by chain, size, codepoint) and rendered bitmaps (by face, size, glyph, outline).
 * Not thread-safe: FFontRasterizer owns one and serialises every call. A bitmap pointer stays
 * valid until the next TrimToBudget, which the owner calls only between operations.
 */
class FFontGlyphCache
{
public:
	FFontGlyphCache();
	~FFontGlyphCache();
	FFontGlyphCache(const FFontGlyphCache&) = delete;
	FFontGlyphCache& operator=(const FFontGlyphCache&) = delete;

	/** Opens a scalable face, or finds the one already open; returns its slot, or -1 and a reason. */
	int32_t OpenFace(const FFontFile& File, std::string& OutError);

	/** Registers a fallback chain of face slots (first is primary); the same chain gives the same id. */
	int32_t AddChain(const std::vector<int32_t>& FaceSlots);

	/** First face of a chain, whose missing-glyph box and line height are the chain's; -1 if none. */
	int32_t GetPrimaryFace(int32_t Chain) const;

	/** The first face in the chain that has the codepoint, else the primary face's missing glyph. */
	FGlyphMetrics GetGlyph(int32_t Chain, int32_t Size, char32_t Codepoint);

	FFaceLineMetrics GetLineMetrics(int32_t FaceSlot, int32_t Size);

	/** Extra advance between two glyphs of one face, 26.6; 0 when the face has no such pair. */
	int32_t GetKerning(int32_t FaceSlot, int32_t Size, uint32_t LeftGlyph, uint32_t RightGlyph);

	/** The glyph's coverage, grown by Outline on every side when Outline > 0; never null. */
	const FGlyphBitmap* GetBitmap(int32_t FaceSlot, int32_t Size, uint32_t GlyphIndex, int32_t Outline);

	/** Drops cached data that has outgrown its budget. Invalidates every bitmap pointer handed out. */
	void TrimToBudget();

	void SetBitmapBudget(size_t Bytes) { BitmapBudget = Bytes; }

private:
	struct FFace;
	struct FSizeEntry;

	/** A cache key; for metrics Owner is a chain and Glyph a codepoint, for bitmaps a face and a glyph index. */
	struct FKey
	{
		uint32_t Owner;
		int32_t Size;
		uint32_t Glyph;
		int32_t Outline;
		bool operator==(const FKey&) const = default;
	};
	struct FKeyHash
	{
		size_t operator()(const FKey& Key) const;
	};

	/** The face's size object for Size, made on first use; null when FreeType refuses the size. */
	const FSizeEntry* FindOrAddSize(FFace& Face, int32_t Size);
	FGlyphBitmap RenderBitmap(FFace& Face, int32_t Size, uint32_t GlyphIndex, int32_t Outline);

	/** FreeType instance that owns every face; null when FreeType failed to start. */
	FT_Library Library = nullptr;
	/** Reused for every outline; its radius is set per glyph. */
	FT_Stroker Stroker = nullptr;
	/** Open faces by slot; slots are never reused while the cache lives. */
	std::vector<std::unique_ptr<FFace>> Faces;
	/** Slot of each face already opened, by "path|index|family" as asked for. */
	std::unordered_map<std::string, int32_t> FaceSlotsByRequest;
	/** Fallback chains by id: face slots in the order they are tried. */
	std::vector<std::vector<int32_t>> Chains;
	/** Resolved characters by (chain, size, codepoint). */
	std::unordered_map<FKey, FGlyphMetrics, FKeyHash> Metrics;
	/** Rendered glyphs by (face, size, glyph index, outline). */
	std::unordered_map<FKey, FGlyphBitmap, FKeyHash> Bitmaps;
	/** Coverage bytes held by Bitmaps. */
	size_t BitmapBytes = 0;
	/** Bitmap bytes above which TrimToBudget empties the bitmap cache. */
	size_t BitmapBudget = size_t(64) << 20;
};
