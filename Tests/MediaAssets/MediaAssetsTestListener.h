#pragma once

// Records a media player's events in order, with the player's state at each, for every media test.

#include "CoreMinimal.h"
#include "MediaPlayer.h"
#include "UObject/Object.h"
#include "MediaAssetsTestListener.generated.h"

UCLASS()
class UMediaAssetsTestListener : public UObject
{
	GENERATED_BODY()

public:
	void Listen(UMediaPlayer* InPlayer)
	{
		Player = InPlayer;
		InPlayer->OnMediaOpened.AddDynamic(this, &UMediaAssetsTestListener::HandleOpened);
		InPlayer->OnMediaOpenFailed.AddDynamic(this, &UMediaAssetsTestListener::HandleOpenFailed);
		InPlayer->OnMediaClosed.AddDynamic(this, &UMediaAssetsTestListener::HandleClosed);
		InPlayer->OnPlaybackResumed.AddDynamic(this, &UMediaAssetsTestListener::HandleResumed);
		InPlayer->OnPlaybackSuspended.AddDynamic(this, &UMediaAssetsTestListener::HandleSuspended);
		InPlayer->OnSeekCompleted.AddDynamic(this, &UMediaAssetsTestListener::HandleSeekCompleted);
		InPlayer->OnEndReached.AddDynamic(this, &UMediaAssetsTestListener::HandleEndReached);
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
