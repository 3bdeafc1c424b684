#include "MediaSoundComponent.h"

// The call the lesson player makes to set its volume.
void ProbeSetVolume(UMediaSoundComponent& Sound)
{
	Sound.SetVolumeMultiplier(0.5f);
}
