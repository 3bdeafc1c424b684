// UMediaPlayer's own rules (states, events and their order, clock, playlist, texture, sound),
// driven through the scripted backend so each step is the test's to decide.

#include "../Kit/ScriptedMedia.h"
#include "MediaAssetsTestListener.h"

#include "AudioSink.h"
#include "Components/AudioComponent.h"
#include "Containers/Ticker.h"
#include "Engine/World.h"
#include "Logging/LogCapture.h"
#include "MediaPlayer.h"
#include "MediaPlaylist.h"
#include "MediaSoundComponent.h"
#include "MediaSource.h"
#include "MediaTexture.h"
#include "UObject/UObjectGlobals.h"
#include "WavFileAudioSink.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <vector>

namespace
{
	constexpr float Step = 1.f / 60.f;

	void Tick(int32 Frames = 1)
	{
		for (int32 Frame = 0; Frame < Frames; ++Frame)
		{
			FTSTicker::GetCoreTicker().Tick(Step);
		}
	}

	struct FPlayerFixture
	{
		FScriptedMediaScope Scripted;
		UMediaPlayer* Player = NewObject<UMediaPlayer>();
		UMediaAssetsTestListener* Events = NewObject<UMediaAssetsTestListener>();
		FPlayerFixture() { Events->Listen(Player); }

		// Opens scripted://Name and lets the open succeed; returns the events it raised.
		FString OpenReady(const FString& Name = TEXT("lesson"))
		{
			EXPECT_TRUE(Player->OpenUrl(FScriptedMediaScope::Url(Name)));
			Scripted.Media(Name).FinishOpen();
			Tick();
			return Events->Take();
		}
	};

	int32 CountLogLines(const TCHAR* Category, const FString& Containing)
	{
		int32 Count = 0;
		for (const UE::Log::FCapturedLine& Line : UE::Log::GetCapturedLines())
		{
			Count += Line.Category == Category && (Containing.IsEmpty() || Line.Message.Contains(Containing)) ? 1 : 0;
		}
		return Count;
	}
}

TEST(MediaPlayer, OpensAsynchronouslyAndStartsOnlyWhenAskedTo)
{
	FPlayerFixture Fixture;
	UMediaPlayer* Player = Fixture.Player;
	EXPECT_TRUE(Player->IsClosed());
	ASSERT_TRUE(Player->OpenUrl(TEXT("scripted://lesson")));
	EXPECT_TRUE(Player->IsPreparing());
	EXPECT_FALSE(Player->IsReady());
	EXPECT_EQ(Player->GetUrl(), TEXT("scripted://lesson"));
	Tick(3);
	EXPECT_EQ(Fixture.Events->Take(), TEXT("")) << "nothing happens before the backend says so";

	Fixture.Scripted.Media(TEXT("lesson")).Duration = FTimespan::FromSeconds(90.0);
	Fixture.Scripted.Media(TEXT("lesson")).FinishOpen();
	EXPECT_TRUE(Player->IsPreparing()) << "events wait for the media step";
	Tick();
	EXPECT_EQ(Fixture.Events->Take(), TEXT("Opened Resumed"));
	EXPECT_FALSE(Fixture.Events->bPreparingAtOpened) << "a handler of OnMediaOpened may open the next entry";
	EXPECT_EQ(Fixture.Events->LastUrl, TEXT("scripted://lesson"));
	EXPECT_TRUE(Player->IsPlaying());
	EXPECT_TRUE(Player->CanPause());
	EXPECT_EQ(Player->GetDuration(), FTimespan::FromSeconds(90.0));
	EXPECT_EQ(Fixture.Scripted.Media(TEXT("lesson")).CallNames(), TEXT("Open SetRate"));

	// Without PlayOnOpen the media opens paused, which is still ready, and raises no pause event.
	Player->PlayOnOpen = false;
	EXPECT_EQ(Fixture.OpenReady(TEXT("second")), TEXT("Suspended Closed Opened"));
	EXPECT_TRUE(Player->IsPaused());
	EXPECT_TRUE(Player->IsReady());
	EXPECT_EQ(Player->GetRate(), 0.f);
}

