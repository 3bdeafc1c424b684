// The lesson player's frame: the bar that closes when the pointer rests, full screen out of the
// parent panel and back to the same place, and the playback speed menu.

#include "VidariaSystemFixture.h"

#include "Blueprint/WidgetTree.h"
#include "Components/CanvasPanel.h"
#include "Components/CanvasPanelSlot.h"
#include "Components/CheckBox.h"
#include "Components/ComboBoxString.h"
#include "Components/Image.h"
#include "Components/PanelWidget.h"

class LessonPlayerControlBar : public FVidariaSystemFixture
{
protected:
	/** Two moves, so the second has a real distance (the first one in the viewport has none). */
	void Wiggle()
	{
		App.MovePointerTo(FVector2D(200.0, 200.0));
		App.MovePointerTo(FVector2D(240.0, 220.0));
	}

	int32 Plays(const TCHAR* Name) const { return App.CountAnimationPlays(Widget, Name); }

	/**
	 * Puts the player, at the viewport's size, between two images on a canvas on screen (a host
	 * user widget whose tree is swapped for that canvas; the volume board serves).
	 */
	void ShowInPanel()
	{
		ASSERT_TRUE(Create());
		UUserWidget* Host = App.CreateWidgetFromBlueprint<UUserWidget>(TEXT("/Game/UI/WBP_VolumeProgress"));
		ASSERT_NE(Host, nullptr);
		UCanvasPanel* Canvas = Host->WidgetTree->ConstructWidget<UCanvasPanel>();
		Host->WidgetTree->RootWidget = Canvas;
		Box = Canvas;
		Before = Host->WidgetTree->ConstructWidget<UImage>();
		After = Host->WidgetTree->ConstructWidget<UImage>();
		Canvas->AddChild(Before);
		Canvas->AddChildToCanvas(Widget)->SetSize(FVector2D(1280.0, 720.0));
		Canvas->AddChild(After);
		Host->AddToViewport();
		App.TickFrame();
	}

	/**
	 * A viewer's click on the full-screen box: the pointer moving over the player opens the bar,
	 * then the click goes through the player. Only a routed click holds the player while its handler moves
	 * it, so only then does it stay constructed across the move, as in the engine.
	 */
	void ClickScreenButton()
	{
		App.MovePointerTo(FVector2D(600.0, 300.0));
		App.MovePointerTo(FVector2D(640.0, 320.0));
		App.TickSeconds(0.5);
		App.ClickWidget(Widget, TEXT("ScreenButton"));
	}

	UPanelWidget* Box = nullptr;
	UWidget* Before = nullptr;
	UWidget* After = nullptr;
};

TEST_F(LessonPlayerControlBar, OpensOnMovementAndClosesOnceAboutFiveQuietSecondsLater)
{
	ASSERT_TRUE(Show());
	Wiggle();
	App.TickSeconds(3.0);
	Wiggle();
	EXPECT_EQ(Plays(TEXT("OpenBar")), 1);
	App.TickSeconds(4.8);
	EXPECT_EQ(Plays(TEXT("CloseBar")), 0);
	App.TickSeconds(6.0);
	EXPECT_EQ(Plays(TEXT("CloseBar")), 1);
	Wiggle();
	EXPECT_EQ(Plays(TEXT("OpenBar")), 2);
}

TEST_F(LessonPlayerControlBar, ShowUIOffFreezesTheCountdownAndOnResumesIt)
{
	ASSERT_TRUE(Show());
	Wiggle();
	App.TickSeconds(2.0);
	Widget->SetShowUI(false);
	App.TickSeconds(10.0);
	Wiggle();
	EXPECT_EQ(Plays(TEXT("CloseBar")), 0);
	EXPECT_EQ(Plays(TEXT("OpenBar")), 1);

	Widget->SetShowUI(true);
	App.TickSeconds(2.5);
	EXPECT_EQ(Plays(TEXT("CloseBar")), 0);
	App.TickSeconds(1.0);
	EXPECT_EQ(Plays(TEXT("CloseBar")), 1);
}

