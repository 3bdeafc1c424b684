// UMediaPlayer on real media through the FFmpeg backend: the sample lesson the build makes
// (4 s, 320x180, 30 fps, a tone), served from disk and over http from a loopback server, and
// each kind of bad input.

#include "MediaAssetsTestListener.h"

#include "AudioSink.h"
#include "Containers/Ticker.h"
#include "Engine/World.h"
#include "Logging/LogCapture.h"
#include "MediaClockPolicy.h"
#include "MediaPlayer.h"
#include "MediaSoundComponent.h"
#include "MediaTexture.h"
#include "PlainSampleMedia.h"
#include "UObject/GarbageCollection.h"
#include "UObject/UObjectGlobals.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <string>
#include <thread>
#include <vector>

namespace
{
	constexpr float Step = 1.f / 30.f;
	const std::string Lesson = PLAIN_SAMPLE_MEDIA_DIR "/lesson.mp4";
	using FClock = std::chrono::steady_clock;

	double SecondsSince(FClock::time_point Start)
	{
		return std::chrono::duration<double>(FClock::now() - Start).count();
	}

	// Ticks the frame loop's media step until Done, waiting a little between steps while the
	// worker is busy; false after TimeoutSeconds of wall time.
	bool TickUntil(const std::function<bool()>& Done, double TimeoutSeconds = 10.0)
	{
		const FClock::time_point Start = FClock::now();
		while (!Done())
		{
			if (SecondsSince(Start) > TimeoutSeconds)
			{
				return false;
			}
			FTSTicker::GetCoreTicker().Tick(Step);
			std::this_thread::sleep_for(std::chrono::milliseconds(1));
		}
		return true;
	}

	void Tick(int32 Frames)
	{
		for (int32 Frame = 0; Frame < Frames; ++Frame)
		{
			FTSTicker::GetCoreTicker().Tick(Step);
		}
	}

	std::vector<char> ReadAll(const std::string& Path)
	{
		std::ifstream In(Path, std::ios::binary);
		return std::vector<char>(std::istreambuf_iterator<char>(In), std::istreambuf_iterator<char>());
	}

	int32 MediaLogLines(const FString& Containing)
	{
		int32 Count = 0;
		for (const UE::Log::FCapturedLine& Line : UE::Log::GetCapturedLines())
		{
			Count += Line.Category == TEXT("LogMediaAssets") && Line.Message.Contains(Containing) ? 1 : 0;
		}
		return Count;
	}

	int32 AllMediaLogLines()
	{
		int32 Count = 0;
		for (const UE::Log::FCapturedLine& Line : UE::Log::GetCapturedLines())
		{
			Count += Line.Category == TEXT("LogMediaAssets") && Line.Verbosity <= ELogVerbosity::Log ? 1 : 0;
		}
		return Count;
	}

	/**
	 * A loopback http server: answers GETs (with byte ranges) from its files by path, with Body for
	 * any other path, each answer after Delay (a far server); or, if bSilent, accepts and never answers.
	 */
	class FLoopbackServer
	{
	public:
		FLoopbackServer(std::vector<char> InBody, bool bInSilent, std::map<std::string, std::vector<char>> InFiles = {},
			std::chrono::milliseconds InDelay = std::chrono::milliseconds(0))
			: Body(std::move(InBody)), Files(std::move(InFiles)), Delay(InDelay), bSilent(bInSilent)
		{
			Socket = socket(AF_INET, SOCK_STREAM, 0);
			sockaddr_in Address{};
			Address.sin_family = AF_INET;
			Address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
			socklen_t Length = sizeof(Address);
			if (bind(Socket, reinterpret_cast<sockaddr*>(&Address), sizeof(Address)) == 0 && listen(Socket, 8) == 0
				&& getsockname(Socket, reinterpret_cast<sockaddr*>(&Address), &Length) == 0)
			{
				Port = ntohs(Address.sin_port);
			}
			if (!bSilent)
			{
				Thread = std::thread([this] { Serve(); });
			}
		}
		~FLoopbackServer()
		{
			bStop = true;
			shutdown(Socket, SHUT_RDWR);
			close(Socket);
			if (Thread.joinable())
			{
				Thread.join();
			}
		}
		FString Url(const char* Path) const { return FString::Printf(TEXT("http://127.0.0.1:%d/%hs"), Port, Path); }

