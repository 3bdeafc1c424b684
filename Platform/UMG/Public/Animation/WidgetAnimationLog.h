#pragma once

#if !PLAIN_PLATFORM_INTERNALS
#error "Animation/WidgetAnimationLog.h belongs to the stand-in; the engine has no such header"
#endif

// FWidgetAnimationLog (stand-in only): every PlayAnimation call of the process, in order, so tests
// can ask which animations played, with which arguments and how often.

#include "CoreMinimal.h"
#include "UObject/WeakObjectPtrTemplates.h"
#include "Blueprint/UserWidget.h"

class UUserWidget;
class UWidgetAnimation;

/** One PlayAnimation call. */
struct FWidgetAnimationPlay
{
	/** The widget that played it. */
	TWeakObjectPtr<UUserWidget> Widget;
	/** The animation's designer name (without "_INST"); empty for a null animation. */
	FString AnimationName;
	/** The arguments of the call. */
	float StartAtTime = 0.0f;
	int32 NumLoopsToPlay = 1;
	EUMGSequencePlayMode::Type PlayMode = EUMGSequencePlayMode::Forward;
	float PlaybackSpeed = 1.0f;
	bool bRestoreState = false;
};

/** The record of PlayAnimation calls. Game thread only. */
class UMG_API FWidgetAnimationLog
{
public:
	/** The process-wide record. */
	static FWidgetAnimationLog& Get();

	/** Adds one call. */
	void Record(const FWidgetAnimationPlay& Play) { Plays.Add(Play); }
	/** Every call, oldest first. */
	const TArray<FWidgetAnimationPlay>& GetPlays() const { return Plays; }
	/** How often Widget (any widget when null) played the animation named Name (case ignored). */
	int32 CountPlays(const UUserWidget* Widget, const FString& Name) const;
	/** Forgets every call. */
	void Clear() { Plays.Empty(); }

private:
	// Calls in order.
	TArray<FWidgetAnimationPlay> Plays;
};
