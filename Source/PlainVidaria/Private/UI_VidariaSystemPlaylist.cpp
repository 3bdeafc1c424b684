// The lesson player's playlist: the media player's own list, stepped through by the two buttons.

#include "UI_VidariaSystem.h"

#include "Components/Button.h"
#include "MediaPlayer.h"
#include "MediaPlaylist.h"
#include "MediaSource.h"

namespace
{
	/** The player's playlist (the player makes one when it has none); null without a player. Asked anew each time, never kept: a close drops it. */
	UMediaPlaylist* FindPlaylist(UMediaPlayer* Player)
	{
		return Player ? Player->GetPlaylist() : nullptr;
	}
} // namespace

void UUI_VidariaSystem::AddToPlaylist(const FString& InURL)
{
	if (InURL.IsEmpty())
	{
		return;
	}
	if (UMediaPlaylist* Playlist = FindPlaylist(MediaPlayer))
	{
		Playlist->AddUrl(InURL);
	}
}

void UUI_VidariaSystem::OpenPlaylistUrl(const FString& InURL)
{
	if (InURL.IsEmpty())
	{
		return;
	}
	UMediaPlaylist* Playlist = FindPlaylist(MediaPlayer);
	if (!Playlist || Playlist->Num() <= 0)
	{
		return;
	}

	// Found by URL, not by index: the first entry that matches wins, whatever its letter case.
	int32 Found = INDEX_NONE;
	for (int32 Index = 0; Index < Playlist->Num(); ++Index)
	{
		const UMediaSource* Source = Playlist->Get(Index);
		if (Source && Source->GetUrl() == InURL)
		{
			Found = Index;
			break;
		}
	}
	if (Found == INDEX_NONE)
	{
		return;
	}

	if (MediaPlayer->IsPreparing())
	{
		// The release on OnMediaOpened passes this very member; copying it onto itself is left out.
		if (&InURL != &PendingPlaylistUrl)
		{
			PendingPlaylistUrl = InURL;
		}
		return;
	}
	PendingPlaylistUrl.Empty();
	MediaPlayer->OpenPlaylistIndex(Playlist, Found);
}

void UUI_VidariaSystem::RefreshPreviousAndNextButtons()
{
	UMediaPlaylist* Playlist = FindPlaylist(MediaPlayer);
	const bool bCanStep = Playlist && Playlist->Num() > 1;
	PreviousButton->SetIsEnabled(bCanStep);
	NestButton->SetIsEnabled(bCanStep);
}

int32 UUI_VidariaSystem::GetPlaylistNextIndex()
{
	UMediaPlaylist* Playlist = FindPlaylist(MediaPlayer);
	if (!Playlist || Playlist->Num() < 2)
	{
		return 0;
	}
	const int32 Index = MediaPlayer->GetPlaylistIndex() + 1;
	return Index < Playlist->Num() ? Index : 0;
}

int32 UUI_VidariaSystem::GetPlaylistPreviousIndex()
{
	UMediaPlaylist* Playlist = FindPlaylist(MediaPlayer);
	if (!Playlist || Playlist->Num() < 2)
	{
		return 0;
	}
	const int32 Index = MediaPlayer->GetPlaylistIndex() - 1;
	return Index >= 0 ? Index : Playlist->Num() - 1;
}

FString UUI_VidariaSystem::GetPlaylistUrl(int32 InIndex)
{
	UMediaPlaylist* Playlist = FindPlaylist(MediaPlayer);
	if (!Playlist || InIndex < 0 || InIndex >= Playlist->Num())
	{
		return FString();
	}
	const UMediaSource* Source = Playlist->Get(InIndex);
	return Source ? Source->GetUrl() : FString();
}

void UUI_VidariaSystem::StepPlaylist(int32 InTargetIndex)
{
	const FString TargetUrl = GetPlaylistUrl(InTargetIndex);
	// The old video's comments leave at once, also when the open has to wait.
	EmptyBulletChat();
	OnPlaylistEntryChanging.ExecuteIfBound(TargetUrl);

	UMediaPlaylist* Playlist = FindPlaylist(MediaPlayer);
	if (!Playlist)
	{
		return;
	}
	if (MediaPlayer->IsPreparing())
	{
		// One slot: the last press while the player is busy is the one that opens.
		PendingPlaylistUrl = TargetUrl;
		return;
	}
	PendingPlaylistUrl.Empty();
	MediaPlayer->OpenPlaylistIndex(Playlist, InTargetIndex);
}

void UUI_VidariaSystem::Next()
{
	StepPlaylist(GetPlaylistNextIndex());
}

void UUI_VidariaSystem::Previous()
{
	StepPlaylist(GetPlaylistPreviousIndex());
}

void UUI_VidariaSystem::OnMediaPlayerOpend(FString OpenedUrl)
{
	OpenPlaylistUrl(PendingPlaylistUrl);
}
