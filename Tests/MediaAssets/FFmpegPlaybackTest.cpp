#include "FFmpegTestMedia.h"

#include "../../Platform/MediaAssets/Private/FFmpeg/FFmpegAudioQueue.h"
#include "../../Platform/MediaAssets/Private/FFmpeg/FFmpegUrl.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <functional>

namespace
{
	constexpr double Step = 1.0 / 30.0;
	constexpr int32_t StepFrames = FFmpegAudioRate / 30;
	// Generous: the waits only end early when the data is there, so they cost nothing when all is well.
	constexpr double Wait = 5.0;

	bool HasType(const std::vector<EFFmpegEventType>& Events, EFFmpegEventType Type)
	{
		return std::find(Events.begin(), Events.end(), Type) != Events.end();
	}

	// What a fixed-step headless run saw, step by step.
	struct FRun
	{
		std::vector<double> PictureTimes;
		std::vector<uint64_t> PictureHashes;
		std::vector<EFFmpegEventType> Events;
		double SoundSquares = 0.0;
		int64_t SoundSamples = 0;
		uint64_t SoundHash = 1469598103934665603ull;
		bool bEnded = false;
	};

	// Runs up to MaxSteps steps of 1/30 s as the frame loop would; OnStep may seek.
	FRun PlayFixedStep(FFmpegSession& Session, int MaxSteps, const std::function<void(int)>& OnStep = nullptr)
	{
		FRun Run;
		std::vector<float> Sound(StepFrames * FFmpegAudioChannels);
		for (int Index = 0; Index < MaxSteps && !Run.bEnded; ++Index)
		{
			if (OnStep)
			{
				OnStep(Index);
			}
			Session.Advance(Step);
			if (std::shared_ptr<const FFmpegVideoFrame> Picture = Session.AcquireVideoFrame(Session.GetTime(), Wait))
			{
				uint64_t Hash = 0;
				for (size_t Byte = 0; Byte < Picture->Pixels.size() && Byte < static_cast<size_t>(Picture->Stride) * Picture->Height; Byte += 97)
				{
					Hash = Hash * 31 + Picture->Pixels[Byte];
				}
				Run.PictureTimes.push_back(Picture->Time);
				Run.PictureHashes.push_back(Hash);
			}
			const int32_t Taken = Session.PullAudio(Sound.data(), StepFrames, Wait);
			for (int32_t Sample = 0; Sample < Taken * FFmpegAudioChannels; ++Sample)
			{
				// Past the encoder's fade-in, the tone should be at full level.
				if (Session.GetTime() > 0.2)
				{
					Run.SoundSquares += Sound[Sample] * Sound[Sample];
					++Run.SoundSamples;
				}
				Run.SoundHash = (Run.SoundHash ^ static_cast<uint64_t>(std::lround(Sound[Sample] * 1e6))) * 1099511628211ull;
			}
			std::vector<FFmpegEvent> Events;
			Session.PollEvents(Events);
			for (const FFmpegEvent& Event : Events)
			{
				Run.Events.push_back(Event.Type);
				Run.bEnded |= Event.Type == EFFmpegEventType::EndReached;
			}
		}
		return Run;
	}

	FFmpegEvent OpenOrFail(FFmpegSession& Session, const std::string& Path)
	{
		Session.Open(Path);
		const std::vector<FFmpegEvent> Events = FFmpegTestMedia::PollUntil(Session, EFFmpegEventType::Opened, EFFmpegEventType::OpenFailed);
		return Events.empty() ? FFmpegEvent() : Events.back();
	}

	// Opens Location and returns the OpenFailed message, or what happened instead.
	std::string OpenFailure(const std::string& Location, const FFmpegOpenOptions& Options = FFmpegOpenOptions())
	{
		FFmpegSession Session;
		Session.Open(Location, Options);
		const std::vector<FFmpegEvent> Events = FFmpegTestMedia::PollUntil(Session, EFFmpegEventType::Opened, EFFmpegEventType::OpenFailed);
		if (Events.empty())
		{
			return "<no event>";
		}
		return Events.back().Type == EFFmpegEventType::OpenFailed ? Events.back().Message : "<opened>";
	}
}