		int Port = 0;
		// Answers given so far.
		std::atomic<int> Served{0};

	private:
		void Serve()
		{
			while (!bStop)
			{
				const int Client = accept(Socket, nullptr, nullptr);
				if (Client < 0)
				{
					return;
				}
				std::string Request;
				char Chunk[1024];
				ssize_t Got = 0;
				while (Request.find("\r\n\r\n") == std::string::npos && (Got = recv(Client, Chunk, sizeof(Chunk), 0)) > 0)
				{
					Request.append(Chunk, static_cast<size_t>(Got));
				}
				// "GET /path HTTP/1.1": the path between the first two spaces, without its slash.
				const size_t PathStart = Request.find(' ') + 2;
				const auto File = Files.find(Request.substr(PathStart, Request.find(' ', PathStart) - PathStart));
				const std::vector<char>& Answer = File != Files.end() ? File->second : Body;
				size_t First = 0;
				const size_t Range = Request.find("Range: bytes=");
				if (Range != std::string::npos)
				{
					First = std::min(Answer.size(), static_cast<size_t>(std::stoull(Request.substr(Range + 13))));
				}
				const std::string Head = (Range != std::string::npos ? "HTTP/1.1 206 Partial Content\r\nContent-Range: bytes " + std::to_string(First) + "-" + std::to_string(Answer.size() - 1) + "/" + std::to_string(Answer.size()) + "\r\n" : std::string("HTTP/1.1 200 OK\r\n"))
					+ "Content-Type: application/octet-stream\r\nAccept-Ranges: bytes\r\nConnection: close\r\nContent-Length: " + std::to_string(Answer.size() - First) + "\r\n\r\n";
				std::this_thread::sleep_for(Delay);
				send(Client, Head.data(), Head.size(), MSG_NOSIGNAL);
				send(Client, Answer.data() + First, Answer.size() - First, MSG_NOSIGNAL);
				close(Client);
				++Served;
			}
		}

		std::vector<char> Body;
		std::map<std::string, std::vector<char>> Files;
		std::chrono::milliseconds Delay;
		bool bSilent = false;
		int Socket = -1;
		std::atomic<bool> bStop{false};
		std::thread Thread;
	};

	/** The headless host's clock policy for one test; the tests' default comes back after it. */
	struct FFixedStepClock
	{
		FFixedStepClock() { SetMediaClockPolicy(EMediaClockPolicy::FixedStep); }
		~FFixedStepClock() { SetMediaClockPolicy(EMediaClockPolicy::WallClock); }
	};

	struct FPlayback
	{
		UMediaPlayer* Player = NewObject<UMediaPlayer>();
		UMediaAssetsTestListener* Events = NewObject<UMediaAssetsTestListener>();
		UMediaTexture* Texture = NewObject<UMediaTexture>();
		FPlayback()
		{
			Events->Listen(Player);
			Texture->SetMediaPlayer(Player);
		}
		bool WaitFor(const TCHAR* Event) { return TickUntil([&] { return Events->Events.Contains(FString(Event)); }); }
	};
}

