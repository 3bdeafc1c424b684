#include "Components/AudioComponent.h"

#include <algorithm>

void UAudioComponent::SetVolumeMultiplier(float NewVolumeMultiplier)
{
	VolumeMultiplier = std::max(0.f, NewVolumeMultiplier);
}

void UAudioComponent::Play(float StartTime)
{
	bIsPlaying = true;
}

void UAudioComponent::Stop()
{
	bIsPlaying = false;
}

bool UAudioComponent::IsPlaying() const
{
	return bIsPlaying;
}