TEST(MediaPlayer, RaisesPauseAndResumeWhoeverCausesThem)
{
	FPlayerFixture Fixture;
	Fixture.OpenReady();
	UMediaPlayer* Player = Fixture.Player;

	EXPECT_TRUE(Player->Pause());
	EXPECT_TRUE(Player->IsPaused()) << "the state changes at once, the event at the next step";
	EXPECT_FALSE(Player->CanPause());
	EXPECT_EQ(Fixture.Events->Take(), TEXT(""));
	Tick();
	EXPECT_EQ(Fixture.Events->Take(), TEXT("Suspended"));

	EXPECT_TRUE(Player->Pause());
	EXPECT_TRUE(Player->Play());
	EXPECT_TRUE(Player->SetRate(0.f));
	EXPECT_TRUE(Player->SetRate(1.5f));
	EXPECT_FALSE(Player->SetRate(-1.f)) << "no reverse play";
	Tick();
	EXPECT_EQ(Fixture.Events->Take(), TEXT("Resumed Suspended Resumed"));
	EXPECT_EQ(Player->GetRate(), 1.5f);
	EXPECT_EQ(Fixture.Scripted.Media(TEXT("lesson")).ArgsOf(TEXT("SetRate")), (TArray<FString>{TEXT("1"), TEXT("0"), TEXT("0"), TEXT("1"), TEXT("0"), TEXT("1.5")}));
}

TEST(MediaPlayer, ClockAdvancesByDeltaTimesRateOnlyWhilePlaying)
{
	FPlayerFixture Fixture;
	Fixture.OpenReady();
	UMediaPlayer* Player = Fixture.Player;
	// The open's step already advanced once.
	Tick(59);
	EXPECT_NEAR(Player->GetTime().GetTotalSeconds(), 1.0, 1e-6);
	Player->SetRate(2.f);
	Tick(30);
	EXPECT_NEAR(Player->GetTime().GetTotalSeconds(), 2.0, 1e-6);
	Player->Pause();
	Tick(30);
	EXPECT_NEAR(Player->GetTime().GetTotalSeconds(), 2.0, 1e-6);
	EXPECT_EQ(Player->CacheBehind, FTimespan::FromSeconds(3.0));
}

TEST(MediaPlayer, SeekAndRewindCompleteWhenTheBackendSaysSo)
{
	FPlayerFixture Fixture;
	UMediaPlayer* Player = Fixture.Player;
	EXPECT_FALSE(Player->Seek(FTimespan::FromSeconds(1.0))) << "nothing open";

	// A seek while preparing waits for the open, then completes like any other.
	Player->OpenUrl(FScriptedMediaScope::Url(TEXT("lesson")));
	EXPECT_TRUE(Player->Seek(FTimespan::FromSeconds(2.0)));
	FScriptedMedia& Media = Fixture.Scripted.Media(TEXT("lesson"));
	Media.FinishOpen();
	Tick();
	EXPECT_EQ(Fixture.Events->Take(), TEXT("Opened Resumed SeekCompleted"));
	EXPECT_EQ(Media.CallNames(), TEXT("Open SetRate Seek"));
	EXPECT_EQ(Media.ArgsOf(TEXT("Seek")).Last(), TEXT("2.000"));

	Media.bHoldSeeks = true;
	EXPECT_TRUE(Player->Rewind());
	Tick(2);
	EXPECT_EQ(Fixture.Events->Take(), TEXT(""));
	Media.CompleteSeek();
	Tick();
	EXPECT_EQ(Fixture.Events->Take(), TEXT("SeekCompleted"));
	EXPECT_EQ(Media.ArgsOf(TEXT("Seek")).Last(), TEXT("0.000"));

	Media.bSeekable = false;
	EXPECT_FALSE(Player->SupportsSeeking());
	EXPECT_FALSE(Player->Seek(FTimespan::FromSeconds(1.0)));
}

TEST(MediaPlayer, EndIsReachedWhileReadyThenStopsOrLoopsSilently)
{
	FPlayerFixture Fixture;
	FScriptedMedia& Media = Fixture.Scripted.Media(TEXT("lesson"));
	Media.Duration = FTimespan::FromSeconds(0.5);
	Fixture.OpenReady();
	UMediaPlayer* Player = Fixture.Player;
	Tick(40);
	EXPECT_EQ(Fixture.Events->Take(), TEXT("EndReached Suspended"));
	EXPECT_TRUE(Fixture.Events->bReadyAtEnd);
	EXPECT_TRUE(Player->IsPaused());
	EXPECT_EQ(Player->GetTime(), FTimespan::FromSeconds(0.5));

	// Play at the end starts over; the restart is the player's own seek and raises no event.
	EXPECT_TRUE(Player->Play());
	Tick();
	EXPECT_EQ(Fixture.Events->Take(), TEXT("Resumed"));
	EXPECT_LT(Player->GetTime().GetTotalSeconds(), 0.1);

	Player->SetLooping(true);
	Tick(70);
	EXPECT_EQ(Fixture.Events->Take(), TEXT("EndReached EndReached"));
	EXPECT_TRUE(Player->IsPlaying());
}

