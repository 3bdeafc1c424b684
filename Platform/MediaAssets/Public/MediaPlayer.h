#pragma once

// UMediaPlayer: opens media and plays it. Every call and every event belongs to the game thread:
// a backend decodes elsewhere and queues what happened, and the frame loop's media step (the
// core ticker) advances each live player by DeltaSeconds x rate and broadcasts its events.

#include "CoreMinimal.h"
#include "Misc/Timespan.h"
#include "UObject/Object.h"
#include "UObject/ObjectPtr.h"
#include "UObject/ScriptDelegates.h"
#if PLAIN_PLATFORM_INTERNALS
// The stand-in's picture type, for its renderer and tests; the engine hands out IMediaTextureSample.
#include "MediaTextureSample.h"
#endif
#include "MediaPlayer.generated.h"

class IMediaBackend;
class UMediaPlaylist;
class UMediaSource;
struct FMediaTextureSample;

DECLARE_DYNAMIC_MULTICAST_DELEGATE(FOnMediaPlayerMediaEvent);
DECLARE_DYNAMIC_MULTICAST_DELEGATE_OneParam(FOnMediaPlayerMediaOpened, FString, OpenedUrl);
DECLARE_DYNAMIC_MULTICAST_DELEGATE_OneParam(FOnMediaPlayerMediaOpenFailed, FString, FailedUrl);

/**
 * Plays one media at a time, opened asynchronously: an open returns at once and leaves the player
 * preparing until OnMediaOpened or OnMediaOpenFailed. A closed player can be opened again.
 * The playlist lives from one open to the next Close: Close (and every open, which closes first)
 * drops it, so a caller that steps through entries keeps its own list of them.
 */
UCLASS(BlueprintType)
class MEDIAASSETS_API UMediaPlayer : public UObject
{
	GENERATED_BODY()

public:
	UMediaPlayer();
	~UMediaPlayer() override;

	/** True if a backend can play Url (a registered scheme, or http, https and ftp). */
	UFUNCTION(BlueprintCallable, Category = "Media|MediaPlayer")
	bool CanPlayUrl(const FString& Url);
	/** Closes, then starts opening Url as a new one-entry playlist; true means the player will try (OnMediaOpened or OnMediaOpenFailed follows). */
	UFUNCTION(BlueprintCallable, Category = "Media|MediaPlayer")
	bool OpenUrl(const FString& Url);
	/** Closes, then starts opening a local file as a new one-entry playlist (see UFileMediaSource for relative paths). */
	UFUNCTION(BlueprintCallable, Category = "Media|MediaPlayer")
	bool OpenFile(const FString& FilePath);
	/** Closes, then starts opening a media source as a new one-entry playlist. */
	UFUNCTION(BlueprintCallable, Category = "Media|MediaPlayer")
	bool OpenSource(UMediaSource* MediaSource);
	/** Opens the first entry of InPlaylist, which becomes this player's playlist. */
	UFUNCTION(BlueprintCallable, Category = "Media|MediaPlayer")
	bool OpenPlaylist(UMediaPlaylist* InPlaylist) { return OpenPlaylistIndex(InPlaylist, 0); }
	/**
	 * Closes, then makes InPlaylist the player's playlist (the player's own list may be passed)
	 * and opens entry Index; PlaylistIndex moves to it. INDEX_NONE opens nothing and returns true;
	 * a null list or an index outside it logs a warning and returns false.
	 */
	UFUNCTION(BlueprintCallable, Category = "Media|MediaPlayer")
	bool OpenPlaylistIndex(UMediaPlaylist* InPlaylist, int32 Index);
	/** Opens the playlist's next entry (a random one with Shuffle), wrapping to the first; the playlist stays. */
	UFUNCTION(BlueprintCallable, Category = "Media|MediaPlayer")
	bool Next();
	/** Opens the playlist's previous entry (a random one with Shuffle), wrapping to the last; the playlist stays. */
	UFUNCTION(BlueprintCallable, Category = "Media|MediaPlayer")
	bool Previous();
	/** Closes the media, if any, and drops the playlist (PlaylistIndex goes to INDEX_NONE); the player can be opened again. */
	UFUNCTION(BlueprintCallable, Category = "Media|MediaPlayer")
	void Close();