TEST(MediaPlayback, PlaysTheSampleLessonWithItsEventsInOrder)
{
	FPlayback Run;
	UMediaPlayer* Player = Run.Player;
	ASSERT_TRUE(Player->OpenFile(FString(Lesson.c_str())));
	EXPECT_TRUE(Player->IsPreparing());
	EXPECT_EQ(Player->GetUrl(), FString(("file://" + Lesson).c_str()));
	ASSERT_TRUE(Run.WaitFor(TEXT("Opened")));
	EXPECT_EQ(Run.Events->Take(), TEXT("Opened Resumed"));
	EXPECT_NEAR(Player->GetDuration().GetTotalSeconds(), 4.0, 0.05);
	EXPECT_TRUE(Player->SupportsSeeking());
	EXPECT_EQ(Run.Texture->GetWidth(), 320);
	EXPECT_EQ(Run.Texture->GetHeight(), 180);

	// At 30 steps a second on a 30 fps clip, every step shows the next picture.
	const uint64 FramesBefore = Run.Texture->GetFrameCount();
	Tick(29);
	EXPECT_EQ(Run.Texture->GetFrameCount(), FramesBefore + 29);
	EXPECT_NEAR(Player->GetTime().GetTotalSeconds(), 1.0, 1e-3);
	EXPECT_NEAR(Run.Texture->GetSample()->Time.GetTotalSeconds(), 1.0, 1e-3);

	Player->Pause();
	Tick(10);
	EXPECT_EQ(Run.Events->Take(), TEXT("Suspended"));
	EXPECT_NEAR(Player->GetTime().GetTotalSeconds(), 1.0, 1e-3);
	Player->Play();
	Tick(1);
	EXPECT_EQ(Run.Events->Take(), TEXT("Resumed"));

	ASSERT_TRUE(Player->Seek(FTimespan::FromSeconds(2.5)));
	ASSERT_TRUE(Run.WaitFor(TEXT("SeekCompleted")));
	EXPECT_EQ(Run.Events->Take(), TEXT("SeekCompleted"));
	EXPECT_GE(Player->GetTime().GetTotalSeconds(), 2.5);
	EXPECT_LT(Player->GetTime().GetTotalSeconds(), 2.9);
	ASSERT_TRUE(Player->Rewind());
	ASSERT_TRUE(Run.WaitFor(TEXT("SeekCompleted")));
	EXPECT_EQ(Run.Events->Take(), TEXT("SeekCompleted"));
	EXPECT_LT(Player->GetTime().GetTotalSeconds(), 0.4);

	Player->SetRate(2.f);
	ASSERT_TRUE(Run.WaitFor(TEXT("EndReached")));
	EXPECT_EQ(Run.Events->Take(), TEXT("EndReached Suspended"));
	EXPECT_TRUE(Run.Events->bReadyAtEnd);
	EXPECT_NEAR(Player->GetTime().GetTotalSeconds(), 4.0, 0.05);
	Player->Close();
	Tick(1);
	EXPECT_EQ(Run.Events->Take(), TEXT("Closed"));
	EXPECT_TRUE(Player->IsClosed());
}

TEST(MediaPlayback, PlaysOverHttpFromALoopbackServer)
{
	FLoopbackServer Server(ReadAll(Lesson), false);
	FPlayback Run;
	const FString Url = Server.Url("lesson.mp4");
	EXPECT_TRUE(Run.Player->CanPlayUrl(Url));
	ASSERT_TRUE(Run.Player->OpenUrl(Url));
	ASSERT_TRUE(Run.WaitFor(TEXT("Opened")));
	EXPECT_EQ(Run.Events->Take(), TEXT("Opened Resumed"));
	EXPECT_NEAR(Run.Player->GetDuration().GetTotalSeconds(), 4.0, 0.05);
	ASSERT_TRUE(TickUntil([&] { return Run.Texture->GetFrameCount() >= 10; }));
	EXPECT_EQ(Run.Texture->GetWidth(), 320);
	Run.Player->Close();
}

TEST(MediaPlayback, ALessonNamedInChineseOpensByFileAndByUrl)
{
	// The name reaches the file system and FFmpeg as UTF-8, however FString holds it.
	const std::filesystem::path Dir = std::filesystem::temp_directory_path() / ("plain-媒体-" + std::to_string(::getpid()));
	std::filesystem::create_directories(Dir);
	const std::filesystem::path Named = Dir / "第一课 😂.mp4";
	std::filesystem::copy_file(Lesson, Named, std::filesystem::copy_options::overwrite_existing);
	const FString Path = UTF8_TO_TCHAR(Named.string().c_str());
	EXPECT_EQ(Path.Right(10), TEXT("第一课 😂.mp4"));
	for (const bool bByUrl : {false, true})
	{
		FPlayback Run;
		ASSERT_TRUE(bByUrl ? Run.Player->OpenUrl(TEXT("file://") + Path) : Run.Player->OpenFile(Path));
		ASSERT_TRUE(Run.WaitFor(TEXT("Opened"))) << (bByUrl ? "by URL" : "by file");
		EXPECT_NEAR(Run.Player->GetDuration().GetTotalSeconds(), 4.0, 0.05);
		Run.Player->Close();
	}
	std::filesystem::remove_all(Dir);
}

