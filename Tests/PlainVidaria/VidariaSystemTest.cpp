// The lesson player's construction, playback control and media events, driven as a viewer and a
// host would: through the default blueprint, clicks on its named children and scripted media.

#include "VidariaSystemFixture.h"
#include "VidariaSystemTestTypes.h"

#include "Components/Button.h"
#include "Components/CheckBox.h"
#include "Components/Image.h"
#include "Components/Slider.h"
#include "Components/TextBlock.h"
#include "Engine/OnScreenMessage.h"
#include "PlainSampleMedia.h"
#include "UI_Marquel.h"
#include "UI_MarquelBar.h"
#include "Vidaria/UI_VolumeProgress.h"

using LessonPlayerConstruction = FVidariaSystemFixture;
using LessonPlayerPlayback = FVidariaSystemFixture;
using LessonPlayerEvents = FVidariaSystemFixture;

TEST_F(LessonPlayerConstruction, WithPlayerBindsEverythingAndHandsTheOverlayItsPlayer)
{
	ASSERT_TRUE(Show());
	EXPECT_TRUE(App.GetOnScreenMessages().IsEmpty());
	EXPECT_EQ(Player->OnEndReached.Num(), 1);
	EXPECT_EQ(Player->OnPlaybackResumed.Num(), 1);
	EXPECT_EQ(Player->OnPlaybackSuspended.Num(), 1);
	EXPECT_EQ(Player->OnMediaOpened.Num(), 1);
	EXPECT_EQ(Player->OnSeekCompleted.Num(), 1);
	EXPECT_EQ(Child<UUI_Marquel>(TEXT("Marquel"))->GetMediaPlayer(), Player);
	EXPECT_NE(GetObjectMember(Widget, TEXT("MediaSoundComponent")), nullptr);
	// The board starts from the sound component's multiplier, 1.0, shown as ten steps.
	EXPECT_FLOAT_EQ(Widget->GetVolumeMultiplier(), 1.0f);
	EXPECT_EQ(VolumeBoardText(), TEXT("10"));
	EXPECT_EQ(Child<UTextBlock>(TEXT("MediaProgressValueFloat"))->GetVisibility(), ESlateVisibility::Hidden);
	EXPECT_EQ(Child<UWidget>(TEXT("VolumeProgress"))->GetVisibility(), ESlateVisibility::Hidden);
	EXPECT_FALSE(Child<UCheckBox>(TEXT("ScreenButton"))->IsChecked());
	EXPECT_EQ(App.CountAnimationPlays(Widget, TEXT("CloseBar")), 0);
}

TEST_F(LessonPlayerConstruction, WithoutPlayerShowsTheRedMessageAndStillSetsUpTheControls)
{
	ASSERT_TRUE(Show(false));
	const TArray<FOnScreenMessage>& Messages = App.GetOnScreenMessages();
	ASSERT_EQ(Messages.Num(), 1);
	EXPECT_EQ(Messages[0].Text, Widget->GetName() + TEXT(".MediaPlayer=NULL,Please check whether the instance is assigned a value."));
	EXPECT_EQ(Messages[0].Color, FColor::Red);
	EXPECT_FLOAT_EQ(Messages[0].TimeToDisplay, 10.0f);
	EXPECT_TRUE(Messages[0].IsKeyless());
	EXPECT_TRUE(App.GetLogMessages(TEXT("LogTemp")).IsEmpty());
	EXPECT_EQ(GetObjectMember(Widget, TEXT("MediaSoundComponent")), nullptr);
	EXPECT_FLOAT_EQ(Widget->GetVolumeMultiplier(), 0.0f);
	EXPECT_EQ(VolumeBoardText(), TEXT("00"));
	EXPECT_EQ(Child<UTextBlock>(TEXT("MediaProgressValueFloat"))->GetVisibility(), ESlateVisibility::Hidden);
	EXPECT_EQ(Child<UWidget>(TEXT("VolumeProgress"))->GetVisibility(), ESlateVisibility::Hidden);
	EXPECT_FALSE(Child<UCheckBox>(TEXT("ScreenButton"))->IsChecked());

	// Nothing the viewer or the host does without a player may fail; the tick keeps running.
	Widget->PauseVideo();
	Widget->PlayMediaByNet(TEXT("scripted://none"));
	App.ClickWidget(Widget, TEXT("PauseButton"));
	App.ClickWidget(Widget, TEXT("ReplayButton"));
	App.DragSlider(Widget, TEXT("MovieProgress"), 0.2f, 0.6f);
	App.TickFrames(3);
	EXPECT_TRUE(Widget->IsClose());
}

