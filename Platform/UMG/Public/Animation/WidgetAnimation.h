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
#if PLAIN_PLATFORM_INTERNALS
	/** Stand-in: the designer's name, without the "_INST" suffix of the object name. */
	FString GetDisplayName() const;
	/** Stand-in: the animation's tracks. */
	const TArray<FWidgetAnimationTrack>& GetTracks() const { return Tracks; }
	/** Stand-in: replaces the tracks (used when a widget blueprint is read). */
	void SetTracks(TArray<FWidgetAnimationTrack> InTracks) { Tracks = MoveTemp(InTracks); }
	/** Stand-in: sets the length in seconds (the engine's comes from its movie scene). */
	void SetLength(float InLength) { Length = InLength; }
#endif

private:
	// The stand-in's keyframes stand where the engine keeps a movie scene.

	/** Length in seconds. */
	UPROPERTY(EditAnywhere, Category = "Animation")
	float Length = 0.0f;

	// Keyframes per animated widget property.
	TArray<FWidgetAnimationTrack> Tracks;
};
