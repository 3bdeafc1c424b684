#pragma once

#include "CoreMinimal.h"
#include "Types/SlateEnums.h"
#include "UI_MarquelBar.h"
#include "Video/UI_ImageVideo.h"
#include "UI_VidariaSystem.generated.h"

class UBorder;
class UButton;
class UCheckBox;
class UComboBoxString;
class UImage;
class UMaterial;
class UMediaSoundComponent;
class UPanelWidget;
class UProgressBar;
class USlider;
class UTextBlock;
class UUI_Marquel;
class UUI_MarquelNodeSetting;
class UUI_VolumeButton;
class UUI_VolumeProgress;
class UWidgetAnimation;

/** Where the lesson player stands. */
enum EVidariaType : int
{
	/** Directly in the viewport. */
	FullScreen = 0,
	/** In the panel the designer put it in. */
	Embedded = 1
};

/** Raised by the lesson player without parameters. */
DECLARE_DYNAMIC_MULTICAST_DELEGATE(FOnVidariaMediaPlayerMediaEvent);

/** Told the URL of the playlist entry a step is about to open. */
DECLARE_DELEGATE_OneParam(FOnVidariaPlaylistEntryChanging, const FString&);

/**
 * The lesson player. A designer derives a widget blueprint from it with the twenty named child
 * widgets and the four named animations, and assigns the media player and the video material.
 * The widget keeps almost no playback state: it asks the media player at each decision, and what
 * the viewer sees (pause picture, play/pause box and its tool tip) follows the player's events.
 * Playback calls belong after NativeConstruct; SetShowUI(false) must come before it to start with the bar closed.
 */
UCLASS()
class PLAINVIDARIA_API UUI_VidariaSystem : public UUI_ImageVideo
{
	GENERATED_BODY()

public:
	/** Makes the widget with every flag at rest; it creates, finds and plays nothing yet. */
	UUI_VidariaSystem(const FObjectInitializer& ObjectInitializer);

	/** Opens a local file on the player; playback starts as the player asset is set up to. */
	UFUNCTION(BlueprintCallable, Category = "VidariaMedia")
	void PlayMediaByLocal(const FString& InPath);
	/** Opens a network address on the player, when the player can play it. */
	UFUNCTION(BlueprintCallable, Category = "VidariaMedia")
	void PlayMediaByNet(const FString& InURL);
	/** Pauses the video and the comments; asked while the player prepares, it pauses as soon as playback starts. */
	UFUNCTION(BlueprintCallable, Category = "VidariaMedia")
	void PauseVideo();
	/** Closes the media; the comments stay and no end event is raised. */
	UFUNCTION(BlueprintCallable, Category = "VidariaMedia")
	void CloseVideo();
	/** True when the player has nothing open and is opening nothing. */
	UFUNCTION(BlueprintPure, Category = "VidariaMedia")
	bool IsClose() const;
	/** Shows or hides the bar and the pause picture from now on; before construction it also starts the bar closed. */
	UFUNCTION(BlueprintCallable, Category = "VidariaMedia")
	void SetShowUI(bool bNewShowUI);
	/** The sound's volume multiplier, or 0 while there is no sound yet. */
	UFUNCTION(BlueprintPure, Category = "VidariaMedia")
	float GetVolumeMultiplier();
	/** Sets the sound's volume multiplier. */
	UFUNCTION(BlueprintCallable, Category = "VidariaMedia")
	void SetVolumeMultiplier(float InNewVolumeMultiplier);
	/** Stops the sound; the picture goes on. */
	UFUNCTION(BlueprintCallable, Category = "VidariaMedia")
	void StopSound();

	/** The volume board moved to InValue: sets the player's native volume and the sound's multiplier. */
	UFUNCTION()
	void ChangedVolumeValue(float InValue);
	/** The mute box changed; ClickedWidget is true for muted. */
	UFUNCTION()
	void ClickedCheckBoxVolume(bool ClickedWidget);
	/** Opens the volume board, unless it is open. */
	UFUNCTION()
	void OpenVolumeAnim();
	/** Closes the volume board, if it is open. */
	UFUNCTION()
	void CloseVolumeAnim();