TEST(MediaPlayer, FailedOpensEndClosedWithOneLogLine)
{
	FPlayerFixture Fixture;
	UMediaPlayer* Player = Fixture.Player;
	UE::Log::ClearCapturedLines();
	Player->OpenUrl(FScriptedMediaScope::Url(TEXT("broken")));
	Fixture.Scripted.Media(TEXT("broken")).FailOpen(TEXT("no picture"));
	Tick();
	EXPECT_EQ(Fixture.Events->Take(), TEXT("OpenFailed"));
	EXPECT_EQ(Fixture.Events->LastUrl, TEXT("scripted://broken"));
	EXPECT_TRUE(Player->IsClosed());
	EXPECT_EQ(Player->GetUrl(), TEXT(""));
	EXPECT_EQ(CountLogLines(TEXT("LogMediaAssets"), TEXT("")), 1);
	EXPECT_EQ(CountLogLines(TEXT("LogMediaAssets"), TEXT("'scripted://broken': no picture")), 1);

	// Refused on sight: false, and the same event and line at the next step.
	EXPECT_FALSE(Player->OpenUrl(TEXT("gopher://example.com/lesson.mp4")));
	EXPECT_FALSE(Player->OpenUrl(TEXT("")));
	EXPECT_TRUE(Player->IsClosed());
	Tick();
	EXPECT_EQ(Fixture.Events->Take(), TEXT("OpenFailed OpenFailed"));
	EXPECT_EQ(CountLogLines(TEXT("LogMediaAssets"), TEXT("gopher://example.com/lesson.mp4")), 1);
	EXPECT_EQ(CountLogLines(TEXT("LogMediaAssets"), TEXT("")), 3);
}

TEST(MediaPlayer, CloseLeavesAReusablePlayerAndDropsTheOldMediasNews)
{
	FPlayerFixture Fixture;
	UMediaPlayer* Player = Fixture.Player;
	Player->Close();
	Tick();
	EXPECT_EQ(Fixture.Events->Take(), TEXT("")) << "closing nothing raises nothing";

	Fixture.OpenReady();
	Tick(10);
	Player->Close();
	EXPECT_TRUE(Player->IsClosed());
	EXPECT_EQ(Player->GetTime(), FTimespan::Zero());
	EXPECT_EQ(Player->GetDuration(), FTimespan::Zero());
	Tick();
	EXPECT_EQ(Fixture.Events->Take(), TEXT("Suspended Closed"));

	// An open the backend finished but the player closed before its step never reports.
	Player->OpenUrl(FScriptedMediaScope::Url(TEXT("lesson")));
	Fixture.Scripted.Media(TEXT("lesson")).FinishOpen();
	Player->Close();
	Tick();
	EXPECT_EQ(Fixture.Events->Take(), TEXT("Closed"));
	EXPECT_EQ(Fixture.OpenReady(), TEXT("Opened Resumed"));
	EXPECT_TRUE(Player->IsPlaying());
}

TEST(MediaPlayer, DefaultsAreTheEnginesAndThePlaylistIsNeverNull)
{
	FPlayerFixture Fixture;
	UMediaPlayer* Player = Fixture.Player;
	EXPECT_EQ(Player->CacheAhead, FTimespan::FromMilliseconds(100));
	EXPECT_EQ(Player->CacheBehind, FTimespan::FromMilliseconds(3000));
	EXPECT_EQ(Player->CacheBehindGame, FTimespan::FromMilliseconds(100));
	EXPECT_TRUE(Player->PlayOnOpen);
	EXPECT_FALSE(Player->IsLooping());
	EXPECT_FALSE(Player->Shuffle);
	EXPECT_EQ(Player->GetPlaylistIndex(), INDEX_NONE);
	UMediaPlaylist* Playlist = Player->GetPlaylist();
	ASSERT_NE(Playlist, nullptr);
	EXPECT_EQ(Player->GetPlaylist(), Playlist) << "made once, then kept until a close";
	EXPECT_EQ(&Player->GetPlaylistRef(), Playlist);
	EXPECT_EQ(Playlist->Num(), 0);
}