TEST_F(LessonPlayerConstruction, ShowUIOffBeforeConstructionClosesTheBarOnce)
{
	ASSERT_TRUE(Create());
	Widget->SetShowUI(false);
	Widget->AddToViewport();
	App.TickFrames(2);
	EXPECT_EQ(App.CountAnimationPlays(Widget, TEXT("CloseBar")), 1);
	EXPECT_EQ(App.CountAnimationPlays(Widget, TEXT("OpenBar")), 0);
}

TEST_F(LessonPlayerConstruction, DestructionClosesThePlayerAndEmptiesThreeEventLists)
{
	ASSERT_TRUE(Show());
	OpenAndPlay(TEXT("clip"));
	Widget->RemoveFromParent();
	App.TickFrame();
	EXPECT_TRUE(Player->IsClosed());
	EXPECT_EQ(Player->OnEndReached.Num(), 0);
	EXPECT_EQ(Player->OnPlaybackResumed.Num(), 0);
	EXPECT_EQ(Player->OnPlaybackSuspended.Num(), 0);
	EXPECT_EQ(Player->OnMediaOpened.Num(), 1);
	EXPECT_EQ(Player->OnSeekCompleted.Num(), 1);
	// The widget no longer knows its player.
	EXPECT_EQ(GetObjectMember(Widget, TEXT("MediaPlayer")), nullptr);
	EXPECT_NE(GetObjectMember(Widget, TEXT("MediaSoundComponent")), nullptr);
}

TEST_F(LessonPlayerPlayback, PauseWhilePreparingWaitsForPlaybackAndHappensOnce)
{
	ASSERT_TRUE(Show());
	FScriptedMedia& Media = StartOpen(TEXT("clip"));
	ASSERT_TRUE(Player->IsPreparing());
	Widget->PauseVideo();
	Widget->PauseVideo();
	EXPECT_TRUE(App.GetLogMessages(TEXT("LogTemp")).IsEmpty());
	Media.FinishOpen();
	ASSERT_TRUE(TickUntilPaused());
	App.TickFrame();
	EXPECT_EQ(App.GetLogMessages(TEXT("LogTemp")), TArray<FString>({TEXT("Media player Pause")}));
	EXPECT_TRUE(Child<UUI_Marquel>(TEXT("Marquel"))->IsPaused());
	UCheckBox* Suspend = Child<UCheckBox>(TEXT("SuspendButton"));
	EXPECT_TRUE(Suspend->IsChecked());
	EXPECT_EQ(Suspend->GetToolTipText().ToString(), TEXT("Play"));
	EXPECT_EQ(Child<UImage>(TEXT("PauseImage"))->GetVisibility(), ESlateVisibility::SelfHitTestInvisible);
	// The held pause is spent: playing again stays playing.
	App.ClickWidget(Widget, TEXT("PauseButton"));
	App.TickFrames(2);
	EXPECT_TRUE(Player->IsPlaying());
}

TEST_F(LessonPlayerPlayback, ClicksWhilePreparingAreDropped)
{
	ASSERT_TRUE(Show());
	FScriptedMedia& Media = StartOpen(TEXT("clip"));
	App.ClickWidget(Widget, TEXT("PauseButton"));
	App.ClickWidget(Widget, TEXT("SuspendButton"));
	UCheckBox* Suspend = Child<UCheckBox>(TEXT("SuspendButton"));
	EXPECT_FALSE(Suspend->IsChecked());
	EXPECT_EQ(Suspend->GetToolTipText().ToString(), TEXT("Pause"));
	Media.FinishOpen();
	App.TickFrames(5);
	EXPECT_TRUE(Player->IsPlaying());
	EXPECT_TRUE(App.GetLogMessages(TEXT("LogTemp")).IsEmpty());
}

