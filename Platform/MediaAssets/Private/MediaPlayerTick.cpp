#include "MediaPlayer.h"

#include "Containers/Ticker.h"
#include "MediaAssetsLog.h"
#include "MediaBackend.h"
#include "UObject/WeakObjectPtrTemplates.h"

#include <cstring>

namespace
{
	// Every player that may need a media step, held weakly: a player's life is its owners' affair.
	TArray<TWeakObjectPtr<UMediaPlayer>>& LivePlayers()
	{
		static TArray<TWeakObjectPtr<UMediaPlayer>> Players;
		return Players;
	}

	// The media step: one core ticker for all players, added with the first player.
	bool TickAllPlayers(float DeltaSeconds)
	{
		TArray<TWeakObjectPtr<UMediaPlayer>>& Players = LivePlayers();
		Players.RemoveAll([](const TWeakObjectPtr<UMediaPlayer>& Player) { return !Player.IsValid(); });
		// A handler may make or destroy players; step over a copy.
		const TArray<TWeakObjectPtr<UMediaPlayer>> Snapshot = Players;
		for (const TWeakObjectPtr<UMediaPlayer>& Player : Snapshot)
		{
			if (UMediaPlayer* Alive = Player.Get())
			{
				Alive->TickPlayer(DeltaSeconds);
			}
		}
		return true;
	}

	void AddLivePlayer(UMediaPlayer* Player)
	{
		static bool bTickerAdded = false;
		if (!bTickerAdded)
		{
			bTickerAdded = true;
			FTSTicker::GetCoreTicker().AddTicker(FTickerDelegate::CreateStatic(&TickAllPlayers));
		}
		LivePlayers().Add(Player);
	}
}

void UMediaPlayer::PostInitProperties()
{
	Super::PostInitProperties();
	if (!HasAnyFlags(RF_ClassDefaultObject))
	{
		AddLivePlayer(this);
	}
}

void UMediaPlayer::BeginDestroy()
{
	// Joins the backend's worker now, while everything it may touch still exists.
	CloseMedia(false);
	Queued.Reset();
	Super::BeginDestroy();
}

void UMediaPlayer::TickPlayer(float DeltaSeconds)
{
	HandleBackendEvents();
	if (State == EState::Playing && DeltaSeconds > 0.f)
	{
		const double Owed = static_cast<double>(DeltaSeconds) * CurrentRate + ClockCarrySeconds;
		const FTimespan Step(static_cast<int64>(Owed * ETimespan::TicksPerSecond));
		ClockCarrySeconds = Owed - Step.GetTotalSeconds();
		Backend->Advance(Step);
	}
	if (IsReady())
	{
		if (TSharedPtr<const FMediaTextureSample> Sample = Backend->AcquireVideoSample())
		{
			VideoSample = MoveTemp(Sample);
			++VideoSampleSerial;
		}
	}
	// Advancing and taking a picture may have brought the end.
	HandleBackendEvents();
	BroadcastQueued();
}

int32 UMediaPlayer::PullAudio(float* Interleaved, int32 Frames)
{
	if (!Interleaved || Frames <= 0)
	{
		return 0;
	}
	if (!IsReady())
	{
		std::memset(Interleaved, 0, sizeof(float) * 2 * static_cast<size_t>(Frames));
		return 0;
	}
	return Backend->PullAudio(Interleaved, Frames);
}

void UMediaPlayer::HandleBackendEvents()
{
	if (!Backend)
	{
		return;
	}
	TArray<FMediaBackendEvent> Events;
	Backend->PollEvents(Events);
	for (const FMediaBackendEvent& Event : Events)
	{
		// A failed open closes the backend: what it said after that does not count.
		if (!Backend)
		{
			return;
		}
		switch (Event.Type)
		{
		case EMediaBackendEvent::Opened:
			if (State != EState::Preparing)
			{
				break;
			}
			State = EState::Paused;
			Queued.Add({EEvent::Opened, CurrentUrl});
			if (PlayOnOpen)
			{
				SetRate(1.f);
			}
			if (bHasPendingSeek)
			{
				bHasPendingSeek = false;
				Seek(PendingSeek);
			}
			break;
		case EMediaBackendEvent::OpenFailed:
			if (State == EState::Preparing)
			{
				FailOpen(CurrentUrl, Event.Message);
			}
			break;
		case EMediaBackendEvent::SeekCompleted:
			if (bInternalSeek)
			{
				bInternalSeek = false;
			}
			else
			{
				Queued.Add({EEvent::SeekCompleted, FString()});
			}
			break;
		case EMediaBackendEvent::EndReached:
			if (!IsReady())
			{
				break;
			}
			Queued.Add({EEvent::EndReached, FString()});
			if (!(Loop && StartOver()))
			{
				SetRate(0.f);
				bAtEnd = true;
			}
			break;
		case EMediaBackendEvent::Error:
			UE_LOG(LogMediaAssets, Warning, TEXT("Media '%s': %s"), *CurrentUrl, *Event.Message);
			break;
		}
	}
}

void UMediaPlayer::BroadcastQueued()
{
	// Only what was queued before this step: events a handler causes wait for the next one.
	// A handler that opens or closes media empties the queue, dropping the old media's news.
	int32 Remaining = Queued.Num();
	while (Remaining-- > 0 && Queued.Num() > 0)
	{
		const FQueuedEvent Event = Queued[0];
		Queued.RemoveAt(0);
		switch (Event.Type)
		{
		case EEvent::Closed: OnMediaClosed.Broadcast(); break;
		case EEvent::EndReached: OnEndReached.Broadcast(); break;
		case EEvent::Opened: OnMediaOpened.Broadcast(Event.Url); break;
		case EEvent::OpenFailed: OnMediaOpenFailed.Broadcast(Event.Url); break;
		case EEvent::Resumed: OnPlaybackResumed.Broadcast(); break;
		case EEvent::Suspended: OnPlaybackSuspended.Broadcast(); break;
		case EEvent::SeekCompleted: OnSeekCompleted.Broadcast(); break;
		}
	}
}
