#include "Components/SynthComponent.h"

#include "AudioMixerDevice.h"
#include "AudioSink.h"
#include "Components/AudioComponent.h"
#include "UObject/UObjectGlobals.h"

#include <algorithm>

void USynthComponent::Start()
{
	if (AudioComponent)
	{
		AudioComponent->Play();
	}
}

void USynthComponent::Stop()
{
	if (AudioComponent)
	{
		AudioComponent->Stop();
	}
}

bool USynthComponent::IsPlaying() const
{
	return AudioComponent && AudioComponent->IsPlaying();
}

void USynthComponent::SetVolumeMultiplier(float InVolumeMultiplier)
{
	VolumeMultiplier = InVolumeMultiplier;
	if (AudioComponent)
	{
		AudioComponent->SetVolumeMultiplier(InVolumeMultiplier);
	}
}

void USynthComponent::MixInto(float* Mix, int32 Frames)
{
	if (!IsPlaying() || Frames <= 0)
	{
		return;
	}
	const int32 Samples = Frames * UE::Audio::MixerChannels;
	Scratch.SetNumUninitialized(Samples);
	std::fill(Scratch.GetData(), Scratch.GetData() + Samples, 0.f);
	const int32 Written = std::clamp(OnGenerateAudio(Scratch.GetData(), Samples), 0, Samples);
	// The audio component plays the synth, so its multiplier is the one heard; SetVolumeMultiplier keeps both equal.
	const float Gain = std::max(0.f, AudioComponent->VolumeMultiplier);
	for (int32 Index = 0; Index < Written; ++Index)
	{
		Mix[Index] += Scratch[Index] * Gain;
	}
}

void USynthComponent::OnRegister()
{
	Super::OnRegister();
	if (!AudioComponent)
	{
		AudioComponent = NewObject<UAudioComponent>(this);
		AudioComponent->SetVolumeMultiplier(VolumeMultiplier);
	}
	UE::Audio::Private::AddSynth(this);
	if (bAutoActivate)
	{
		Start();
	}
}

void USynthComponent::OnUnregister()
{
	Stop();
	UE::Audio::Private::RemoveSynth(this);
	Super::OnUnregister();
}
