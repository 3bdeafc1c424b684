#include "AllocationCounter.h"

#include "Containers/Array.h"
#include "Containers/Map.h"
#include "Delegates/Delegate.h"
#include "Templates/SharedPointer.h"

#include <benchmark/benchmark.h>

// Map lookups and multicast broadcasts are on the per-frame path, so both must stay free of heap
// allocations: each benchmark reports "allocs", the allocations per iteration of its timed loop.

namespace
{
	constexpr int64 NumKeys = 10000;

	TMap<int64, TArray<int32>> MakeMap()
	{
		TMap<int64, TArray<int32>> Map;
		for (int64 Key = 0; Key < NumKeys; ++Key)
		{
			// Spread out, so the keys are not simply 0..N-1.
			Map.Add(Key * 7919, {int32(Key), int32(Key) + 1});
		}
		return Map;
	}

	void ReportAllocations(benchmark::State& State, uint64 Before)
	{
		State.counters["allocs"] = double(GetAllocationCount() - Before) / double(State.iterations());
	}

	void BM_MapFindPresentKey(benchmark::State& State)
	{
		const TMap<int64, TArray<int32>> Map = MakeMap();
		int64 Key = 0;
		const uint64 Before = GetAllocationCount();
		for (auto _ : State)
		{
			const TArray<int32>* Found = Map.Find(Key * 7919);
			benchmark::DoNotOptimize(Found);
			Key = (Key + 1) % NumKeys;
		}
		ReportAllocations(State, Before);
	}
	BENCHMARK(BM_MapFindPresentKey);

	void BM_MapFindAbsentKey(benchmark::State& State)
	{
		const TMap<int64, TArray<int32>> Map = MakeMap();
		int64 Key = 0;
		const uint64 Before = GetAllocationCount();
		for (auto _ : State)
		{
			const bool bFound = Map.Contains(Key * 7919 + 1);
			benchmark::DoNotOptimize(bFound);
			Key = (Key + 1) % NumKeys;
		}
		ReportAllocations(State, Before);
	}
	BENCHMARK(BM_MapFindAbsentKey);

	struct FListener : TSharedFromThis<FListener>
	{
		void OnValue(int32 Value) { Total += Value; }
		int64 Total = 0;
	};

	void BM_MulticastBroadcastTenSPBindings(benchmark::State& State)
	{
		TMulticastDelegate<void(int32)> Multicast;
		TArray<TSharedRef<FListener>> Listeners;
		for (int32 Index = 0; Index < 10; ++Index)
		{
			Listeners.Add(MakeShared<FListener>());
			Multicast.AddSP(Listeners.Last(), &FListener::OnValue);
		}
		const uint64 Before = GetAllocationCount();
		for (auto _ : State)
		{
			Multicast.Broadcast(1);
		}
		ReportAllocations(State, Before);
		benchmark::DoNotOptimize(Listeners[0]->Total);
	}
	BENCHMARK(BM_MulticastBroadcastTenSPBindings);
}
