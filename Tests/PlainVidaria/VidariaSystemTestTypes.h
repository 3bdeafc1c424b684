#pragma once

// Test helpers for the lesson player: a subclass that opens the protected operations a host's
// derived class could call, and a listener for the player's end event.

#include "CoreMinimal.h"
#include "MediaPlayer.h"
#include "UI_VidariaSystem.h"
#include "UObject/Object.h"
#include "VidariaSystemTestTypes.generated.h"

/** The lesson player with its protected operations made public. */
UCLASS()
class UVidariaSystemTestProbe : public UUI_VidariaSystem
{
	GENERATED_BODY()

public:
	UVidariaSystemTestProbe(const FObjectInitializer& ObjectInitializer) : Super(ObjectInitializer) {}

	using UUI_VidariaSystem::IsNetURL;
	using UUI_VidariaSystem::PlayMedia;
};

/** Counts OnFinshPlayMovie and notes whether the player was still open when it came. */
UCLASS()
class UVidariaFinishListener : public UObject
{
	GENERATED_BODY()

public:
	UFUNCTION()
	void HandleFinished()
	{
		++Calls;
		bPlayerOpenAtCall = Player && !Player->IsClosed();
	}

	UPROPERTY()
	TObjectPtr<UMediaPlayer> Player;

	int32 Calls = 0;
	bool bPlayerOpenAtCall = false;
};