TEST_F(LessonPlayerEvents, PlayPauseBoxAndPictureFollowThePlayer)
{
	ASSERT_TRUE(Show());
	OpenAndPlay(TEXT("clip"));
	UCheckBox* Suspend = Child<UCheckBox>(TEXT("SuspendButton"));
	UImage* PauseImage = Child<UImage>(TEXT("PauseImage"));
	EXPECT_FALSE(Suspend->IsChecked());
	EXPECT_EQ(Suspend->GetToolTipText().ToString(), TEXT("Pause"));
	EXPECT_EQ(PauseImage->GetVisibility(), ESlateVisibility::Collapsed);

	App.ClickWidget(Widget, TEXT("SuspendButton"));
	ASSERT_TRUE(TickUntilPaused());
	App.TickFrame();
	EXPECT_TRUE(Suspend->IsChecked());
	EXPECT_EQ(Suspend->GetToolTipText().ToString(), TEXT("Play"));
	EXPECT_EQ(PauseImage->GetVisibility(), ESlateVisibility::SelfHitTestInvisible);

	App.ClickWidget(Widget, TEXT("SuspendButton"));
	App.TickFrames(2);
	EXPECT_TRUE(Player->IsPlaying());
	EXPECT_FALSE(Child<UUI_Marquel>(TEXT("Marquel"))->IsPaused());
	EXPECT_FALSE(Suspend->IsChecked());
	EXPECT_EQ(Suspend->GetToolTipText().ToString(), TEXT("Pause"));
	EXPECT_EQ(PauseImage->GetVisibility(), ESlateVisibility::Collapsed);

	// A pause the player makes for a reason of its own shows the same way.
	Player->Pause();
	App.TickFrames(2);
	EXPECT_TRUE(Suspend->IsChecked());

	// With the UI off the picture stays as it is while the box still follows.
	Widget->SetShowUI(false);
	Player->Play();
	App.TickFrames(2);
	EXPECT_FALSE(Suspend->IsChecked());
	EXPECT_EQ(PauseImage->GetVisibility(), ESlateVisibility::SelfHitTestInvisible);
}

TEST_F(LessonPlayerPlayback, ReplayRestartsAndEndsPlayingEvenFromPause)
{
	ASSERT_TRUE(Show());
	FScriptedMedia& Media = OpenAndPlay(TEXT("clip"));
	App.TickSeconds(2.0);
	Widget->PauseVideo();
	ASSERT_TRUE(TickUntilPaused());
	App.ClickWidget(Widget, TEXT("ReplayButton"));
	ASSERT_TRUE(App.TickUntil([this] { return Player->IsPlaying(); }, 30));
	EXPECT_LT(Player->GetTime().GetTotalSeconds(), 0.5);
	EXPECT_EQ(Media.ArgsOf(TEXT("Seek")), TArray<FString>({TEXT("0.000")}));
	EXPECT_EQ(App.GetLogMessages(TEXT("LogTemp")), TArray<FString>({TEXT("Media player Pause"), TEXT("OnSeekCompleted")}));

	// A replay while playing goes on playing; one with the player closed does nothing.
	App.ClickWidget(Widget, TEXT("ReplayButton"));
	App.TickFrames(3);
	EXPECT_TRUE(Player->IsPlaying());
	Widget->CloseVideo();
	App.ClickWidget(Widget, TEXT("ReplayButton"));
	EXPECT_EQ(Media.ArgsOf(TEXT("Seek")).Num(), 2);
}

TEST_F(LessonPlayerPlayback, EndOfVideoEmptiesCommentsTellsListenersThenCloses)
{
	ASSERT_TRUE(Show());
	UVidariaFinishListener* Listener = NewObject<UVidariaFinishListener>();
	Listener->AddToRoot();
	Listener->Player = Player;
	Widget->OnFinshPlayMovie.AddDynamic(Listener, &UVidariaFinishListener::HandleFinished);
	UUI_Marquel* Marquel = Child<UUI_Marquel>(TEXT("Marquel"));

	// Closing by the host keeps the comments and tells nobody.
	OpenAndPlay(TEXT("clip"), 5.0);
	Child<UUI_MarquelBar>(TEXT("MarquelBar"))->SendMarquel();
	EXPECT_EQ(Marquel->GetFlyingCount(), 1);
	Widget->CloseVideo();
	App.TickFrames(2);
	EXPECT_TRUE(Widget->IsClose());
	EXPECT_EQ(Marquel->GetFlyingCount(), 1);
	EXPECT_EQ(Listener->Calls, 0);

	FScriptedMedia& Media = OpenAndPlay(TEXT("clip"), 5.0);
	Media.ReachEnd();
	App.TickFrames(2);
	EXPECT_EQ(Listener->Calls, 1);
	EXPECT_TRUE(Listener->bPlayerOpenAtCall);
	EXPECT_TRUE(Widget->IsClose());
	EXPECT_EQ(Marquel->GetFlyingCount(), 0);
	Listener->RemoveFromRoot();
}

