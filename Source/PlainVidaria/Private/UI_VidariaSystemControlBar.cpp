// The lesson player's frame around the picture: control bar, full screen, volume board and menus.

#include "UI_VidariaSystem.h"

FReply UUI_VidariaSystem::NativeOnMouseMove(const FGeometry& InGeometry, const FPointerEvent& InMouseEvent)
{
	return Super::NativeOnMouseMove(InGeometry, InMouseEvent);
}

void UUI_VidariaSystem::SetShowUI(bool bNewShowUI)
{
	bShowUI = bNewShowUI;
}

void UUI_VidariaSystem::ClickedCheckBoxScreen(bool ClickedWidget)
{
}

void UUI_VidariaSystem::SetVidariaType(EVidariaType InVidariaType)
{
}

void UUI_VidariaSystem::OpenVolumeAnim()
{
}

void UUI_VidariaSystem::CloseVolumeAnim()
{
}

void UUI_VidariaSystem::ClickedCheckBoxVolume(bool ClickedWidget)
{
}

void UUI_VidariaSystem::PlaySpeed(FString SelectedItem, ESelectInfo::Type SelectionType)
{
}

void UUI_VidariaSystem::Resolution(FString SelectedItem, ESelectInfo::Type SelectionType)
{
}

void UUI_VidariaSystem::SetImageVideoBrush(const FString& InMaterialPath)
{
}
