#include "Animation/UMGSequencePlayer.h"

#include "Animation/WidgetAnimation.h"
#include "Blueprint/UserWidget.h"
#include "Blueprint/WidgetTree.h"

void UUMGSequencePlayer::Play(UWidgetAnimation* InAnimation, float StartAtTime, int32 InNumLoopsToPlay, EUMGSequencePlayMode::Type InPlayMode,
	float InPlaybackSpeed, bool bInRestoreState)
{
	if (bPlaying && bRestoreState)
	{
		Stop();
	}
	Animation = InAnimation;
	LoopsLeft = FMath::Max(0, InNumLoopsToPlay);
	PlayMode = InPlayMode;
	PlaybackSpeed = InPlaybackSpeed;
	bRestoreState = bInRestoreState;
	bBackwards = PlayMode == EUMGSequencePlayMode::Reverse;
	const double End = Animation ? Animation->GetEndTime() : 0.0;
	// The start time counts from the end of the animation when playing in reverse.
	Position = FMath::Clamp(bBackwards ? End - StartAtTime : double(StartAtTime), 0.0, End);
	bPlaying = Animation != nullptr;
	SavedStates.Reset();
	UUserWidget* Owner = GetUserWidget();
	if (bRestoreState && Owner && Owner->WidgetTree)
	{
		for (const FWidgetAnimationTrack& Track : Animation->GetTracks())
		{
			if (const UWidget* Target = Owner->WidgetTree->FindWidget(Track.WidgetName))
			{
				SavedStates.Add({ Track.WidgetName, Target->GetRenderOpacity(), Target->GetRenderTransform(), Target->GetVisibility() });
			}
		}
	}
}

void UUMGSequencePlayer::Stop()
{
	bPlaying = false;
	UUserWidget* Owner = GetUserWidget();
	if (!bRestoreState || !Owner || !Owner->WidgetTree)
	{
		return;
	}
	for (const FSavedState& Saved : SavedStates)
	{
		if (UWidget* Target = Owner->WidgetTree->FindWidget(Saved.WidgetName))
		{
			Target->SetRenderOpacity(Saved.Opacity);
			Target->SetRenderTransform(Saved.Transform);
			Target->SetVisibility(Saved.Visibility);
		}
	}
	SavedStates.Reset();
}

void UUMGSequencePlayer::Tick(float DeltaSeconds)
{
	if (!bPlaying || !Animation)
	{
		return;
	}
	const double End = Animation->GetEndTime();
	double Step = double(DeltaSeconds) * PlaybackSpeed;
	bool bFinished = false;
	// Each pass through the animation (each leg of a ping-pong) uses up one loop.
	while (Step > 0.0 && !bFinished)
	{
		const double Room = bBackwards ? Position : End - Position;
		if (Step < Room)
		{
			Position += bBackwards ? -Step : Step;
			break;
		}
		Step -= Room;
		Position = bBackwards ? 0.0 : End;
		if (LoopsLeft == 1)
		{
			bFinished = true;
		}
		else
		{
			LoopsLeft = LoopsLeft > 1 ? LoopsLeft - 1 : 0;
			if (PlayMode == EUMGSequencePlayMode::PingPong)
			{
				bBackwards = !bBackwards;
			}
			else
			{
				Position = bBackwards ? End : 0.0;
			}
			if (End <= 0.0)
			{
				break;
			}
		}
	}
	Apply();
	if (bFinished)
	{
		Stop();
	}
}

void UUMGSequencePlayer::Apply()
{
	UUserWidget* Owner = GetUserWidget();
	if (!Owner || !Owner->WidgetTree)
	{
		return;
	}
	for (const FWidgetAnimationTrack& Track : Animation->GetTracks())
	{
		UWidget* Target = Owner->WidgetTree->FindWidget(Track.WidgetName);
		if (!Target || Track.Keys.Num() == 0)
		{
			continue;
		}
		const FVector2D Value = Track.Evaluate(static_cast<float>(Position));
		switch (Track.Property)
		{
		case EWidgetAnimatedProperty::RenderOpacity:
			Target->SetRenderOpacity(static_cast<float>(Value.X));
			break;
		case EWidgetAnimatedProperty::RenderTranslation:
			Target->SetRenderTranslation(Value);
			break;
		case EWidgetAnimatedProperty::Visibility:
			Target->SetVisibility(static_cast<ESlateVisibility>(static_cast<uint8>(Value.X + 0.5)));
			break;
		}
	}
}

UUserWidget* UUMGSequencePlayer::GetUserWidget() const
{
	return Cast<UUserWidget>(GetOuter());
}
