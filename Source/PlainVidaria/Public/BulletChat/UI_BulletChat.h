#pragma once

#include "CoreMinimal.h"
#include "BulletChat/BulletChatData.h"
#include "BulletChat/BulletChatSettings.h"
#include "Core/UI_VidariaBase.h"
#include "Templates/SubclassOf.h"
#include "UI_BulletChat.generated.h"

class UBulletChatTrackManager;
class UCanvasPanel;
class UMediaPlayer;
class UUI_BulletChatNode;

/**
 * The overlay that flies comments over a video in time with a media player. A host gives it the
 * player (Init) and the comments of the video as JSON text (ResetDatas); on every tick the overlay
 * reads the player's clock, cuts it to the whole second and offers that second's comments to its
 * track manager, which refuses those already on screen. The overlay starts on the first tick that
 * finds a laid-out canvas and a player: calls that need it started do nothing before then.
 * Game thread only.
 */
UCLASS()
class PLAINVIDARIA_API UUI_BulletChat : public UUI_VidariaBase
{
	GENERATED_BODY()

public:
	/** Takes the media player whose clock selects the comments; null clears it. */
	void Init(TObjectPtr<UMediaPlayer> InMediaPlayer);
	/** Replaces all comments with those of a full document; does nothing before the overlay has started. */
	void ResetDatas(const FString& Text);
	/** Adds one comment and shows it at once, if it belongs to the video the player has open. */
	void AddDataThenSpawn(const FString& Text, const FString& Url);
	/** Stops the comments in flight, and those placed from now on, until Resume. */
	void Pause();
	/** Lets the comments fly on. */
	void Resume();
	/** Takes every comment off the screen; the comments themselves are kept. */
	void Empty();
	/** Shows or hides the comments without stopping them. */
	void SetVisible(bool bVisible);
	/** Takes the viewer's font size, speed scale and on/off switch; see FBulletChatSettings. */
	void SetBulletChatSettings(const FBulletChatSettings& InSettings);
	/** The viewer's settings the overlay applies. */
	const FBulletChatSettings& GetBulletChatSettings() const { return Settings; }

protected:
	virtual void NativeDestruct() override;
	virtual void NativeTick(const FGeometry& MyGeometry, float InDeltaTime) override;

private:
	/** Files a copy of the record under its exact time. */
	void AddDataToMap(const FBulletChatData& Data);

	// Every comment of the video, by its moment; only ResetDatas takes them out.
	TMap<FTimespan, TArray<FBulletChatData>> DataMap;

	/** The clock; the host owns the player, the overlay only reads it. */
	UPROPERTY()
	TObjectPtr<UMediaPlayer> MediaPlayer;

	/** Makes, places and frees the flying nodes; made when the overlay starts. */
	UPROPERTY()
	TObjectPtr<UBulletChatTrackManager> TrackManager;

	/** The canvas the comments fly on. */
	UPROPERTY(meta = (BindWidget, EditInline = "true"))
	TObjectPtr<UCanvasPanel> RootCanvas;

	/** The widget class of one flying comment. */
	UPROPERTY(EditDefaultsOnly, Category = "UI")
	TSubclassOf<UUI_BulletChatNode> BulletChatNodeClass;

	// The viewer's settings; handed to the track manager when the overlay starts.
	FBulletChatSettings Settings;
	// True while the track manager exists: from the first effective tick until NativeDestruct.
	bool bIsInited = false;
};
