#pragma once

#include <cstdint>
#include <string>
#include <vector>

/**
 * How an FFmpegSession opens and buffers one media. The defaults play a local lesson or one
 * served over http(s)/ftp; a caller narrows AllowedSchemes to refuse the others.
 */
struct FFmpegOpenOptions
{
	/**
	 * Schemes the caller accepts, lower case. "file" stands for plain paths and file: URLs; the
	 * others must be among "http", "https" and "ftp", whatever is listed here.
	 */
	std::vector<std::string> AllowedSchemes = {"file", "http", "https", "ftp"};
	/** Pictures larger than this are scaled down, keeping their shape; 0 means no limit. */
	int32_t MaxWidth = 0;
	int32_t MaxHeight = 0;
	/** Decoded pictures buffered ahead of the clock. Each costs Width * Height * 4 bytes. */
	int32_t VideoQueueFrames = 8;
	/** Decoded sound buffered, in seconds of 48 kHz stereo. */
	double AudioQueueSeconds = 1.0;
	/** Video decoder threads; 0 lets libavcodec choose from the processor count. */
	int32_t DecoderThreads = 0;
	/** A network open, or a network read that stalls, fails after this many seconds. */
	double NetworkTimeoutSeconds = 10.0;
};
