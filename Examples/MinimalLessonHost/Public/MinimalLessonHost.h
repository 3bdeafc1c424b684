#pragma once

#include "CoreMinimal.h"
#include "Engine/TimerHandle.h"
#include "Templates/SubclassOf.h"
#include "UObject/Object.h"
#include "UObject/ObjectPtr.h"
#include "MinimalLessonHost.generated.h"

class UMediaPlayer;
class UUI_BulletChat;
class UUI_VidariaSystem;
class UWorld;

/**
 * The least a game needs to show PlainVidaria's lesson player: the player widget and the bullet
 * chat overlay made from their blueprint classes, the lessons played in order with the viewer's
 * saved comment settings, and a step to the next lesson when one ends. It uses the engine's API
 * and the plug-in's public API only. Whoever makes it keeps it referenced (a UPROPERTY of the
 * game instance, say) while it plays. Game thread only.
 */
UCLASS()
class MINIMALLESSONHOST_API UMinimalLessonHost : public UObject
{
	GENERATED_BODY()

public:
	/** Shows the player and the overlay in World's viewport and opens the first lesson; false when something below is unset or a widget cannot be made. */
	bool Start(UWorld* World);

	/** The lesson player blueprint; its MediaPlayer must be the asset below. */
	UPROPERTY(EditAnywhere, Category = "Lessons")
	TSubclassOf<UUI_VidariaSystem> PlayerClass;

	/** The bullet chat overlay blueprint, laid over the whole player. */
	UPROPERTY(EditAnywhere, Category = "Lessons")
	TSubclassOf<UUI_BulletChat> BulletChatClass;

	/** The media player asset that the player blueprint plays; the overlay follows its clock. */
	UPROPERTY(EditAnywhere, Category = "Lessons")
	TObjectPtr<UMediaPlayer> MediaPlayer;

	/** Local video files, played in this order. */
	UPROPERTY(EditAnywhere, Category = "Lessons")
	TArray<FString> LessonFiles;

	/** A bullet chat JSON document with the comments of the lessons; empty for none. */
	UPROPERTY(EditAnywhere, Category = "Lessons")
	FString CommentFile;

private:
	/** A lesson played to its end; the player widget closes the media player right after this. */
	UFUNCTION()
	void HandleLessonFinished();
	/** Runs a tick after a lesson ended, when the close has dropped the playlist: fills it again and opens the next lesson. */
	void StepOn();
	/** Puts every lesson on the media player's playlist and brings the Prev and Next buttons up to date. */
	void FillPlaylist();
	/** Reads the comment file and hands it to the overlay, which has started by now. */
	void HandCommentsToOverlay();

	/** The video paused: so do the comments in flight. */
	UFUNCTION()
	void HandlePlaybackSuspended();
	/** The video plays on: so do the comments. */
	UFUNCTION()
	void HandlePlaybackResumed();
	/** A seek landed elsewhere in the video: the comments of the old moment leave. */
	UFUNCTION()
	void HandleSeekCompleted();

	/** The lesson player on the viewport. */
	UPROPERTY()
	TObjectPtr<UUI_VidariaSystem> PlayerWidget;

	/** The comments over the player. */
	UPROPERTY()
	TObjectPtr<UUI_BulletChat> Overlay;

	// The lessons as the playlist holds them: file URLs.
	TArray<FString> LessonUrls;
	// The URL of the lesson that ended, read before the player closed it.
	FString EndedUrl;
	// Hands the comments over once the overlay has had time to start.
	FTimerHandle CommentsTimer;
};
