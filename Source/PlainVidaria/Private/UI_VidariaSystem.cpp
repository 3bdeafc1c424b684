#include "UI_VidariaSystem.h"

#include "Components/Border.h"
#include "Components/Button.h"
#include "Components/CheckBox.h"
#include "Components/ComboBoxString.h"
#include "Components/Image.h"
#include "Components/ProgressBar.h"
#include "Components/Slider.h"
#include "Components/TextBlock.h"
#include "Engine/Engine.h"
#include "Materials/Material.h"
#include "MediaPlayer.h"
#include "MediaSoundComponent.h"
#include "UI_Marquel.h"
#include "UI_MarquelNodeSetting.h"
#include "Vidaria/UI_VolumeButton.h"
#include "Vidaria/UI_VolumeProgress.h"

UUI_VidariaSystem::UUI_VidariaSystem(const FObjectInitializer& ObjectInitializer)
	: Super(ObjectInitializer)
{
}

void UUI_VidariaSystem::NativeConstruct()
{
	// Runs InitMadia first, so the volume board below starts from the sound component's value.
	Super::NativeConstruct();
	ImageVideo->SetBrushFromMaterial(MediaPlayerMat);

	if (MediaPlayer)
	{
		MediaPlayer->OnEndReached.AddDynamic(this, &UUI_VidariaSystem::FinshPlayMovie);
		MediaPlayer->OnPlaybackResumed.AddDynamic(this, &UUI_VidariaSystem::OnPlaybackResumed);
		MediaPlayer->OnPlaybackSuspended.AddDynamic(this, &UUI_VidariaSystem::OnPlaybackSuspended);
		MediaPlayer->OnMediaOpened.AddDynamic(this, &UUI_VidariaSystem::OnMediaPlayerOpend);
		MediaPlayer->OnSeekCompleted.AddDynamic(this, &UUI_VidariaSystem::OnSeekCompleted);
		// The overlay is handed the player only once this widget listens to it.
		Marquel->Init(MediaPlayer, MarquelBar, MarquelNodeSetting);
	}
	else if (GEngine)
	{
		GEngine->AddOnScreenDebugMessage(-1, 10.0f, FColor::Red,
			FString::Printf(TEXT("%s.MediaPlayer=NULL,Please check whether the instance is assigned a value."), *GetName()), true,
			FVector2D(1.0, 1.0));
	}

	// The box is set before its event is bound, so this cannot run the full-screen toggle.
	VidariaType = Embedded;
	ScreenButton->SetCheckedState(ECheckBoxState::Unchecked);
	PreviousButton->OnClicked.AddDynamic(this, &UUI_VidariaSystem::Previous);
	NestButton->OnClicked.AddDynamic(this, &UUI_VidariaSystem::Next);

	OpenBarAnimation = GetNameWidgetAnimation(TEXT("OpenBar"));
	CloseBarAnimation = GetNameWidgetAnimation(TEXT("CloseBar"));

	ComboResolution->OnSelectionChanged.AddDynamic(this, &UUI_VidariaSystem::Resolution);
	ComboPlaySpeed->OnSelectionChanged.AddDynamic(this, &UUI_VidariaSystem::PlaySpeed);
	ReplayButton->OnClicked.AddDynamic(this, &UUI_VidariaSystem::Replay);
	PauseButton->OnClicked.AddDynamic(this, &UUI_VidariaSystem::OnPauseClicked);
	MovieProgress->OnMouseCaptureBegin.AddDynamic(this, &UUI_VidariaSystem::OnMediaProgressMouseCaptureBegin);
	MovieProgress->OnMouseCaptureEnd.AddDynamic(this, &UUI_VidariaSystem::OnMediaProgressMouseCaptureEnd);
	MovieProgress->OnValueChanged.AddDynamic(this, &UUI_VidariaSystem::OnMediaProgressValueChanged);
	SuspendButton->OnCheckStateChanged.AddDynamic(this, &UUI_VidariaSystem::ClickedCheckBox);
	ScreenButton->OnCheckStateChanged.AddDynamic(this, &UUI_VidariaSystem::ClickedCheckBoxScreen);

	// The volume widgets reach the player only through their parent, so they act from here on.
	if (VolumeButton)
	{
		VolumeButton->SetParent(this);
	}
	if (VolumeProgress)
	{
		VolumeProgress->SetParent(this);
		VolumeProgress->SetChangedVolumeValue(GetVolumeMultiplier());
	}

	if (!bShowUI)
	{
		PlayAnimation(CloseBarAnimation, 0.0f, 1, EUMGSequencePlayMode::Forward, 1.0f, false);
		bBarOpen = false;
	}
	MediaProgressValueFloat->SetVisibility(ESlateVisibility::Hidden);
	if (VolumeProgress)
	{
		VolumeProgress->SetVisibility(ESlateVisibility::Hidden);
	}
}

void UUI_VidariaSystem::NativeDestruct()
{
	// The lists are emptied whole: other listeners on the same player lose these three events too.
	if (MediaPlayer)
	{
		MediaPlayer->OnEndReached.Clear();
		MediaPlayer->OnPlaybackResumed.Clear();
		MediaPlayer->OnPlaybackSuspended.Clear();
	}
	Super::NativeDestruct();
}

void UUI_VidariaSystem::InitMadia()
{
	Super::InitMadia();
	// One component per widget object: it outlives NativeDestruct and a later construction reuses it.
	if (!MediaPlayer || MediaSoundComponent)
	{
		return;
	}
	MediaSoundComponent = NewObject<UMediaSoundComponent>(this);
	MediaSoundComponent->RegisterComponentWithWorld(GetWorld(), nullptr);
	MediaSoundComponent->SetMediaPlayer(MediaPlayer);
}

void UUI_VidariaSystem::AddBulletChatDataThenSpawn(const FString& InTime, const FString& InText)
{
	// The overlay takes comments only as a whole set (ResetBulletChatDatas); there is no single-comment road.
}

void UUI_VidariaSystem::EmptyBulletChat()
{
	Marquel->Empty();
}

void UUI_VidariaSystem::ResetBulletChatDatas(const FString& InDatas)
{
	Marquel->LoadMarquel(InDatas);
}

FOnSendMarquelSignature& UUI_VidariaSystem::GetSendMarquelDelegate()
{
	return MarquelBar->OnSendMarquel;
}
