#include "MediaSoundComponent.h"

#include "AudioSink.h"
#include "MediaPlayer.h"

void UMediaSoundComponent::SetMediaPlayer(UMediaPlayer* NewMediaPlayer)
{
	MediaPlayer = NewMediaPlayer;
}

int32 UMediaSoundComponent::OnGenerateAudio(float* OutAudio, int32 NumSamples)
{
	if (!MediaPlayer)
	{
		return 0;
	}
	MediaPlayer->PullAudio(OutAudio, NumSamples / UE::Audio::MixerChannels);
	return NumSamples;
}
