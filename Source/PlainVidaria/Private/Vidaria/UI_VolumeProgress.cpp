#include "Vidaria/UI_VolumeProgress.h"

#include "Components/Slider.h"
#include "Components/TextBlock.h"
#include "UI_VidariaSystem.h"

void UUI_VolumeProgress::NativeConstruct()
{
	Super::NativeConstruct();
	VolumeProgress->OnValueChanged.AddDynamic(this, &UUI_VolumeProgress::ChangedVolumeValue);
}

void UUI_VolumeProgress::SetChangedVolumeValue(float Value)
{
	// Ten steps, truncated: 1.0 reads 10, 0.99 reads 09.
	const int32 Steps = static_cast<int32>(Value * 10.0f);
	VolumeValue->SetText(FText::FromString(FString::Printf(TEXT("%02d"), Steps)));
	VolumeProgress->SetValue(Value);
}

void UUI_VolumeProgress::NativeOnMouseEnter(const FGeometry& InGeometry, const FPointerEvent& InMouseEvent)
{
	Super::NativeOnMouseEnter(InGeometry, InMouseEvent);
}

void UUI_VolumeProgress::NativeOnMouseLeave(const FPointerEvent& InMouseEvent)
{
	Super::NativeOnMouseLeave(InMouseEvent);
	if (UUI_VidariaSystem* Player = GetParentWidget<UUI_VidariaSystem>())
	{
		Player->CloseVolumeAnim();
	}
}

void UUI_VolumeProgress::ChangedVolumeValue(float InValue)
{
	// The number follows the slider even before a parent is set; the sound only through the player.
	SetChangedVolumeValue(InValue);
	if (UUI_VidariaSystem* Player = GetParentWidget<UUI_VidariaSystem>())
	{
		Player->ChangedVolumeValue(InValue);
	}
}
