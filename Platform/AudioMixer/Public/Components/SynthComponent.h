#pragma once

// USynthComponent: a component that generates sound into the mix. Registration gives it the
// UAudioComponent that plays it, so GetAudioComponent() is null until then.

#include "CoreMinimal.h"
#include "Components/SceneComponent.h"
#include "UObject/ObjectPtr.h"
#include "SynthComponent.generated.h"

class UAudioComponent;

/** Generates sound each frame (OnGenerateAudio) while registered and playing; starts on registration. */
UCLASS(Abstract)
class AUDIOMIXER_API USynthComponent : public USceneComponent
{
	GENERATED_BODY()

public:
	/** Starts the synth generating audio. */
	UFUNCTION(BlueprintCallable, Category = "Synth|Components|Audio")
	void Start();

	/** Stops the synth generating audio. */
	UFUNCTION(BlueprintCallable, Category = "Synth|Components|Audio")
	void Stop();

	/** True while the synth generates audio. */
	UFUNCTION(BlueprintCallable, Category = "Synth|Components|Audio")
	bool IsPlaying() const;

	/** Sets a new volume multiplier, here and on the audio component. */
	UFUNCTION(BlueprintCallable, Category = "Audio|Components|Audio")
	void SetVolumeMultiplier(float InVolumeMultiplier);

	/** Retrieves this synth component's audio component (null until registered). */
	UFUNCTION(BlueprintCallable, Category = "Synth|Components|Audio")
	UAudioComponent* GetAudioComponent() { return AudioComponent; }

	/** The synth's volume multiplier. */
	UPROPERTY(EditAnywhere, BlueprintReadOnly, Category = "Sound")
	float VolumeMultiplier = 1.f;

	/** Start generating as soon as the component is registered. */
	UPROPERTY(EditAnywhere, BlueprintReadWrite, Category = "Activation")
	bool bAutoActivate = true;

#if PLAIN_PLATFORM_INTERNALS
	/** The stand-in's: adds Frames of this synth's sound (stereo, volume applied) to Mix; the mixer calls it each frame. */
	void MixInto(float* Mix, int32 Frames);
#endif

protected:
	/** Fills NumSamples interleaved stereo samples; returns how many it wrote (the rest stays silent). */
	virtual int32 OnGenerateAudio(float* OutAudio, int32 NumSamples) { return 0; }

	void OnRegister() override;
	void OnUnregister() override;

	/** The audio component that plays this synth, made at registration. */
	UPROPERTY(Transient)
	TObjectPtr<UAudioComponent> AudioComponent;

private:
	// OnGenerateAudio's output before the volume is applied; game thread only.
	TArray<float> Scratch;
};
