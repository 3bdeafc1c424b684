#pragma once

// FFmpegMediaBackend: IMediaBackend over the FFmpeg playback core, the backend for plain paths
// and file, http, https and ftp URLs.

#include "FFmpeg/FFmpegSession.h"
#include "MediaBackend.h"

/**
 * Plays one media through an FFmpegSession. For local files it waits (briefly, only when the
 * worker is behind) for the picture and sound due at the clock, so a fixed-step run sees the same
 * frames on any machine. Over the network it waits only when the host runs a fixed step
 * (EMediaClockPolicy::FixedStep): a window on the wall clock must not freeze for a slow server,
 * but a headless run that outpaces the download would otherwise record stale pictures.
 */
class FFmpegMediaBackend final : public IMediaBackend
{
public:
	/** Longest a local file's frame may wait for the decoder. */
	static constexpr double LocalWaitSeconds = 2.0;
	/**
	 * Longest a network stream's frame may wait in a fixed-step run: as long as the network may
	 * stall before the read fails (FFmpegOpenOptions::NetworkTimeoutSeconds), so a segment that is
	 * slow to come is waited for and a dead server still ends the wait.
	 */
	static constexpr double NetworkWaitSeconds = 10.0;

	bool Open(const FString& Location, FString& OutError) override;
	void Close() override { Session.Close(); }
	void PollEvents(TArray<FMediaBackendEvent>& OutEvents) override;
	void Advance(FTimespan Delta) override { Session.Advance(Delta.GetTotalSeconds()); }
	bool Seek(FTimespan Time) override { return Session.Seek(Time.GetTotalSeconds()); }
	bool SetRate(float Rate) override { return Rate >= 0.f; }
	bool SetNativeVolume(float Volume) override { return false; }
	FTimespan GetTime() const override { return FTimespan::FromSeconds(Session.GetTime()); }
	FTimespan GetDuration() const override { return FTimespan::FromSeconds(Session.GetDuration()); }
	bool SupportsSeeking() const override { return Session.IsOpen() && Session.GetInfo().bSeekable; }
	TSharedPtr<const FMediaTextureSample> AcquireVideoSample() override;
	int32 PullAudio(float* Interleaved, int32 Frames) override;

private:
	// Turns "Cannot open '<media>': <cause>" into the cause alone; the player names the media itself.
	FString CauseOf(const std::string& Message) const;
	// How long this frame may wait for the decoder, by the kind of media and the host's clock policy.
	double GetWaitSeconds() const;

	// The playback core; owner-thread calls only, which here is the game thread.
	FFmpegSession Session;
	// The media is a local file (set at Open).
	bool bLocal = false;
};
