// Comments becoming nodes on lanes, on a real canvas laid out by the frame loop: placement on the
// topmost free block, forced placement, one node per ID in flight, pause, and the flight itself.

#include "BulletChatTestFixture.h"
#include "Engine/World.h"
#include "LaunchEngineLoop.h"

#include <gtest/gtest.h>

using namespace BulletChatTest;

TEST(BulletChatTrackManager, PlacesNodesOnTheTopmostFreeBlock)
{
	FManagerRig Rig(FVector2D(800.0, 600.0));
	EXPECT_EQ(Rig.Manager->GetTrackNum(), 39);
	Rig.Spawn(1);
	Rig.Spawn(2);
	const TArray<UUI_BulletChatNode*> Nodes = NodesOn(Rig.Canvas);
	ASSERT_EQ(Nodes.Num(), 2);
	EXPECT_EQ(Nodes[0]->GetPosition(), FVector2D(800.0, 0.0)) << "parked at the right edge until measured";
	Rig.App.TickFrames(2);
	EXPECT_EQ(Nodes[0]->GetNodeSize(), FVector2D(240.0, 32.0));
	EXPECT_EQ(Nodes[0]->GetPosition().Y, 0.0);
	EXPECT_NEAR(Nodes[1]->GetPosition().Y, 45.36, 1e-5) << "lanes 3 to 5, not Y = 32";
	EXPECT_GT(Nodes[0]->GetPosition().X, 790.0);
}

TEST(BulletChatTrackManager, RefusesAnIdInFlightUntilItsNodeEnds)
{
	FManagerRig Rig(FVector2D(400.0, 600.0), TEXT("10x32"));
	Rig.Spawn(7);
	Rig.Spawn(7, TEXT("other text"));
	Rig.App.TickFrame();
	Rig.Spawn(7);
	ASSERT_EQ(NodesOn(Rig.Canvas).Num(), 1) << "refused while waiting for layout and while flying";
	UUI_BulletChatNode* First = NodesOn(Rig.Canvas)[0];
	int32 Ends = 0;
	bool bEnded = false;
	First->OnNodeEndDelegate.AddLambda([&Ends, &bEnded, Canvas = Rig.Canvas](UUI_BulletChatNode* Node) { bEnded |= ++Ends == 1 && Canvas->HasChild(Node); });
	ASSERT_TRUE(Rig.App.TickUntil([&] { return !Rig.Canvas->HasChild(First); }, 400));
	EXPECT_TRUE(bEnded) << "the end is announced before the node leaves the canvas";
	EXPECT_LT(First->GetPosition().X, 0.0);
	EXPECT_GT(First->GetPosition().X, -10.0 - 1.41) << "it ends with its right edge at the left edge";
	Rig.Spawn(7);
	EXPECT_EQ(NodesOn(Rig.Canvas).Num(), 1) << "the ID is free again";

	Rig.App.TickFrames(2);
	Rig.Manager->Empty();
	EXPECT_EQ(NodesOn(Rig.Canvas).Num(), 0);
	Rig.Spawn(7);
	EXPECT_EQ(NodesOn(Rig.Canvas).Num(), 1) << "Empty frees every ID at once";
}

TEST(BulletChatTrackManager, AnEmptiedNodeCannotFreeTheIdOfItsSuccessor)
{
	// A seek empties the overlay and the same second's comments spawn again within one frame. The
	// old node, taken off near the end of its flight, must not announce an end later and strike
	// the ID that its successor now flies under.
	FManagerRig Rig(FVector2D(400.0, 600.0), TEXT("10x32"));
	Rig.Spawn(7);
	UUI_BulletChatNode* Old = NodesOn(Rig.Canvas)[0];
	int32 OldEnds = 0;
	Old->OnNodeEndDelegate.AddLambda([&OldEnds](UUI_BulletChatNode*) { ++OldEnds; });
	ASSERT_TRUE(Rig.App.TickUntil([&] { return Old->GetPosition().X < 20.0; }, 400));

	Rig.Manager->Empty();
	Rig.Spawn(7, TEXT("again"));
	ASSERT_EQ(NodesOn(Rig.Canvas).Num(), 1);
	// Half a second in one frame: the old flight timer, were it still running, would catch up past its end.
	Rig.App.GetLoop().Tick(0.5f);
	EXPECT_EQ(OldEnds, 0);
	Rig.Spawn(7, TEXT("a third time"));
	EXPECT_EQ(NodesOn(Rig.Canvas).Num(), 1) << "the successor still holds ID 7";
}

