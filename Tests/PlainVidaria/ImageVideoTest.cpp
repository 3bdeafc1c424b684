// The image video widget on its own: opening by the player's judgement and forgetting the player
// at teardown.

#include "Blueprint/UserWidget.h"
#include "MediaPlayer.h"
#include "ScriptedMedia.h"
#include "TestApp.h"
#include "UObject/Class.h"
#include "UObject/UnrealType.h"
#include "Video/UI_ImageVideo.h"

#include <gtest/gtest.h>

namespace
{
	void SetPlayer(UUI_ImageVideo* Widget, UMediaPlayer* Player)
	{
		const FProperty* Property = Widget->GetClass()->FindPropertyByName(TEXT("MediaPlayer"));
		ASSERT_NE(Property, nullptr);
		Property->SetObjectValue(Property->ContainerPtrToValuePtr(Widget), Player);
	}
}

TEST(ImageVideoPlay, LetsThePlayerChooseBetweenUrlAndFile)
{
	FTestApp App;
	FScriptedMediaScope Scripted;
	UUI_ImageVideo* Widget = CreateWidget<UUI_ImageVideo>(App.GetWorld(), UUI_ImageVideo::StaticClass());
	ASSERT_NE(Widget, nullptr);
	EXPECT_FALSE(Widget->Play(FScriptedMediaScope::Url(TEXT("clip"))));

	UMediaPlayer* Player = NewObject<UMediaPlayer>();
	Player->AddToRoot();
	SetPlayer(Widget, Player);
	EXPECT_TRUE(Widget->Play(FScriptedMediaScope::Url(TEXT("clip"))));
	EXPECT_EQ(Scripted.Media(TEXT("clip")).ArgsOf(TEXT("Open")), TArray<FString>({TEXT("scripted://clip")}));
	EXPECT_EQ(Player->GetUrl(), TEXT("scripted://clip"));
	// What the player cannot play as a URL is opened as a file, also the empty text.
	Widget->Play(TEXT("/no/such/lesson.mp4"));
	EXPECT_TRUE(Player->GetUrl().StartsWith(TEXT("file://")));
	EXPECT_FALSE(Widget->Play(FString()));
	Player->Close();
	Player->RemoveFromRoot();
}

TEST(ImageVideoLifecycle, TeardownClosesThePlayerOnceAndForgetsIt)
{
	FTestApp App;
	FScriptedMediaScope Scripted;
	UUI_ImageVideo* Widget = CreateWidget<UUI_ImageVideo>(App.GetWorld(), UUI_ImageVideo::StaticClass());
	ASSERT_NE(Widget, nullptr);
	UMediaPlayer* Player = NewObject<UMediaPlayer>();
	Player->AddToRoot();
	SetPlayer(Widget, Player);
	Widget->AddToViewport();
	App.TickFrame();
	ASSERT_TRUE(Widget->Play(FScriptedMediaScope::Url(TEXT("clip"))));
	Scripted.Media(TEXT("clip")).FinishOpen();
	App.TickFrames(2);

	Widget->RemoveFromParent();
	App.TickFrame();
	EXPECT_TRUE(Player->IsClosed());
	EXPECT_EQ(Scripted.Media(TEXT("clip")).ArgsOf(TEXT("Close")).Num(), 1);
	// The asset still exists, but the widget no longer knows it, also when it comes back on screen.
	EXPECT_FALSE(Widget->Play(FScriptedMediaScope::Url(TEXT("clip"))));
	Widget->AddToViewport();
	App.TickFrame();
	Widget->RemoveFromParent();
	App.TickFrame();
	EXPECT_EQ(Scripted.Media(TEXT("clip")).ArgsOf(TEXT("Close")).Num(), 1);
	Player->RemoveFromRoot();
}
