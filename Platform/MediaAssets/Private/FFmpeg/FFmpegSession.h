#pragma once

#include "FFmpegEvent.h"
#include "FFmpegOpenOptions.h"
#include "FFmpegVideoFrame.h"

#include <cstdint>
#include <memory>
#include <string>
#include <thread>
#include <vector>

class FFmpegWorker;
struct FFmpegSharedState;

/**
 * One media played through FFmpeg. A worker thread opens it, then demuxes and decodes ahead into
 * small bounded queues (RGBA pictures, 48 kHz float stereo sound); the owner drives the clock, so
 * a run with a fixed time step sees the same pictures and sound every time.
 *
 * Thread rule: call everything from one owner thread (the game thread), except PullAudio, which
 * one other thread may call while the session lives. Nothing ever calls back into the caller:
 * the worker posts events, and PollEvents hands them out on the owner thread.
 */
class FFmpegSession
{
public:
	FFmpegSession();
	/** Closes the media; safe while the worker is still opening or reading. */
	~FFmpegSession();
	FFmpegSession(const FFmpegSession&) = delete;
	FFmpegSession& operator=(const FFmpegSession&) = delete;

	/**
	 * Closes what was open and starts opening a local path or an http(s)/ftp URL; returns at once.
	 * Opened or OpenFailed follows through PollEvents. Returns false when the location is refused
	 * on sight (its OpenFailed is then already queued).
	 */
	bool Open(const std::string& UrlOrPath, const FFmpegOpenOptions& Options = FFmpegOpenOptions());

	/** Stops the worker (aborting any blocking network read), drops queued data and events. */
	void Close();

	/** Appends the events that arrived since the last call, oldest first. */
	void PollEvents(std::vector<FFmpegEvent>& OutEvents);

	/** Moves the clock on by Seconds (already multiplied by the rate). Ignored until Opened is polled and after the end. */
	void Advance(double Seconds);

	/**
	 * Starts an accurate seek: the clock jumps to Seconds at once, everything queued is dropped and
	 * the worker decodes from the keyframe before. SeekCompleted follows. False when not seekable.
	 */
	bool Seek(double Seconds);

	/** Media time in seconds. */
	double GetTime() const;

	/** Length in seconds, 0 when unknown or not opened yet. */
	double GetDuration() const { return Info.Duration; }

	/** The media's facts, once Opened has been polled. */
	const FFmpegMediaInfo& GetInfo() const { return Info; }

	/** The path or URL given to Open, until Close. */
	const std::string& GetUrl() const { return Url; }

	/** Open was called and neither Opened nor OpenFailed has been polled yet. */
	bool IsPreparing() const { return Status == EStatus::Preparing; }

	/** Opened has been polled and the media is not closed. */
	bool IsOpen() const { return Status == EStatus::Opened; }

	/**
	 * The newest picture due at Time (pass GetTime()), dropping older ones never shown; null when
	 * no new picture is due, so the last one stays on screen. With WaitSeconds > 0 it first waits,
	 * at most that long, until the picture due at Time is known to be decoded: a headless run that
	 * always waits is deterministic. Take a picture every tick: EndReached waits for the last one
	 * (and, when waiting, this call also settles whether the sound goes on past the clock).
	 */
	std::shared_ptr<const FFmpegVideoFrame> AcquireVideoFrame(double Time, double WaitSeconds = 0.0);

	/**
	 * Writes Frames interleaved stereo frames: the sound from where the last call stopped up to
	 * the clock, silence where there is none and for the rest of the buffer. Returns how many
	 * frames of the media's timeline were taken; call it after Advance with the frames the clock
	 * moved. With WaitSeconds > 0 it first waits, at most that long, for the sound to be decoded.
	 */
	int32_t PullAudio(float* Interleaved, int32_t Frames, double WaitSeconds = 0.0);

	/** True for http://, https:// and ftp:// URLs, in any letter case. */
	static bool CanPlayUrl(const std::string& Url);

private:
	enum class EStatus : uint8_t
	{
		Closed,
		Preparing,
		Opened,
		Failed,
	};

	// Posts EndReached once the last picture is out and the clock passed the end of both the
	// picture and the sound. Needs the lock.
	void CheckEnd();

	// Shared with the worker and the sound reader; lives as long as the session.
	std::unique_ptr<FFmpegSharedState> State;
	// The worker's state and its thread; both empty when nothing is open.
	std::unique_ptr<FFmpegWorker> Worker;
	std::thread Thread;
	// Owner thread only: what Open was given, and what the polled events said.
	std::string Url;
	FFmpegMediaInfo Info;
	EStatus Status = EStatus::Closed;
	// EndReached was posted for the current generation; the clock stays put until a seek.
	bool bEndPosted = false;
};
