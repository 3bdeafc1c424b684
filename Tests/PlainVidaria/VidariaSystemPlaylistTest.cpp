// The lesson player's playlist as a host fills it and a viewer steps through it.

#include "VidariaSystemFixture.h"

#include "Components/Button.h"
#include "MediaPlaylist.h"

class LessonPlayerPlaylist : public FVidariaSystemFixture
{
protected:
	/** Shows the player with lessons a, b, c listed and the bar settled open: a click's move then only rearms the countdown, where an opening slide would pull the button from under the press. */
	void ShowWithList()
	{
		ASSERT_TRUE(Show());
		for (const FString& Url : {UrlA, UrlB, UrlC})
		{
			Widget->AddToPlaylist(Url);
		}
		App.MovePointerTo(FVector2D(400.0, 300.0));
		App.MovePointerTo(FVector2D(420.0, 300.0));
		App.TickSeconds(0.5);
		Widget->OnPlaylistEntryChanging.BindLambda([this](const FString& Url) { Announced.Add(Url); });
	}

	const FString UrlA = FScriptedMediaScope::Url(TEXT("a"));
	const FString UrlB = FScriptedMediaScope::Url(TEXT("b"));
	const FString UrlC = FScriptedMediaScope::Url(TEXT("c"));
	TArray<FString> Announced;
};

TEST_F(LessonPlayerPlaylist, StepsWrapBothWaysAndUrlsMatchInAnyCase)
{
	ShowWithList();
	Widget->AddToPlaylist(TEXT(""));
	EXPECT_EQ(Player->GetPlaylist()->Num(), 3);
	Widget->RefreshPreviousAndNextButtons();
	EXPECT_TRUE(Child<UButton>(TEXT("NestButton"))->GetIsEnabled());

	Widget->OpenPlaylistUrl(TEXT("scripted://missing"));
	EXPECT_TRUE(Player->IsClosed());
	Widget->OpenPlaylistUrl(UrlC.ToUpper());
	EXPECT_EQ(Player->GetPlaylistIndex(), 2);
	Scripted.Media(TEXT("c")).FinishOpen();
	ASSERT_TRUE(App.TickUntil([this] { return Player->IsPlaying(); }, 30));

	App.ClickWidget(Widget, TEXT("NestButton"));
	EXPECT_EQ(Player->GetPlaylistIndex(), 0);
	Scripted.Media(TEXT("a")).FinishOpen();
	ASSERT_TRUE(App.TickUntil([this] { return Player->IsPlaying(); }, 30));
	App.ClickWidget(Widget, TEXT("PreviousButton"));
	EXPECT_EQ(Player->GetPlaylistIndex(), 2);
	EXPECT_EQ(Announced, (TArray<FString>{UrlA, UrlC}));
}

TEST_F(LessonPlayerPlaylist, StepsWhilePreparingAreHeldBackAndTheLastPressWins)
{
	ShowWithList();
	Widget->OpenPlaylistUrl(UrlA);
	ASSERT_TRUE(Player->IsPreparing());

	// The index does not move while the player prepares, so each forward press aims at b.
	App.ClickWidget(Widget, TEXT("NestButton"));
	App.ClickWidget(Widget, TEXT("NestButton"));
	App.ClickWidget(Widget, TEXT("PreviousButton"));
	EXPECT_EQ(Announced, (TArray<FString>{UrlB, UrlB, UrlC}));
	EXPECT_TRUE(Scripted.Media(TEXT("c")).Calls.IsEmpty());

	Scripted.Media(TEXT("a")).FinishOpen();
	ASSERT_TRUE(App.TickUntil([this] { return Player->GetPlaylistIndex() == 2; }, 30));
	Scripted.Media(TEXT("c")).FinishOpen();
	ASSERT_TRUE(App.TickUntil([this] { return Player->IsPlaying(); }, 30));
	App.TickFrames(3);
	EXPECT_EQ(Player->GetPlaylistIndex(), 2);
	EXPECT_TRUE(Scripted.Media(TEXT("b")).Calls.IsEmpty());
}
