#include "BulletChat/UI_BulletChat.h"

#include "BulletChat/BulletChatDocument.h"
#include "BulletChat/BulletChatLayout.h"
#include "BulletChat/BulletChatTrackManager.h"
#include "BulletChat/UI_BulletChatNode.h"
#include "Components/CanvasPanel.h"
#include "MediaPlayer.h"

void UUI_BulletChat::Init(TObjectPtr<UMediaPlayer> InMediaPlayer)
{
	MediaPlayer = InMediaPlayer;
}

void UUI_BulletChat::ResetDatas(const FString& Text)
{
	if (!bIsInited)
	{
		return;
	}
	// Emptied before the text is read, so that a bad document leaves no comments rather than old ones.
	DataMap.Empty();
	FBulletChatDocument::ReadDocument(Text, [this](const FBulletChatData& Data)
	{
		AddDataToMap(Data);
	});
}

void UUI_BulletChat::AddDataThenSpawn(const FString& Text, const FString& Url)
{
	if (!bIsInited || !MediaPlayer)
	{
		return;
	}
	// A comment sent for another video is dropped before its text is even read.
	if (MediaPlayer->GetUrl() != Url)
	{
		return;
	}
	FBulletChatData Data;
	if (!FBulletChatDocument::ReadSingle(Text, Data))
	{
		return;
	}
	AddDataToMap(Data);
	// Shown now, whatever the clock says; it also flies again whenever playback passes its second.
	if (Settings.bIsOpened)
	{
		TrackManager->SpawnBulletChatNode(Data);
	}
}

void UUI_BulletChat::Pause()
{
	if (bIsInited)
	{
		TrackManager->Pause();
	}
}

void UUI_BulletChat::Resume()
{
	if (bIsInited)
	{
		TrackManager->Resume();
	}
}

void UUI_BulletChat::Empty()
{
	if (bIsInited)
	{
		TrackManager->Empty();
	}
}

void UUI_BulletChat::SetVisible(bool bVisible)
{
	RootCanvas->SetRenderOpacity(bVisible ? 1.0f : 0.0f);
}

void UUI_BulletChat::SetBulletChatSettings(const FBulletChatSettings& InSettings)
{
	Settings = InSettings;
	if (!bIsInited)
	{
		return;
	}
	// Comments already in flight keep their size and speed; switching off clears the screen.
	TrackManager->SetViewerSettings(Settings);
	if (!Settings.bIsOpened)
	{
		TrackManager->Empty();
	}
}

void UUI_BulletChat::NativeDestruct()
{
	Super::NativeDestruct();

	if (TrackManager)
	{
		TrackManager->ConditionalBeginDestroy();
	}
	// Put back on screen, the overlay starts again with new lanes for its canvas, keeping its comments.
	TrackManager = nullptr;
	bIsInited = false;
}

void UUI_BulletChat::NativeTick(const FGeometry& MyGeometry, float InDeltaTime)
{
	Super::NativeTick(MyGeometry, InDeltaTime);

	// The lanes are cut from the canvas height, so nothing starts before the canvas is laid out.
	const FVector2D CanvasSize = RootCanvas->GetCachedGeometry().GetLocalSize();
	if (CanvasSize.X == 0.0 && CanvasSize.Y == 0.0)
	{
		return;
	}
	if (!MediaPlayer)
	{
		return;
	}
	if (!bIsInited)
	{
		TrackManager = NewObject<UBulletChatTrackManager>(this);
		TrackManager->Init(RootCanvas, BulletChatNodeClass);
		TrackManager->SetViewerSettings(Settings);
		bIsInited = true;
	}
	if (!Settings.bIsOpened || !MediaPlayer->IsPlaying())
	{
		return;
	}
	// Every tick of a second offers the whole bucket again; the manager refuses what is on screen.
	const TArray<FBulletChatData>* Bucket = DataMap.Find(FBulletChatLayout::GetSecondKey(MediaPlayer->GetTime()));
	if (!Bucket)
	{
		return;
	}
	for (const FBulletChatData& Data : *Bucket)
	{
		TrackManager->SpawnBulletChatNode(Data);
	}
}

void UUI_BulletChat::AddDataToMap(const FBulletChatData& Data)
{
	if (TArray<FBulletChatData>* Bucket = DataMap.Find(Data.Time))
	{
		Bucket->Add(Data);
		return;
	}
	DataMap.Add(Data.Time, TArray<FBulletChatData>{ Data });
}
