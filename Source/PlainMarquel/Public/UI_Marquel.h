#pragma once

#include "CoreMinimal.h"
#include "Blueprint/UserWidget.h"
#include "UI_Marquel.generated.h"

class UCanvasPanel;
class UMediaPlayer;
class UTextBlock;
class UUI_MarquelBar;
class UUI_MarquelNodeSetting;

/**
 * The comment overlay over a video. Comments are tied to moments of the player's clock and cross
 * the canvas from right to left on lanes; a comment the viewer sends through the bar flies at once.
 * The overlay never pauses or seeks the player: the lesson player tells it when to pause, resume
 * and empty, and it follows the player's clock for the rest.
 */
UCLASS()
class PLAINMARQUEL_API UUI_Marquel : public UUserWidget
{
	GENERATED_BODY()

public:
	/** Takes the player whose clock the comments follow, the bar whose sends fly, and the viewer's settings. */
	void Init(TObjectPtr<UMediaPlayer> InMediaPlayer, TObjectPtr<UUI_MarquelBar> InMarquelBar, TObjectPtr<UUI_MarquelNodeSetting> InNodeSetting);
	/** Stops the comments where they are. */
	void Pause();
	/** Lets the comments fly on. */
	void Resume();
	/** Takes every flying comment off the screen; the loaded comments stay for their moments. */
	void Empty();
	/** Replaces the comments: one a line, "<seconds>|<text>"; lines that do not read so are skipped. */
	void LoadMarquel(const FString& InMarquels);

	/** How many comments are loaded. */
	int32 GetLoadedCount() const { return Comments.Num(); }
	/** How many comments are on the screen now. */
	int32 GetFlyingCount() const { return FlyingTexts.Num(); }
	/** True between Pause and Resume. */
	bool IsPaused() const { return bPaused; }
	/** The player given to Init, or null. */
	UMediaPlayer* GetMediaPlayer() const { return MediaPlayer; }

protected:
	/** Keeps the overlay from taking the pointer away from the player beneath it. */
	virtual void NativeConstruct() override;
	/** Spawns the comments whose moment the clock has passed and moves the flying ones. */
	virtual void NativeTick(const FGeometry& MyGeometry, float InDeltaTime) override;

private:
	/** One loaded comment. */
	struct FMarquelComment
	{
		/** Moment of the video, in seconds. */
		double Seconds = 0.0;
		/** What it says. */
		FString Text;
	};

	/** Puts a comment at the right edge on the next lane. */
	void SpawnComment(const FString& Text);
	/** A comment sent through the bar. */
	void HandleMarquelSent(const FString& Text);
	/** Offers the comments whose moment lies in [From, To). */
	void SpawnDueComments(double From, double To);

	/** The canvas the comments fly on. */
	UPROPERTY(meta = (BindWidget))
	TObjectPtr<UCanvasPanel> MarquelCanvas;

	/** Speed of a comment in canvas units a second, before the viewer's factor. */
	UPROPERTY(EditAnywhere, Category = "UI")
	float FlySpeed = 160.0f;

	/** The player whose clock the comments follow. */
	UPROPERTY()
	TObjectPtr<UMediaPlayer> MediaPlayer;

	/** The bar whose sends fly at once. */
	UPROPERTY()
	TObjectPtr<UUI_MarquelBar> MarquelBar;

	/** The viewer's settings. */
	UPROPERTY()
	TObjectPtr<UUI_MarquelNodeSetting> NodeSetting;

	/** The comments on the screen, oldest first. */
	UPROPERTY()
	TArray<TObjectPtr<UTextBlock>> FlyingTexts;

	// The loaded comments, sorted by moment.
	TArray<FMarquelComment> Comments;
	// The player's clock at the last tick, in seconds; negative before the first.
	double LastSeconds = -1.0;
	// Set by Pause, cleared by Resume.
	bool bPaused = false;
	// The lane the next comment takes.
	int32 NextLane = 0;
};
