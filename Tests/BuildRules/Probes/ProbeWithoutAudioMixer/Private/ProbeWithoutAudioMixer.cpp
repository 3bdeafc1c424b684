#include "MediaSoundComponent.h"

void ProbeMute(UMediaSoundComponent& Sound) { Sound.SetVolumeMultiplier(0.0f); }
