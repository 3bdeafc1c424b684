#pragma once

#if !PLAIN_PLATFORM_INTERNALS
#error "MediaBackend.h belongs to the stand-in; the engine has no such header"
#endif

// IMediaBackend: what UMediaPlayer drives to play one media. Stand-in only: the engine picks an
// IMediaPlayer plug-in per URL; here a backend is chosen by the URL's scheme through
// FMediaBackendRegistry (FFmpeg by default, scripted ones in tests).

#include "CoreMinimal.h"
#include "MediaTextureSample.h"
#include "Misc/Timespan.h"

/** What happened to a backend's media, as PollEvents reports it. */
enum class EMediaBackendEvent : uint8
{
	Opened,
	OpenFailed,
	SeekCompleted,
	EndReached,
	Error,
};

/** One notice from a backend; Message says why for OpenFailed and Error. */
struct FMediaBackendEvent
{
	EMediaBackendEvent Type = EMediaBackendEvent::Error;
	FString Message;
};

/**
 * One media's playback engine. Every call comes from the game thread, one player at a time;
 * nothing calls back: the backend queues events and the player polls them in its media step.
 * Its clock moves only through Advance, so a fixed-step run is deterministic.
 */
class IMediaBackend
{
public:
	virtual ~IMediaBackend() = default;

	/** Starts opening Location and returns at once; false (with OutError) when refused on sight. */
	virtual bool Open(const FString& Location, FString& OutError) = 0;
	/** Stops everything; safe while the backend is still opening. No event follows. */
	virtual void Close() = 0;
	/** Appends the events that arrived since the last call, oldest first. */
	virtual void PollEvents(TArray<FMediaBackendEvent>& OutEvents) = 0;
	/** Moves the media clock on by Delta (already scaled by the rate). */
	virtual void Advance(FTimespan Delta) = 0;
	/** Starts a seek; SeekCompleted follows. False when the media cannot seek. */
	virtual bool Seek(FTimespan Time) = 0;
	/** Told the player's new rate (0 pauses); false refuses it. */
	virtual bool SetRate(float Rate) = 0;
	/** Volume of the backend's own audio output, if it has one; false when it has none. */
	virtual bool SetNativeVolume(float Volume) = 0;
	/** Media time. */
	virtual FTimespan GetTime() const = 0;
	/** Length of the media; zero when unknown or not open yet. */
	virtual FTimespan GetDuration() const = 0;
	/** True once open when the media can seek. */
	virtual bool SupportsSeeking() const = 0;
	/** The newest picture due at the clock that was not handed out yet, or null. */
	virtual TSharedPtr<const FMediaTextureSample> AcquireVideoSample() = 0;
	/** Writes Frames of 48 kHz interleaved float stereo up to the clock (silence past it); returns the frames of media taken. */
	virtual int32 PullAudio(float* Interleaved, int32 Frames) = 0;
};
