#include "AllocationCounter.h"

#include "Materials/Material.h"
#include "TimerManager.h"
#include "UObject/UObjectGlobals.h"

#include <benchmark/benchmark.h>

// The bullet chat moves every flying comment from a looping 0.01 s timer, so a frame with a
// thousand comments on screen fires about 1,700 callbacks. Ticking must stay cheap and must not
// allocate: each benchmark reports "allocs", the heap allocations per timed iteration.

namespace
{
	constexpr int32 NumTimers = 1000;
	constexpr float Frame = 1.f / 60.f;

	void ReportAllocations(benchmark::State& State, uint64 Before)
	{
		State.counters["allocs"] = double(GetAllocationCount() - Before) / double(State.iterations());
	}

	/** Objects to bind timers to weakly, as the plug-in's nodes are bound. */
	TArray<UMaterial*> MakeTargets()
	{
		TArray<UMaterial*> Targets;
		for (int32 Index = 0; Index < NumTimers; ++Index)
		{
			UMaterial* Target = NewObject<UMaterial>();
			Target->AddToRoot();
			Targets.Add(Target);
		}
		return Targets;
	}

	void BM_TickThousandLoopingTimers(benchmark::State& State)
	{
		static const TArray<UMaterial*> Targets = MakeTargets();
		FTimerManager Timers;
		TArray<FTimerHandle> Handles;
		Handles.SetNum(NumTimers);
		int64 Calls = 0;
		for (int32 Index = 0; Index < NumTimers; ++Index)
		{
			Timers.SetTimer(Handles[Index], FTimerDelegate::CreateWeakLambda(Targets[Index], [&Calls] { ++Calls; }), 0.01f, true);
		}
		const uint64 Before = GetAllocationCount();
		for (auto _ : State)
		{
			Timers.Tick(Frame);
		}
		ReportAllocations(State, Before);
		State.counters["calls/tick"] = double(Calls) / double(State.iterations());
	}
	BENCHMARK(BM_TickThousandLoopingTimers);

	void BM_SetAndClearTimer(benchmark::State& State)
	{
		static const TArray<UMaterial*> Targets = MakeTargets();
		FTimerManager Timers;
		FTimerHandle Handle;
		int32 Index = 0;
		// Warm the slot storage so the loop measures steady state.
		Timers.SetTimer(Handle, FTimerDelegate::CreateWeakLambda(Targets[0], [] {}), 0.01f, true);
		Timers.ClearTimer(Handle);
		const uint64 Before = GetAllocationCount();
		for (auto _ : State)
		{
			Timers.SetTimer(Handle, FTimerDelegate::CreateWeakLambda(Targets[Index], [] {}), 0.01f, true);
			Timers.ClearTimer(Handle);
			Index = (Index + 1) % NumTimers;
		}
		ReportAllocations(State, Before);
	}
	BENCHMARK(BM_SetAndClearTimer);

	/** The plug-in's form: SetTimer with an object and a member function (one allocation: the binding). */
	void BM_SetAndClearMemberTimer(benchmark::State& State)
	{
		static const TArray<UMaterial*> Targets = MakeTargets();
		FTimerManager Timers;
		FTimerHandle Handle;
		int32 Index = 0;
		Timers.SetTimer(Handle, Targets[0], &UMaterial::PostInitProperties, 0.01f, true);
		Timers.ClearTimer(Handle);
		const uint64 Before = GetAllocationCount();
		for (auto _ : State)
		{
			Timers.SetTimer(Handle, Targets[Index], &UMaterial::PostInitProperties, 0.01f, true);
			Timers.ClearTimer(Handle);
			Index = (Index + 1) % NumTimers;
		}
		ReportAllocations(State, Before);
	}
	BENCHMARK(BM_SetAndClearMemberTimer);
}