TEST(MediaPlayer, PlaylistLivesFromAnOpenToTheNextClose)
{
	FPlayerFixture Fixture;
	UMediaPlayer* Player = Fixture.Player;
	UMediaPlaylist* Playlist = Player->GetPlaylist();
	for (const TCHAR* Name : {TEXT("a"), TEXT("b"), TEXT("c")})
	{
		Playlist->AddUrl(FScriptedMediaScope::Url(Name));
	}

	// The player's own list may be passed back to it: the caller's pointer keeps it through the close.
	EXPECT_TRUE(Player->OpenPlaylistIndex(Player->GetPlaylist(), 1));
	EXPECT_EQ(Player->GetPlaylist(), Playlist);
	EXPECT_EQ(Player->GetPlaylistIndex(), 1);
	EXPECT_EQ(Player->GetUrl(), TEXT("scripted://b"));
	EXPECT_TRUE(Player->IsPreparing());
	Player->Next();
	Player->Next();
	EXPECT_EQ(Player->GetPlaylistIndex(), 0) << "past the last entry wraps to the first";
	Player->Previous();
	EXPECT_EQ(Player->GetPlaylistIndex(), 2);
	EXPECT_EQ(Player->GetPlaylist(), Playlist) << "stepping keeps the list";

	UE::Log::ClearCapturedLines();
	EXPECT_FALSE(Player->OpenPlaylistIndex(Playlist, 3));
	EXPECT_TRUE(Player->IsClosed()) << "the open closed the old media first";
	EXPECT_EQ(Player->GetPlaylist(), Playlist);
	EXPECT_EQ(Player->GetPlaylistIndex(), INDEX_NONE);
	EXPECT_FALSE(Player->OpenPlaylistIndex(nullptr, 0));
	EXPECT_EQ(CountLogLines(TEXT("LogMediaAssets"), TEXT("playlist")), 2);
	EXPECT_TRUE(Player->OpenPlaylistIndex(Playlist, INDEX_NONE)) << "INDEX_NONE opens nothing and is no failure";
	EXPECT_TRUE(Player->IsClosed());
	EXPECT_EQ(Player->GetPlaylist(), Playlist);

	// Close drops the list; the next ask makes a new, empty one.
	Player->OpenPlaylistIndex(Playlist, 2);
	Player->Close();
	EXPECT_EQ(Player->GetPlaylistIndex(), INDEX_NONE);
	UMediaPlaylist* Fresh = Player->GetPlaylist();
	EXPECT_NE(Fresh, Playlist);
	EXPECT_EQ(Fresh->Num(), 0);
	EXPECT_EQ(Playlist->Num(), 3) << "the list itself is left as it was";

	// An open by URL closes, then plays a new one-entry list.
	EXPECT_TRUE(Player->OpenUrl(FScriptedMediaScope::Url(TEXT("b"))));
	ASSERT_NE(Player->GetPlaylist(), Fresh);
	ASSERT_EQ(Player->GetPlaylist()->Num(), 1);
	EXPECT_EQ(Player->GetPlaylist()->Get(0)->GetUrl(), TEXT("scripted://b"));
	EXPECT_EQ(Player->GetPlaylistIndex(), 0);
}

TEST(MediaPlayer, CanPlayOnlyKnownSchemes)
{
	FScriptedMediaScope Scripted;
	UMediaPlayer* Player = NewObject<UMediaPlayer>();
	EXPECT_TRUE(Player->CanPlayUrl(TEXT("http://example.com/a.mp4")));
	EXPECT_TRUE(Player->CanPlayUrl(TEXT("HTTPS://example.com/a.mp4")));
	EXPECT_TRUE(Player->CanPlayUrl(TEXT("ftp://example.com/a.mp4")));
	EXPECT_TRUE(Player->CanPlayUrl(TEXT("scripted://a")));
	EXPECT_FALSE(Player->CanPlayUrl(TEXT("gopher://example.com/a.mp4")));
	EXPECT_FALSE(Player->CanPlayUrl(TEXT("/home/me/a.mp4")));
	EXPECT_FALSE(Player->CanPlayUrl(TEXT("http://")));
	EXPECT_FALSE(Player->CanPlayUrl(TEXT("")));
}

