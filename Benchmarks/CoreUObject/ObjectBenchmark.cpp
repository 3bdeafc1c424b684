// The object system's hot paths: the comment overlay's per-frame question (is there a bucket for
// this second?) and a multicast broadcast to weakly bound listeners. Both must allocate nothing.

#include "AllocationCounter.h"

#include "CoreMinimal.h"
#include "CoreUObject.h"

#include <benchmark/benchmark.h>

namespace
{
	struct FRecord
	{
		int32 ID = 0;
		FString Content;
	};

	TMap<FTimespan, TArray<FRecord>> MakeBuckets(int32 Seconds)
	{
		TMap<FTimespan, TArray<FRecord>> Buckets;
		for (int32 Second = 0; Second < Seconds; ++Second)
		{
			TArray<FRecord>& Bucket = Buckets.FindOrAdd(FTimespan::FromSeconds(Second));
			Bucket.Add({ Second, FString::Printf(TEXT("Comment %d"), Second) });
		}
		return Buckets;
	}

	void ReportAllocations(benchmark::State& State, uint64 Before)
	{
		State.counters["allocs"] = benchmark::Counter(static_cast<double>(GetAllocationCount() - Before), benchmark::Counter::kAvgIterations);
	}
}

static void TimespanBucketLookupPresent(benchmark::State& State)
{
	const TMap<FTimespan, TArray<FRecord>> Buckets = MakeBuckets(3600);
	const FTimespan Key = FTimespan::FromSeconds(1234);
	const uint64 Before = GetAllocationCount();
	for (auto _ : State)
	{
		benchmark::DoNotOptimize(Buckets.Find(Key));
	}
	ReportAllocations(State, Before);
}
BENCHMARK(TimespanBucketLookupPresent);

static void TimespanBucketLookupAbsent(benchmark::State& State)
{
	const TMap<FTimespan, TArray<FRecord>> Buckets = MakeBuckets(3600);
	const FTimespan Key = FTimespan::FromSeconds(5000);
	const uint64 Before = GetAllocationCount();
	for (auto _ : State)
	{
		benchmark::DoNotOptimize(Buckets.Find(Key));
	}
	ReportAllocations(State, Before);
}
BENCHMARK(TimespanBucketLookupAbsent);

DECLARE_MULTICAST_DELEGATE_OneParam(FOnBenchmarkEvent, int32);

static void MulticastBroadcastTenWeakObjectBindings(benchmark::State& State)
{
	FOnBenchmarkEvent Event;
	TArray<UObject*> Listeners;
	int32 Sum = 0;
	for (int32 Index = 0; Index < 10; ++Index)
	{
		UObject* Listener = NewObject<UObject>();
		Listener->AddToRoot();
		Listeners.Add(Listener);
		Event.AddWeakLambda(Listener, [&Sum](int32 Value) { Sum += Value; });
	}
	const uint64 Before = GetAllocationCount();
	for (auto _ : State)
	{
		Event.Broadcast(1);
	}
	ReportAllocations(State, Before);
	benchmark::DoNotOptimize(Sum);
	for (UObject* Listener : Listeners)
	{
		Listener->RemoveFromRoot();
	}
}
BENCHMARK(MulticastBroadcastTenWeakObjectBindings);
