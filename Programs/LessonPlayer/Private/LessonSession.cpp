#include "LessonSession.h"

#include "BulletChat/BulletChatSave.h"
#include "BulletChat/UI_BulletChat.h"
#include "Blueprint/UserWidget.h"
#include "Blueprint/WidgetTree.h"
#include "Components/CheckBox.h"
#include "Components/PanelWidget.h"
#include "Dom/JsonObject.h"
#include "HeadlessApplication.h"
#include "LaunchEngineLoop.h"
#include "LessonEventRelay.h"
#include "LessonPlayerMessages.h"
#include "LessonPlayerPaths.h"
#include "MediaPlayer.h"
#include "MediaPlaylist.h"
#include "Misc/DateTime.h"
#include "Misc/FileHelper.h"
#include "Misc/Paths.h"
#include "MediaPlayerLookup.h"
#include "Policies/CondensedJsonPrintPolicy.h"
#include "Serialization/JsonReader.h"
#include "Serialization/JsonSerializer.h"
#include "Serialization/JsonWriter.h"
#include "UI_VidariaSystem.h"
#include "Vidaria/UI_VolumeProgress.h"

namespace
{
	using LessonPlayerMessages::Tell;

	/** The blueprints and the media player asset of the plug-in's default content. */
	const TCHAR* const PlayerBlueprintClass = TEXT("/Game/UI/WBP_VidariaSystem.WBP_VidariaSystem_C");
	const TCHAR* const OverlayBlueprintClass = TEXT("/Game/UI/WBP_BulletChat.WBP_BulletChat_C");
	const TCHAR* const MediaPlayerAssetName = TEXT("MP_Lesson");

	/** Above the player, also when the player goes full screen (which stands at 99). */
	constexpr int32 OverlayZOrder = 100;
	/** The overlay starts on its first tick after a layout: two frames after it went on screen. */
	constexpr int32 FramesBeforeOverlayStarts = 2;
	/** A volume key moves the multiplier by a tenth, the volume board's own step. */
	constexpr float VolumeStep = 0.1f;
	/** The seek keys jump this far, as most players do. */
	constexpr double SeekStepSeconds = 5.0;
	/** Sent comments take IDs far above any document's, so they never refuse a document comment. */
	constexpr int32 FirstSentCommentId = 1000000000;

	template<typename T>
	T* CreateFromBlueprint(UWorld* World, const TCHAR* ClassPath)
	{
		UClass* WidgetClass = LoadObject<UClass>(nullptr, ClassPath);
		return WidgetClass ? CreateWidget<T>(World, WidgetClass) : nullptr;
	}

	/** A comment the viewer sends now, as a one-record document of the overlay's format. */
	FString MakeSentComment(int32 Id, const FString& Text, const FTimespan& Time)
	{
		TSharedRef<FJsonObject> Record = MakeShared<FJsonObject>();
		Record->SetNumberField(TEXT("id"), Id);
		Record->SetNumberField(TEXT("post_id"), 0);
		Record->SetNumberField(TEXT("bullet_chat_author_id"), 0);
		Record->SetStringField(TEXT("bullet_chat_author"), TEXT("You"));
		Record->SetStringField(TEXT("bullet_chat_date"), FDateTime::Now().ToString());
		Record->SetStringField(TEXT("time"), FString::Printf(TEXT("%02d:%02d:%02d"), Time.GetHours(), Time.GetMinutes(), Time.GetSeconds()));
		Record->SetStringField(TEXT("bullet_chat_content"), Text);
		Record->SetNumberField(TEXT("fabulous"), 0);
		FString Json;
		FJsonSerializer::Serialize(Record, TJsonWriterFactory<TCHAR, TCondensedJsonPrintPolicy<TCHAR>>::Create(&Json));
		return Json;
	}
} // namespace

FLessonSession::FLessonSession(const FLessonPlayerOptions& InOptions, FHeadlessApplication& InApp)
	: Options(InOptions)
	, App(InApp)
{
}

