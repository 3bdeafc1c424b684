// The overlay against a scripted media player: comments are picked by the whole second of the
// player's clock, a document only counts once the overlay has started, and the host's calls act
// on what flies without touching what is stored.

#include "BulletChatTestFixture.h"
#include "MediaPlayer.h"
#include "ScriptedMedia.h"

#include <gtest/gtest.h>

using namespace BulletChatTest;

namespace
{
	const TCHAR* Document = TEXT("{ \"datas\": [ { \"id\": 1, \"time\": \"00:00:01\", \"bullet_chat_content\": \"one\" }, ")
		TEXT("{ \"id\": 2, \"time\": \"00:00:01\" }, { \"id\": 3, \"time\": \"00:00:01.500\" }, { \"id\": 4, \"time\": \"00:00:02\" } ] }");

	struct FOverlayRig
	{
		FOverlayRig()
			: App((EnsureAssets(), FHeadlessApplicationSettings()))
		{
			Overlay = App.ShowWidgetFromBlueprint<UUI_BulletChat>(TEXT("/Game/Test/WBP_Overlay"));
			Canvas = Cast<UCanvasPanel>(App.FindWidget(Overlay, TEXT("RootCanvas")));
			Player = NewObject<UMediaPlayer>();
			Player->AddToRoot();
			Scripted.Media(TEXT("lesson")).Duration = FTimespan::FromSeconds(60.0);
			Player->OpenUrl(FScriptedMediaScope::Url(TEXT("lesson")));
			Scripted.Media(TEXT("lesson")).FinishOpen();
		}
		~FOverlayRig() { Player->RemoveFromRoot(); }

		/** Ticks until the player's clock is at least Seconds. */
		void PlayTo(double Seconds)
		{
			ASSERT_TRUE(App.TickUntil([this, Seconds] { return Player->GetTime().GetTotalSeconds() >= Seconds; }));
		}

		TArray<int32> ShownIDs() const
		{
			TArray<int32> IDs;
			for (UUI_BulletChatNode* Node : NodesOn(Canvas))
			{
				IDs.Add(Node->GetData().ID);
			}
			return IDs;
		}

		FScriptedMediaScope Scripted;
		FTestApp App;
		UUI_BulletChat* Overlay = nullptr;
		UCanvasPanel* Canvas = nullptr;
		UMediaPlayer* Player = nullptr;
	};
}

TEST(BulletChatOverlay, SelectsCommentsByTheWholeSecondOnceStarted)
{
	FOverlayRig Rig;
	Rig.Overlay->ResetDatas(Document);
	Rig.Overlay->Init(Rig.Player);
	Rig.PlayTo(1.2);
	EXPECT_TRUE(Rig.ShownIDs().IsEmpty()) << "a document given before the start is not kept";

	Rig.Overlay->ResetDatas(Document);
	Rig.Overlay->ResetDatas(Document);
	Rig.App.TickFrame();
	EXPECT_EQ(Rig.ShownIDs(), (TArray<int32>{ 1, 2 })) << "each record once, in document order";
	Rig.PlayTo(2.5);
	EXPECT_EQ(Rig.ShownIDs(), (TArray<int32>{ 1, 2, 4 })) << "a time with a fraction is never selected";

	Rig.Overlay->Empty();
	EXPECT_TRUE(Rig.ShownIDs().IsEmpty());
	Rig.App.TickFrame();
	EXPECT_EQ(Rig.ShownIDs(), (TArray<int32>{ 4 })) << "the same second offers its comments again";

	Rig.App.TickFrames(2);
	Rig.Overlay->ResetDatas(TEXT("{ \"datas\": "));
	Rig.Overlay->Empty();
	Rig.App.TickFrame();
	EXPECT_TRUE(Rig.ShownIDs().IsEmpty()) << "a bad document leaves no comments, not the old ones";

	Rig.Player->Pause();
	Rig.Overlay->AddDataThenSpawn(TEXT("{ \"id\": 9, \"time\": \"00:00:30\" }"), TEXT("SCRIPTED://LESSON"));
	Rig.Overlay->AddDataThenSpawn(TEXT("{ \"id\": 10, \"time\": \"00:00:30\" }"), TEXT("scripted://other"));
	EXPECT_EQ(Rig.ShownIDs(), (TArray<int32>{ 9 })) << "shown at once, for this video only, letter case aside";
}

TEST(BulletChatOverlay, AppliesTheViewersSettingsToNewComments)
{
	FOverlayRig Rig;
	Rig.Overlay->SetBulletChatSettings(FBulletChatSettings{ 48, 2.0f, true });
	Rig.Overlay->Init(Rig.Player);
	Rig.App.TickFrame();
	Rig.Overlay->AddDataThenSpawn(TEXT("{ \"id\": 1 }"), FScriptedMediaScope::Url(TEXT("lesson")));
	Rig.App.TickFrames(2);
	const UUI_BulletChatNode* Node = NodesOn(Rig.Canvas)[0];
	EXPECT_GE(Node->GetSpeed(), 200.f);
	EXPECT_LE(Node->GetSpeed(), 280.f);
	EXPECT_EQ(Cast<UTextBlock>(Rig.App.FindWidget(Node, TEXT("NodeText")))->GetFont().Size, 2 * FSlateFontInfo().Size);

	Rig.Overlay->SetBulletChatSettings(FBulletChatSettings{ 24, 1.0f, false });
	EXPECT_TRUE(Rig.ShownIDs().IsEmpty()) << "switching off clears the screen";
	Rig.Overlay->AddDataThenSpawn(TEXT("{ \"id\": 2 }"), FScriptedMediaScope::Url(TEXT("lesson")));
	Rig.App.TickFrames(70);
	EXPECT_TRUE(Rig.ShownIDs().IsEmpty());

	// Taken off screen and put back, the overlay starts again with a new manager.
	Rig.Overlay->SetBulletChatSettings(FBulletChatSettings());
	Rig.Overlay->RemoveFromParent();
	Rig.App.TickFrame();
	Rig.Overlay->AddToViewport();
	Rig.App.TickFrames(2);
	Rig.Overlay->AddDataThenSpawn(TEXT("{ \"id\": 3 }"), FScriptedMediaScope::Url(TEXT("lesson")));
	EXPECT_EQ(Rig.ShownIDs(), (TArray<int32>{ 3 }));
}

TEST(BulletChatOverlay, ACommentWrittenAsMinutesAndSecondsFliesAtThatSecond)
{
	FOverlayRig Rig;
	Rig.Scripted.Media(TEXT("lesson")).Duration = FTimespan::FromSeconds(120.0);
	Rig.Overlay->Init(Rig.Player);
	Rig.App.TickFrames(3);
	Rig.Overlay->ResetDatas(TEXT("{ \"datas\": [ { \"id\": 7, \"time\": \"01:30\" } ] }"));
	Rig.Player->Seek(FTimespan::FromSeconds(89.5));
	Rig.PlayTo(89.7);
	EXPECT_TRUE(Rig.ShownIDs().IsEmpty());
	Rig.PlayTo(90.05);
	EXPECT_EQ(Rig.ShownIDs(), (TArray<int32>{ 7 })) << "\"01:30\" is a minute and a half";
}
