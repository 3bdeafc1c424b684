// Soak runs: the lesson player program's session, headless at the fixed step and drawing nothing,
// over a two-hour lesson with 100,000 comments, a playlist played ten times over, and a hundred
// seeks with pauses. Each prints its samples as a table; the counters give each count's spread
// net of the comments in flight (see FSoakSpread), which must stay within 5%.
//
//   build/release/bin/SoakBenchmarks                      # everything (about a minute and a half)
//   SOAK_MINUTES=10 build/release/bin/SoakBenchmarks      # a shorter long lesson
//
// The media is made into the build folder on first use.

#include "HeadlessApplication.h"
#include "LaunchEngineLoop.h"
#include "LessonPlayerOptions.h"
#include "LessonSession.h"
#include "MediaClockPolicy.h"
#include "MediaPlayer.h"
#include "Misc/Paths.h"
#include "SoakMedia.h"
#include "SoakSample.h"
#include "Window/LessonKey.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <thread>
#include <unistd.h>

namespace
{
	namespace fs = std::filesystem;

	constexpr float Step = 1.0f / 30.0f;
	/** Minutes of the long lesson left out of the spread: caches, pools and the first comments fill up. */
	constexpr int WarmUpMinutes = 5;

	int LongLessonMinutes()
	{
		const char* Minutes = std::getenv("SOAK_MINUTES");
		const int Value = Minutes ? std::atoi(Minutes) : 0;
		return Value > WarmUpMinutes ? Value : 120;
	}

	std::string MediaPath(const std::string& Name)
	{
		return std::string(SOAK_MEDIA_DIR) + "/" + Name;
	}

	/**
	 * The program's session on a project folder of its own (the real content, a scratch save
	 * slot), run as the headless runner runs it: the clock held while a lesson opens, then steps.
	 */
	class FSoakRun
	{
	public:
		explicit FSoakRun(const FLessonPlayerOptions& Options)
			: Project(fs::temp_directory_path() / ("vidaria-soak-" + std::to_string(::getpid())))
		{
			fs::remove_all(Project);
			fs::create_directories(Project);
			fs::create_directory_symlink(SOAK_CONTENT_DIR, Project / "Content");
			FPaths::SetProjectDir(FString(UTF8_TO_TCHAR(Project.c_str())));
			SetMediaClockPolicy(EMediaClockPolicy::FixedStep);
			App = MakeUnique<FHeadlessApplication>();
			Session = MakeUnique<FLessonSession>(Options, *App);
		}
		~FSoakRun()
		{
			Session.Reset();
			App.Reset();
			fs::remove_all(Project);
		}

		bool Start() { return Session->Start(); }

		/** One frame, after waiting (in wall time, the clock held) for an open under way. */
		void Frame()
		{
			while (Session->GetMediaPlayer()->IsPreparing())
			{
				std::this_thread::sleep_for(std::chrono::milliseconds(2));
				Session->Tick(0.0f);
			}
			Session->Tick(Step);
		}

		void Frames(int Count)
		{
			for (int Index = 0; Index < Count; ++Index)
			{
				Frame();
			}
		}

		double LoopSeconds() const { return App->GetLoop().GetLoopSeconds(); }
		FSoakSample Sample() const { return TakeSoakSample(*Session, *App); }
		FLessonSession& GetSession() { return *Session; }

	private:
		fs::path Project;
		TUniquePtr<FHeadlessApplication> App;
		TUniquePtr<FLessonSession> Session;
	};

	void ReportSpread(benchmark::State& State, const std::vector<FSoakSample>& Samples)
	{
		const FSoakSpread Spread = MeasureSpread(Samples);
		State.counters["objects%"] = 100 * Spread.Objects;
		State.counters["widgets%"] = 100 * Spread.Widgets;
		State.counters["timers%"] = 100 * Spread.Timers;
		State.counters["bindings%"] = 100 * std::max(Spread.NativeBindings, Spread.DynamicBindings);
		State.counters["resident%"] = 100 * Spread.ResidentKiB;
		State.counters["widest%"] = 100 * Spread.Widest();
	}
}

// Two hours (SOAK_MINUTES) of lesson with 100,000 comments, sampled every minute of lesson time.
static void BM_SoakLongLessonWithManyComments(benchmark::State& State)
{
	const int Minutes = LongLessonMinutes();
	FLessonPlayerOptions Options;
	Options.Lessons.Add(UTF8_TO_TCHAR(MediaPath("soak-120min.mp4").c_str()));
	Options.CommentsPath = UTF8_TO_TCHAR(MediaPath("soak-comments.json").c_str());
	if (!SoakMedia::MakeLesson(MediaPath("soak-120min.mp4"), 120 * 60) || !SoakMedia::MakeComments(MediaPath("soak-comments.json"), 100000, 120 * 60))
	{
		State.SkipWithError("the ffmpeg program could not make the soak lesson");
		return;
	}
	for (auto _ : State)
	{
		FSoakRun Run(Options);
		if (!Run.Start())
		{
			State.SkipWithError("the session did not start");
			return;
		}
		std::vector<FSoakSample> Samples;
		for (int Minute = 1; Minute <= Minutes && !Run.GetSession().IsFinished(); ++Minute)
		{
			// Half a second into the minute: on a second's first frame its comments are made but
			// have no timer yet (they start flying a frame later), which would blur the timer count.
			while (Run.LoopSeconds() + 1e-6 < Minute * 60.0 + 0.5 && !Run.GetSession().IsFinished())
			{
				Run.Frame();
			}
			Samples.push_back(Run.Sample());
		}
		PrintSoakTable("Long lesson, one sample a minute", Samples);
		const std::vector<FSoakSample> Settled(Samples.begin() + std::min<size_t>(WarmUpMinutes, Samples.size()), Samples.end());
		ReportSpread(State, Settled);
		State.counters["minutes"] = static_cast<double>(Samples.size());
	}
}
BENCHMARK(BM_SoakLongLessonWithManyComments)->Iterations(1)->Unit(benchmark::kSecond)->UseRealTime();

