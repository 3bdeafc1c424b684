// The shipped overlay and node blueprints over the real sample lesson: the comments of the sample
// document fly across the canvas, right to left, in time with the decoded clip.

#include "TestApp.h"

#include "BulletChat/UI_BulletChat.h"
#include "Components/CanvasPanel.h"
#include "Components/CanvasPanelSlot.h"
#include "Components/PanelWidget.h"
#include "Engine/World.h"
#include "MediaPlayer.h"
#include "Misc/FileHelper.h"
#include "Misc/Paths.h"
#include "PlainSampleMedia.h"

#include <gtest/gtest.h>

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
