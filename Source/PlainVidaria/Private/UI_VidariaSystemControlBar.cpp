// The lesson player's frame around the picture: control bar, full screen, volume board and menus.

#include "UI_VidariaSystem.h"

#include "Animation/WidgetAnimation.h"
#include "Components/CheckBox.h"
#include "Components/Image.h"
#include "Components/PanelWidget.h"
#include "Materials/Material.h"
#include "MediaPlayer.h"
#include "Misc/CString.h"

namespace
{
	/** Seconds the bar stays after the last real movement of the pointer. */
	constexpr float BarShowSeconds = 5.0f;
	/** The viewport order of the player in full screen, above what the game shows. */
	constexpr int32 FullScreenZOrder = 99;
} // namespace

void UUI_VidariaSystem::PlayOnce(UWidgetAnimation* InAnimation)
{
	PlayAnimation(InAnimation, 0.0f, 1, EUMGSequencePlayMode::Forward, 1.0f, false);
}

FReply UUI_VidariaSystem::NativeOnMouseMove(const FGeometry& InGeometry, const FPointerEvent& InMouseEvent)
{
	// A move event with no distance (a re-route, a widget passing under a resting pointer) is no activity.
	if (bShowUI && InMouseEvent.GetCursorDelta() != FVector2D::ZeroVector)
	{
		if (BarHideCountdown <= 0.0f)
		{
			PlayOnce(OpenBarAnimation);
		}
		BarHideCountdown = BarShowSeconds;
	}
	return Super::NativeOnMouseMove(InGeometry, InMouseEvent);
}

void UUI_VidariaSystem::TickControlBar(float InDeltaTime)
{
	if (!bShowUI)
	{
		return;
	}
	if (BarHideCountdown > 0.0f)
	{
		BarHideCountdown -= InDeltaTime;
		bBarOpen = true;
		return;
	}
	// The close falls one tick after the subtraction that ran the countdown out.
	if (bBarOpen)
	{
		PlayOnce(CloseBarAnimation);
		bBarOpen = false;
	}
}

void UUI_VidariaSystem::SetShowUI(bool bNewShowUI)
{
	bShowUI = bNewShowUI;
}

void UUI_VidariaSystem::ClickedCheckBoxScreen(bool ClickedWidget)
{
	// The branch follows where the player stands, not the box, so SetVidariaType decides the next click.
	if (VidariaType == Embedded)
	{
		PanelWidget = GetParent();
		if (!PanelWidget)
		{
			return;
		}
		PanelChildIndex = PanelWidget->GetChildIndex(this);
		RemoveFromParent();
		AddToViewport(FullScreenZOrder);
		VidariaType = FullScreen;
		ScreenButton->SetCheckedState(ECheckBoxState::Checked);
	}
	else if (VidariaType == FullScreen)
	{
		VidariaType = Embedded;
		ScreenButton->SetCheckedState(ECheckBoxState::Unchecked);
		if (!PanelWidget)
		{
			return;
		}
		RemoveFromParent();
		// AddChild appends, so the whole panel is laid out again with the player back at its old index.
		TArray<UWidget*> Children = PanelWidget->GetAllChildren();
		Children.Insert(this, PanelChildIndex);
		for (UWidget* Child : Children)
		{
			PanelWidget->AddChild(Child);
		}
		PanelWidget->InvalidateLayoutAndVolatility();
	}
}

void UUI_VidariaSystem::SetVidariaType(EVidariaType InVidariaType)
{
	VidariaType = InVidariaType;
	if (InVidariaType == FullScreen)
	{
		ScreenButton->SetCheckedState(ECheckBoxState::Checked);
	}
	else if (InVidariaType == Embedded)
	{
		ScreenButton->SetCheckedState(ECheckBoxState::Unchecked);
	}
}

void UUI_VidariaSystem::OpenVolumeAnim()
{
	if (bVolumeBoardOpen)
	{
		return;
	}
	// Looked up at each use; the flag keeps that to real changes.
	if (UWidgetAnimation* Animation = GetNameWidgetAnimation(TEXT("OpenVoiceBoard")))
	{
		PlayOnce(Animation);
		bVolumeBoardOpen = true;
	}
}

void UUI_VidariaSystem::CloseVolumeAnim()
{
	if (!bVolumeBoardOpen)
	{
		return;
	}
	if (UWidgetAnimation* Animation = GetNameWidgetAnimation(TEXT("CloseVoiceBoard")))
	{
		PlayOnce(Animation);
		bVolumeBoardOpen = false;
	}
}

void UUI_VidariaSystem::ClickedCheckBoxVolume(bool ClickedWidget)
{
	// The native half of a mute: the box's state as a number (1 muted, 0 not); the multiplier carries the real mute.
	if (MediaPlayer)
	{
		MediaPlayer->SetNativeVolume(ClickedWidget ? 1.0f : 0.0f);
	}
}

void UUI_VidariaSystem::PlaySpeed(FString SelectedItem, ESelectInfo::Type SelectionType)
{
	// Items read like "1.5x"; a text with no number gives 0, which the player takes as a pause.
	SelectedItem.RemoveFromEnd(TEXT("x"), ESearchCase::IgnoreCase);
	const float Rate = FCString::Atof(*SelectedItem);
	if (MediaPlayer)
	{
		MediaPlayer->SetRate(Rate);
	}
}

void UUI_VidariaSystem::Resolution(FString SelectedItem, ESelectInfo::Type SelectionType)
{
	// The media framework gives no choice of stream here; the menu is for show until a source offers one.
}

void UUI_VidariaSystem::SetImageVideoBrush(const FString& InMaterialPath)
{
	UMaterial* Material = Cast<UMaterial>(StaticLoadObject(UMaterial::StaticClass(), nullptr, *InMaterialPath, nullptr, 0, nullptr, true, nullptr));
	if (Material)
	{
		ImageVideo->SetBrushFromMaterial(Material);
	}
}