TEST(BulletChatTrackManager, ForcesANodeWhenNoBlockAdmitsIt)
{
	// Three lanes; two-lane nodes: the second can only be forced, onto lanes 0-1 or 1-2.
	FManagerRig Rig(FVector2D(800.0, 48.0), TEXT("240x30"));
	ASSERT_EQ(Rig.Manager->GetTrackNum(), 3);
	Rig.Spawn(1);
	Rig.Spawn(2);
	Rig.App.TickFrames(2);
	const double ForcedY = NodesOn(Rig.Canvas)[1]->GetPosition().Y;
	EXPECT_TRUE(ForcedY == 0.0 || FMath::Abs(ForcedY - 15.12) < 1e-5) << ForcedY;

	// A forced node is listed like any other, so Pause reaches it.
	Rig.Manager->Pause();
	const FVector2D Before = NodesOn(Rig.Canvas)[1]->GetPosition();
	Rig.App.TickFrames(30);
	EXPECT_EQ(NodesOn(Rig.Canvas)[1]->GetPosition(), Before);
	Rig.Spawn(3);
	Rig.App.TickFrames(5);
	EXPECT_EQ(NodesOn(Rig.Canvas)[2]->GetPosition().X, 800.0) << "born while paused: placed, then stands still";
	Rig.Manager->Resume();
	Rig.App.TickFrames(5);
	EXPECT_LT(NodesOn(Rig.Canvas)[2]->GetPosition().X, 800.0);
}

TEST(BulletChatTrackManager, NodeTallerThanAllLanesFliesUnlistedAlongTheTop)
{
	FManagerRig Rig(FVector2D(800.0, 16.0));
	ASSERT_EQ(Rig.Manager->GetTrackNum(), 1);
	Rig.Spawn(1);
	Rig.App.TickFrames(2);
	Rig.Manager->Pause();
	const FVector2D Before = NodesOn(Rig.Canvas)[0]->GetPosition();
	Rig.App.TickFrames(10);
	EXPECT_EQ(NodesOn(Rig.Canvas)[0]->GetPosition().Y, 0.0);
	EXPECT_LT(NodesOn(Rig.Canvas)[0]->GetPosition().X, Before.X) << "no lane lists it, so Pause does not reach it";
}

TEST(BulletChatNode, FliesInFixedStepsAndPausesWithoutAgeing)
{
	FManagerRig Rig(FVector2D(800.0, 600.0));
	Rig.Spawn(1);
	Rig.App.TickFrames(2);
	UUI_BulletChatNode* Node = NodesOn(Rig.Canvas)[0];
	const float Speed = Node->GetSpeed();
	ASSERT_GE(Speed, 100.f);
	ASSERT_LE(Speed, 140.f);
	EXPECT_EQ(Node->GetParentSize(), FVector2D(800.0, 600.0));

	// One simulated second is 100 steps of Speed x 0.01, whatever the frame rate.
	const double StartX = Node->GetPosition().X;
	Rig.App.TickFrames(60);
	EXPECT_NEAR(StartX - Node->GetPosition().X, Speed, Speed * 0.011);

	Node->Pause();
	const FVector2D Paused = Node->GetPosition();
	Rig.App.TickSeconds(20.0);
	EXPECT_EQ(Node->GetPosition(), Paused) << "neither moves nor ages";
	Node->Resume();
	const double FlightTime = (240.0 + 800.0) / Speed;
	EXPECT_TRUE(Rig.App.TickUntil([&] { return !Rig.Canvas->HasChild(Node); }, 2000));
	EXPECT_GT(Node->GetPosition().X, -240.0 - 1.41);
	EXPECT_NEAR(Rig.App.GetWorld()->GetTimeSeconds(), 2.0 / 60 + 1.0 + 20.0 + (FlightTime - 1.0), 0.1);
}

TEST(BulletChatNode, AnEndedNodeAnnouncesItsEndOnceAndItsTimerStops)
{
	FManagerRig Rig(FVector2D(800.0, 600.0));
	Rig.Spawn(1);
	Rig.App.TickFrames(2);
	UUI_BulletChatNode* Node = NodesOn(Rig.Canvas)[0];
	int32 Ends = 0;
	Node->OnNodeEndDelegate.AddLambda([&Ends](UUI_BulletChatNode*) { ++Ends; });

	// Frames of a tenth of a second: the 0.01 s flight timer catches up ten times in each, and
	// the node leaves (and is destructed, which stops its timer) at the first step past the end.
	for (int32 Frame = 0; Frame < 200 && Ends == 0; ++Frame)
	{
		Rig.App.GetLoop().Tick(0.1f);
	}
	EXPECT_EQ(Ends, 1);
	EXPECT_FALSE(Rig.Canvas->HasChild(Node));
	Rig.App.GetLoop().Tick(0.1f);
	Rig.App.GetLoop().Tick(0.1f);
	EXPECT_EQ(Ends, 1);
}