FLessonSession::~FLessonSession()
{
	if (MediaPlayer)
	{
		MediaPlayer->Close();
	}
	for (UObject* Rooted : TArray<UObject*>{ PlayerWidget, Overlay, MediaPlayer, Relay })
	{
		if (Rooted)
		{
			Rooted->RemoveFromRoot();
		}
	}
}

bool FLessonSession::Start()
{
	// The host finds the player asset by its plain name, wherever the content keeps it.
	FString HeldPath;
	MediaPlayer = PlainVidaria::LoadMediaPlayer(MediaPlayerAssetName, HeldPath);
	PlayerWidget = CreateFromBlueprint<UUI_VidariaSystem>(App.GetWorld(), PlayerBlueprintClass);
	Overlay = CreateFromBlueprint<UUI_BulletChat>(App.GetWorld(), OverlayBlueprintClass);
	if (!MediaPlayer || !PlayerWidget || !Overlay)
	{
		Tell(FString::Printf(TEXT("the plug-in's default content is incomplete under %s"), *FPaths::ProjectContentDir()));
		return false;
	}
	ResolveLessons();
	if (Urls.IsEmpty())
	{
		Tell(TEXT("nothing to play"));
		return false;
	}
	ReadCommentDocument();
	for (UObject* Object : TArray<UObject*>{ PlayerWidget, Overlay, MediaPlayer })
	{
		Object->AddToRoot();
	}

	PlayerWidget->AddToViewport();
	Overlay->Init(MediaPlayer);
	// Comments never take the pointer: the bar and the picture below them stay clickable.
	Overlay->SetVisibility(ESlateVisibility::HitTestInvisible);
	Overlay->AddToViewport(OverlayZOrder);

	CommentSettings.FontSize = UBulletChatSave::LoadFontSize();
	CommentSettings.SpeedScale = UBulletChatSave::LoadSpeedScale();
	CommentSettings.bIsOpened = UBulletChatSave::LoadIsOpend();
	ApplyCommentSettings(false);

	BindEvents();
	OpenLesson(0);
	return true;
}

void FLessonSession::RefillPlaylist()
{
	UMediaPlaylist* Playlist = MediaPlayer->GetPlaylist();
	if (Playlist && Playlist->Num() > 0)
	{
		return;
	}
	for (const FString& Url : Urls)
	{
		PlayerWidget->AddToPlaylist(Url);
	}
	PlayerWidget->RefreshPreviousAndNextButtons();
}

void FLessonSession::OpenLesson(int32 Entry)
{
	RefillPlaylist();
	PlayerWidget->OpenPlaylistUrl(Urls[Entry]);
}

void FLessonSession::ResolveLessons()
{
	TArray<FString> Lessons = Options.Lessons;
	if (Lessons.IsEmpty())
	{
		Lessons.Add(LessonPlayerPaths::DefaultLesson());
		if (Options.CommentsPath.IsEmpty())
		{
			Options.CommentsPath = LessonPlayerPaths::DefaultComments();
		}
	}
	for (const FString& Lesson : Lessons)
	{
		if (Lesson.Contains(TEXT("://")))
		{
			if (!MediaPlayer->CanPlayUrl(Lesson))
			{
				Tell(FString::Printf(TEXT("%s: not a kind of address the player opens (http, https, ftp or a file)"), *Lesson));
				continue;
			}
			Urls.Add(Lesson);
			continue;
		}
		const FString FullPath = FPaths::ConvertRelativePathToFull(Lesson);
		if (!FPaths::FileExists(FullPath))
		{
			Tell(FString::Printf(TEXT("%s: no such file"), *Lesson));
			continue;
		}
		Urls.Add(LessonPlayerPaths::FileUrl(FullPath));
	}
}