// A headless run steps its clock as fast as the machine goes. Over a slow network the lesson must
// hold every frame until its picture is there, or a recording shows pictures from seconds before
// the clock, and the lag grows segment by segment. The lesson is cut into one-second HLS segments
// that a loopback server hands out a fifth of a second after each request.
TEST(MediaPlayback, AFixedStepRunShowsTheFrameDueAtTheClockOfANetworkStream)
{
	const std::filesystem::path Dir = std::filesystem::temp_directory_path() / ("media-hls-" + std::to_string(::getpid()));
	std::filesystem::create_directories(Dir);
	const std::string Cut = "ffmpeg -hide_banner -loglevel error -y -i '" + Lesson + "' -c:v libx264 -preset ultrafast -g 30 -keyint_min 30 -sc_threshold 0 -c:a aac"
		" -f hls -hls_time 1 -hls_playlist_type vod -hls_segment_filename '" + (Dir / "part%d.ts").string() + "' '" + (Dir / "lesson.m3u8").string() + "'";
	ASSERT_EQ(std::system(Cut.c_str()), 0);
	std::map<std::string, std::vector<char>> Files;
	for (const std::filesystem::directory_entry& Entry : std::filesystem::directory_iterator(Dir))
	{
		Files[Entry.path().filename().string()] = ReadAll(Entry.path().string());
	}
	std::filesystem::remove_all(Dir);
	ASSERT_GE(Files.size(), 5u);
	FLoopbackServer Server({}, false, Files, std::chrono::milliseconds(200));

	FFixedStepClock FixedStep;
	FPlayback Run;
	ASSERT_TRUE(Run.Player->OpenUrl(Server.Url("lesson.m3u8")));
	ASSERT_TRUE(Run.WaitFor(TEXT("Opened")));
	const double Start = Run.Player->GetTime().GetTotalSeconds();
	// Every step of the clock shows the picture due at it: 30 fps at 30 steps a second.
	int32 Behind = 0;
	for (int32 Frame = 1; Frame <= 100; ++Frame)
	{
		Tick(1);
		const double Clock = Run.Player->GetTime().GetTotalSeconds();
		const double Shown = Run.Texture->GetSample() ? Run.Texture->GetSample()->Time.GetTotalSeconds() : -1.0;
		Behind += Clock - Shown > 0.5 / 30.0 ? 1 : 0;
	}
	EXPECT_EQ(Behind, 0);
	EXPECT_NEAR(Run.Player->GetTime().GetTotalSeconds() - Start, 100.0 / 30.0, 1e-3);
	ASSERT_TRUE(Run.Texture->GetSample());
	EXPECT_NEAR(Run.Texture->GetSample()->Time.GetTotalSeconds(), Run.Player->GetTime().GetTotalSeconds(), 0.5 / 30.0);
	EXPECT_GE(Server.Served.load(), 4);
	Run.Player->Close();
}

TEST(MediaPlayback, EachBadInputFailsWithOneLogLineAndEndsClosed)
{
	const std::filesystem::path Dir = std::filesystem::temp_directory_path() / ("media-bad-" + std::to_string(::getpid()));
	std::filesystem::create_directories(Dir);
	const std::vector<char> Bytes = ReadAll(Lesson);
	std::ofstream((Dir / "truncated.mp4").string(), std::ios::binary).write(Bytes.data(), 1024);
	std::ofstream((Dir / "notes.mp4").string()) << "Lesson notes, not a video.\n";
	const std::string Tone = (Dir / "tone.m4a").string();
	ASSERT_EQ(std::system(("ffmpeg -hide_banner -loglevel error -y -i '" + Lesson + "' -vn -c:a copy '" + Tone + "'").c_str()), 0);
	int ClosedPort = 0;
	{
		FLoopbackServer Probe({}, true);
		ClosedPort = Probe.Port;
	}

	const std::vector<std::pair<FString, bool>> Inputs = {
		{FString((Dir / "missing.mp4").string().c_str()), true},
		{FString((Dir / "truncated.mp4").string().c_str()), true},
		{FString((Dir / "notes.mp4").string().c_str()), true},
		{FString(Tone.c_str()), true},
		{TEXT("gopher://example.com/lesson.mp4"), false},
		{FString::Printf(TEXT("http://127.0.0.1:%d/lesson.mp4"), ClosedPort), false},
	};
	for (const auto& [Location, bFile] : Inputs)
	{
		SCOPED_TRACE(TCHAR_TO_UTF8(*Location));
		UE::Log::ClearCapturedLines();
		FPlayback Run;
		const FClock::time_point Start = FClock::now();
		bFile ? Run.Player->OpenFile(Location) : Run.Player->OpenUrl(Location);
		EXPECT_LT(SecondsSince(Start), 0.2) << "the game thread never waits for an open";
		ASSERT_TRUE(Run.WaitFor(TEXT("OpenFailed")));
		EXPECT_EQ(Run.Events->Take(), TEXT("OpenFailed"));
		EXPECT_TRUE(Run.Player->IsClosed());
		EXPECT_EQ(AllMediaLogLines(), 1);
		EXPECT_EQ(MediaLogLines(Location), 1) << "the line names the media";
	}
	std::filesystem::remove_all(Dir);
}

