#pragma once

// FRenderFrame (stand-in): one picture of the game viewport as the CPU renderer paints it: RGBA8
// bytes, rows top to bottom, straight alpha. Colours are sRGB-encoded, as the engine's back buffer
// is, so a PNG of the frame looks as the screen did. The pixels are the frame's own, with no
// padding between rows, unless it was attached to memory someone else owns (a window's locked
// texture), which lets the renderer paint straight into what the screen shows.

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
	/** A copy always owns its pixels, whatever the original paints into. */
	FRenderFrame(const FRenderFrame& Other);
	FRenderFrame& operator=(const FRenderFrame& Other);
	FRenderFrame(FRenderFrame&&) = default;
	FRenderFrame& operator=(FRenderFrame&&) = default;

	/**
	 * Sets the size (negative sizes count as 0); keeps the storage when the pixel count allows.
	 * An attached frame stays attached at its own size and is detached by any other.
	 */
	void Resize(int32 InWidth, int32 InHeight);
	/**
	 * Paints into Pixels (Width x Height, rows Stride bytes apart, Stride at least Width * 4 and a
	 * multiple of 4) from now on, until Detach or a Resize to another size. The caller keeps the
	 * memory alive and unchanged by others meanwhile; its contents are left as they are.
	 */
	void Attach(uint8* Pixels, int32 InWidth, int32 InHeight, int32 InStride);
	/** Lets go of attached memory; the frame is empty afterwards. Nothing happens to a frame that is not attached. */
	void Detach();
	/** True while the frame paints into memory it does not own. */
	bool IsAttached() const { return External != nullptr; }
	/** Sets every pixel to Color. */
	void Clear(FColor Color);

	/** Width in pixels. */
	int32 GetWidth() const { return Width; }
	/** Height in pixels. */
	int32 GetHeight() const { return Height; }
	/** Bytes from one row to the next: Width * 4 for the frame's own pixels, the owner's for attached memory. */
	int32 GetStride() const { return External ? ExternalStride : Width * 4; }
	/** The first byte of the top row; null for an empty frame. */
	uint8* GetData() { return External ? External : Pixels.empty() ? nullptr : Pixels.data(); }
	/** The first byte of the top row; null for an empty frame. */
	const uint8* GetData() const { return External ? External : Pixels.empty() ? nullptr : Pixels.data(); }
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
	// Width * Height * 4 bytes, R G B A; unused while attached.
	std::vector<uint8> Pixels;
	// The attached memory; null when the frame paints into Pixels.
	uint8* External = nullptr;
	// Bytes between rows of the attached memory.
	int32 ExternalStride = 0;
};