	/** Same as SetRate(1); at the end it starts over. */
	UFUNCTION(BlueprintCallable, Category = "Media|MediaPlayer")
	bool Play();
	/** Same as SetRate(0). */
	UFUNCTION(BlueprintCallable, Category = "Media|MediaPlayer")
	bool Pause();
	/** Seeks to the start. */
	UFUNCTION(BlueprintCallable, Category = "Media|MediaPlayer")
	bool Rewind();
	/** Starts a seek; OnSeekCompleted follows. While preparing, the seek waits for the open. */
	UFUNCTION(BlueprintCallable, Category = "Media|MediaPlayer")
	bool Seek(const FTimespan& Time);
	/** Sets the playback rate: 0 pauses, 1 is normal; reverse play is not supported. */
	UFUNCTION(BlueprintCallable, Category = "Media|MediaPlayer")
	bool SetRate(float Rate);
	/** The playback rate (0 while paused or not ready). */
	UFUNCTION(BlueprintCallable, Category = "Media|MediaPlayer")
	float GetRate() const { return CurrentRate; }
	/** True for rates SetRate accepts. */
	UFUNCTION(BlueprintCallable, Category = "Media|MediaPlayer")
	bool SupportsRate(float Rate, bool Unthinned) const { return Rate >= 0.f; }
	/** Volume of the backend's native audio output; false when it has none. Sound taken through a UMediaSoundComponent does not change. */
	UFUNCTION(BlueprintCallable, Category = "Media|MediaPlayer")
	bool SetNativeVolume(float Volume);
	/** Sets Loop. */
	UFUNCTION(BlueprintCallable, Category = "Media|MediaPlayer")
	bool SetLooping(bool Looping);
	/** Gives Loop. */
	UFUNCTION(BlueprintCallable, Category = "Media|MediaPlayer")
	bool IsLooping() const { return Loop; }

	/** Opening (the media is not ready yet). */
	UFUNCTION(BlueprintCallable, Category = "Media|MediaPlayer")
	bool IsPreparing() const;
	/** Opened and not in error: playing, paused, or stopped at the end. */
	UFUNCTION(BlueprintCallable, Category = "Media|MediaPlayer")
	bool IsReady() const;
	/** Ready with a rate of 0. */
	UFUNCTION(BlueprintCallable, Category = "Media|MediaPlayer")
	bool IsPaused() const;
	/** Ready with a rate above 0. */
	UFUNCTION(BlueprintCallable, Category = "Media|MediaPlayer")
	bool IsPlaying() const;
	/** Nothing open and nothing opening. */
	UFUNCTION(BlueprintCallable, Category = "Media|MediaPlayer")
	bool IsClosed() const;
	/** Playback can be paused: the media is playing. */
	UFUNCTION(BlueprintCallable, Category = "Media|MediaPlayer")
	bool CanPause() const { return IsPlaying(); }
	/** The open media can seek. */
	UFUNCTION(BlueprintCallable, Category = "Media|MediaPlayer")
	bool SupportsSeeking() const;
	/** Media time (zero when closed). */
	UFUNCTION(BlueprintCallable, Category = "Media|MediaPlayer")
	FTimespan GetTime() const;
	/** Length of the media (zero when unknown or closed). */
	UFUNCTION(BlueprintCallable, Category = "Media|MediaPlayer")
	FTimespan GetDuration() const;
	/** URL of the media now open or opening; empty when closed. */
	UFUNCTION(BlueprintCallable, Category = "Media|MediaPlayer")
	const FString& GetUrl() const { return CurrentUrl; }

	/** The player's playlist, never null: a new, empty one if the player has none (after Close, say). */
	UFUNCTION(BlueprintCallable, Category = "Media|MediaPlayer")
	UMediaPlaylist* GetPlaylist() const
	{
		EnsurePlaylist();
		return Playlist;
	}
	/** The same as GetPlaylist, as a reference. */
	UMediaPlaylist& GetPlaylistRef() const
	{
		EnsurePlaylist();
		return *Playlist;
	}
	/** Gives PlaylistIndex. */
	UFUNCTION(BlueprintCallable, Category = "Media|MediaPlayer")
	int32 GetPlaylistIndex() const { return PlaylistIndex; }

	/** Raised when the end is reached, while the player is still ready (and on each wrap with Loop). */
	UPROPERTY(BlueprintAssignable, Category = "Media|Event")
	FOnMediaPlayerMediaEvent OnEndReached;
	/** Raised when open media was closed. */
	UPROPERTY(BlueprintAssignable, Category = "Media|Event")
	FOnMediaPlayerMediaEvent OnMediaClosed;
	/** Raised when media finished opening, with its URL; the player is ready by then. */
	UPROPERTY(BlueprintAssignable, Category = "Media|Event")
	FOnMediaPlayerMediaOpened OnMediaOpened;
	/** Raised when media could not be opened, with its URL; the player is closed by then. */
	UPROPERTY(BlueprintAssignable, Category = "Media|Event")
	FOnMediaPlayerMediaOpenFailed OnMediaOpenFailed;
	/** Raised whenever playback starts or resumes, whoever caused it. */
	UPROPERTY(BlueprintAssignable, Category = "Media|Event")
	FOnMediaPlayerMediaEvent OnPlaybackResumed;
	/** Raised whenever playback stops or pauses, whoever caused it. */
	UPROPERTY(BlueprintAssignable, Category = "Media|Event")
	FOnMediaPlayerMediaEvent OnPlaybackSuspended;
	/** Raised when a Seek or Rewind has completed. */
	UPROPERTY(BlueprintAssignable, Category = "Media|Event")
	FOnMediaPlayerMediaEvent OnSeekCompleted;

