#pragma once

#include <cstdint>
#include <deque>
#include <vector>

/** The one sound format an FFmpegSession delivers: interleaved float stereo at 48 kHz. */
constexpr int32_t FFmpegAudioRate = 48000;
constexpr int32_t FFmpegAudioChannels = 2;

/**
 * Decoded sound waiting to be played, placed on a timeline of 48 kHz sample frames counted from
 * media time 0. Not thread-safe by itself: the session's lock guards every call.
 */
class FFmpegAudioQueue
{
public:
	/**
	 * Appends Frames interleaved stereo frames starting at StartFrame. A start within a few
	 * milliseconds of where the previous push ended is snapped to it, so rounding in the source's
	 * timestamps never leaves a click-sized gap or overlap.
	 */
	void Push(int64_t StartFrame, const float* Interleaved, int32_t Frames);

	/**
	 * Fills Frames stereo frames from FirstFrame on, silence where nothing is queued, and drops
	 * everything before the end of that window. Returns how many frames carried sound.
	 */
	int32_t Read(int64_t FirstFrame, float* OutInterleaved, int32_t Frames);

	/** Drops whatever lies before Frame. */
	void DropBefore(int64_t Frame);

	/** Sample frames still queued. */
	int64_t QueuedFrames() const { return Queued; }

	/** Where the queued sound ends, or -1 before the first push since the last Clear. */
	int64_t EndFrame() const { return LastEnd; }

	void Clear();

private:
	struct FChunk
	{
		// Timeline position of Samples[0].
		int64_t Start = 0;
		// Frames already read or dropped from the front.
		int32_t Consumed = 0;
		// Interleaved stereo samples.
		std::vector<float> Samples;

		int32_t Frames() const { return static_cast<int32_t>(Samples.size() / FFmpegAudioChannels); }
	};

	// Chunks in timeline order.
	std::deque<FChunk> Chunks;
	// Sum of the unconsumed frames of all chunks.
	int64_t Queued = 0;
	// End of the last pushed chunk, kept through reads so the next push can snap to it.
	int64_t LastEnd = -1;
};
