#pragma once

// UAudioComponent: a playing sound and its volume. The stand-in does not mix anything itself;
// whoever produces the sound (the media sound component) reads VolumeMultiplier and IsPlaying.

#include "CoreMinimal.h"
#include "Components/SceneComponent.h"
#include "AudioComponent.generated.h"

/** A sound source with a volume multiplier; Play and Stop switch it on and off. */
UCLASS()
class ENGINE_API UAudioComponent : public USceneComponent
{
	GENERATED_BODY()

public:
	/** Scale applied to the sound's amplitude (1 leaves it unchanged, 0 silences it). */
	UPROPERTY(EditAnywhere, BlueprintReadWrite, Category = "Sound")
	float VolumeMultiplier = 1.f;

	/** Sets VolumeMultiplier; negative values become 0. */
	UFUNCTION(BlueprintCallable, Category = "Audio|Components|Audio")
	void SetVolumeMultiplier(float NewVolumeMultiplier);

	/** Starts the sound, from StartTime seconds in. */
	UFUNCTION(BlueprintCallable, Category = "Audio|Components|Audio")
	virtual void Play(float StartTime = 0.f);

	/** Stops the sound. */
	UFUNCTION(BlueprintCallable, Category = "Audio|Components|Audio")
	virtual void Stop();

	/** True between Play and Stop. */
	UFUNCTION(BlueprintCallable, Category = "Audio|Components|Audio")
	virtual bool IsPlaying() const;

private:
	// Between Play and Stop.
	bool bIsPlaying = false;
};