void FLessonSession::ReadCommentDocument()
{
	if (Options.CommentsPath.IsEmpty())
	{
		return;
	}
	FString Text;
	if (!FFileHelper::LoadFileToString(Text, *Options.CommentsPath))
	{
		Tell(FString::Printf(TEXT("%s: cannot be read; playing without comments"), *Options.CommentsPath));
		return;
	}
	// Checked here, where a bad document can still be named; read in place, as a large one is not
	// worth a second copy. The tree goes at once: the overlay reads the text again when it starts.
	TSharedPtr<FJsonObject> Root;
	if (!FJsonSerializer::Deserialize(TJsonReaderFactory<>::CreateFromView(Text), Root) || !Root.IsValid())
	{
		Tell(FString::Printf(TEXT("%s: not a JSON document; playing without comments"), *Options.CommentsPath));
		return;
	}
	CommentDocument = MoveTemp(Text);
}

void FLessonSession::BindEvents()
{
	Relay = NewObject<ULessonEventRelay>();
	Relay->AddToRoot();
	FLessonEventHandlers& Handlers = Relay->Handlers;
	Handlers.SeekCompleted = [this] { Overlay->Empty(); };
	Handlers.PlaybackSuspended = [this] { Overlay->Pause(); };
	Handlers.PlaybackResumed = [this] { Overlay->Resume(); };
	Handlers.MediaOpened = [this](const FString& Url)
	{
		bPlayedAnything = true;
		bFinished = false;
		const int32 Entry = Urls.IndexOfByKey(Url);
		CurrentEntry = Entry == INDEX_NONE ? CurrentEntry : Entry;
	};
	Handlers.MediaOpenFailed = [this](const FString& Url)
	{
		Tell(FString::Printf(TEXT("%s: cannot be played (the log line above says why)"), *Url));
		const int32 Entry = Urls.IndexOfByKey(Url);
		CurrentEntry = Entry == INDEX_NONE ? CurrentEntry : Entry;
		AdvanceOrFinish();
	};
	// The lesson player closes the media player right after telling of the end, which also drops
	// the playlist; the next lesson opens after that, at the end of the frame.
	Handlers.LessonFinished = [this] { bAdvancePending = true; };

	MediaPlayer->OnSeekCompleted.AddDynamic(Relay, &ULessonEventRelay::HandleSeekCompleted);
	MediaPlayer->OnPlaybackSuspended.AddDynamic(Relay, &ULessonEventRelay::HandlePlaybackSuspended);
	MediaPlayer->OnPlaybackResumed.AddDynamic(Relay, &ULessonEventRelay::HandlePlaybackResumed);
	MediaPlayer->OnMediaOpened.AddDynamic(Relay, &ULessonEventRelay::HandleMediaOpened);
	MediaPlayer->OnMediaOpenFailed.AddDynamic(Relay, &ULessonEventRelay::HandleMediaOpenFailed);
	PlayerWidget->OnFinshPlayMovie.AddDynamic(Relay, &ULessonEventRelay::HandleLessonFinished);
	PlayerWidget->GetSendMarquelDelegate().AddLambda([this](const FString& Text) { SendComment(Text); });
}

void FLessonSession::Tick(float DeltaSeconds)
{
	App.GetLoop().Tick(DeltaSeconds);
	++FramesRun;
	if (bAdvancePending)
	{
		bAdvancePending = false;
		AdvanceOrFinish();
	}
	if (!bCommentsLoaded && FramesRun >= FramesBeforeOverlayStarts)
	{
		bCommentsLoaded = true;
		if (!CommentDocument.IsEmpty())
		{
			Overlay->ResetDatas(CommentDocument);
			CommentDocument.Empty();
		}
	}
}

int32 FLessonSession::CountCommentsInFlight() const
{
	// Every flying comment is a node on the overlay's canvas, and only while it flies.
	const UPanelWidget* Canvas = Overlay && Overlay->WidgetTree ? Cast<UPanelWidget>(Overlay->WidgetTree->FindWidget(TEXT("RootCanvas"))) : nullptr;
	return Canvas ? Canvas->GetChildrenCount() : 0;
}

