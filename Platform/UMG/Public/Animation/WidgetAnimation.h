#pragma once

// UWidgetAnimation: a designer's animation of a widget blueprint. The blueprint's generated class
// owns one per animation, named "<DesignerName>_INST"; a user widget plays it on its own tree.

#include "CoreMinimal.h"
#include "UObject/Object.h"
#include "UObject/UObjectGlobals.h"
#include "Animation/WidgetAnimationTrack.h"
#include "WidgetAnimation.generated.h"

/** Keyframed tracks on named widgets of a user widget's tree. */
UCLASS(BlueprintType)
class UMG_API UWidgetAnimation : public UObject
{
	GENERATED_BODY()

public:
	/** Where the animation starts, in seconds (always 0). */
	UFUNCTION(BlueprintPure, Category = "Animation")
	float GetStartTime() const { return 0.0f; }
	/** Where the animation ends, in seconds. */
	UFUNCTION(BlueprintPure, Category = "Animation")
	float GetEndTime() const { return Length; }
	/** The designer's name, without the "_INST" suffix of the object name. */
	FString GetDisplayName() const;

	/** The animation's tracks. */
	const TArray<FWidgetAnimationTrack>& GetTracks() const { return Tracks; }
	/** Replaces the tracks (used when a widget blueprint is read). */
	void SetTracks(TArray<FWidgetAnimationTrack> InTracks) { Tracks = MoveTemp(InTracks); }

	/** Length in seconds. */
	UPROPERTY(EditAnywhere, Category = "Animation")
	float Length = 0.0f;

private:
	// Keyframes per animated widget property.
	TArray<FWidgetAnimationTrack> Tracks;
};