TEST(FFmpegUrl, PlaysWebSchemesAndRefusesEverythingElse)
{
	EXPECT_TRUE(FFmpegCanPlayUrl("http://example.com/a.mp4"));
	EXPECT_TRUE(FFmpegCanPlayUrl("HTTPS://example.com/a.mp4"));
	EXPECT_TRUE(FFmpegCanPlayUrl("Ftp://example.com/a.mp4"));
	EXPECT_FALSE(FFmpegCanPlayUrl("gopher://example.com/a.mp4"));
	EXPECT_FALSE(FFmpegCanPlayUrl("file:///tmp/a.mp4"));
	EXPECT_FALSE(FFmpegCanPlayUrl("/tmp/a.mp4"));
	EXPECT_FALSE(FFmpegCanPlayUrl("http://"));

	const std::vector<std::string> All = FFmpegOpenOptions().AllowedSchemes;
	const FFmpegLocation Web = FFmpegResolveLocation("HTTPS://Example.com/Lesson.mp4", All);
	EXPECT_EQ(Web.Address, "https://Example.com/Lesson.mp4");
	EXPECT_TRUE(Web.bNetwork);
	EXPECT_EQ(FFmpegResolveLocation("/tmp/a:b.mp4", All).Address, "file:/tmp/a:b.mp4");
	EXPECT_EQ(FFmpegResolveLocation("file://localhost/tmp/a%20b.mp4", All).Address, "file:/tmp/a b.mp4");
	EXPECT_EQ(FFmpegResolveLocation("/tmp/a.mp4", All).ProtocolWhitelist, "file");
	EXPECT_EQ(FFmpegResolveLocation("concat:/a.mp4|/b.mp4", All).Error, "unsupported scheme 'concat'");
	EXPECT_EQ(FFmpegResolveLocation("file://server/a.mp4", All).Error, "not a local file URL");
	EXPECT_EQ(FFmpegResolveLocation("/tmp/a.mp4", {"http"}).Error, "local files are not allowed here");
}

TEST(FFmpegAudioQueue, PlacesSoundOnTheTimelineWithSilenceInGaps)
{
	FFmpegAudioQueue Queue;
	const std::vector<float> Ones(200, 1.0f);
	Queue.Push(100, Ones.data(), 100);
	// 3 frames late: rounding in the source's timestamps, joined without a gap.
	Queue.Push(203, Ones.data(), 100);
	EXPECT_EQ(Queue.EndFrame(), 300);
	Queue.Push(1000, Ones.data(), 100);

	std::vector<float> Out(2 * 400, -1.0f);
	EXPECT_EQ(Queue.Read(0, Out.data(), 400), 200);
	EXPECT_EQ(Out[2 * 99], 0.0f);
	EXPECT_EQ(Out[2 * 100], 1.0f);
	EXPECT_EQ(Out[2 * 299 + 1], 1.0f);
	EXPECT_EQ(Out[2 * 300], 0.0f);
	EXPECT_EQ(Queue.QueuedFrames(), 100);
	EXPECT_EQ(Queue.Read(950, Out.data(), 100), 50);
	EXPECT_EQ(Out[2 * 49], 0.0f);
	EXPECT_EQ(Out[2 * 50], 1.0f);
	EXPECT_EQ(Queue.QueuedFrames(), 50);
}

