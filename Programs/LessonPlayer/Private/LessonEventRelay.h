#pragma once

// The media player and the lesson player raise dynamic events, which only a reflected object's
// functions can receive. This object receives them for the program and passes each one on to
// the session, so the session itself can stay a plain C++ class.

#include "CoreMinimal.h"
#include "Templates/Function.h"
#include "UObject/Object.h"
#include "LessonEventRelay.generated.h"

/** What the session wants to hear of its media player and its lesson player. */
struct FLessonEventHandlers
{
	TFunction<void()> SeekCompleted;
	TFunction<void()> PlaybackSuspended;
	TFunction<void()> PlaybackResumed;
	TFunction<void(const FString&)> MediaOpened;
	TFunction<void(const FString&)> MediaOpenFailed;
	TFunction<void()> LessonFinished;
};

/** Receives the dynamic events of the players and calls the session's handlers. */
UCLASS()
class ULessonEventRelay : public UObject
{
	GENERATED_BODY()

public:
	/** The handlers every event goes to; an unset one drops its event. */
	FLessonEventHandlers Handlers;

	/** The media player's OnSeekCompleted. */
	UFUNCTION()
	void HandleSeekCompleted() { Call(Handlers.SeekCompleted); }

	/** The media player's OnPlaybackSuspended. */
	UFUNCTION()
	void HandlePlaybackSuspended() { Call(Handlers.PlaybackSuspended); }

	/** The media player's OnPlaybackResumed. */
	UFUNCTION()
	void HandlePlaybackResumed() { Call(Handlers.PlaybackResumed); }

	/** The media player's OnMediaOpened. */
	UFUNCTION()
	void HandleMediaOpened(FString OpenedUrl)
	{
		if (Handlers.MediaOpened)
		{
			Handlers.MediaOpened(OpenedUrl);
		}
	}

	/** The media player's OnMediaOpenFailed. */
	UFUNCTION()
	void HandleMediaOpenFailed(FString FailedUrl)
	{
		if (Handlers.MediaOpenFailed)
		{
			Handlers.MediaOpenFailed(FailedUrl);
		}
	}

	/** The lesson player's OnFinshPlayMovie: a lesson played to its end. */
	UFUNCTION()
	void HandleLessonFinished() { Call(Handlers.LessonFinished); }

private:
	static void Call(const TFunction<void()>& Handler)
	{
		if (Handler)
		{
			Handler();
		}
	}
};
