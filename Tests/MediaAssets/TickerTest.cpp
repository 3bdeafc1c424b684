// FTSTicker, the core ticker the frame loop runs at its media step.

#include "Containers/Ticker.h"
#include "CoreMinimal.h"

#include <gtest/gtest.h>

TEST(Ticker, RunsDueCallbacksAndHonoursRemovalFromInsideATick)
{
	FTSTicker Ticker;
	TArray<FString> Ran;
	int32 EveryTick = 0;
	Ticker.AddTicker(TEXT("every"), 0.f, [&](float) { ++EveryTick; return true; });
	Ticker.AddTicker(TEXT("delayed"), 0.5f, [&](float) { Ran.Add(TEXT("delayed")); return true; });
	Ticker.AddTicker(TEXT("once"), 0.f, [&](float) { Ran.Add(TEXT("once")); return false; });
	FTSTicker::FDelegateHandle Victim;
	Ticker.AddTicker(TEXT("remover"), 0.f, [&](float) {
		FTSTicker::RemoveTicker(Victim);
		// Added during a tick: first runs on the next one.
		Ticker.AddTicker(TEXT("late"), 0.f, [&](float) { Ran.Add(TEXT("late")); return false; });
		return false;
	});
	Victim = Ticker.AddTicker(TEXT("victim"), 0.f, [&](float) { Ran.Add(TEXT("victim")); return true; });

	Ticker.Tick(0.25f);
	EXPECT_EQ(FString::Join(Ran, TEXT(" ")), TEXT("once"));
	Ticker.Tick(0.25f);
	EXPECT_EQ(FString::Join(Ran, TEXT(" ")), TEXT("once delayed late")) << "in order of addition";
	Ticker.Tick(0.25f);
	EXPECT_EQ(FString::Join(Ran, TEXT(" ")), TEXT("once delayed late")) << "the delayed one waits its full interval again";
	EXPECT_EQ(EveryTick, 3);
	EXPECT_EQ(Ticker.Num(), 2);
	FTSTicker::RemoveTicker(FTSTicker::FDelegateHandle());
}
