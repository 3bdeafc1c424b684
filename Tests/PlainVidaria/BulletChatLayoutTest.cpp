// The arithmetic of lanes, admission, flight and the selection clock, checked against the worked
// figures the bullet chat is built around. Rounding at each step matters: the boundaries below
// are where a wrong precision or a > for a >= would show.

#include "BulletChat/BulletChatLayout.h"

#include <gtest/gtest.h>

TEST(BulletChatLayout, CutsTheCanvasIntoLanesAndNodesIntoLaneCounts)
{
	EXPECT_EQ(FBulletChatLayout::GetTrackCount(600.0), 39);
	EXPECT_EQ(FBulletChatLayout::GetTrackCount(720.0), 47);
	EXPECT_EQ(FBulletChatLayout::GetTrackCount(16.0), 1);
	EXPECT_EQ(FBulletChatLayout::GetTrackCount(15.0), 0);
	EXPECT_NEAR(38 * FBulletChatLayout::TrackHeight, 574.56, 1e-9) << "the last of 39 lanes";

	EXPECT_EQ(FBulletChatLayout::GetTracksNeeded(0.0), 0);
	EXPECT_EQ(FBulletChatLayout::GetTracksNeeded(15.0), 1);
	EXPECT_EQ(FBulletChatLayout::GetTracksNeeded(16.0), 2);
	EXPECT_EQ(FBulletChatLayout::GetTracksNeeded(30.0), 2);
	EXPECT_EQ(FBulletChatLayout::GetTracksNeeded(32.0), 3);
}

TEST(BulletChatLayout, AdmissionFollowsTheWorkedTable)
{
	// Canvas 800 wide, last node 200 wide at speed 100, newcomer at 120.
	EXPECT_FALSE(FBulletChatLayout::CanFollow(800.0, 650.0, 200.0, 100.f, 120.f)) << "tail still beyond the edge";
	EXPECT_FALSE(FBulletChatLayout::CanFollow(800.0, 600.0, 200.0, 100.f, 120.f)) << "tail exactly at the edge";
	EXPECT_FALSE(FBulletChatLayout::CanFollow(800.0, 500.0, 200.0, 100.f, 120.f)) << "caught after 5 s, leaves after 7 s";
	EXPECT_TRUE(FBulletChatLayout::CanFollow(800.0, 300.0, 200.0, 100.f, 120.f)) << "caught after 15 s, leaves after 5 s";
	EXPECT_TRUE(FBulletChatLayout::CanFollow(800.0, 500.0, 200.0, 100.f, 100.f)) << "equal speed never closes the gap";
	EXPECT_TRUE(FBulletChatLayout::CanFollow(800.0, 500.0, 200.0, 100.f, 90.f));

	// A node just placed has travelled nothing, which clears not even a width of 0.
	EXPECT_FALSE(FBulletChatLayout::CanFollow(800.0, 800.0, 0.0, 100.f, 100.f));
	EXPECT_TRUE(FBulletChatLayout::CanFollow(800.0, 799.0, 0.0, 100.f, 100.f));

	// Catching up exactly as the last node leaves is refused; a unit later it is admitted.
	EXPECT_FALSE(FBulletChatLayout::CanFollow(800.0, 200.0, 200.0, 100.f, 200.f));
	EXPECT_TRUE(FBulletChatLayout::CanFollow(800.0, 199.0, 200.0, 100.f, 200.f));
}

TEST(BulletChatLayout, FlightCoversTheWorkedExample)
{
	EXPECT_EQ(FBulletChatLayout::GetSpeedFromDraw(0), 100.0f);
	EXPECT_EQ(FBulletChatLayout::GetSpeedFromDraw(32767), 140.0f);

	// 240 wide on an 800 canvas at 130 a second: 8 seconds, 1.3 units a step, ending on step 800.
	const float FlightTime = FBulletChatLayout::GetFlightTime(240.0, 800.0, 130.f);
	EXPECT_EQ(FlightTime, 8.0f);
	float Elapsed = 0.f;
	int32 Steps = 0;
	do
	{
		Elapsed = FBulletChatLayout::AdvanceElapsed(Elapsed);
		++Steps;
	}
	while (Elapsed < FlightTime && Steps < 10000);
	EXPECT_EQ(Steps, 800);
}

TEST(BulletChatLayout, SearchesLaneByLaneThenForcesAnyBlock)
{
	// A 32-high node holds lanes 0 to 2: the next one is asked about 0-2 again, one start at a time.
	TArray<int32> Asked;
	EXPECT_EQ(FBulletChatLayout::FindFreeBlock(39, 3, [&Asked](int32 Track) { Asked.Add(Track); return Track > 2; }), 3);
	EXPECT_EQ(Asked, (TArray<int32>{ 0, 1, 2, 3, 4, 5 }));
	EXPECT_EQ(FBulletChatLayout::FindFreeBlock(5, 1, [](int32) { return false; }), INDEX_NONE);
	EXPECT_EQ(FBulletChatLayout::FindFreeBlock(5, 6, [](int32) { return true; }), INDEX_NONE) << "taller than all lanes";

	EXPECT_EQ(FBulletChatLayout::GetForcedStart(32767, 39, 3), 36);
	EXPECT_EQ(FBulletChatLayout::GetForcedStart(20000, 5, 6), 0) << "no block fits at all";
	TArray<int32> Hits;
	Hits.SetNumZeroed(4);
	for (int32 Draw = 0; Draw <= 32767; ++Draw)
	{
		++Hits[FBulletChatLayout::GetForcedStart(Draw, 5, 2)];
	}
	EXPECT_GT(FMath::Min(FMath::Min(Hits[0], Hits[1]), FMath::Min(Hits[2], Hits[3])), 8000) << "every block, evenly";
}

TEST(BulletChatLayout, SelectionKeyIsTheStartOfTheWholeSecond)
{
	const FTimespan Five(0, 0, 5);
	EXPECT_EQ(FBulletChatLayout::GetSecondKey(Five), Five);
	EXPECT_EQ(FBulletChatLayout::GetSecondKey(FTimespan(Five.GetTicks() + ETimespan::TicksPerSecond - 1)), Five) << "cut, not rounded";
	EXPECT_EQ(FBulletChatLayout::GetSecondKey(FTimespan(1, 0, 0, 5)), Five) << "past 24 hours the first day's keys return";
	EXPECT_EQ(FBulletChatLayout::GetSecondKey(FTimespan(0, 1, 2, 3, 999999999)), FTimespan(1, 2, 3));
}
