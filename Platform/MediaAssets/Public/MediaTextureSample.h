#pragma once

#if !PLAIN_PLATFORM_INTERNALS
#error "MediaTextureSample.h belongs to the stand-in; the engine has no such header"
#endif

// FMediaTextureSample: one decoded picture as a media backend hands it to UMediaPlayer, and as
// UMediaTexture gives it to the renderer. Stand-in only (the engine passes IMediaTextureSample).

#include "CoreMinimal.h"
#include "Misc/Timespan.h"

#include <memory>

/** An RGBA8 picture (R, G, B, A bytes, rows top to bottom); immutable once made, so it is shared, never copied. */
struct FMediaTextureSample
{
	/** Size in pixels. */
	int32 Width = 0;
	int32 Height = 0;
	/** Bytes from one row to the next, at least Width * 4. */
	int32 Stride = 0;
	/** Media time at which the picture is due. */
	FTimespan Time;
	/** Stride * Height bytes, owned by Storage. */
	const uint8* Pixels = nullptr;
	/** Keeps Pixels alive for as long as anyone holds the sample. */
	std::shared_ptr<const void> Storage;
};
