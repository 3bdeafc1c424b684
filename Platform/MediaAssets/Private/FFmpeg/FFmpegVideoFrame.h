#pragma once

#include <cstdint>
#include <vector>

/**
 * One decoded picture, converted to RGBA8 (R, G, B, A bytes per pixel, rows top to bottom).
 * It is immutable once queued: the session hands it out as a shared pointer to const, so the
 * caller may keep it as long as it likes while the worker goes on decoding.
 */
struct FFmpegVideoFrame
{
	/** Media time of the picture in seconds, 0 being the start of the media. */
	double Time = 0.0;
	/** How long the picture stays on screen at rate 1, from the stream's frame rate. */
	double Duration = 0.0;
	int32_t Width = 0;
	int32_t Height = 0;
	/** Bytes from one row to the next: always Width * 4. */
	int32_t Stride = 0;
	/** The seek generation the picture was decoded for. */
	uint32_t Generation = 0;
	/** Stride * Height bytes of picture, plus a few bytes of slack that the converter may touch. */
	std::vector<uint8_t> Pixels;
};
