#pragma once

// UUMGSequencePlayer: one running animation of one user widget. The user widget advances it after
// its NativeTick; a player that has played all its loops stops and is dropped.

#include "CoreMinimal.h"
#include "UObject/Object.h"
#include "UObject/ObjectPtr.h"
#include "Blueprint/UserWidget.h"
#include "Components/SlateWrapperTypes.h"
#include "Slate/WidgetTransform.h"
#include "UMGSequencePlayer.generated.h"

class UUserWidget;
class UWidgetAnimation;

/** Plays a widget animation on the tree of the user widget that is its outer. */
UCLASS()
class UMG_API UUMGSequencePlayer : public UObject
{
	GENERATED_BODY()

public:
	/** Stops where it is; restores the widgets first when asked to at Play. */
	void Stop();
	/** The animation played. */
	const UWidgetAnimation* GetAnimation() const { return Animation.Get(); }

#if PLAIN_PLATFORM_INTERNALS
	/** Stand-in: starts (or restarts) the animation; see UUserWidget::PlayAnimation for the arguments. */
	void Play(UWidgetAnimation* InAnimation, float StartAtTime, int32 InNumLoopsToPlay, EUMGSequencePlayMode::Type InPlayMode, float InPlaybackSpeed, bool bInRestoreState);
	/** Stand-in: advances by DeltaSeconds and applies the animation to the widgets. */
	void Tick(float DeltaSeconds);
	/** Stand-in: true until the animation ends or is stopped. */
	bool IsPlaying() const { return bPlaying; }
	/** Stand-in: seconds into the animation (the engine answers in frames). */
	float GetCurrentTime() const { return static_cast<float>(Position); }
#endif

private:
	/** A value saved before the animation first touched a widget, for bRestoreState. */
	struct FSavedState
	{
		FName WidgetName;
		float Opacity = 1.0f;
		FWidgetTransform Transform;
		ESlateVisibility Visibility = ESlateVisibility::Visible;
	};

	/** Writes the animation's values at Position to the owning widget's tree. */
	void Apply();
	UUserWidget* GetUserWidget() const;

	// The animation being played.
	UPROPERTY()
	TObjectPtr<UWidgetAnimation> Animation;
	// Seconds into the animation, in double so long loops do not drift.
	double Position = 0.0;
	// Loops left including the current one; 0 means forever.
	int32 LoopsLeft = 1;
	// Forward, reverse or ping-pong.
	EUMGSequencePlayMode::Type PlayMode = EUMGSequencePlayMode::Forward;
	// For ping-pong: true while running backwards.
	bool bBackwards = false;
	// Speed multiplier.
	float PlaybackSpeed = 1.0f;
	// Whether Stop and the end restore the widgets' saved state.
	bool bRestoreState = false;
	// True while running.
	bool bPlaying = false;
	// The widgets' state before the animation, when bRestoreState is set.
	TArray<FSavedState> SavedStates;
};