TEST(FFmpegPlayback, PlaysPictureAndSoundInOrderToTheEnd)
{
	const FFmpegTestMedia::FFiles& Files = FFmpegTestMedia::Get();
	ASSERT_TRUE(Files.Error.empty()) << Files.Error;
	FFmpegSession Session;
	const FFmpegEvent Opened = OpenOrFail(Session, Files.Clip);
	ASSERT_EQ(Opened.Type, EFFmpegEventType::Opened) << Opened.Message;
	EXPECT_NEAR(Opened.Info.Duration, 3.0, 0.1);
	EXPECT_EQ(Opened.Info.Width, 320);
	EXPECT_EQ(Opened.Info.Height, 240);
	EXPECT_NEAR(Opened.Info.FrameRate, 30.0, 0.01);
	EXPECT_TRUE(Opened.Info.bHasAudio);
	EXPECT_TRUE(Opened.Info.bSeekable);
	EXPECT_TRUE(Session.IsOpen());

	const FRun Run = PlayFixedStep(Session, 200);
	ASSERT_TRUE(Run.bEnded);
	EXPECT_NEAR(Session.GetTime(), 3.0, 0.05);
	// Every picture is due once per step, so a run at the frame rate shows all of them.
	EXPECT_GE(Run.PictureTimes.size(), 89u);
	for (size_t Index = 1; Index < Run.PictureTimes.size(); ++Index)
	{
		ASSERT_GT(Run.PictureTimes[Index], Run.PictureTimes[Index - 1]);
	}
	EXPECT_NE(Run.PictureHashes.front(), Run.PictureHashes.back());
	ASSERT_GT(Run.SoundSamples, 0);
	EXPECT_GT(std::sqrt(Run.SoundSquares / Run.SoundSamples), 0.3);
	EXPECT_FALSE(HasType(PlayFixedStep(Session, 10).Events, EFFmpegEventType::EndReached)) << "EndReached must come once";
}

TEST(FFmpegPlayback, SeekShowsThePictureDueAtTheTargetAndNothingOlder)
{
	const FFmpegTestMedia::FFiles& Files = FFmpegTestMedia::Get();
	ASSERT_TRUE(Files.Error.empty()) << Files.Error;
	FFmpegSession Session;
	ASSERT_EQ(OpenOrFail(Session, Files.Clip).Type, EFFmpegEventType::Opened);
	PlayFixedStep(Session, 15);

	// 2.0 s lies between keyframes (every 1.5 s): the pictures from 1.5 s on must be decoded and dropped.
	ASSERT_TRUE(Session.Seek(2.0));
	EXPECT_DOUBLE_EQ(Session.GetTime(), 2.0);
	std::shared_ptr<const FFmpegVideoFrame> Picture = Session.AcquireVideoFrame(2.0, Wait);
	ASSERT_TRUE(Picture);
	EXPECT_GE(Picture->Time, 2.0 - Step);
	EXPECT_LE(Picture->Time, 2.0 + 1e-6);
	const FRun After = PlayFixedStep(Session, 10);
	ASSERT_FALSE(After.PictureTimes.empty());
	EXPECT_GT(After.PictureTimes.front(), Picture->Time);
	EXPECT_TRUE(HasType(After.Events, EFFmpegEventType::SeekCompleted));
	EXPECT_GT(std::sqrt(After.SoundSquares / std::max<int64_t>(After.SoundSamples, 1)), 0.3);

	// Back to the start after the end: the media plays again.
	PlayFixedStep(Session, 100);
	ASSERT_TRUE(Session.Seek(0.0));
	const FRun Again = PlayFixedStep(Session, 5);
	ASSERT_FALSE(Again.PictureTimes.empty());
	EXPECT_LT(Again.PictureTimes.front(), 0.1);
}

TEST(FFmpegPlayback, SoundFollowsTheClockAndNeverRunsAhead)
{
	const FFmpegTestMedia::FFiles& Files = FFmpegTestMedia::Get();
	ASSERT_TRUE(Files.Error.empty()) << Files.Error;
	FFmpegSession Session;
	ASSERT_EQ(OpenOrFail(Session, Files.Clip).Type, EFFmpegEventType::Opened);
	std::vector<float> Sound(FFmpegAudioRate * FFmpegAudioChannels, 1.0f);
	// Paused at 0: nothing to hear, and the buffer is silenced rather than left as it was.
	EXPECT_EQ(Session.PullAudio(Sound.data(), FFmpegAudioRate, Wait), 0);
	EXPECT_EQ(Sound[0], 0.0f);

	// A reader that fell a whole second behind gets only the last quarter second, so the sound
	// stays with the picture.
	for (int Index = 0; Index < 30; ++Index)
	{
		Session.Advance(Step);
		Session.AcquireVideoFrame(Session.GetTime(), Wait);
	}
	EXPECT_EQ(Session.PullAudio(Sound.data(), FFmpegAudioRate, Wait), FFmpegAudioRate / 4);
	EXPECT_EQ(Sound[2 * (FFmpegAudioRate / 4)], 0.0f);
	EXPECT_EQ(Session.PullAudio(Sound.data(), FFmpegAudioRate, Wait), 0);
}

