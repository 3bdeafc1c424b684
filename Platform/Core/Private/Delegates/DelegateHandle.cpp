#include "Delegates/DelegateHandle.h"
#include "Delegates/DelegateInstanceInterface.h"

#include <atomic>

uint64 FDelegateHandle::GenerateNewID()
{
	// Starts at 1 so 0 stays "no binding"; bindings are made from any thread.
	static std::atomic<uint64> NextID{1};
	return NextID.fetch_add(1, std::memory_order_relaxed);
}

std::atomic<int32> IDelegateInstance::LiveCount{0};
