// The shipped overlay and node blueprints over real clips on the FFmpeg backend: the sample
// comments fly right to left in time with the 4 s lesson, and over the 20 s lesson a few hundred
// comments never run into one another on a lane (unless they had to be forced onto it) and each
// comment of a played second comes up exactly once.

#include "TestApp.h"

#include "BulletChat/UI_BulletChat.h"
#include "BulletChat/UI_BulletChatNode.h"
#include "Components/CanvasPanel.h"
#include "Components/CanvasPanelSlot.h"
#include "Components/PanelWidget.h"
#include "Engine/World.h"
#include "MediaPlayer.h"
#include "Misc/FileHelper.h"
#include "Misc/Paths.h"
#include "PlainSampleMedia.h"

#include <gtest/gtest.h>

#include <cmath>

namespace
{
	constexpr double LaneHeight = 15.12;
	// Positions are read after a whole frame, admission happened inside it: a few units of motion.
	constexpr double Slack = 3.0;

	// Sparse seconds first (4 comments each), then dense ones (16 each) that fill the lanes.
	FString MakeTwentySecondDocument(int32& OutCount)
	{
		FString Text = TEXT("{ \"datas\": [");
		OutCount = 0;
		for (int32 Second = 0; Second < 20; ++Second)
		{
			for (int32 Index = 0; Index < (Second < 10 ? 4 : 16); ++Index, ++OutCount)
			{
				Text += FString::Printf(TEXT("%s{ \"id\": %d, \"post_id\": 1, \"bullet_chat_author_id\": 2, \"bullet_chat_author\": \"A\", ")
					TEXT("\"bullet_chat_date\": \"2024.05.01-12.00.00\", \"time\": \"00:00:%02d\", \"bullet_chat_content\": \"%s %d\", \"fabulous\": 0 }"),
					OutCount > 0 ? TEXT(", ") : TEXT(""), 1000 + OutCount, Second, Index % 3 == 0 ? TEXT("a rather longer comment") : TEXT("hi"), OutCount);
			}
		}
		return Text + TEXT("] }");
	}

	// Whether Newcomer, starting now behind Ahead on a lane, would reach Ahead before Ahead has left
	// the canvas: the gap between Ahead's tail and Newcomer's head changes linearly, so its two ends
	// decide. A node placed against this on any of its lanes can only have been forced there.
	bool WouldRunInto(const UUI_BulletChatNode* Ahead, const UUI_BulletChatNode* Newcomer, double Margin)
	{
		const double AheadTail = Ahead->GetPosition().X + Ahead->GetNodeSize().X;
		const double TimeToLeave = AheadTail / Ahead->GetSpeed();
		const double GapNow = Newcomer->GetPosition().X - AheadTail;
		const double GapThen = GapNow + (Ahead->GetSpeed() - Newcomer->GetSpeed()) * TimeToLeave;
		return FMath::Min(GapNow, GapThen) < Margin;
	}

	bool Overlap(const UUI_BulletChatNode* A, const UUI_BulletChatNode* B)
	{
		const double AX = A->GetPosition().X, BX = B->GetPosition().X;
		return AX < BX + B->GetNodeSize().X - 0.5 && BX < AX + A->GetNodeSize().X - 0.5;
	}
}

TEST(BulletChatEndToEnd, SampleCommentsFlyOverTheSampleLesson)
{
	FTestApp App;
	UUI_BulletChat* Overlay = App.ShowWidgetFromBlueprint<UUI_BulletChat>(TEXT("/Game/UI/WBP_BulletChat"));
	ASSERT_NE(Overlay, nullptr);
	UMediaPlayer* Player = NewObject<UMediaPlayer>(App.GetWorld());
	Overlay->Init(Player);
	ASSERT_TRUE(Player->OpenFile(TEXT(PLAIN_SAMPLE_MEDIA_DIR "/lesson.mp4")));
	ASSERT_TRUE(App.WaitUntil([Player] { return Player->IsPlaying(); })) << "the sample lesson did not start";

	FString Document;
	ASSERT_TRUE(FFileHelper::LoadFileToString(Document, *(FPaths::ProjectContentDir() + TEXT("BulletChat/SampleComments.json"))));
	Overlay->ResetDatas(Document);
	App.TickSeconds(1.5);

	UCanvasPanel* Canvas = Cast<UCanvasPanel>(App.FindWidget(Overlay, TEXT("RootCanvas")));
	ASSERT_NE(Canvas, nullptr);
	TArray<UWidget*> Nodes = Canvas->GetAllChildren();
	ASSERT_GE(Nodes.Num(), 2) << "the first seconds' comments are not on the canvas";
	UCanvasPanelSlot* Slot = Cast<UCanvasPanelSlot>(Nodes[0]->Slot);
	ASSERT_NE(Slot, nullptr);
	const double Before = Slot->GetPosition().X;
	App.TickSeconds(0.5);
	EXPECT_LT(Slot->GetPosition().X, Before - 20.0) << "a comment did not fly to the left";
	EXPECT_GT(Nodes[0]->GetCachedGeometry().GetLocalSize().X, 20.0) << "a comment has no measured size";
}