void FLessonSession::AdvanceOrFinish()
{
	if (CurrentEntry + 1 < Urls.Num())
	{
		OpenLesson(CurrentEntry + 1);
		return;
	}
	bFinished = true;
	// Listed again, so the step buttons still lead to a lesson after the last one has ended.
	RefillPlaylist();
}

void FLessonSession::SendComment(const FString& Text)
{
	if (Text.IsEmpty() || !MediaPlayer)
	{
		return;
	}
	static int32 NextSentId = FirstSentCommentId;
	Overlay->AddDataThenSpawn(MakeSentComment(NextSentId++, Text, MediaPlayer->GetTime()), MediaPlayer->GetUrl());
}

void FLessonSession::ApplyCommentSettings(bool bStore)
{
	Overlay->SetBulletChatSettings(CommentSettings);
	if (bStore)
	{
		UBulletChatSave::SaveIsOpend(CommentSettings.bIsOpened);
		UBulletChatSave::SaveFontSize(CommentSettings.FontSize);
		UBulletChatSave::SaveSpeedScale(CommentSettings.SpeedScale);
	}
}

void FLessonSession::HandleKey(ELessonKey Key)
{
	switch (Key)
	{
	case ELessonKey::TogglePause:
		if (MediaPlayer->IsPlaying())
		{
			PlayerWidget->PauseVideo();
		}
		else if (MediaPlayer->IsPaused())
		{
			MediaPlayer->Play();
		}
		else if (MediaPlayer->IsClosed())
		{
			// After the end, the key plays the lesson again from its start.
			OpenLesson(CurrentEntry);
		}
		break;
	case ELessonKey::SeekBackward:
		SeekBy(-SeekStepSeconds);
		break;
	case ELessonKey::SeekForward:
		SeekBy(SeekStepSeconds);
		break;
	case ELessonKey::VolumeUp:
		StepVolume(VolumeStep);
		break;
	case ELessonKey::VolumeDown:
		StepVolume(-VolumeStep);
		break;
	case ELessonKey::ToggleMute:
		ToggleMute();
		break;
	case ELessonKey::ToggleComments:
		CommentSettings.bIsOpened = !CommentSettings.bIsOpened;
		ApplyCommentSettings(true);
		break;
	case ELessonKey::ToggleFullScreen:
	case ELessonKey::Quit:
		// The window's affair.
		break;
	}
}

void FLessonSession::SeekBy(double Seconds)
{
	if (!MediaPlayer->IsPlaying() && !MediaPlayer->IsPaused())
	{
		return;
	}
	const double Duration = MediaPlayer->GetDuration().GetTotalSeconds();
	const double Target = FMath::Clamp(MediaPlayer->GetTime().GetTotalSeconds() + Seconds, 0.0, FMath::Max(0.0, Duration - 0.1));
	MediaPlayer->Seek(FTimespan::FromSeconds(Target));
}

void FLessonSession::StepVolume(float Delta)
{
	const float Volume = FMath::Clamp(PlayerWidget->GetVolumeMultiplier() + Delta, 0.0f, 1.0f);
	PlayerWidget->SetVolumeMultiplier(Volume);
	// The board shows the level without raising its own change event.
	if (UUI_VolumeProgress* Board = Cast<UUI_VolumeProgress>(PlayerWidget->WidgetTree->FindWidget(TEXT("VolumeProgress"))))
	{
		Board->SetChangedVolumeValue(Volume);
	}
}

void FLessonSession::ToggleMute()
{
	// The key does what a click on the mute box does, so the box shows it and the box's own
	// handler keeps the volume to give back.
	UUserWidget* Button = Cast<UUserWidget>(PlayerWidget->WidgetTree->FindWidget(TEXT("VolumeButton")));
	UCheckBox* Box = Button && Button->WidgetTree ? Cast<UCheckBox>(Button->WidgetTree->FindWidget(TEXT("VolumeButton"))) : nullptr;
	if (!Box)
	{
		return;
	}
	const bool bMute = !Box->IsChecked();
	Box->SetIsChecked(bMute);
	Box->OnCheckStateChanged.Broadcast(bMute);
}
