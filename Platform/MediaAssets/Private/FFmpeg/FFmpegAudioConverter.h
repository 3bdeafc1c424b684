#pragma once

#include <cstdint>
#include <vector>

struct AVFrame;
struct SwrContext;

/**
 * Turns decoded sound of any layout, rate and sample format into interleaved float stereo at
 * 48 kHz. It rebuilds itself when the source's format changes midway. Worker thread only.
 */
class FFmpegAudioConverter
{
public:
	FFmpegAudioConverter() = default;
	~FFmpegAudioConverter();
	FFmpegAudioConverter(const FFmpegAudioConverter&) = delete;
	FFmpegAudioConverter& operator=(const FFmpegAudioConverter&) = delete;

	/** Converts Frame into Out (replacing its contents). Returns the frames made, or -1. */
	int32_t Convert(const AVFrame* Frame, std::vector<float>& Out);

	/** Output frames the resampler still holds from earlier input; they come out before the next frame's. */
	int64_t GetDelayFrames() const;

	/** Takes what the resampler still holds, at the end of the stream. Returns the frames made. */
	int32_t Drain(std::vector<float>& Out);

	/** Forgets held sound, as after a seek. */
	void Reset();

private:
	// The resampler for the current source.
	SwrContext* Swr = nullptr;
	// What Swr was built for: sample rate, sample format and channel count of the source.
	int32_t SourceKey[3] = {-1, -1, -1};
};