TEST(MediaPlayback, ADamagedStretchMidFileIsSkipped)
{
	std::vector<char> Bytes = ReadAll(Lesson);
	for (size_t Index = Bytes.size() * 2 / 5; Index < Bytes.size() * 2 / 5 + 2048; ++Index)
	{
		Bytes[Index] = static_cast<char>(Index * 131 + 7);
	}
	const std::string Damaged = (std::filesystem::temp_directory_path() / ("media-damaged-" + std::to_string(::getpid()) + ".mp4")).string();
	std::ofstream(Damaged, std::ios::binary).write(Bytes.data(), static_cast<std::streamsize>(Bytes.size()));
	FPlayback Run;
	Run.Player->OpenFile(FString(Damaged.c_str()));
	ASSERT_TRUE(Run.WaitFor(TEXT("Opened")));
	Run.Player->SetRate(4.f);
	EXPECT_TRUE(Run.WaitFor(TEXT("EndReached")));
	EXPECT_GT(Run.Texture->GetFrameCount(), 20u);
	std::filesystem::remove(Damaged);
}

TEST(MediaPlayback, ClosingOrDestroyingABusyPlayerIsSafeAndPrompt)
{
	FLoopbackServer Silent({}, true);
	UMediaPlayer* Player = NewObject<UMediaPlayer>();
	Player->OpenFile(FString(Lesson.c_str()));
	Player->Close();
	EXPECT_TRUE(Player->IsClosed());
	Player->OpenFile(FString(Lesson.c_str()));
	Tick(1);
	Player->OpenUrl(Silent.Url("stalls.mp4"));
	Tick(1);
	const FClock::time_point Start = FClock::now();
	Player->ConditionalBeginDestroy();
	CollectGarbage();
	EXPECT_LT(SecondsSince(Start), 1.0) << "a stalled network read is abandoned at once";
	Tick(2);
}

TEST(MediaPlayback, TheSoundComponentCarriesTheLessonsToneAtTheChosenVolume)
{
	struct FCollect : UE::Audio::IAudioSink
	{
		std::vector<float> Samples;
		void Write(const float* Interleaved, int32 Frames) override { Samples.insert(Samples.end(), Interleaved, Interleaved + Frames * 2); }
	};
	FPlayback Run;
	UWorld* World = UWorld::CreateWorld(TEXT("PlaybackSound"));
	UMediaSoundComponent* Sound = NewObject<UMediaSoundComponent>(World);
	Sound->RegisterComponentWithWorld(World);
	Sound->SetMediaPlayer(Run.Player);
	TSharedPtr<FCollect> Sink = MakeShared<FCollect>();
	Run.Player->OpenFile(FString(Lesson.c_str()));
	ASSERT_TRUE(Run.WaitFor(TEXT("Opened")));
	UE::Audio::SetAudioSink(Sink);
	// Level of each second's middle: the encoder's fade-in and the beeps stay out.
	auto Rms = [&](float Volume) {
		Sound->SetVolumeMultiplier(Volume);
		Tick(10);
		Sink->Samples.clear();
		Tick(15);
		double Sum = 0.0;
		for (float Sample : Sink->Samples)
		{
			Sum += static_cast<double>(Sample) * Sample;
		}
		Tick(5);
		return std::sqrt(Sum / static_cast<double>(std::max<size_t>(1, Sink->Samples.size())));
	};
	const double Full = Rms(1.f);
	const double Half = Rms(0.5f);
	const double Silent = Rms(0.f);
	UE::Audio::SetAudioSink(nullptr);
	EXPECT_GT(Full, 0.02);
	EXPECT_NEAR(Half / Full, 0.5, 0.02);
	EXPECT_EQ(Silent, 0.0);
}