TEST_F(LessonPlayerControlBar, ShowUIOffBeforeConstructionRunsNoBarAnimationLater)
{
	ASSERT_TRUE(Create());
	Widget->SetShowUI(false);
	Widget->AddToViewport();
	Wiggle();
	App.TickSeconds(7.0);
	EXPECT_EQ(Plays(TEXT("CloseBar")), 1);
	EXPECT_EQ(Plays(TEXT("OpenBar")), 0);
}

TEST_F(LessonPlayerControlBar, FullScreenAndBackKeepsTheSiblingOrder)
{
	ShowInPanel();
	ClickScreenButton();
	EXPECT_TRUE(Widget->IsInViewport());
	EXPECT_EQ(Box->GetAllChildren(), (TArray<UWidget*>{Before, After}));
	EXPECT_TRUE(Child<UCheckBox>(TEXT("ScreenButton"))->IsChecked());
	App.TickFrame();

	ClickScreenButton();
	EXPECT_FALSE(Widget->IsInViewport());
	EXPECT_EQ(Box->GetAllChildren(), (TArray<UWidget*>{Before, Widget, After}));
	EXPECT_FALSE(Child<UCheckBox>(TEXT("ScreenButton"))->IsChecked());
	EXPECT_TRUE(Player->OnEndReached.IsBound()) << "never destructed on the way: its destruct would have emptied the list";
}

TEST_F(LessonPlayerControlBar, SetVidariaTypeDecidesTheNextClickWithoutMovingAnything)
{
	ShowInPanel();
	Widget->SetVidariaType(FullScreen);
	EXPECT_TRUE(Child<UCheckBox>(TEXT("ScreenButton"))->IsChecked());

	// The click takes the way back; with no panel saved yet it stops before moving the player.
	ClickScreenButton();
	EXPECT_FALSE(Child<UCheckBox>(TEXT("ScreenButton"))->IsChecked());
	EXPECT_EQ(Box->GetAllChildren(), (TArray<UWidget*>{Before, Widget, After}));
	ClickScreenButton();
	EXPECT_TRUE(Widget->IsInViewport());
}

TEST_F(LessonPlayerControlBar, SpeedMenuReadsTheNumberBeforeAnOptionalX)
{
	ASSERT_TRUE(Show());
	FScriptedMedia& Media = OpenAndPlay(TEXT("clip"));
	const TArray<FString> Items = {TEXT("1.5x"), TEXT("2X"), TEXT("1.25"), TEXT("fast")};
	for (const FString& Item : Items)
	{
		Child<UComboBoxString>(TEXT("ComboPlaySpeed"))->AddOption(Item);
		App.SelectComboOption(Widget, TEXT("ComboPlaySpeed"), Item);
	}
	TArray<FString> Rates = Media.ArgsOf(TEXT("SetRate"));
	EXPECT_EQ(TArray<FString>(Rates.GetData() + Rates.Num() - 4, 4), (TArray<FString>{TEXT("1.5"), TEXT("2"), TEXT("1.25"), TEXT("0")}));
}

TEST_F(LessonPlayerControlBar, VideoBrushChangesOnlyToAMaterial)
{
	ASSERT_TRUE(Show());
	UImage* Image = Child<UImage>(TEXT("ImageVideo"));
	Image->SetBrushFromMaterial(nullptr);
	Widget->SetImageVideoBrush(TEXT("/Game/UI/WBP_VolumeButton"));
	Widget->SetImageVideoBrush(TEXT("/Game/Materials/Missing"));
	EXPECT_EQ(Image->GetBrush().GetResourceObject(), nullptr);
	Widget->SetImageVideoBrush(TEXT("/Game/Materials/M_Video"));
	ASSERT_NE(Image->GetBrush().GetResourceObject(), nullptr);
	EXPECT_EQ(Image->GetBrush().GetResourceObject()->GetName(), TEXT("M_Video"));
}
