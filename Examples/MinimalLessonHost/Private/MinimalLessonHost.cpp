#include "MinimalLessonHost.h"

#include "Blueprint/UserWidget.h"
#include "BulletChat/BulletChatSave.h"
#include "BulletChat/BulletChatSettings.h"
#include "BulletChat/UI_BulletChat.h"
#include "Engine/World.h"
#include "MediaPlayer.h"
#include "Misc/FileHelper.h"
#include "Misc/Paths.h"
#include "TimerManager.h"
#include "UI_VidariaSystem.h"

namespace
{
	/** Comments lie over the player, also when its full-screen box lifts it to the top of the viewport. */
	constexpr int32 OverlayZOrder = 100;
	/**
	 * The overlay drops a document handed to it before it has started, and it starts on one of its
	 * ticks after its first layout, which nothing announces. By this time it has.
	 */
	constexpr float CommentsDelaySeconds = 0.5f;
} // namespace

bool UMinimalLessonHost::Start(UWorld* World)
{
	if (!World || !PlayerClass || !BulletChatClass || !MediaPlayer || LessonFiles.IsEmpty())
	{
		return false;
	}
	PlayerWidget = CreateWidget<UUI_VidariaSystem>(World, PlayerClass);
	Overlay = CreateWidget<UUI_BulletChat>(World, BulletChatClass);
	if (!PlayerWidget || !Overlay)
	{
		return false;
	}

	PlayerWidget->AddToViewport();
	// The overlay never takes the pointer: the picture and the bar beneath it stay clickable.
	Overlay->SetVisibility(ESlateVisibility::HitTestInvisible);
	Overlay->AddToViewport(OverlayZOrder);
	Overlay->Init(MediaPlayer);

	// The settings store is read here, never from a tick: each call reads the save slot.
	FBulletChatSettings Settings;
	Settings.FontSize = UBulletChatSave::LoadFontSize();
	Settings.SpeedScale = UBulletChatSave::LoadSpeedScale();
	Settings.bIsOpened = UBulletChatSave::LoadIsOpend();
	Overlay->SetBulletChatSettings(Settings);

	// The overlay does not watch the player for pauses and seeks; the host keeps it in step.
	MediaPlayer->OnPlaybackSuspended.AddDynamic(this, &UMinimalLessonHost::HandlePlaybackSuspended);
	MediaPlayer->OnPlaybackResumed.AddDynamic(this, &UMinimalLessonHost::HandlePlaybackResumed);
	MediaPlayer->OnSeekCompleted.AddDynamic(this, &UMinimalLessonHost::HandleSeekCompleted);
	PlayerWidget->OnFinshPlayMovie.AddDynamic(this, &UMinimalLessonHost::HandleLessonFinished);

	for (const FString& File : LessonFiles)
	{
		LessonUrls.Add(FString(TEXT("file://")) + FPaths::ConvertRelativePathToFull(File));
	}
	FillPlaylist();
	PlayerWidget->OpenPlaylistUrl(LessonUrls[0]);

	if (!CommentFile.IsEmpty())
	{
		World->GetTimerManager().SetTimer(CommentsTimer, this, &UMinimalLessonHost::HandCommentsToOverlay, CommentsDelaySeconds, false);
	}
	return true;
}

void UMinimalLessonHost::HandleLessonFinished()
{
	// Anything opened or added now would go with the close that follows this event, so the step
	// waits a tick; the URL is read now, while the player still has it.
	EndedUrl = MediaPlayer->GetUrl();
	if (UWorld* World = PlayerWidget->GetWorld())
	{
		World->GetTimerManager().SetTimerForNextTick(FTimerDelegate::CreateUObject(this, &UMinimalLessonHost::StepOn));
	}
}

void UMinimalLessonHost::StepOn()
{
	// The close took the playlist with it: the player has a new, empty one, and the bar's Prev and
	// Next need the lessons back whether or not another one follows.
	FillPlaylist();
	const int32 Ended = LessonUrls.IndexOfByKey(EndedUrl);
	if (Ended != INDEX_NONE && Ended + 1 < LessonUrls.Num())
	{
		PlayerWidget->OpenPlaylistUrl(LessonUrls[Ended + 1]);
	}
}

void UMinimalLessonHost::FillPlaylist()
{
	for (const FString& Url : LessonUrls)
	{
		PlayerWidget->AddToPlaylist(Url);
	}
	PlayerWidget->RefreshPreviousAndNextButtons();
}

void UMinimalLessonHost::HandCommentsToOverlay()
{
	FString Document;
	if (FFileHelper::LoadFileToString(Document, *CommentFile))
	{
		// One document for every lesson; the comments stay until the next ResetDatas.
		Overlay->ResetDatas(Document);
	}
}

void UMinimalLessonHost::HandlePlaybackSuspended()
{
	Overlay->Pause();
}

void UMinimalLessonHost::HandlePlaybackResumed()
{
	Overlay->Resume();
}

void UMinimalLessonHost::HandleSeekCompleted()
{
	Overlay->Empty();
}
