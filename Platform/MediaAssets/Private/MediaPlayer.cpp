#include "MediaPlayer.h"

#include "FileMediaSource.h"
#include "MediaAssetsLog.h"
#include "MediaBackend.h"
#include "MediaBackendRegistry.h"
#include "MediaPlaylist.h"
#include "MediaSource.h"
#include "StreamMediaSource.h"
#include "Misc/Paths.h"
#include "Templates/Casts.h"
#include "UObject/UObjectGlobals.h"

#include <cstdlib>

DEFINE_LOG_CATEGORY(LogMediaAssets);

UMediaPlayer::UMediaPlayer() = default;

// Out of line: the backend's type is complete only here.
UMediaPlayer::~UMediaPlayer() = default;

bool UMediaPlayer::CanPlayUrl(const FString& Url)
{
	return !Url.IsEmpty() && FMediaBackendRegistry::CanPlayUrl(Url);
}

bool UMediaPlayer::OpenUrl(const FString& Url)
{
	Close();
	UStreamMediaSource* Source = NewObject<UStreamMediaSource>(this);
	Source->StreamUrl = Url;
	return OpenAsNewPlaylist(Source);
}

bool UMediaPlayer::OpenFile(const FString& FilePath)
{
	Close();
	UFileMediaSource* Source = NewObject<UFileMediaSource>(this);
	Source->SetFilePath(FilePath);
	return OpenAsNewPlaylist(Source);
}

bool UMediaPlayer::OpenSource(UMediaSource* MediaSource)
{
	Close();
	if (!MediaSource)
	{
		UE_LOG(LogMediaAssets, Warning, TEXT("Cannot open media: no media source given"));
		return false;
	}
	return OpenAsNewPlaylist(MediaSource);
}

bool UMediaPlayer::OpenPlaylistIndex(UMediaPlaylist* InPlaylist, int32 Index)
{
	// The caller holds InPlaylist, so passing the player's own list survives the Close.
	Close();
	if (!InPlaylist)
	{
		UE_LOG(LogMediaAssets, Warning, TEXT("Cannot open a playlist entry: no playlist given"));
		return false;
	}
	Playlist = InPlaylist;
	if (Index == INDEX_NONE)
	{
		return true;
	}
	if (!InPlaylist->Get(Index))
	{
		UE_LOG(LogMediaAssets, Warning, TEXT("Cannot open playlist entry %d: the playlist has %d entries"), Index, InPlaylist->Num());
		return false;
	}
	return OpenEntry(Index);
}

bool UMediaPlayer::Next()
{
	return StepPlaylist(true);
}

bool UMediaPlayer::Previous()
{
	return StepPlaylist(false);
}

void UMediaPlayer::Close()
{
	CloseMedia(true);
	Playlist = nullptr;
	PlaylistIndex = INDEX_NONE;
}

bool UMediaPlayer::Play()
{
	return SetRate(1.f);
}

bool UMediaPlayer::Pause()
{
	return SetRate(0.f);
}

bool UMediaPlayer::Rewind()
{
	return Seek(FTimespan::Zero());
}

bool UMediaPlayer::Seek(const FTimespan& Time)
{
	if (State == EState::Preparing)
	{
		bHasPendingSeek = true;
		PendingSeek = Time;
		return true;
	}
	if (!IsReady() || !Backend->SupportsSeeking() || !Backend->Seek(Time))
	{
		return false;
	}
	bInternalSeek = false;
	bAtEnd = false;
	return true;
}

bool UMediaPlayer::SetRate(float Rate)
{
	if (!IsReady() || !(Rate >= 0.f) || !Backend->SetRate(Rate))
	{
		return false;
	}
	const bool bWasPlaying = CurrentRate > 0.f;
	if (Rate > 0.f && bAtEnd && !StartOver())
	{
		return false;
	}
	CurrentRate = Rate;
	State = Rate > 0.f ? EState::Playing : EState::Paused;
	if (bWasPlaying != (Rate > 0.f))
	{
		Queued.Add({Rate > 0.f ? EEvent::Resumed : EEvent::Suspended, FString()});
	}
	return true;
}

bool UMediaPlayer::SetNativeVolume(float Volume)
{
	return Backend && Backend->SetNativeVolume(Volume);
}

bool UMediaPlayer::SetLooping(bool Looping)
{
	Loop = Looping;
	return true;
}

bool UMediaPlayer::IsPreparing() const
{
	return State == EState::Preparing;
}

bool UMediaPlayer::IsReady() const
{
	return State == EState::Playing || State == EState::Paused;
}

