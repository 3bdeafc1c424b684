#pragma once

#include "FFmpegVideoFrame.h"

#include <cstdint>
#include <memory>
#include <vector>

struct AVFrame;
struct SwsContext;

/**
 * Turns decoded pictures of any pixel format into RGBA8 pictures of one fixed size, honouring
 * the source's colour matrix and range. A stream that changes size midway is scaled to the size
 * it started with, so the texture behind it never has to change. Pictures are recycled once
 * nobody else holds them, which saves a large allocation per picture. Worker thread only.
 */
class FFmpegVideoConverter
{
public:
	FFmpegVideoConverter() = default;
	~FFmpegVideoConverter();
	FFmpegVideoConverter(const FFmpegVideoConverter&) = delete;
	FFmpegVideoConverter& operator=(const FFmpegVideoConverter&) = delete;

	/** Size of every picture Convert makes, and how many pictures to keep for reuse. */
	void SetOutputSize(int32_t Width, int32_t Height, int32_t PoolSize);

	/** An RGBA picture of the output size, new or recycled; null when libswscale cannot convert the source. */
	std::shared_ptr<FFmpegVideoFrame> Convert(const AVFrame* Frame);

	/** The output size for a Width x Height source kept within MaxWidth x MaxHeight (0: no limit). */
	static void FitWithin(int32_t Width, int32_t Height, int32_t MaxWidth, int32_t MaxHeight, int32_t& OutWidth, int32_t& OutHeight);

private:
	// Rebuilds the scaler when the source's format, size or colours change.
	bool Prepare(const AVFrame* Frame);
	// A picture nobody holds, or a new one.
	std::shared_ptr<FFmpegVideoFrame> TakeFreePicture();

	// The scaler for the current source.
	SwsContext* Sws = nullptr;
	// Pictures kept for reuse; one whose only owner is this pool is free.
	std::vector<std::shared_ptr<FFmpegVideoFrame>> Pool;
	int32_t PoolLimit = 0;
	// Output size.
	int32_t OutWidth = 0;
	int32_t OutHeight = 0;
	// What Sws was built for: width, height, pixel format, colour matrix and range of the source.
	int32_t SourceKey[5] = {-1, -1, -1, -1, -1};
};