TEST(MediaPlayer, TextureShowsTheLatestPictureAndCountsThem)
{
	FPlayerFixture Fixture;
	UMediaTexture* Texture = NewObject<UMediaTexture>();
	Texture->SetMediaPlayer(Fixture.Player);
	EXPECT_EQ(Texture->GetWidth(), 0);
	Fixture.OpenReady();
	Tick(4);
	ASSERT_EQ(Texture->GetWidth(), 2);
	EXPECT_EQ(Texture->GetHeight(), 2);
	EXPECT_EQ(Texture->GetFrameCount(), 5u) << "pictures count whether or not anyone looked";
	EXPECT_EQ(Texture->GetSample()->Pixels[0], 5) << "the newest of the five pictures made";
	Tick();
	EXPECT_EQ(Texture->GetFrameCount(), 6u);
	Fixture.Player->Close();
	EXPECT_EQ(Texture->GetSample(), nullptr);
}

TEST(MediaSoundComponent, AppliesTheVolumeMultiplierToWhatTheSinkReceives)
{
	FPlayerFixture Fixture;
	UWorld* World = UWorld::CreateWorld(TEXT("SoundWorld"));
	UMediaSoundComponent* Sound = NewObject<UMediaSoundComponent>(World);
	EXPECT_EQ(Sound->GetAudioComponent(), nullptr) << "made at registration";
	Sound->RegisterComponentWithWorld(World);
	ASSERT_NE(Sound->GetAudioComponent(), nullptr);
	EXPECT_TRUE(Sound->IsPlaying());
	Sound->SetMediaPlayer(Fixture.Player);
	EXPECT_EQ(Sound->GetMediaPlayer(), Fixture.Player);

	const std::filesystem::path Wav = std::filesystem::temp_directory_path() / ("media-sound-" + std::to_string(::getpid()) + ".wav");
	TSharedPtr<UE::Audio::FWavFileAudioSink> Sink = MakeShared<UE::Audio::FWavFileAudioSink>(FString(Wav.string().c_str()));
	ASSERT_TRUE(Sink->IsOpen());
	UE::Audio::SetAudioSink(Sink);
	Fixture.OpenReady();
	// The player's native output is not what the component plays: a native volume of 0 changes nothing heard.
	EXPECT_FALSE(Fixture.Player->SetNativeVolume(0.f));
	Tick(2);
	// Three ticks so far. Each level plays for 30 frames; the scripted media's sound is a constant 0.5.
	const float Levels[] = {1.f, 0.5f, 0.f};
	for (float Level : Levels)
	{
		Sound->SetVolumeMultiplier(Level);
		EXPECT_EQ(Sound->VolumeMultiplier, Level);
		EXPECT_EQ(Sound->GetAudioComponent()->VolumeMultiplier, Level);
		Tick(30);
	}
	Sound->Stop();
	EXPECT_FALSE(Sound->IsPlaying());
	Tick(30);
	UE::Audio::SetAudioSink(nullptr);
	Sink.Reset();

	std::ifstream In(Wav, std::ios::binary);
	std::vector<char> Bytes((std::istreambuf_iterator<char>(In)), std::istreambuf_iterator<char>());
	std::filesystem::remove(Wav);
	ASSERT_GT(Bytes.size(), 44u);
	std::vector<float> Samples((Bytes.size() - 44) / sizeof(float));
	std::memcpy(Samples.data(), Bytes.data() + 44, Samples.size() * sizeof(float));
	const size_t FramesPerTick = 800;
	ASSERT_EQ(Samples.size(), (3 + 90 + 30) * FramesPerTick * 2);
	// The middle of each stretch, clear of the one-step delay between the mix and the media step.
	auto Mean = [&](int32 FirstTick) {
		double Sum = 0.0;
		for (size_t Index = (FirstTick + 5) * FramesPerTick * 2; Index < (FirstTick + 25) * FramesPerTick * 2; ++Index)
		{
			Sum += Samples[Index];
		}
		return Sum / (20 * FramesPerTick * 2);
	};
	EXPECT_NEAR(Mean(3), 0.5, 1e-6);
	EXPECT_NEAR(Mean(33), 0.25, 1e-6);
	EXPECT_NEAR(Mean(63), 0.0, 1e-6);
	EXPECT_NEAR(Mean(93), 0.0, 1e-6) << "stopped: the component adds nothing";
}
