// The lesson player's playback control, its answers to the media player's events, and its volume.

#include "UI_VidariaSystem.h"

#include "Components/AudioComponent.h"
#include "Components/CheckBox.h"
#include "Components/Image.h"
#include "MediaPlayer.h"
#include "MediaSoundComponent.h"
#include "UI_Marquel.h"

bool UUI_VidariaSystem::IsNetURL(const FString& InPath)
{
	// A scheme anywhere in the text counts, not only at its start.
	return InPath.Contains(TEXT("https://"), ESearchCase::IgnoreCase) || InPath.Contains(TEXT("http://"), ESearchCase::IgnoreCase) ||
		InPath.Contains(TEXT("ftp://"), ESearchCase::IgnoreCase);
}

void UUI_VidariaSystem::PlayMediaByLocal(const FString& InPath)
{
	if (MediaPlayer)
	{
		MediaPlayer->OpenFile(InPath);
	}
}

void UUI_VidariaSystem::PlayMediaByNet(const FString& InURL)
{
	if (MediaPlayer && MediaPlayer->CanPlayUrl(InURL))
	{
		MediaPlayer->OpenUrl(InURL);
	}
}

void UUI_VidariaSystem::PlayMedia(const FString& InPath, const FTimespan& InStartTime)
{
	if (IsNetURL(InPath))
	{
		PlayMediaByNet(InPath);
	}
	else
	{
		PlayMediaByLocal(InPath);
	}
	// The seek goes out at once; the player holds it until the media has opened.
	if (MediaPlayer)
	{
		MediaPlayer->Seek(InStartTime);
	}
}

void UUI_VidariaSystem::PauseVideo()
{
	if (!MediaPlayer)
	{
		return;
	}
	if (MediaPlayer->IsPreparing())
	{
		// Carried out by the first resume event, once the media plays.
		bPauseAfterPrepare = true;
		return;
	}
	UE_LOG(LogTemp, Display, TEXT("Media player Pause"));
	if (MediaPlayer->CanPause())
	{
		MediaPlayer->Pause();
		Marquel->Pause();
	}
}

void UUI_VidariaSystem::Resume()
{
	if (MediaPlayer && MediaPlayer->IsPaused())
	{
		MediaPlayer->Play();
		Marquel->Resume();
	}
}

void UUI_VidariaSystem::OnPauseClicked()
{
	// A click while preparing is dropped, unlike a PauseVideo call, which is remembered.
	if (!MediaPlayer || MediaPlayer->IsPreparing())
	{
		return;
	}
	if (MediaPlayer->IsPaused())
	{
		Resume();
	}
	else
	{
		PauseVideo();
	}
}

void UUI_VidariaSystem::ClickedCheckBox(bool ClickedWidget)
{
	if (MediaPlayer && MediaPlayer->IsPreparing())
	{
		// Takes the click back: nothing can be paused yet.
		SuspendButton->SetCheckedState(ECheckBoxState::Unchecked);
		RefreshSuspendButtonTipText();
		return;
	}
	// The box stays as the click left it; the player's event that follows sets it.
	OnPauseClicked();
}

void UUI_VidariaSystem::Replay()
{
	if (!MediaPlayer || !MediaPlayer->IsReady())
	{
		return;
	}
	if (MediaPlayer->IsPaused())
	{
		bResumeAfterSeek = true;
	}
	MediaPlayer->Rewind();
}

void UUI_VidariaSystem::CloseVideo()
{
	if (MediaPlayer)
	{
		MediaPlayer->Close();
	}
}

bool UUI_VidariaSystem::IsClose() const
{
	return !MediaPlayer || MediaPlayer->IsClosed();
}

void UUI_VidariaSystem::FinshPlayMovie()
{
	if (!MediaPlayer || !MediaPlayer->IsReady())
	{
		return;
	}
	EmptyBulletChat();
	// Listeners run before the close, so the close also ends whatever a listener opened.
	OnFinshPlayMovie.Broadcast();
	if (MediaPlayer)
	{
		MediaPlayer->Close();
	}
}

void UUI_VidariaSystem::OnPlaybackResumed()
{
	if (bPauseAfterPrepare)
	{
		// The box and the picture change at the suspend event this pause brings.
		PauseVideo();
		bPauseAfterPrepare = false;
		return;
	}
	bDraggingProgress = false;
	if (bShowUI)
	{
		PauseImage->SetVisibility(ESlateVisibility::Collapsed);
	}
	SuspendButton->SetCheckedState(ECheckBoxState::Unchecked);
	RefreshSuspendButtonTipText();
}

void UUI_VidariaSystem::OnPlaybackSuspended()
{
	if (bShowUI)
	{
		PauseImage->SetVisibility(ESlateVisibility::SelfHitTestInvisible);
	}
	SuspendButton->SetCheckedState(ECheckBoxState::Checked);
	RefreshSuspendButtonTipText();
}

void UUI_VidariaSystem::OnSeekCompleted()
{
	UE_LOG(LogTemp, Display, TEXT("OnSeekCompleted"));
	if (bResumeAfterSeek)
	{
		Resume();
		bResumeAfterSeek = false;
	}
	// Whoever asked for the seek, the comments of the old moment go.
	Marquel->Empty();
}

void UUI_VidariaSystem::RefreshSuspendButtonTipText()
{
	// The tip names what a click will do: a paused (checked) box plays.
	if (SuspendButton->IsChecked())
	{
		SuspendButton->SetToolTipText(NSLOCTEXT("UUI_VidariaSystem", "Play", "Play"));
	}
	else
	{
		SuspendButton->SetToolTipText(NSLOCTEXT("UUI_VidariaSystem", "Pause", "Pause"));
	}
}

float UUI_VidariaSystem::GetVolumeMultiplier()
{
	if (!MediaSoundComponent || !MediaSoundComponent->GetAudioComponent())
	{
		return 0.0f;
	}
	return MediaSoundComponent->GetAudioComponent()->VolumeMultiplier;
}

void UUI_VidariaSystem::SetVolumeMultiplier(float InNewVolumeMultiplier)
{
	if (MediaSoundComponent)
	{
		MediaSoundComponent->SetVolumeMultiplier(InNewVolumeMultiplier);
	}
}

void UUI_VidariaSystem::ChangedVolumeValue(float InValue)
{
	if (MediaPlayer)
	{
		MediaPlayer->SetNativeVolume(InValue);
	}
	SetVolumeMultiplier(InValue);
}

void UUI_VidariaSystem::StopSound()
{
	if (MediaSoundComponent && MediaSoundComponent->GetAudioComponent())
	{
		MediaSoundComponent->Stop();
	}
}