TEST(FFmpegSession, HonoursTheSizeLimitAndForgetsTheOldMediaOnReopen)
{
	const FFmpegTestMedia::FFiles& Files = FFmpegTestMedia::Get();
	ASSERT_TRUE(Files.Error.empty()) << Files.Error;
	FFmpegSession Session;
	FFmpegOpenOptions Small;
	Small.MaxWidth = 160;
	Session.Open(Files.Clip, Small);
	ASSERT_EQ(FFmpegTestMedia::PollUntil(Session, EFFmpegEventType::Opened, EFFmpegEventType::OpenFailed).back().Type, EFFmpegEventType::Opened);
	EXPECT_EQ(Session.GetInfo().Width, 160);
	EXPECT_EQ(Session.GetInfo().Height, 120);
	std::shared_ptr<const FFmpegVideoFrame> Picture = Session.AcquireVideoFrame(0.0, Wait);
	ASSERT_TRUE(Picture);
	EXPECT_EQ(Picture->Width, 160);
	EXPECT_EQ(Picture->Stride, 160 * 4);
	// Pictures are recycled, but never one the caller still holds.
	const std::vector<uint8_t> Kept = Picture->Pixels;
	const FRun Later = PlayFixedStep(Session, 20);
	ASSERT_EQ(Later.PictureTimes.size(), 20u);
	EXPECT_EQ(Picture->Time, 0.0);
	EXPECT_TRUE(Picture->Pixels == Kept);

	Session.Open(Files.Dir + "/missing.mp4");
	EXPECT_FALSE(Session.Seek(1.0));
	EXPECT_EQ(Session.GetDuration(), 0.0);
	const std::vector<FFmpegEvent> Events = FFmpegTestMedia::PollUntil(Session, EFFmpegEventType::Opened, EFFmpegEventType::OpenFailed);
	ASSERT_EQ(Events.size(), 1u);
	EXPECT_EQ(Events[0].Type, EFFmpegEventType::OpenFailed);
}

TEST(FFmpegPlayback, FixedStepRunsRepeatExactly)
{
	const FFmpegTestMedia::FFiles& Files = FFmpegTestMedia::Get();
	ASSERT_TRUE(Files.Error.empty()) << Files.Error;
	auto PlayOnce = [&] {
		FFmpegSession Session;
		EXPECT_EQ(OpenOrFail(Session, Files.Clip).Type, EFFmpegEventType::Opened);
		return PlayFixedStep(Session, 200, [&](int Index) {
			if (Index == 20)
			{
				Session.Seek(1.4);
			}
		});
	};
	const FRun First = PlayOnce();
	const FRun Second = PlayOnce();
	EXPECT_TRUE(First.bEnded);
	EXPECT_EQ(First.PictureTimes, Second.PictureTimes);
	EXPECT_EQ(First.PictureHashes, Second.PictureHashes);
	EXPECT_EQ(First.SoundHash, Second.SoundHash);
	EXPECT_EQ(First.Events, Second.Events);
}

TEST(FFmpegPlayback, EndsWithTheSoundWhenOnePictureIsHeld)
{
	const FFmpegTestMedia::FFiles& Files = FFmpegTestMedia::Get();
	ASSERT_TRUE(Files.Error.empty()) << Files.Error;
	FFmpegSession Session;
	ASSERT_EQ(OpenOrFail(Session, Files.Slide).Type, EFFmpegEventType::Opened);
	ASSERT_TRUE(Session.AcquireVideoFrame(0.0, Wait));
	const FRun Run = PlayFixedStep(Session, 100);
	EXPECT_TRUE(Run.bEnded);
	EXPECT_TRUE(Run.PictureTimes.empty());
	EXPECT_NEAR(Session.GetTime(), 2.0, 0.05);
	EXPECT_GT(std::sqrt(Run.SoundSquares / std::max<int64_t>(Run.SoundSamples, 1)), 0.3);
}