	/** How much to read ahead of the play position. */
	UPROPERTY(BlueprintReadWrite, Category = "Caching")
	FTimespan CacheAhead = FTimespan::FromSeconds(0.1);
	/** How much to keep behind the play position (when not running as a game). */
	UPROPERTY(BlueprintReadWrite, Category = "Caching")
	FTimespan CacheBehind = FTimespan::FromSeconds(3.0);
	/** How much to keep behind the play position in a game. */
	UPROPERTY(BlueprintReadWrite, Category = "Caching")
	FTimespan CacheBehindGame = FTimespan::FromSeconds(0.1);
	/** Start playing as soon as media has opened; otherwise it opens paused. */
	UPROPERTY(EditAnywhere, BlueprintReadWrite, Category = "Playback")
	bool PlayOnOpen = true;
	/** Next and Previous open a random entry of the playlist instead of the neighbouring one. */
	UPROPERTY(EditAnywhere, BlueprintReadWrite, Category = "Playback")
	bool Shuffle = false;

#if PLAIN_PLATFORM_INTERNALS
	/** Stand-in: one media step (the core ticker calls it): poll, advance by DeltaSeconds x rate, broadcast. */
	void TickPlayer(float DeltaSeconds);
	/** Stand-in: the picture due now, or null when none was shown since opening. */
	TSharedPtr<const FMediaTextureSample> GetVideoSample() const { return VideoSample; }
	/** Stand-in: counts pictures taken from the backend since the player was made. */
	uint64 GetVideoSampleSerial() const { return VideoSampleSerial; }
	/** Stand-in: 48 kHz float stereo of the media up to the clock; silence when closed. Returns the media frames taken. */
	int32 PullAudio(float* Interleaved, int32 Frames);
#endif

	/** Joins the media step's list of live players. */
	void PostInitProperties() override;
	/** Closes the backend quietly before the player goes. */
	void BeginDestroy() override;

protected:
	/** Start over when the end is reached; SetLooping changes it at run time. */
	UPROPERTY(EditAnywhere, BlueprintReadOnly, Category = "Playback")
	bool Loop = false;
	/** Index in the playlist of the media opened from it (INDEX_NONE if none); Next and Previous move it. */
	UPROPERTY(BlueprintReadOnly, Category = "Playback")
	int32 PlaylistIndex = INDEX_NONE;
	/** The playlist of the media open, made by an open or by GetPlaylist; Close drops it. */
	UPROPERTY(BlueprintReadOnly, Transient, Category = "Playback")
	mutable TObjectPtr<UMediaPlaylist> Playlist;

private:
	enum class EState : uint8
	{
		Closed,
		Preparing,
		Playing,
		Paused,
	};
	enum class EEvent : uint8
	{
		Closed,
		EndReached,
		Opened,
		OpenFailed,
		Resumed,
		Suspended,
		SeekCompleted,
	};
	struct FQueuedEvent
	{
		EEvent Type;
		FString Url;
	};

	/** Makes the player's own, empty playlist if it has none. */
	void EnsurePlaylist() const;
	/** Closes, then opens Source as the only entry of a new playlist. */
	bool OpenAsNewPlaylist(UMediaSource* Source);
	/** Next and Previous: the neighbouring entry, or a random one with Shuffle. */
	bool StepPlaylist(bool bForward);
	/** Opens entry Index of the current playlist without closing it first (Next, Previous). */
	bool OpenEntry(int32 Index);
	bool OpenLocation(const FString& Url, const FString& Location);
	// Url by value: callers pass CurrentUrl, which this clears.
	void FailOpen(const FString Url, const FString& Reason);
	void CloseMedia(bool bRaiseEvents);
	void HandleBackendEvents();
	void BroadcastQueued();
	bool StartOver();

	// The backend of the media open or opening; null when closed. Game thread only, as all below.
	TUniquePtr<IMediaBackend> Backend;
	// Where the player stands.
	EState State = EState::Closed;
	// Playback rate while ready; 0 while paused.
	float CurrentRate = 0.f;
	// URL given to the open now under way or done.
	FString CurrentUrl;
	// Events to broadcast at the next media step, oldest first.
	TArray<FQueuedEvent> Queued;
	// A Seek made while preparing, applied once the media has opened.
	bool bHasPendingSeek = false;
	FTimespan PendingSeek;
	// The next SeekCompleted belongs to a restart the player made itself (loop, Play at the end).
	bool bInternalSeek = false;
	// Stopped at the end, waiting for a seek or Play.
	bool bAtEnd = false;
	// What the clock owes the backend below one tick of FTimespan, so steps add up without drift.
	double ClockCarrySeconds = 0.0;
	// Latest picture taken from the backend, and how many were taken.
	TSharedPtr<const FMediaTextureSample> VideoSample;
	uint64 VideoSampleSerial = 0;
};
