#pragma once

// Records a media player's events in order, with the player's state at each, for the player tests.

#include "CoreMinimal.h"
#include "MediaPlayer.h"
#include "UObject/Object.h"
#include "MediaPlayerTestListener.generated.h"

UCLASS()
class UMediaPlayerTestListener : public UObject
{
	GENERATED_BODY()

public:
	void Listen(UMediaPlayer* InPlayer)
	{
		Player = InPlayer;
		InPlayer->OnMediaOpened.AddDynamic(this, &UMediaPlayerTestListener::HandleOpened);
		InPlayer->OnMediaOpenFailed.AddDynamic(this, &UMediaPlayerTestListener::HandleOpenFailed);
		InPlayer->OnMediaClosed.AddDynamic(this, &UMediaPlayerTestListener::HandleClosed);
		InPlayer->OnPlaybackResumed.AddDynamic(this, &UMediaPlayerTestListener::HandleResumed);
		InPlayer->OnPlaybackSuspended.AddDynamic(this, &UMediaPlayerTestListener::HandleSuspended);
		InPlayer->OnSeekCompleted.AddDynamic(this, &UMediaPlayerTestListener::HandleSeekCompleted);
		InPlayer->OnEndReached.AddDynamic(this, &UMediaPlayerTestListener::HandleEndReached);
	}

	/** The events since the last Take, joined by spaces, and forgets them. */
	FString Take()
	{
		FString Joined = FString::Join(Events, TEXT(" "));
		Events.Reset();
		return Joined;
	}

	TArray<FString> Events;
	FString LastUrl;
	bool bReadyAtEnd = false;
	bool bPreparingAtOpened = true;
	UMediaPlayer* Player = nullptr;

	UFUNCTION()
	void HandleOpened(FString OpenedUrl)
	{
		Events.Add(TEXT("Opened"));
		LastUrl = OpenedUrl;
		bPreparingAtOpened = Player->IsPreparing();
	}
	UFUNCTION()
	void HandleOpenFailed(FString FailedUrl)
	{
		Events.Add(TEXT("OpenFailed"));
		LastUrl = FailedUrl;
	}
	UFUNCTION()
	void HandleClosed() { Events.Add(TEXT("Closed")); }
	UFUNCTION()
	void HandleResumed() { Events.Add(TEXT("Resumed")); }
	UFUNCTION()
	void HandleSuspended() { Events.Add(TEXT("Suspended")); }
	UFUNCTION()
	void HandleSeekCompleted() { Events.Add(TEXT("SeekCompleted")); }
	UFUNCTION()
	void HandleEndReached()
	{
		Events.Add(TEXT("EndReached"));
		bReadyAtEnd = Player->IsReady();
	}
};
