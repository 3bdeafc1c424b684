#pragma once

#include "FFmpegAudioQueue.h"
#include "FFmpegEvent.h"
#include "FFmpegFrameQueue.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <string>
#include <vector>

/**
 * What an FFmpegSession's callers and its worker thread share. Mutex guards every field except
 * bAbort, which libavformat's interrupt callback polls without it. The session owns it and
 * outlives the worker (Close joins the worker before resetting anything).
 */
struct FFmpegSharedState
{
	/**
	 * How far the sound reader may trail the clock. A reader further behind skips ahead to this
	 * distance, and the worker drops what lies before it, so a host that reads no sound at all
	 * never stalls the decoding.
	 */
	static constexpr double MaxAudioLagSeconds = 0.25;

	std::mutex Mutex;
	// The worker sleeps on this until a reader frees room, a seek or a close arrives.
	std::condition_variable WorkerWake;
	// Readers that asked to wait for a picture or for sound sleep on this.
	std::condition_variable DataReady;
	// Set by Close; the worker and the interrupt callback poll it. Not under Mutex.
	std::atomic<bool> bAbort{false};

	// Bumped by each Seek; the worker tags what it decodes with the generation it works for,
	// and a push whose tag is not this one is dropped.
	uint32_t Generation = 0;
	// Media time the latest seek goes to.
	double SeekTarget = 0.0;
	// Media time, moved only by the owner thread (Advance, Seek, the end clamp).
	double Clock = 0.0;
	// Latest time a picture was asked for: pictures due before it, but the newest, are stale.
	double PictureTime = 0.0;
	// Where the sound reader stands, in 48 kHz frames from media time 0.
	int64_t AudioCursor = 0;
	// Counts reasons for the worker to look again (room freed, seek, close).
	uint64_t WakeCount = 0;

	// Decoded pictures of Generation.
	FFmpegFrameQueue Video;
	// Decoded sound of Generation.
	FFmpegAudioQueue Audio;
	// Sound the worker buffers before it waits, in frames.
	int64_t AudioCapacityFrames = FFmpegAudioRate;

	// The media has a sound stream that decodes.
	bool bHasAudio = false;
	// The video decoder gave its last picture for Generation.
	bool bVideoFinished = false;
	// The audio decoder gave its last sound for Generation.
	bool bAudioFinished = false;
	// End time of the last picture pushed for Generation.
	double VideoEnd = 0.0;
	// The worker has returned (failed, aborted): nobody should wait for it.
	bool bWorkerDone = false;

	// Events not yet handed out by PollEvents, oldest first.
	std::vector<FFmpegEvent> Events;

	/** Back to the state of a session that has opened nothing, with fresh queue sizes. Needs Mutex. */
	void Reset(int32_t VideoFrames, double AudioSeconds)
	{
		Generation = 0;
		SeekTarget = 0.0;
		Clock = 0.0;
		PictureTime = 0.0;
		AudioCursor = 0;
		++WakeCount;
		Video.Clear();
		Video.SetCapacity(VideoFrames);
		Audio.Clear();
		// The queue also holds what the reader may still trail by, so it must be well above that.
		AudioCapacityFrames = static_cast<int64_t>(std::max(AudioSeconds, 2.0 * MaxAudioLagSeconds) * FFmpegAudioRate);
		bHasAudio = false;
		bVideoFinished = false;
		bAudioFinished = false;
		VideoEnd = 0.0;
		bWorkerDone = false;
		Events.clear();
	}

	/** The reader's lowest allowed position for the current clock. Needs Mutex. */
	int64_t OldestAudioFrame() const
	{
		return static_cast<int64_t>(std::llround((Clock - MaxAudioLagSeconds) * FFmpegAudioRate));
	}

	/** Drops stale pictures, then says whether the worker may decode another. Needs Mutex. */
	bool HasVideoRoom()
	{
		Video.DropStale(std::max(PictureTime, Clock));
		return !Video.IsFull();
	}

	/** Drops sound the reader will skip, then says whether the worker may decode more. Needs Mutex. */
	bool HasAudioRoom()
	{
		Audio.DropBefore(OldestAudioFrame());
		return Audio.QueuedFrames() < AudioCapacityFrames;
	}

	/** Queues an event for PollEvents. Needs Mutex. */
	void Post(EFFmpegEventType Type, std::string Message = std::string())
	{
		FFmpegEvent Event;
		Event.Type = Type;
		Event.Message = std::move(Message);
		Event.Generation = Generation;
		Events.push_back(std::move(Event));
	}
};
