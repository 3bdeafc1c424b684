#pragma once

// UMediaSoundComponent: plays a media player's sound through the mix, with the synth's volume
// multiplier applied.

#include "CoreMinimal.h"
#include "Components/SynthComponent.h"
#include "UObject/ObjectPtr.h"
#include "MediaSoundComponent.generated.h"

class UMediaPlayer;

/** Takes its player's sound (48 kHz float stereo) up to the player's clock, once per frame, while registered and playing. */
UCLASS(ClassGroup = Media)
class MEDIAASSETS_API UMediaSoundComponent : public USynthComponent
{
	GENERATED_BODY()

public:
	/** Sets the player whose sound this component plays (null plays silence). */
	UFUNCTION(BlueprintCallable, Category = "Media|MediaSoundComponent")
	void SetMediaPlayer(UMediaPlayer* NewMediaPlayer);

	/** The player whose sound this component plays. */
	UFUNCTION(BlueprintCallable, Category = "Media|MediaSoundComponent")
	UMediaPlayer* GetMediaPlayer() const { return MediaPlayer; }

protected:
	int32 OnGenerateAudio(float* OutAudio, int32 NumSamples) override;

	/** The player whose sound this component plays. */
	UPROPERTY(EditAnywhere, BlueprintReadWrite, Category = "Media")
	TObjectPtr<UMediaPlayer> MediaPlayer;
};
