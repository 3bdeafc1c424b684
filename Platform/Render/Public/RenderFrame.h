#pragma once

// FRenderFrame (stand-in): one picture of the game viewport as the CPU renderer paints it: RGBA8
// bytes, rows top to bottom, no padding between rows, straight alpha. Colours are sRGB-encoded,
// as the engine's back buffer is, so a PNG of the frame looks as the screen did.

#include "CoreMinimal.h"
#include "Math/Color.h"

#include <vector>

/** An RGBA8 image that the renderer paints and that can be saved as, or read from, PNG. */
class RENDER_API FRenderFrame
{
public:
	/** An empty frame (0 x 0). */
	FRenderFrame() = default;
	/** A frame of the given size, cleared to transparent black. */
	FRenderFrame(int32 InWidth, int32 InHeight) { Resize(InWidth, InHeight); }

	/** Sets the size (negative sizes count as 0); keeps the storage when the pixel count allows. */
	void Resize(int32 InWidth, int32 InHeight);
	/** Sets every pixel to Color. */
	void Clear(FColor Color);

	/** Width in pixels. */
	int32 GetWidth() const { return Width; }
	/** Height in pixels. */
	int32 GetHeight() const { return Height; }
	/** Bytes from one row to the next (always Width * 4). */
	int32 GetStride() const { return Width * 4; }
	/** The first byte of the top row; null for an empty frame. */
	uint8* GetData() { return Pixels.empty() ? nullptr : Pixels.data(); }
	/** The first byte of the top row; null for an empty frame. */
	const uint8* GetData() const { return Pixels.empty() ? nullptr : Pixels.data(); }
	/** The pixel at (X, Y); transparent black outside the frame. */
	FColor GetPixel(int32 X, int32 Y) const;

	/** Writes the frame as an 8-bit RGBA PNG; false (and a LogRender error) when it cannot. */
	bool SavePng(const FString& Path) const;
	/** Replaces the frame with a PNG file's picture (any PNG, converted to RGBA8); false and unchanged when it cannot. */
	bool LoadPng(const FString& Path);

private:
	// Size in pixels.
	int32 Width = 0;
	// Size in pixels.
	int32 Height = 0;
	// Width * Height * 4 bytes, R G B A.
	std::vector<uint8> Pixels;
};
