// The lesson player's frame loop and seek by dragging: what the clock, the slider, the cache bar
// and the time tip show, and what a drag asks of the player, paused, playing and unseekable.

#include "VidariaSystemFixture.h"

#include "Components/Border.h"
#include "Components/CanvasPanelSlot.h"
#include "Components/ProgressBar.h"
#include "Components/Slider.h"
#include "UI_Marquel.h"
#include "UI_MarquelBar.h"

using LessonPlayerClock = FVidariaSystemFixture;
using LessonPlayerSeek = FVidariaSystemFixture;

namespace
{
	FString TextOf(UTextBlock* Text) { return Text->GetText().ToString(); }
}

TEST_F(LessonPlayerClock, ShowsTimeAndDurationAsHoursMinutesSeconds)
{
	ASSERT_TRUE(Show());
	UTextBlock* Clock = Child<UTextBlock>(TEXT("PlayTimeText"));
	// Before anything opens, the duration is zero: the slider and the cache bar show nothing rather than no number.
	App.TickFrame();
	EXPECT_EQ(TextOf(Clock), TEXT("00:00:00/00:00:00"));
	EXPECT_EQ(Child<USlider>(TEXT("MovieProgress"))->GetValue(), 0.0f);
	EXPECT_EQ(Child<UProgressBar>(TEXT("VideoCacheLoading"))->GetPercent(), 0.0f);

	FScriptedMedia& Lesson = OpenAndPlay(TEXT("lesson"), 90.0 * 60.0);
	Lesson.Time = FTimespan::FromSeconds(65.0);
	App.TickFrame();
	EXPECT_EQ(TextOf(Clock), TEXT("00:01:05/01:30:00"));
	// The cache bar shows the player's cache span against the length: 3 s of 90 min.
	EXPECT_NEAR(Child<UProgressBar>(TEXT("VideoCacheLoading"))->GetPercent(), 3.0 / 5400.0, 1e-6);
	EXPECT_NEAR(Child<USlider>(TEXT("MovieProgress"))->GetValue(), 65.0 / 5400.0, 1e-4);

	// Hours wrap at a day: a lesson of exactly 24 hours totals 00:00:00, one of 25 hours 01:00:00.
	FScriptedMedia& Day = OpenAndPlay(TEXT("day"), 24.0 * 3600.0);
	Day.Time = FTimespan::FromSeconds(25.0 * 3600.0 - 1.0);
	App.TickFrame();
	EXPECT_TRUE(TextOf(Clock).EndsWith(TEXT("/00:00:00")));
	OpenAndPlay(TEXT("long"), 25.0 * 3600.0);
	EXPECT_TRUE(TextOf(Clock).EndsWith(TEXT("/01:00:00")));
}

TEST_F(LessonPlayerSeek, TimeTipFollowsTheSliderOneBarHeightAboveTheBar)
{
	ASSERT_TRUE(Show());
	FScriptedMedia& Media = OpenAndPlay(TEXT("clip"), 60.0);
	App.HoldSliderAt(Widget, TEXT("MovieProgress"), 0.1f, 0.5f);
	ASSERT_FLOAT_EQ(Child<USlider>(TEXT("MovieProgress"))->GetValue(), 0.5f);
	UTextBlock* Tip = Child<UTextBlock>(TEXT("MediaProgressValueFloat"));
	EXPECT_EQ(TextOf(Tip), TEXT("00:00:30"));
	UBorder* Bar = Child<UBorder>(TEXT("MediaBarBorder"));
	const FVector2D BarSize = Bar->GetCachedGeometry().GetLocalSize();
	const FVector2D BarPosition = Cast<UCanvasPanelSlot>(Bar->Slot)->GetPosition();
	ASSERT_GT(BarSize.X, 0.0);
	const FVector2D TipPosition = Cast<UCanvasPanelSlot>(Tip->Slot)->GetPosition();
	EXPECT_DOUBLE_EQ(TipPosition.X, 0.5 * BarSize.X);
	EXPECT_DOUBLE_EQ(TipPosition.Y, BarPosition.Y - BarSize.Y);
	// The tip moves; nothing is sought until the slider is let go, and then exactly there.
	EXPECT_TRUE(Media.ArgsOf(TEXT("Seek")).IsEmpty());
	App.ReleasePointer();
	EXPECT_EQ(Media.ArgsOf(TEXT("Seek")), TArray<FString>({TEXT("30.000")}));
	EXPECT_EQ(Tip->GetVisibility(), ESlateVisibility::Hidden);
}

