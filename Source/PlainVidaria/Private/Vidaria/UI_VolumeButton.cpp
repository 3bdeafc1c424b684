#include "Vidaria/UI_VolumeButton.h"

#include "Components/CheckBox.h"

void UUI_VolumeButton::NativeConstruct()
{
	Super::NativeConstruct();
	VolumeButton->OnCheckStateChanged.AddDynamic(this, &UUI_VolumeButton::ClickedCheckBoxVolume);
}

void UUI_VolumeButton::NativeOnMouseEnter(const FGeometry& InGeometry, const FPointerEvent& InMouseEvent)
{
	Super::NativeOnMouseEnter(InGeometry, InMouseEvent);
}

void UUI_VolumeButton::NativeOnMouseLeave(const FPointerEvent& InMouseEvent)
{
	Super::NativeOnMouseLeave(InMouseEvent);
}

void UUI_VolumeButton::ClickedCheckBoxVolume(bool ClickedWidget)
{
}
