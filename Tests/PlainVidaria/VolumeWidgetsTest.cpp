// The volume widgets of the lesson player: the board that opens from the mute button, the mute
// that gives the multiplier back, and the board's ten-step number.

#include "VidariaSystemFixture.h"

#include "Components/CheckBox.h"
#include "Vidaria/UI_VolumeProgress.h"

using VolumeWidgets = FVidariaSystemFixture;

TEST_F(VolumeWidgets, BoardOpensFromTheButtonOnceAndClosesOnlyWhenOpen)
{
	ASSERT_TRUE(Show());
	App.MovePointerOver(Child<UWidget>(TEXT("VolumeButton")));
	EXPECT_EQ(App.CountAnimationPlays(Widget, TEXT("OpenVoiceBoard")), 1);
	Widget->OpenVolumeAnim();
	EXPECT_EQ(App.CountAnimationPlays(Widget, TEXT("OpenVoiceBoard")), 1);
	Widget->CloseVolumeAnim();
	Widget->CloseVolumeAnim();
	EXPECT_EQ(App.CountAnimationPlays(Widget, TEXT("CloseVoiceBoard")), 1);
}

TEST_F(VolumeWidgets, MuteAndUnmuteGiveTheMultiplierBackWithoutMovingTheBoard)
{
	ASSERT_TRUE(Show());
	FScriptedMedia& Media = OpenAndPlay(TEXT("clip"));
	Widget->SetVolumeMultiplier(0.6f);
	UCheckBox* MuteBox = Cast<UCheckBox>(App.FindWidget(Child<UUserWidget>(TEXT("VolumeButton")), TEXT("VolumeButton")));
	const FString BoardBefore = VolumeBoardText();

	MuteBox->OnCheckStateChanged.Broadcast(true);
	EXPECT_FLOAT_EQ(Widget->GetVolumeMultiplier(), 0.0f);
	EXPECT_EQ(Media.ArgsOf(TEXT("SetNativeVolume")).Last(), TEXT("1"));
	MuteBox->OnCheckStateChanged.Broadcast(false);
	EXPECT_FLOAT_EQ(Widget->GetVolumeMultiplier(), 0.6f);
	EXPECT_EQ(Media.ArgsOf(TEXT("SetNativeVolume")).Last(), TEXT("0"));
	EXPECT_EQ(VolumeBoardText(), BoardBefore);
}

TEST_F(VolumeWidgets, BoardNumberIsTruncatedTenths)
{
	ASSERT_TRUE(Show());
	UUI_VolumeProgress* Board = Child<UUI_VolumeProgress>(TEXT("VolumeProgress"));
	Board->SetChangedVolumeValue(0.99f);
	EXPECT_EQ(VolumeBoardText(), TEXT("09"));
	Board->SetChangedVolumeValue(0.05f);
	EXPECT_EQ(VolumeBoardText(), TEXT("00"));
}