// Ten lessons in a playlist, each played to its end; a sample near the end of each, and one after the last.
static void BM_SoakPlaylistTenTimesOver(benchmark::State& State)
{
	// The comments fly in the first half of each lesson; the samples are taken in the quiet second half.
	if (!SoakMedia::MakeLesson(MediaPath("soak-30s.mp4"), 30) || !SoakMedia::MakeComments(MediaPath("soak-30s-comments.json"), 400, 30, 30, 12))
	{
		State.SkipWithError("the ffmpeg program could not make the soak lesson");
		return;
	}
	FLessonPlayerOptions Options;
	Options.CommentsPath = UTF8_TO_TCHAR(MediaPath("soak-30s-comments.json").c_str());
	// The session tells entries apart by URL, so the one lesson is listed under ten names.
	for (int Entry = 0; Entry < 10; ++Entry)
	{
		const std::string Copy = MediaPath("soak-30s-" + std::to_string(Entry) + ".mp4");
		std::error_code Ignored;
		fs::create_hard_link(MediaPath("soak-30s.mp4"), Copy, Ignored);
		Options.Lessons.Add(UTF8_TO_TCHAR(Copy.c_str()));
	}
	for (auto _ : State)
	{
		FSoakRun Run(Options);
		if (!Run.Start())
		{
			State.SkipWithError("the session did not start");
			return;
		}
		std::vector<FSoakSample> Samples;
		int32 SampledEntry = -1;
		while (!Run.GetSession().IsFinished() && Run.LoopSeconds() < 10 * 40.0)
		{
			Run.Frame();
			// Near the end of each lesson, when its comments have flown.
			if (Run.GetSession().GetCurrentEntry() != SampledEntry && Run.GetSession().GetMediaPlayer()->GetTime().GetTotalSeconds() >= 28.0)
			{
				SampledEntry = Run.GetSession().GetCurrentEntry();
				Samples.push_back(Run.Sample());
			}
		}
		Run.Frames(30);
		Samples.push_back(Run.Sample());
		PrintSoakTable("Playlist of ten, a sample at 28 s of each lesson and one after the last", Samples);
		// The first lesson fills what is made once (the font cache, say); from the second on nothing may grow.
		const std::vector<FSoakSample> Settled(Samples.begin() + std::min<size_t>(1, Samples.size()), Samples.end());
		ReportSpread(State, Settled);
		State.counters["lessons"] = static_cast<double>(Samples.size() - 1);
	}
}
BENCHMARK(BM_SoakPlaylistTenTimesOver)->Iterations(1)->Unit(benchmark::kSecond)->UseRealTime();

// A hundred times: seek, pause, resume. The seeks land in turn where comments fly (the first
// 20 s of a minute) and where none do (the rest), and the samples are taken in the quiet
// stretches, a second after a seek has emptied the overlay. The overlay's Empty takes the
// comments on its lanes; one placed in the very frame before the seek has no lane yet, survives,
// and flies at the new place, so a sample may still see those few.
static void BM_SoakHundredSeeksAndPauses(benchmark::State& State)
{
	if (!SoakMedia::MakeLesson(MediaPath("soak-120min.mp4"), 120 * 60)
		|| !SoakMedia::MakeComments(MediaPath("soak-gapped-comments.json"), 30000, 120 * 60, 60, 20))
	{
		State.SkipWithError("the ffmpeg program could not make the soak lesson");
		return;
	}
	FLessonPlayerOptions Options;
	Options.Lessons.Add(UTF8_TO_TCHAR(MediaPath("soak-120min.mp4").c_str()));
	Options.CommentsPath = UTF8_TO_TCHAR(MediaPath("soak-gapped-comments.json").c_str());
	for (auto _ : State)
	{
		FSoakRun Run(Options);
		if (!Run.Start())
		{
			State.SkipWithError("the session did not start");
			return;
		}
		FLessonSession& Session = Run.GetSession();
		Run.Frames(90);
		std::vector<FSoakSample> Samples;
		for (int Cycle = 0; Cycle < 100; ++Cycle)
		{
			const int Minute = Cycle * 37 % 119;
			const bool bQuiet = Cycle % 2 == 1;
			Session.GetMediaPlayer()->Seek(FTimespan::FromSeconds(Minute * 60.0 + (bQuiet ? 35.0 : 5.0)));
			// A second for the seek to complete (and empty the overlay) even on a loaded machine.
			Run.Frames(30);
			if (bQuiet && (Cycle % 10 == 1 || Cycle == 99))
			{
				Samples.push_back(Run.Sample());
			}
			Session.HandleKey(ELessonKey::TogglePause);
			Run.Frames(15);
			Session.HandleKey(ELessonKey::TogglePause);
			Run.Frames(30);
		}
		PrintSoakTable("A hundred seeks and pauses, sampled in the quiet stretches a second after a seek", Samples);
		ReportSpread(State, Samples);
	}
}
BENCHMARK(BM_SoakHundredSeeksAndPauses)->Iterations(1)->Unit(benchmark::kSecond)->UseRealTime();