	/** Reserved for a single comment from the host; it has no effect. */
	void AddBulletChatDataThenSpawn(const FString& InTime, const FString& InText);
	/** Takes every flying comment off the overlay. */
	void EmptyBulletChat();
	/** Gives the overlay a new set of comments, in the overlay's own text form. */
	void ResetBulletChatDatas(const FString& InDatas);
	/** The send bar's delegate, so the host can hear what the viewer sends. */
	FOnSendMarquelSignature& GetSendMarquelDelegate();
	/** Appends a URL or path to the player's playlist. */
	void AddToPlaylist(const FString& InURL);
	/** Opens the playlist entry with this URL, or holds it back while the player prepares. */
	void OpenPlaylistUrl(const FString& InURL);
	/** Enables the previous and next buttons when the playlist has more than one entry. */
	void RefreshPreviousAndNextButtons();
	/** Shows the material at this object path on the video image. */
	void SetImageVideoBrush(const FString& InMaterialPath);
	/** Says where the player stands now, which decides the next full-screen click. */
	void SetVidariaType(EVidariaType InVidariaType);

protected:
	/** Finds and binds the children, hands the overlay its player, and hides the time tip and the volume board. */
	virtual void NativeConstruct() override;
	/** Unbinds this and every other listener from the player's end, resume and suspend events, then closes the player. */
	virtual void NativeDestruct() override;
	/** Writes the slider, the cache bar and the clock from the player, then counts the bar down. */
	virtual void NativeTick(const FGeometry& MyGeometry, float InDeltaTime) override;
	/** A real movement of the pointer opens the bar and keeps it open. */
	virtual FReply NativeOnMouseMove(const FGeometry& InGeometry, const FPointerEvent& InMouseEvent) override;
	/** Creates the sound component of the player, once per widget. */
	virtual void InitMadia() override;

	/** The play/pause box was clicked. */
	UFUNCTION()
	void ClickedCheckBox(bool ClickedWidget);
	/** The full-screen box was clicked. */
	UFUNCTION()
	void ClickedCheckBoxScreen(bool ClickedWidget);
	/** The player reached the end: empties the comments, raises OnFinshPlayMovie and closes the player. */
	UFUNCTION()
	void FinshPlayMovie();
	/** Steps to the next playlist entry. */
	UFUNCTION()
	void Next();
	/** Steps to the previous playlist entry. */
	UFUNCTION()
	void Previous();
	/** The player opened its media; releases a held-back playlist step. */
	UFUNCTION()
	void OnMediaPlayerOpend(FString OpenedUrl);
	/** The viewer took the timeline slider. */
	UFUNCTION()
	void OnMediaProgressMouseCaptureBegin();
	/** The viewer let go of the timeline slider: seeks there. */
	UFUNCTION()
	void OnMediaProgressMouseCaptureEnd();
	/** The timeline slider moved: the time tip follows it. */
	UFUNCTION()
	void OnMediaProgressValueChanged(float InValue);
	/** A click on the pause button: pauses or resumes. */
	UFUNCTION()
	void OnPauseClicked();
	/** Playback started or resumed. */
	UFUNCTION()
	void OnPlaybackResumed();
	/** Playback stopped or paused. */
	UFUNCTION()
	void OnPlaybackSuspended();
	/** A seek finished: resumes if it was asked to and empties the comments. */
	UFUNCTION()
	void OnSeekCompleted();
	/** A playback speed was chosen, such as "1.5x". */
	UFUNCTION()
	void PlaySpeed(FString SelectedItem, ESelectInfo::Type SelectionType);
	/** A resolution was chosen. */
	UFUNCTION()
	void Resolution(FString SelectedItem, ESelectInfo::Type SelectionType);
	/** Starts the video again from the beginning. */
	UFUNCTION()
	void Replay();

	/** Opens a path or URL, telling them apart by the scheme, and seeks to InStartTime at once. */
	void PlayMedia(const FString& InPath, const FTimespan& InStartTime);
	/** True when the text holds "https://", "http://" or "ftp://" anywhere, in any letter case. */
	bool IsNetURL(const FString& InPath);
	/** Plays on, if the player is paused. */
	void Resume();
	/** Names on the play/pause box's tool tip what a click will do. */
	void RefreshSuspendButtonTipText();
	/** The playlist index a next step goes to, wrapping to the first. */
	int32 GetPlaylistNextIndex();
	/** The playlist index a previous step goes to, wrapping to the last. */
	int32 GetPlaylistPreviousIndex();
	/** The URL of the playlist entry at InIndex, or empty. */
	FString GetPlaylistUrl(int32 InIndex);
	/** The common road of Next and Previous: empties the comments, tells the host, then opens or holds back InTargetIndex. */
	void StepPlaylist(int32 InTargetIndex);
	/** The end of each frame: counts the bar down and plays "CloseBar" once the countdown has run out. */
	void TickControlBar(float InDeltaTime);
	/** Plays InAnimation once from the start, forward, at normal speed, as every animation of the player runs. */
	void PlayOnce(UWidgetAnimation* InAnimation);

private:
	/** The buffered part of the video. */
	UPROPERTY(meta = (BindWidget))
	TObjectPtr<UProgressBar> VideoCacheLoading;

	/** The full-screen toggle; checked means full screen. */
	UPROPERTY(meta = (BindWidget))
	TObjectPtr<UCheckBox> ScreenButton;

	/** Starts the video again from the beginning. */
	UPROPERTY(meta = (BindWidget))
	TObjectPtr<UButton> ReplayButton;

