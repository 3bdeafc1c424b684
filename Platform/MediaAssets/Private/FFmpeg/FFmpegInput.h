#pragma once

#include "FFmpegUrl.h"

#include <atomic>
#include <chrono>
#include <string>

struct AVFormatContext;
struct AVPacket;
struct AVStream;

/**
 * The opened container of one media: libavformat's context, the chosen video and audio streams
 * and the media's time origin. Used by the worker thread only; every blocking call it makes can
 * be cut short through the abort flag given to Open.
 */
class FFmpegInput
{
public:
	FFmpegInput() = default;
	~FFmpegInput();
	FFmpegInput(const FFmpegInput&) = delete;
	FFmpegInput& operator=(const FFmpegInput&) = delete;

	/**
	 * Opens Location with its protocol whitelist and picks the best video stream and the audio
	 * stream that goes with it. A network open gives up after TimeoutSeconds. On failure returns
	 * false with the cause in OutError ("No such file or directory", "no video stream", ...).
	 */
	bool Open(const FFmpegLocation& Location, double TimeoutSeconds, const std::atomic<bool>& bAbort, std::string& OutError);

	/** Reads the next packet of the chosen streams, as av_read_frame. */
	int ReadPacket(AVPacket* Packet);

	/** Jumps to the last keyframe at or before Seconds of media time. */
	bool Seek(double Seconds, std::string& OutError);

	AVStream* GetVideoStream() const { return VideoStream; }
	/** Null when the media has no sound. */
	AVStream* GetAudioStream() const { return AudioStream; }
	/** A stream's timestamp in media seconds, 0 being the start of the media. */
	double ToMediaTime(int64_t Timestamp, const AVStream* Stream) const;
	/** Length in seconds, 0 when unknown. */
	double GetDuration() const { return Duration; }
	bool IsSeekable() const;
	/** Nominal pictures per second of the video stream; 30 when the container does not tell. */
	double GetFrameRate() const;

	/** Forgets the audio stream, for when its decoder cannot open: the picture plays alone. */
	void DropAudioStream();

private:
	static int InterruptCallback(void* Opaque);

	// Why an interrupted call stopped, when it did: the close or the open deadline.
	std::string InterruptReason() const;

	// libavformat's context; null until opened.
	AVFormatContext* Format = nullptr;
	// The picture stream, and the sound stream or null.
	AVStream* VideoStream = nullptr;
	AVStream* AudioStream = nullptr;
	// Container start time in seconds: media time 0.
	double Origin = 0.0;
	// Container length in seconds, 0 when unknown.
	double Duration = 0.0;
	// The session's close flag, polled by the interrupt callback.
	const std::atomic<bool>* AbortFlag = nullptr;
	// While a network open runs, the callback gives up past this instant.
	bool bDeadlineArmed = false;
	std::chrono::steady_clock::time_point Deadline;
	// For the message when the deadline cut an open short.
	double TimeoutSeconds = 0.0;
};