TEST_F(LessonPlayerSeek, WhileHeldTheSliderStaysAndTheClockRunsOn)
{
	ASSERT_TRUE(Show());
	OpenAndPlay(TEXT("clip"), 60.0);
	USlider* Slider = Child<USlider>(TEXT("MovieProgress"));
	UTextBlock* Clock = Child<UTextBlock>(TEXT("PlayTimeText"));
	App.HoldSliderAt(Widget, TEXT("MovieProgress"), 0.1f, 0.8f);
	const float Held = Slider->GetValue();
	const FString ClockBefore = TextOf(Clock);
	App.TickSeconds(1.5);
	EXPECT_EQ(Slider->GetValue(), Held);
	EXPECT_NE(TextOf(Clock), ClockBefore);
	EXPECT_TRUE(Player->IsPlaying());
	App.ReleasePointer();
	App.TickFrames(3);
	EXPECT_NEAR(Player->GetTime().GetTotalSeconds(), 48.0, 0.5);
	EXPECT_NEAR(Slider->GetValue(), 0.8f, 0.01f);
}

TEST_F(LessonPlayerSeek, DragWhilePausedEndsPlayingAtTheNewPlace)
{
	ASSERT_TRUE(Show());
	OpenAndPlay(TEXT("clip"), 60.0);
	Widget->PauseVideo();
	ASSERT_TRUE(TickUntilPaused());
	Child<UUI_MarquelBar>(TEXT("MarquelBar"))->SendMarquel();
	App.DragSlider(Widget, TEXT("MovieProgress"), 0.1f, 0.5f);
	ASSERT_TRUE(App.TickUntil([this] { return Player->IsPlaying(); }, 30));
	EXPECT_NEAR(Player->GetTime().GetTotalSeconds(), 30.0, 0.2);
	EXPECT_EQ(Child<UUI_Marquel>(TEXT("Marquel"))->GetFlyingCount(), 0);
	EXPECT_FALSE(Child<UUI_Marquel>(TEXT("Marquel"))->IsPaused());
	EXPECT_TRUE(App.GetLogMessages(TEXT("LogTemp")).Contains(TEXT("OnSeekCompleted")));
}

TEST_F(LessonPlayerSeek, DragWhilePlayingPlaysOnAndLeavesNoResumeBehind)
{
	ASSERT_TRUE(Show());
	FScriptedMedia& Media = Scripted.Media(TEXT("clip"));
	Media.bHoldSeeks = true;
	OpenAndPlay(TEXT("clip"), 60.0);
	Child<UUI_MarquelBar>(TEXT("MarquelBar"))->SendMarquel();
	App.DragSlider(Widget, TEXT("MovieProgress"), 0.1f, 0.25f);
	App.TickFrames(3);
	EXPECT_TRUE(Player->IsPlaying());
	// The viewer pauses before the seek is done: its completion must not play again.
	Widget->PauseVideo();
	ASSERT_TRUE(TickUntilPaused());
	Media.CompleteSeek();
	App.TickFrames(5);
	EXPECT_TRUE(Player->IsPaused());
	EXPECT_EQ(Child<UUI_Marquel>(TEXT("Marquel"))->GetFlyingCount(), 0);
}

TEST_F(LessonPlayerSeek, SourceWithoutSeekingSnapsTheSliderBack)
{
	ASSERT_TRUE(Show());
	FScriptedMedia& Media = Scripted.Media(TEXT("live"));
	Media.bSeekable = false;
	OpenAndPlay(TEXT("live"), 60.0);
	App.HoldSliderAt(Widget, TEXT("MovieProgress"), 0.1f, 0.5f);
	EXPECT_EQ(TextOf(Child<UTextBlock>(TEXT("MediaProgressValueFloat"))), TEXT("00:00:30"));
	App.ReleasePointer();
	App.TickFrame();
	EXPECT_TRUE(Media.ArgsOf(TEXT("Seek")).IsEmpty());
	EXPECT_LT(Child<USlider>(TEXT("MovieProgress"))->GetValue(), 0.1f);
	EXPECT_FALSE(App.GetLogMessages(TEXT("LogTemp")).Contains(TEXT("OnSeekCompleted")));
}
