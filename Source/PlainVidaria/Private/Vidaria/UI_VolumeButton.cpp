#include "Vidaria/UI_VolumeButton.h"

#include "Components/CheckBox.h"
#include "UI_VidariaSystem.h"

void UUI_VolumeButton::NativeConstruct()
{
	Super::NativeConstruct();
	VolumeButton->OnCheckStateChanged.AddDynamic(this, &UUI_VolumeButton::ClickedCheckBoxVolume);
}

void UUI_VolumeButton::NativeOnMouseEnter(const FGeometry& InGeometry, const FPointerEvent& InMouseEvent)
{
	Super::NativeOnMouseEnter(InGeometry, InMouseEvent);
	// The board opens from the button, and closes only when the pointer leaves the board itself.
	if (UUI_VidariaSystem* Player = GetParentWidget<UUI_VidariaSystem>())
	{
		Player->OpenVolumeAnim();
	}
}

void UUI_VolumeButton::NativeOnMouseLeave(const FPointerEvent& InMouseEvent)
{
	Super::NativeOnMouseLeave(InMouseEvent);
}

void UUI_VolumeButton::ClickedCheckBoxVolume(bool ClickedWidget)
{
	UUI_VidariaSystem* Player = GetParentWidget<UUI_VidariaSystem>();
	if (!Player)
	{
		return;
	}
	Player->ClickedCheckBoxVolume(ClickedWidget);
	// Only the multiplier is remembered: the board keeps showing the level it had before the mute.
	if (ClickedWidget)
	{
		SavedVolumeMultiplier = Player->GetVolumeMultiplier();
		Player->SetVolumeMultiplier(0.0f);
	}
	else
	{
		Player->SetVolumeMultiplier(SavedVolumeMultiplier);
	}
}
