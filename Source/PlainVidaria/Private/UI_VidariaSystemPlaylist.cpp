// The lesson player's playlist: the media player's own list, stepped through by the two buttons.

#include "UI_VidariaSystem.h"

void UUI_VidariaSystem::AddToPlaylist(const FString& InURL)
{
}

void UUI_VidariaSystem::OpenPlaylistUrl(const FString& InURL)
{
}

void UUI_VidariaSystem::RefreshPreviousAndNextButtons()
{
}

int32 UUI_VidariaSystem::GetPlaylistNextIndex()
{
	return 0;
}

int32 UUI_VidariaSystem::GetPlaylistPreviousIndex()
{
	return 0;
}

FString UUI_VidariaSystem::GetPlaylistUrl(int32 InIndex)
{
	return FString();
}

void UUI_VidariaSystem::Next()
{
}

void UUI_VidariaSystem::Previous()
{
}

void UUI_VidariaSystem::OnMediaPlayerOpend(FString OpenedUrl)
{
}
