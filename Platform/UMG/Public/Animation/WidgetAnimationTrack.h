#pragma once

// FWidgetAnimationTrack: keyframes of one property of one named widget. Opacity and translation
// are interpolated linearly between keys; visibility steps (each key holds until the next).

#include "CoreMinimal.h"
#include "Math/Vector2D.h"

/** The widget properties an animation can drive. */
enum class EWidgetAnimatedProperty : uint8
{
	/** UWidget::SetRenderOpacity; the key's X. */
	RenderOpacity,
	/** UWidget::SetRenderTranslation; the key's X and Y. */
	RenderTranslation,
	/** UWidget::SetVisibility; the key's X holds the ESlateVisibility value. */
	Visibility
};

/** One key: a time in seconds and a value (one or two components). */
struct FWidgetAnimationKey
{
	/** Seconds from the animation's start. */
	float Time = 0.0f;
	/** The value; opacity and visibility use X only. */
	FVector2D Value = FVector2D::ZeroVector;
};

/** The keys of one property of one widget, sorted by time. */
struct FWidgetAnimationTrack
{
	/** Name of the widget in the user widget's tree. */
	FName WidgetName;
	/** The property driven. */
	EWidgetAnimatedProperty Property = EWidgetAnimatedProperty::RenderOpacity;
	/** Keys, in increasing time. */
	TArray<FWidgetAnimationKey> Keys;

	/** The value at Time: linear between keys (step for visibility), held before the first and after the last. */
	UMG_API FVector2D Evaluate(float Time) const;
};
