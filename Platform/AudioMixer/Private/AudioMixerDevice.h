#pragma once

// The mix: every registered synth component, rendered once per frame of the loop into one
// stereo block that goes to the sink.

#include "CoreMinimal.h"

class USynthComponent;

namespace UE::Audio::Private
{
	/** Adds a synth to the mix (game thread); the mixer's core ticker is added with the first one. */
	void AddSynth(USynthComponent* Synth);

	/** Takes a synth out of the mix. */
	void RemoveSynth(USynthComponent* Synth);
}
