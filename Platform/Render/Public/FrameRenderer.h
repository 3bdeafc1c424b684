#pragma once

// FFrameRenderer (stand-in): draws what the engine would put on screen, on the CPU. Each frame
// the viewport's widgets add their looks to a draw list (FWidgetViewport::Paint), the engine's
// on-screen debug messages are added at the top left, and the list is drawn into an RGBA frame.
// Text runs are rasterised once and kept as sprites while their look is unchanged, so a comment
// flying across the screen costs one blend per frame. The frame loop's paint handler calls
// Render after FWidgetViewport::Layout. Game thread only: it reads widgets.

#include "CoreMinimal.h"
#include "Math/Color.h"
#include "Rendering/SlateDrawList.h"

#include <memory>

class FRenderFrame;
class FTextSpriteCache;
class FWidgetViewport;

/** How a renderer's text cache has fared since the renderer was made. */
struct FTextSpriteCacheStats
{
	/** Runs found already rasterised. */
	int64 Hits = 0;
	/** Runs rasterised. */
	int64 Misses = 0;
	/** Runs dropped to stay under the cap. */
	int64 Evictions = 0;
	/** Runs held now. */
	int32 Entries = 0;
	/** Bytes held now. */
	int64 Bytes = 0;
};

/** Which code blends cached text into an opaque frame; both give the same bytes. */
enum class ESpriteBlender : uint8
{
	/** pixman's source-over, with its SIMD paths. */
	Pixman,
	/** A plain loop, one pixel at a time. */
	Loop,
	/** A loop of AVX2 instructions, eight pixels at a time (the plain loop without AVX2). */
	Avx2,
};

/** Paints the viewport's widgets and the on-screen messages into an RGBA frame. */
class RENDER_API FFrameRenderer
{
public:
	FFrameRenderer();
	~FFrameRenderer();
	FFrameRenderer(FFrameRenderer&&) noexcept;
	FFrameRenderer& operator=(FFrameRenderer&&) noexcept;

	/** Sizes Out to the viewport, clears it, and paints every drawn widget, then the on-screen messages. */
	void Render(const FWidgetViewport& Viewport, FRenderFrame& Out) const;
	/** Clears Out (kept at its size) and draws List into it: what Render does once the list is made. */
	void DrawList(const FSlateWindowElementList& List, FRenderFrame& Out) const;

	/** Colour the frame is cleared to before painting (opaque black unless set). */
	void SetClearColor(FColor InColor) { ClearColor = InColor; }
	/** Whether GEngine's on-screen messages are drawn (true unless set). */
	void SetDrawOnScreenMessages(bool bInDraw) { bDrawOnScreenMessages = bInDraw; }
	/** Which code blends text into the frame (pixman unless set). */
	void SetSpriteBlender(ESpriteBlender InBlender) { Blender = InBlender; }
	/** Caps the bytes of rasterised text kept between frames. */
	void SetTextCacheBudget(int64 Bytes);
	/** How the text cache has fared: runs drawn from it, runs rasterised, its size. */
	FTextSpriteCacheStats GetTextCacheStats() const;

private:
	/** Adds GEngine's on-screen lines, top to bottom from the top-left corner, to List. */
	void AddOnScreenMessages(FSlateWindowElementList& List, int32 FrameHeight) const;

	// What shows where no widget draws, as the engine's viewport clears to black.
	FColor ClearColor = FColor::Black;
	// Off for clean captures of the widgets alone.
	bool bDrawOnScreenMessages = true;
	// Who blends text sprites.
	ESpriteBlender Blender = ESpriteBlender::Pixman;
	// The frame's draw list, kept so its storage is reused frame after frame.
	mutable FSlateWindowElementList Elements;
	// Text runs already rasterised; drawing changes it, which is not a change of the renderer's settings.
	mutable std::unique_ptr<FTextSpriteCache> TextSprites;
};
