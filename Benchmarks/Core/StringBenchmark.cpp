// FString comparisons and hashing: the operations TMap<FString, ...> and == run all the time.
// Each reports "allocs", the heap allocations made inside the timed loop, which must be 0.

#include "AllocationCounter.h"
#include "Containers/UnrealString.h"

#include <benchmark/benchmark.h>

namespace
{
	// Length characters cycling through a short alphabet, in lower case.
	FString MakeText(int64 Length, const TCHAR* Alphabet)
	{
		const int32 AlphabetLength = FCString::Strlen(Alphabet);
		FString Text;
		for (int64 Index = 0; Index < Length; ++Index)
		{
			Text.AppendChar(Alphabet[Index % AlphabetLength]);
		}
		return Text;
	}

	void ReportAllocations(benchmark::State& State, uint64 Before)
	{
		State.counters["allocs"] = static_cast<double>(GetAllocationCount() - Before);
	}

	void StringEqualsIgnoringCase(benchmark::State& State, const TCHAR* Alphabet)
	{
		const FString Lower = MakeText(State.range(0), Alphabet);
		const FString Upper = Lower.ToUpper();
		const uint64 Before = GetAllocationCount();
		for (auto _ : State)
		{
			benchmark::DoNotOptimize(Lower == Upper);
		}
		ReportAllocations(State, Before);
	}

	void BM_StringEqualsIgnoringCase(benchmark::State& State)
	{
		StringEqualsIgnoringCase(State, TEXT("abcdefghijklmnopqrstuvwxyz"));
	}

	void BM_StringEqualsIgnoringCaseNonAscii(benchmark::State& State)
	{
		StringEqualsIgnoringCase(State, TEXT("àéîõüçñßабв"));
	}

	void BM_StringEqualsDifferingEarly(benchmark::State& State)
	{
		const FString First = MakeText(State.range(0), TEXT("abcdefghijklmnopqrstuvwxyz"));
		FString Second = First;
		Second[1] = 'Z';
		const uint64 Before = GetAllocationCount();
		for (auto _ : State)
		{
			benchmark::DoNotOptimize(First == Second);
		}
		ReportAllocations(State, Before);
	}

	void BM_StringCompareIgnoringCase(benchmark::State& State)
	{
		const FString First = MakeText(State.range(0), TEXT("abcdefghijklmnopqrstuvwxyz"));
		const FString Second = First.ToUpper() + TEXT("x");
		const uint64 Before = GetAllocationCount();
		for (auto _ : State)
		{
			benchmark::DoNotOptimize(First.Compare(Second, ESearchCase::IgnoreCase));
		}
		ReportAllocations(State, Before);
	}

	void BM_StringHash(benchmark::State& State)
	{
		const FString Text = MakeText(State.range(0), TEXT("Bullet Chat 42 "));
		const uint64 Before = GetAllocationCount();
		for (auto _ : State)
		{
			benchmark::DoNotOptimize(GetTypeHash(Text));
		}
		ReportAllocations(State, Before);
	}
}

BENCHMARK(BM_StringEqualsIgnoringCase)->Arg(16)->Arg(256);
BENCHMARK(BM_StringEqualsIgnoringCaseNonAscii)->Arg(16)->Arg(256);
BENCHMARK(BM_StringEqualsDifferingEarly)->Arg(16)->Arg(256);
BENCHMARK(BM_StringCompareIgnoringCase)->Arg(16)->Arg(256);
BENCHMARK(BM_StringHash)->Arg(16)->Arg(256);
