#pragma once

// FTextSpriteCache: text runs rasterised once and blended from then on. A run is looked up by
// everything that decides its pixels (characters, typeface, size, outline, colours, shadow,
// scale, opacity); a run whose look changes is simply another run, and the old one ages out. The
// sprites' bytes are capped: past the cap the least recently drawn runs are dropped. Game thread
// only, like the renderer that owns it.

#include "CoreMinimal.h"
#include "FrameRenderer.h"
#include "TextSprite.h"

#include <list>
#include <memory>
#include <unordered_map>

struct FSlateDrawElement;

/** Rasterised text runs by look, least recently used dropped first past a byte cap. */
class FTextSpriteCache
{
public:
	/**
	 * The default cap: about 1,400 comments in the overlay's look (350x40-pixel sprites), a very
	 * dense 1280x720 screen. A denser screen holds more while it lasts (see above).
	 */
	static constexpr int64 DefaultBudgetBytes = int64(128) << 20;

	FTextSpriteCache();
	~FTextSpriteCache();

	/** Starts a frame: runs found from now on belong to it, and are kept past the cap through the next frame. */
	void BeginFrame()
	{
		++Frame;
		Trim(nullptr);
	}

	/**
	 * The sprite of a text element, rasterised now if it is not held; valid until the next call.
	 * Null for a run too large to hold (a canvas past MaxSpritePixels), which is drawn directly.
	 */
	const FTextSprite* Find(const FSlateDrawElement& Text);

	/** Runs whose canvas would be larger than this many pixels are not cached. */
	static constexpr int64 MaxSpritePixels = int64(4096) * 1024;

	/** Sets the cap in bytes and drops what is over it. */
	void SetBudgetBytes(int64 Bytes);
	/** The cap in bytes. */
	int64 GetBudgetBytes() const { return BudgetBytes; }
	/** Counters and the present size. */
	FTextSpriteCacheStats GetStats() const;
	/** Drops every sprite (the counters stay). */
	void Empty();

private:
	/** Everything a run's pixels depend on, colours as the bytes they are drawn with. */
	struct FLook
	{
		FString Text;
		bool bBold = false;
		float Size = 0.0f;
		float FontScale = 1.0f;
		float Opacity = 1.0f;
		int32 OutlineSize = 0;
		FColor OutlineColor;
		FColor Color;
		int32 ShadowX = 0;
		int32 ShadowY = 0;
		FColor ShadowColor;

		bool operator==(const FLook& Other) const;
	};
	struct FEntry
	{
		FLook Look;
		uint64 Hash = 0;
		std::unique_ptr<FTextSprite> Sprite;
		// The last frame that drew it.
		uint64 Frame = 0;
	};
	using FEntryList = std::list<FEntry>;

	/** The look of an element, with what cannot show left out (a shadow of alpha 0, an outline colour of no outline). */
	static void MakeLook(const FSlateDrawElement& Text, FLook& Out);
	static uint64 HashLook(const FLook& Look);
	/** Draws the run into a new sprite (from the element's own colours, which encode to the look's); null when too large. */
	static std::unique_ptr<FTextSprite> Rasterize(const FSlateDrawElement& Text, const FLook& Look);
	/** Drops the least recently used entries (never Keep, nor one of this frame or the last) until the bytes are under the cap. */
	void Trim(const FEntry* Keep);
	void Erase(FEntryList::iterator Entry);

	// Entries, most recently drawn first.
	FEntryList Entries;
	// Entries by the hash of their look; a second look with the same hash replaces the first.
	std::unordered_map<uint64, FEntryList::iterator> ByHash;
	// The look being looked up, reused so a hit allocates nothing.
	FLook Probe;
	// Bytes held by the entries' sprites and strings.
	int64 Bytes = 0;
	// The cap on Bytes.
	int64 BudgetBytes = DefaultBudgetBytes;
	// The frame being drawn, counted by BeginFrame.
	uint64 Frame = 0;
	// Counters.
	int64 Hits = 0;
	int64 Misses = 0;
	int64 Evictions = 0;
};