TEST(BulletChatEndToEnd, TwentySecondsOfCommentsKeepTheirLanesAndEachShowsOnce)
{
	FTestApp App(FHeadlessApplicationSettings{ FVector2D(1280.0, 720.0), 1.f / 30.f });
	UUI_BulletChat* Overlay = App.ShowWidgetFromBlueprint<UUI_BulletChat>(TEXT("/Game/UI/WBP_BulletChat"));
	ASSERT_NE(Overlay, nullptr);
	UMediaPlayer* Player = NewObject<UMediaPlayer>(App.GetWorld());
	Overlay->Init(Player);
	ASSERT_TRUE(Player->OpenFile(TEXT(PLAIN_SAMPLE_LESSON_20S)));
	ASSERT_TRUE(App.WaitUntil([Player] { return Player->IsPlaying(); })) << "the 20 s lesson did not start";
	int32 CommentCount = 0;
	Overlay->ResetDatas(MakeTwentySecondDocument(CommentCount));
	UCanvasPanel* Canvas = Cast<UCanvasPanel>(App.FindWidget(Overlay, TEXT("RootCanvas")));
	ASSERT_NE(Canvas, nullptr);

	// The lanes as the test sees them: each placed node on every lane its height covers, oldest first.
	TArray<TArray<UUI_BulletChatNode*>> Lanes;
	Lanes.SetNum(int32(Canvas->GetCachedGeometry().GetLocalSize().Y / LaneHeight));
	// Placement order of every node, and per lane the placements that were forced onto it.
	TMap<UUI_BulletChatNode*, int32> Placed;
	TArray<TArray<int32>> ForcedOnLane;
	ForcedOnLane.SetNum(Lanes.Num());
	int32 ForcedCount = 0;
	TMap<int32, int32> TimesShown;
	TSet<int32> PlayedSeconds;
	int32 Collisions = 0;
	for (int32 Frame = 0; Frame < 21 * 30; ++Frame)
	{
		App.TickFrame();
		if (Player->IsPlaying())
		{
			PlayedSeconds.Add(int32(Player->GetTime().GetTotalSeconds()));
		}
		TSet<UUI_BulletChatNode*> OnCanvas;
		for (UWidget* Child : Canvas->GetAllChildren())
		{
			UUI_BulletChatNode* Node = Cast<UUI_BulletChatNode>(Child);
			OnCanvas.Add(Node);
			if (!Node || Node->GetSpeed() <= 0.f || Placed.Contains(Node))
			{
				continue;
			}
			// Placed this frame: its lanes follow from its top and height.
			const int32 First = int32(std::lround(Node->GetPosition().Y / LaneHeight));
			const int32 Need = int32(std::ceil(Node->GetNodeSize().Y / LaneHeight));
			// Margin Slack leans to refusing, -Slack to admitting, so that a node placed within a frame's
			// motion of the limit is neither blamed nor excused.
			auto BlockRefuses = [&Lanes, Node, Need](int32 Start, double Margin)
			{
				for (int32 Lane = Start; Lane < Start + Need && Lane < Lanes.Num(); ++Lane)
				{
					if (!Lanes[Lane].IsEmpty() && WouldRunInto(Lanes[Lane].Last(), Node, Margin))
					{
						return true;
					}
				}
				return false;
			};
			// First fit from the top, and forcing only when no block is free.
			const bool bForced = BlockRefuses(First, Slack);
			const bool bClearlyForced = BlockRefuses(First, -Slack);
			for (int32 Start = 0; Start + Need <= Lanes.Num(); ++Start)
			{
				if (Start < First || (bClearlyForced && Start != First))
				{
					EXPECT_TRUE(BlockRefuses(Start, Slack)) << "comment " << Node->GetData().ID << " passed over free lanes " << Start << " on";
				}
			}
			for (int32 Lane = First; Lane < First + Need && Lane < Lanes.Num(); ++Lane)
			{
				Lanes[Lane].Add(Node);
			}
			const int32 Sequence = Placed.Num();
			Placed.Add(Node, Sequence);
			for (int32 Lane = First; bForced && Lane < First + Need && Lane < Lanes.Num(); ++Lane)
			{
				ForcedOnLane[Lane].Add(Sequence);
			}
			ForcedCount += bForced ? 1 : 0;
			++TimesShown.FindOrAdd(Node->GetData().ID);
		}
		for (int32 LaneIndex = 0; LaneIndex < Lanes.Num(); ++LaneIndex)
		{
			TArray<UUI_BulletChatNode*>& Lane = Lanes[LaneIndex];
			Lane.RemoveAll([&OnCanvas](UUI_BulletChatNode* Node) { return !OnCanvas.Contains(Node); });
			// A lane only promises each newcomer a clear run behind the node that was last on it, so
			// two nodes may meet only if a forced node came onto the lane after the older one.
			for (int32 Newer = 1; Newer < Lane.Num(); ++Newer)
			{
				for (int32 Older = 0; Older < Newer; ++Older)
				{
					const int32 From = Placed[Lane[Older]], To = Placed[Lane[Newer]];
					const bool bForcedBetween = ForcedOnLane[LaneIndex].ContainsByPredicate([From, To](int32 Seq) { return Seq > From && Seq <= To; });
					if (!bForcedBetween && Overlap(Lane[Older], Lane[Newer]) && ++Collisions <= 3)
					{
						ADD_FAILURE() << "comments " << Lane[Older]->GetData().ID << " and " << Lane[Newer]->GetData().ID << " collide at frame " << Frame;
					}
				}
			}
		}
	}

	EXPECT_EQ(Collisions, 0);
	EXPECT_GE(PlayedSeconds.Num(), 20) << "the clip did not play its twenty seconds";
	EXPECT_GT(Placed.Num() - ForcedCount, CommentCount / 4) << "too few comments found a free lane to test anything";
	for (int32 Index = 0; Index < CommentCount; ++Index)
	{
		const int32 Second = Index < 40 ? Index / 4 : 10 + (Index - 40) / 16;
		const int32* Shown = TimesShown.Find(1000 + Index);
		EXPECT_EQ(Shown ? *Shown : 0, PlayedSeconds.Contains(Second) ? 1 : 0) << "comment " << 1000 + Index << " of second " << Second;
	}
}