	/** Steps to the next playlist entry. */
	UPROPERTY(meta = (BindWidget))
	TObjectPtr<UButton> NestButton;

	/** Steps to the previous playlist entry. */
	UPROPERTY(meta = (BindWidget))
	TObjectPtr<UButton> PreviousButton;

	/** The play/pause toggle; checked means paused. */
	UPROPERTY(meta = (BindWidget))
	TObjectPtr<UCheckBox> SuspendButton;

	/** The mute toggle. */
	UPROPERTY(meta = (BindWidget))
	TObjectPtr<UUI_VolumeButton> VolumeButton;

	/** A click pauses or resumes. */
	UPROPERTY(meta = (BindWidget))
	TObjectPtr<UButton> PauseButton;

	/** The bar's frame; its geometry places the time tip. Must sit directly in a canvas panel. */
	UPROPERTY(meta = (BindWidget))
	TObjectPtr<UBorder> MediaBarBorder;

	/** The timeline slider, a fraction of the duration from 0 to 1. */
	UPROPERTY(meta = (BindWidget))
	TObjectPtr<USlider> MovieProgress;

	/** The time tip over the slider; hidden at start. Must sit directly in a canvas panel. */
	UPROPERTY(meta = (BindWidget))
	TObjectPtr<UTextBlock> MediaProgressValueFloat;

	/** The volume board; hidden at start. */
	UPROPERTY(meta = (BindWidget))
	TObjectPtr<UUI_VolumeProgress> VolumeProgress;

	/** The picture shown while paused. */
	UPROPERTY(meta = (BindWidget))
	TObjectPtr<UImage> PauseImage;

	/** The surface that shows the video material. */
	UPROPERTY(meta = (BindWidget))
	TObjectPtr<UImage> ImageVideo;

	/** The clock: playback time and duration. */
	UPROPERTY(meta = (BindWidget))
	TObjectPtr<UTextBlock> PlayTimeText;

	/** The sound of the player, created by InitMadia with this widget as its outer. */
	UPROPERTY()
	TObjectPtr<UMediaSoundComponent> MediaSoundComponent;

	/** The playback speed menu. */
	UPROPERTY(meta = (BindWidget))
	TObjectPtr<UComboBoxString> ComboPlaySpeed;

	/** The resolution menu. */
	UPROPERTY(meta = (BindWidget))
	TObjectPtr<UComboBoxString> ComboResolution;

	/** The comment overlay. */
	UPROPERTY(meta = (BindWidget))
	TObjectPtr<UUI_Marquel> Marquel;

	/** The comment send bar. */
	UPROPERTY(meta = (BindWidget))
	TObjectPtr<UUI_MarquelBar> MarquelBar;

	/** The comment settings. */
	UPROPERTY(meta = (BindWidget))
	TObjectPtr<UUI_MarquelNodeSetting> MarquelNodeSetting;

	/** The material through which ImageVideo shows the video. */
	UPROPERTY(EditAnywhere, Category = "UI")
	TObjectPtr<UMaterial> MediaPlayerMat;

public:
	/** Told the URL of the entry a Next or Previous is about to open; for the host to bind. */
	FOnVidariaPlaylistEntryChanging OnPlaylistEntryChanging;

	/** Raised when a video has played to its end, before the player is closed. */
	UPROPERTY(BlueprintAssignable, Category = "Media|VidariaSystem")
	FOnVidariaMediaPlayerMediaEvent OnFinshPlayMovie;

protected:
	/** The animation "OpenBar". */
	UPROPERTY()
	TObjectPtr<UWidgetAnimation> OpenBarAnimation;

	/** The animation "CloseBar". */
	UPROPERTY()
	TObjectPtr<UWidgetAnimation> CloseBarAnimation;

	/** The panel that held the player when full screen was entered. */
	UPROPERTY()
	TObjectPtr<UPanelWidget> PanelWidget;

private:
	// The player's child index in PanelWidget when full screen was entered.
	int32 PanelChildIndex = 0;
	// Where the player stands now; Embedded from NativeConstruct on.
	EVidariaType VidariaType = FullScreen;
	// Seconds left before the bar closes.
	float BarHideCountdown = 0.0f;
	// The bar counts as open, so a close is due when the countdown runs out.
	bool bBarOpen = false;
	// "OpenVoiceBoard" was played last, not "CloseVoiceBoard".
	bool bVolumeBoardOpen = false;
	// A pause was asked for while the player prepared; the first resume event carries it out.
	bool bPauseAfterPrepare = false;
	// The viewer holds the timeline slider, so the tick leaves its value alone.
	bool bDraggingProgress = false;
	// The bar and the pause picture take part.
	bool bShowUI = true;
	// The playlist entry to open as soon as the player has opened its current media.
	FString PendingPlaylistUrl;
	// Resume is due when the next seek completes.
	bool bResumeAfterSeek = false;
};