TEST_F(LessonPlayerPlayback, CommentsFollowPauseResumeAndEveryCompletedSeek)
{
	ASSERT_TRUE(Show());
	FScriptedMedia& Media = OpenAndPlay(TEXT("clip"));
	UUI_Marquel* Marquel = Child<UUI_Marquel>(TEXT("Marquel"));
	Widget->ResetBulletChatDatas(TEXT("1|first\nnot a comment\n0.5|earlier"));
	EXPECT_EQ(Marquel->GetLoadedCount(), 2);
	Widget->PauseVideo();
	EXPECT_TRUE(Marquel->IsPaused());
	ASSERT_TRUE(TickUntilPaused());
	Child<UUI_MarquelBar>(TEXT("MarquelBar"))->SendMarquel();
	// A seek completing while paused still empties the overlay.
	Player->Seek(FTimespan::FromSeconds(3.0));
	App.TickFrames(2);
	EXPECT_EQ(Marquel->GetFlyingCount(), 0);
	EXPECT_TRUE(Player->IsPaused());
	EXPECT_EQ(Media.ArgsOf(TEXT("Seek")).Num(), 1);
	FString Sent;
	Widget->GetSendMarquelDelegate().AddLambda([&Sent](const FString& Text) { Sent = Text; });
	App.ClickWidget(Child<UUI_MarquelBar>(TEXT("MarquelBar")), TEXT("SendButton"));
	EXPECT_FALSE(Sent.IsEmpty());
}

TEST(LessonPlayerUrls, AnySchemeAnywhereInAnyCaseCountsAsNetwork)
{
	FTestApp App;
	UVidariaSystemTestProbe* Probe = NewObject<UVidariaSystemTestProbe>();
	EXPECT_TRUE(Probe->IsNetURL(TEXT("https://cdn.example.com/a.mp4")));
	EXPECT_TRUE(Probe->IsNetURL(TEXT("HTTP://EXAMPLE.COM/A.MP4")));
	EXPECT_TRUE(Probe->IsNetURL(TEXT("ftp://files/lesson.mkv")));
	EXPECT_TRUE(Probe->IsNetURL(TEXT("/home/me/videos/http://saved.mp4")));
	EXPECT_FALSE(Probe->IsNetURL(TEXT("/home/me/videos/lesson.mp4")));
	EXPECT_FALSE(Probe->IsNetURL(TEXT("http:/broken")));
	EXPECT_FALSE(Probe->IsNetURL(TEXT("scripted://clip")));
	EXPECT_FALSE(Probe->IsNetURL(FString()));
}

using LessonPlayerEndToEnd = FVidariaSystemFixture;

// The whole road of a video on the real decoder: the sample lesson (4 s) opens, plays, is paused
// by a click, seeked by a drag of the timeline, plays to its end and tells the host.
TEST_F(LessonPlayerEndToEnd, OpensPlaysPausesSeeksAndFinishesTheSampleLesson)
{
	ASSERT_TRUE(Show());
	UVidariaFinishListener* Listener = NewObject<UVidariaFinishListener>();
	Listener->AddToRoot();
	Listener->Player = Player;
	Widget->OnFinshPlayMovie.AddDynamic(Listener, &UVidariaFinishListener::HandleFinished);

	Widget->PlayMediaByLocal(TEXT(PLAIN_SAMPLE_MEDIA_DIR "/lesson.mp4"));
	ASSERT_TRUE(App.WaitUntil([this] { return Player->IsPlaying(); })) << "the sample lesson did not start";
	App.TickSeconds(1.0);
	EXPECT_NEAR(Player->GetTime().GetTotalSeconds(), 1.0, 0.1);

	App.ClickWidget(Widget, TEXT("PauseButton"));
	ASSERT_TRUE(App.WaitUntil([this] { return Player->IsPaused(); })) << "a click on the picture did not pause";
	const FTimespan PausedAt = Player->GetTime();
	App.TickSeconds(0.5);
	EXPECT_EQ(Player->GetTime(), PausedAt);

	// As a viewer does: the pointer travels to the timeline, the bar rises, then the drag.
	USlider* Timeline = Child<USlider>(TEXT("MovieProgress"));
	App.MovePointerOver(Timeline);
	App.TickSeconds(0.5);
	App.DragSlider(Widget, TEXT("MovieProgress"), Timeline->GetValue(), 0.75f);
	ASSERT_TRUE(App.WaitUntil([this] { return Player->IsPlaying(); })) << "the drag did not end in playback";
	EXPECT_GE(Player->GetTime().GetTotalSeconds(), 2.9);

	ASSERT_TRUE(App.WaitUntil([Listener] { return Listener->Calls > 0; })) << "the end never came";
	EXPECT_EQ(Listener->Calls, 1);
	EXPECT_TRUE(Widget->IsClose());
	Listener->RemoveFromRoot();
}
