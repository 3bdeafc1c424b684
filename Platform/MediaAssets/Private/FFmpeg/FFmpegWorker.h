#pragma once

#include "FFmpegAudioConverter.h"
#include "FFmpegEvent.h"
#include "FFmpegInput.h"
#include "FFmpegOpenOptions.h"
#include "FFmpegStreamDecoder.h"
#include "FFmpegUrl.h"
#include "FFmpegVideoConverter.h"

#include <cstdint>
#include <string>
#include <vector>

struct AVFrame;
struct AVPacket;
struct FFmpegSharedState;

/**
 * The body of an FFmpegSession's thread: opens the media, then demuxes, decodes and converts
 * into the shared queues until they are full, follows seeks by their generation, and reports
 * through the shared event list. Everything here belongs to the worker thread; only
 * FFmpegSharedState is touched from elsewhere, and only under its lock.
 */
class FFmpegWorker
{
public:
	FFmpegWorker(FFmpegSharedState& InState, FFmpegLocation InLocation, FFmpegOpenOptions InOptions, std::string InMediaName);
	~FFmpegWorker();
	FFmpegWorker(const FFmpegWorker&) = delete;
	FFmpegWorker& operator=(const FFmpegWorker&) = delete;

	/** Runs until the media fails to open or the session sets bAbort. */
	void Run();

private:
	bool OpenMedia(FFmpegMediaInfo& OutInfo, std::string& OutError);
	// Each returns true when it did some work, false when it has to wait for room or input.
	bool StepVideo();
	bool StepAudio();
	// The common step of both streams: decode one frame if its queue has room, report the end once.
	bool StepStream(FFmpegStreamDecoder& Decoder, bool (FFmpegSharedState::*HasRoom)(), bool bEndReported, void (FFmpegWorker::*HandleFrame)(), void (FFmpegWorker::*OnFinished)());
	bool ReadPacket();
	void ApplySeek(uint32_t ToGeneration, double Target);
	void WaitForWork(uint64_t SeenWakes);

	void HandleVideoFrame();
	void PushPicture(AVFrame* Source, double Time);
	void CompleteSeek();
	void OnVideoFinished();
	void HandleAudioFrame();
	void PushSound(int64_t StartFrame, int32_t Frames);
	void OnAudioFinished();
	void PostError(const std::string& What);

	// Handed over by the session, which outlives this worker.
	FFmpegSharedState& State;
	// What to open and how.
	FFmpegLocation Location;
	FFmpegOpenOptions Options;
	// The path or URL as the caller gave it, for messages.
	std::string MediaName;

	// Declared first so that it closes last: the decoders point at its streams.
	FFmpegInput Input;
	FFmpegStreamDecoder VideoDecoder;
	FFmpegStreamDecoder AudioDecoder;
	FFmpegVideoConverter VideoConverter;
	FFmpegAudioConverter AudioConverter;
	// Scratch frame and packet for decoding and demuxing.
	AVFrame* Frame = nullptr;
	AVPacket* Packet = nullptr;

	// The generation this worker decodes for; the shared one may already be newer.
	uint32_t Generation = 0;
	// Until a picture after SeekTarget appears, pictures are held back, the newest one kept.
	// The open is no seek: its first picture is queued at once so that Opened comes quickly.
	bool bSeeking = false;
	double SeekTarget = 0.0;
	AVFrame* SeekCandidate = nullptr;
	bool bHasCandidate = false;
	double CandidateTime = 0.0;
	// Sound before this 48 kHz frame is dropped: what lies before the seek target.
	int64_t AudioFloor = 0;
	// Where the next sound would start if its frame carries no timestamp.
	int64_t NextAudioFrame = 0;
	// Seconds per picture, from the stream's frame rate.
	double FrameDuration = 1.0 / 30.0;
	// Time of the last decoded picture, for pictures without a timestamp.
	double LastVideoTime = 0.0;
	// The demuxer has no more packets for this generation.
	bool bInputEnded = false;
	// Broken packets read in a row; past a limit the input counts as ended.
	int ReadFailuresInARow = 0;
	// The end of each stream has been reported for this generation.
	bool bVideoEndReported = false;
	bool bAudioEndReported = false;
	// A picture has reached the shared queue since opening: the media counts as opened.
	bool bPushedPicture = false;
	// Opened has been posted; until then a failure is the cause of OpenFailed, not an Error.
	bool bOpenedPosted = false;
	std::string OpenFailureCause;
	// Converted sound on its way to the shared queue.
	std::vector<float> AudioBuffer;
};
