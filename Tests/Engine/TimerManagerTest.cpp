// FTimerManager and the world that ticks it: catch-up, first delays, callbacks that change the
// timer set, and timers whose object is gone.

#include "TimerManagerTestTypes.h"

#include "Engine/World.h"
#include "UObject/GarbageCollection.h"
#include "UObject/UObjectGlobals.h"

#include <gtest/gtest.h>

namespace
{
	constexpr float Frame = 1.f / 60.f;

	UTimerTestTarget* MakeTarget()
	{
		return NewObject<UTimerTestTarget>();
	}
}

TEST(TimerCatchUp, LoopingTimerFiresOnceForEveryElapsedInterval)
{
	UWorld* World = UWorld::CreateWorld(FName(TEXT("CatchUp")));
	UTimerTestTarget* Target = MakeTarget();
	FTimerHandle Handle;
	World->GetTimerManager().SetTimer(Handle, Target, &UTimerTestTarget::OnFire, 0.01f, true);
	for (int32 Step = 0; Step < 60; ++Step)
	{
		World->Tick(Frame);
	}
	EXPECT_EQ(Target->Calls, 100) << "rate 0.01 s over one second of 1/60 s frames";
	EXPECT_NEAR(World->GetTimeSeconds(), 1.f, 1e-5f);
	for (int32 Step = 0; Step < 60 * 9; ++Step)
	{
		World->Tick(Frame);
	}
	EXPECT_EQ(Target->Calls, 1000) << "no firing is lost to rounding over ten seconds";

	// A one-shot timer fires once however long the frame, and is gone afterwards.
	FTimerHandle Once;
	World->GetTimerManager().SetTimer(Once, Target, &UTimerTestTarget::OnFireConst, 0.01f, false);
	World->Tick(1.f);
	EXPECT_EQ(Target->ConstCalls, 1);
	EXPECT_FALSE(World->GetTimerManager().IsTimerActive(Once));
	World->DestroyWorld();
}

TEST(TimerFirstDelay, NegativeMeansTheRateZeroMeansNextTickAndRateZeroClears)
{
	FTimerManager Timers;
	UTimerTestTarget* Target = MakeTarget();
	FTimerHandle Handle;

	Timers.SetTimer(Handle, Target, &UTimerTestTarget::OnFire, 0.5f, true, -1.f);
	EXPECT_FLOAT_EQ(Timers.GetTimerRemaining(Handle), 0.5f);
	Timers.Tick(0.4f);
	EXPECT_EQ(Target->Calls, 0);
	Timers.Tick(0.1f);
	EXPECT_EQ(Target->Calls, 1);

	Timers.SetTimer(Handle, Target, &UTimerTestTarget::OnFire, 0.5f, true, 0.f);
	EXPECT_EQ(Timers.GetNumTimers(), 1) << "setting a live handle replaces its timer";
	Timers.Tick(0.001f);
	EXPECT_EQ(Target->Calls, 2) << "a zero first delay fires on the next tick";
	Timers.Tick(0.498f);
	EXPECT_EQ(Target->Calls, 2);
	Timers.Tick(0.002f);
	EXPECT_EQ(Target->Calls, 3) << "then every rate after the first firing";

	Timers.SetTimer(Handle, Target, &UTimerTestTarget::OnFire, 0.2f, false, 1.f);
	Timers.Tick(0.5f);
	EXPECT_EQ(Target->Calls, 3) << "a positive first delay wins over the rate";
	EXPECT_NEAR(Timers.GetTimerRemaining(Handle), 0.5f, 1e-6f);

	Timers.SetTimer(Handle, Target, &UTimerTestTarget::OnFire, 0.f, true);
	EXPECT_FALSE(Handle.IsValid()) << "a rate of zero clears";
	EXPECT_EQ(Timers.GetNumTimers(), 0);
	EXPECT_EQ(Timers.GetTimerRemaining(Handle), -1.f);
	Timers.Tick(5.f);
	EXPECT_EQ(Target->Calls, 3);
}