bool UMediaPlayer::IsPaused() const
{
	return State == EState::Paused;
}

bool UMediaPlayer::IsPlaying() const
{
	return State == EState::Playing;
}

bool UMediaPlayer::IsClosed() const
{
	return State == EState::Closed;
}

bool UMediaPlayer::SupportsSeeking() const
{
	return IsReady() && Backend->SupportsSeeking();
}

FTimespan UMediaPlayer::GetTime() const
{
	return IsReady() ? Backend->GetTime() : FTimespan::Zero();
}

FTimespan UMediaPlayer::GetDuration() const
{
	return IsReady() ? Backend->GetDuration() : FTimespan::Zero();
}

void UMediaPlayer::EnsurePlaylist() const
{
	if (!Playlist)
	{
		Playlist = NewObject<UMediaPlaylist>(const_cast<UMediaPlayer*>(this));
	}
}

bool UMediaPlayer::OpenAsNewPlaylist(UMediaSource* Source)
{
	Playlist = NewObject<UMediaPlaylist>(this);
	Playlist->Add(Source);
	return OpenEntry(0);
}

bool UMediaPlayer::StepPlaylist(bool bForward)
{
	// No list is made here: with none (after a close), there is nothing to step to.
	if (!Playlist || Playlist->Num() == 0)
	{
		return false;
	}
	UMediaPlaylist& List = *Playlist;
	int32 Index = PlaylistIndex;
	if (Shuffle)
	{
		Index = std::rand() % List.Num();
	}
	else if (bForward)
	{
		List.GetNext(Index);
	}
	else
	{
		List.GetPrevious(Index);
	}
	return OpenEntry(Index);
}

bool UMediaPlayer::OpenEntry(int32 Index)
{
	UMediaSource* Source = Playlist ? Playlist->Get(Index) : nullptr;
	if (!Source)
	{
		return false;
	}
	PlaylistIndex = Index;
	// A file is handed to the backend as a plain path: a file:// URL would have its '%' decoded.
	// A file source without a path has no URL either, and is refused as such.
	const UFileMediaSource* File = Cast<UFileMediaSource>(Source);
	const FString Location = File ? File->GetFullPath() : Source->GetUrl();
	const FString Url = File && Location.IsEmpty() ? FString() : Source->GetUrl();
	return OpenLocation(Url, Location);
}

bool UMediaPlayer::OpenLocation(const FString& Url, const FString& Location)
{
	CloseMedia(true);
	if (Url.IsEmpty())
	{
		FailOpen(Url, TEXT("empty URL"));
		return false;
	}
	Backend = FMediaBackendRegistry::CreateFor(Location);
	FString Error;
	if (!Backend || !Backend->Open(Location, Error))
	{
		Backend.Reset();
		FailOpen(Url, Error.IsEmpty() ? FString(TEXT("no backend")) : Error);
		return false;
	}
	CurrentUrl = Url;
	State = EState::Preparing;
	return true;
}

void UMediaPlayer::FailOpen(const FString Url, const FString& Reason)
{
	UE_LOG(LogMediaAssets, Warning, TEXT("Cannot open media '%s': %s"), *Url, *Reason);
	if (Backend)
	{
		Backend->Close();
		Backend.Reset();
	}
	State = EState::Closed;
	CurrentUrl.Reset();
	CurrentRate = 0.f;
	Queued.Add({EEvent::OpenFailed, Url});
}

void UMediaPlayer::CloseMedia(bool bRaiseEvents)
{
	if (State == EState::Closed)
	{
		return;
	}
	const bool bWasPlaying = State == EState::Playing;
	if (Backend)
	{
		Backend->Close();
		Backend.Reset();
	}
	State = EState::Closed;
	CurrentRate = 0.f;
	CurrentUrl.Reset();
	bHasPendingSeek = false;
	bInternalSeek = false;
	bAtEnd = false;
	ClockCarrySeconds = 0.0;
	VideoSample.Reset();
	++VideoSampleSerial;
	// What the old media still had to say is moot now; only its closing is news.
	Queued.Reset();
	if (bRaiseEvents)
	{
		if (bWasPlaying)
		{
			Queued.Add({EEvent::Suspended, FString()});
		}
		Queued.Add({EEvent::Closed, FString()});
	}
}

bool UMediaPlayer::StartOver()
{
	if (!Backend->SupportsSeeking() || !Backend->Seek(FTimespan::Zero()))
	{
		return false;
	}
	bInternalSeek = true;
	bAtEnd = false;
	return true;
}
