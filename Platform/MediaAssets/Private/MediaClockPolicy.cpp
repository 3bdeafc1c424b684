#include "MediaClockPolicy.h"

#include <atomic>

namespace
{
	// Atomic because a sound device's thread may pull sound (and so ask how long to wait) while
	// the game thread changes the policy.
	std::atomic<EMediaClockPolicy> Policy{EMediaClockPolicy::WallClock};
}

void SetMediaClockPolicy(EMediaClockPolicy InPolicy)
{
	Policy.store(InPolicy, std::memory_order_relaxed);
}

EMediaClockPolicy GetMediaClockPolicy()
{
	return Policy.load(std::memory_order_relaxed);
}