TEST(FFmpegPlayback, SkipsDamagedDataAndStillReachesTheEnd)
{
	const FFmpegTestMedia::FFiles& Files = FFmpegTestMedia::Get();
	ASSERT_TRUE(Files.Error.empty()) << Files.Error;
	FFmpegSession Session;
	ASSERT_EQ(OpenOrFail(Session, Files.Corrupt).Type, EFFmpegEventType::Opened);
	const FRun Run = PlayFixedStep(Session, 200);
	EXPECT_TRUE(Run.bEnded);
	ASSERT_FALSE(Run.PictureTimes.empty());
	EXPECT_GT(Run.PictureTimes.back(), 2.5);
}

TEST(FFmpegOpenFailure, NamesTheMediaAndTheCauseForEachBadInput)
{
	const FFmpegTestMedia::FFiles& Files = FFmpegTestMedia::Get();
	ASSERT_TRUE(Files.Error.empty()) << Files.Error;
	const std::string Missing = Files.Dir + "/missing.mp4";
	EXPECT_EQ(OpenFailure(Missing), "Cannot open '" + Missing + "': No such file or directory");
	EXPECT_EQ(OpenFailure(Files.TextAsVideo), "Cannot open '" + Files.TextAsVideo + "': Invalid data found when processing input");
	EXPECT_EQ(OpenFailure(Files.Truncated), "Cannot open '" + Files.Truncated + "': Invalid data found when processing input");
	EXPECT_EQ(OpenFailure(Files.AudioOnly), "Cannot open '" + Files.AudioOnly + "': no video stream");
	EXPECT_EQ(OpenFailure("gopher://x"), "Cannot open 'gopher://x': unsupported scheme 'gopher'");
	FFmpegOpenOptions WebOnly;
	WebOnly.AllowedSchemes = {"http"};
	EXPECT_EQ(OpenFailure("file:///etc/passwd", WebOnly), "Cannot open 'file:///etc/passwd': local files are not allowed here");
	const std::string Refused = "http://127.0.0.1:" + std::to_string(FFmpegTestMedia::FindClosedPort()) + "/lesson.mp4";
	EXPECT_EQ(OpenFailure(Refused), "Cannot open '" + Refused + "': Connection refused");

	FFmpegOpenOptions Impatient;
	Impatient.NetworkTimeoutSeconds = 0.3;
	FFmpegTestMedia::FSilentServer Server;
	const std::string Silent = "http://127.0.0.1:" + std::to_string(Server.Port) + "/lesson.mp4";
	EXPECT_EQ(OpenFailure(Silent, Impatient), "Cannot open '" + Silent + "': no answer within 0.3 s");
}

TEST(FFmpegSession, ClosesPromptlyWhileWaitingForASilentServer)
{
	FFmpegTestMedia::FSilentServer Server;
	ASSERT_NE(Server.Port, 0);
	const std::string Url = "http://127.0.0.1:" + std::to_string(Server.Port) + "/lesson.mp4";
	{
		FFmpegSession Session;
		EXPECT_TRUE(Session.Open(Url));
		std::this_thread::sleep_for(std::chrono::milliseconds(200));
		EXPECT_TRUE(Session.IsPreparing());
		const auto Start = std::chrono::steady_clock::now();
		Session.Close();
		// The default network timeout is 10 s: only the abort can end the open this soon.
		EXPECT_LT(std::chrono::steady_clock::now() - Start, std::chrono::seconds(2));
		std::vector<FFmpegEvent> Events;
		Session.PollEvents(Events);
		EXPECT_TRUE(Events.empty());
		EXPECT_FALSE(Session.IsPreparing());
	}
	const auto Start = std::chrono::steady_clock::now();
	{
		FFmpegSession Destroyed;
		Destroyed.Open(Url);
		std::this_thread::sleep_for(std::chrono::milliseconds(100));
	}
	EXPECT_LT(std::chrono::steady_clock::now() - Start, std::chrono::seconds(2));
}