TEST(TimerCallbacks, MayClearOrSetTimersAndNewTimersWaitForTheNextTick)
{
	FTimerManager Timers;
	UTimerTestTarget* Self = MakeTarget();
	UTimerTestTarget* Other = MakeTarget();
	UTimerTestTarget* Late = MakeTarget();
	FTimerHandle SelfHandle;
	FTimerHandle OtherHandle;
	FTimerHandle LateHandle;

	// Clears its own timer on the first call: ten elapsed intervals still give one call.
	Self->Action = [&] { Timers.ClearTimer(SelfHandle); };
	Timers.SetTimer(SelfHandle, Self, &UTimerTestTarget::OnFire, 0.01f, true);
	Timers.Tick(0.1f);
	EXPECT_EQ(Self->Calls, 1);
	EXPECT_FALSE(SelfHandle.IsValid());

	// The first timer due clears one due later in the same frame, and sets a new one due at once.
	Self->Calls = 0;
	Self->Action = [&]
	{
		Timers.ClearTimer(OtherHandle);
		Timers.SetTimer(LateHandle, Late, &UTimerTestTarget::OnFire, 0.01f, false, 0.f);
	};
	Timers.SetTimer(SelfHandle, Self, &UTimerTestTarget::OnFire, 0.1f, false);
	Timers.SetTimer(OtherHandle, Other, &UTimerTestTarget::OnFire, 0.2f, false);
	Timers.Tick(0.3f);
	EXPECT_EQ(Self->Calls, 1);
	EXPECT_EQ(Other->Calls, 0) << "cleared before its turn in the frame";
	EXPECT_EQ(Late->Calls, 0) << "set inside a callback: not this tick";
	EXPECT_TRUE(Timers.IsTimerActive(LateHandle));
	Timers.Tick(0.001f);
	EXPECT_EQ(Late->Calls, 1);

	// A one-shot timer that sets itself again keeps going, one call per tick.
	Self->Calls = 0;
	Self->Action = [&] { Timers.SetTimer(SelfHandle, Self, &UTimerTestTarget::OnFire, 0.05f, false); };
	Timers.SetTimer(SelfHandle, Self, &UTimerTestTarget::OnFire, 0.05f, false);
	for (int32 Step = 0; Step < 4; ++Step)
	{
		Timers.Tick(0.05f);
	}
	EXPECT_EQ(Self->Calls, 4);
	EXPECT_EQ(Timers.GetNumTimers(), 1);
	Self->Action = nullptr;
}

TEST(TimerOwnership, ClearAllForObjectAndDeadObjectsStopOnlyTheirTimers)
{
	FTimerManager Timers;
	UTimerTestTarget* First = MakeTarget();
	UTimerTestTarget* Second = MakeTarget();
	FTimerHandle A;
	FTimerHandle B;
	FTimerHandle C;
	FTimerHandle Plain;
	int32 PlainCalls = 0;
	Timers.SetTimer(A, First, &UTimerTestTarget::OnFire, 0.1f, true);
	Timers.SetTimer(B, FTimerDelegate::CreateUObject(First, &UTimerTestTarget::OnFire), 0.1f, true);
	Timers.SetTimer(C, Second, &UTimerTestTarget::OnFire, 0.1f, true);
	Timers.SetTimer(Plain, [&PlainCalls] { ++PlainCalls; }, 0.1f, true);

	Timers.ClearAllTimersForObject(First);
	Timers.ClearAllTimersForObject(nullptr);
	Timers.Tick(0.1f);
	EXPECT_EQ(First->Calls, 0);
	EXPECT_EQ(Second->Calls, 1);
	EXPECT_EQ(PlainCalls, 1);
	EXPECT_FALSE(Timers.IsTimerActive(A));
	EXPECT_FALSE(Timers.IsTimerActive(B));

	// An object on its way out: its timer is dropped silently at its next turn, nobody is called.
	Second->ConditionalBeginDestroy();
	Timers.Tick(0.1f);
	EXPECT_EQ(Second->Calls, 1);
	EXPECT_FALSE(Timers.IsTimerActive(C));
	EXPECT_EQ(Timers.GetNumTimers(), 1);
	CollectGarbage();
	Timers.Tick(0.1f);
	EXPECT_EQ(PlainCalls, 3);

	// A stale handle never names the timer that reuses its slot.
	FTimerHandle Reused;
	Timers.SetTimer(Reused, [] {}, 1.f, false);
	EXPECT_FALSE(Timers.IsTimerActive(C));
	EXPECT_NE(Reused, C);
	Timers.ClearTimer(C);
	EXPECT_TRUE(Timers.IsTimerActive(Reused));
}
