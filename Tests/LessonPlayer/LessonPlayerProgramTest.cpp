// vidaria-player as a user runs it: a recording read back, bad input told in one line, and the
// window under a private X server, clicked by xdotool.

#include "LessonPlayerPaths.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <thread>

namespace
{
	namespace fs = std::filesystem;

	struct FProgramRun
	{
		int ExitCode = -1;
		std::string Errors;
	};

	std::string Quote(const std::string& Text)
	{
		std::string Quoted = "'";
		for (char Char : Text)
		{
			Quoted += Char == '\'' ? std::string("'\\''") : std::string(1, Char);
		}
		return Quoted + "'";
	}

	std::string ReadAll(const fs::path& Path)
	{
		std::ifstream Stream(Path);
		std::stringstream Buffer;
		Buffer << Stream.rdbuf();
		return Buffer.str();
	}

	/** A scratch folder of the test's own, removed at the end. */
	class FScratch
	{
	public:
		FScratch()
		{
			const ::testing::TestInfo* Info = ::testing::UnitTest::GetInstance()->current_test_info();
			Path = fs::temp_directory_path() / (std::string("vidaria-player-") + Info->name() + "-" + std::to_string(::getpid()));
			fs::remove_all(Path);
			fs::create_directories(Path);
			// The program's project: the real content, and settings of its own (see RunProgram).
			fs::create_directories(Path / "project");
			fs::create_directory_symlink(fs::path(PLAIN_TEST_SOURCE_DIR) / "../../Content", Path / "project" / "Content");
		}
		~FScratch() { fs::remove_all(Path); }
		fs::path Path;
	};

	/** Runs the program with Arguments (already quoted) and Environment ("NAME=value ..."); stderr kept. */
	FProgramRun RunProgram(const FScratch& Scratch, const std::string& Arguments, const std::string& Environment = "")
	{
		const fs::path ErrorsFile = Scratch.Path / "stderr.txt";
		// The log is on for the program whatever the test run asked, as the tests read its lines; the
	// viewer's saved settings are out of reach; under the sanitizers, the system libraries' own
	// leaks are suppressed as for the window test.
	const std::string Suppressions = Quote(std::string(PLAIN_TEST_SOURCE_DIR) + "/lsan.supp");
	const std::string Project = Quote((Scratch.Path / "project").string() + "/");
	const std::string Command = "PLAIN_LOG_QUIET=0 PLAINVIDARIA_PROJECT_DIR=" + Project + " LSAN_OPTIONS=suppressions=" + Suppressions + " " + Environment + " " + Quote(LESSON_PLAYER_PROGRAM) + " " + Arguments + " >/dev/null 2>" + Quote(ErrorsFile.string());
		const int Status = std::system(Command.c_str());
		FProgramRun Run;
		Run.ExitCode = WIFEXITED(Status) ? WEXITSTATUS(Status) : -1;
		Run.Errors = ReadAll(ErrorsFile);
		return Run;
	}

	std::string SampleLesson()
	{
		return Quote(TCHAR_TO_UTF8(*LessonPlayerPaths::DefaultLesson()));
	}

	/** What ffprobe says of one entry of a media file, e.g. "format=duration". */
	std::string Probe(const fs::path& File, const std::string& Entries, const std::string& Streams = "")
	{
		const std::string Command = "ffprobe -v error " + Streams + " -show_entries " + Entries + " -of csv=p=0 " + Quote(File.string());
		std::string Output;
		if (FILE* Pipe = popen(Command.c_str(), "r"))
		{
			char Buffer[256];
			while (fgets(Buffer, sizeof(Buffer), Pipe))
			{
				Output += Buffer;
			}
			pclose(Pipe);
		}
		return Output;
	}
} // namespace

// A headless recording of two seconds is an MP4 of two seconds with a picture and a sound track.
TEST(LessonPlayerProgram, RecordsAnMp4OfTheRequestedLength)
{
	FScratch Scratch;
	const fs::path Movie = Scratch.Path / "lesson.mp4";
	const FProgramRun Run = RunProgram(Scratch, SampleLesson() + " --headless --seconds 2 --record " + Quote(Movie.string()));
	ASSERT_EQ(Run.ExitCode, 0) << Run.Errors;
	EXPECT_NEAR(std::atof(Probe(Movie, "format=duration").c_str()), 2.0, 0.1);
	EXPECT_EQ(Probe(Movie, "stream=codec_type"), "video\naudio\n");
	EXPECT_EQ(Probe(Movie, "stream=width,height", "-select_streams v:0"), "1280,720\n");
}

// Each bad input is one line naming the file and the reason; the run goes on with what can play.
TEST(LessonPlayerProgram, TellsBadInputInOneLineAndPlaysWhatItCan)
{
	FScratch Scratch;
	const FProgramRun Missing = RunProgram(Scratch, "--headless /no/such/lesson.mp4");
	EXPECT_EQ(Missing.ExitCode, 1);
	EXPECT_NE(Missing.Errors.find("vidaria-player: /no/such/lesson.mp4: no such file\n"), std::string::npos) << Missing.Errors;

	const fs::path NotJson = Scratch.Path / "comments.json";
	std::ofstream(NotJson) << "this is not { json";
	const fs::path NotVideo = Scratch.Path / "notes.mp4";
	std::ofstream(NotVideo) << "plain text, not a video";
	const FProgramRun Partial = RunProgram(Scratch, Quote(NotVideo.string()) + " " + SampleLesson() + " --headless --seconds 1 --comments " + Quote(NotJson.string()));
	EXPECT_EQ(Partial.ExitCode, 0) << Partial.Errors;
	EXPECT_NE(Partial.Errors.find("comments.json: not a JSON document; playing without comments"), std::string::npos) << Partial.Errors;
	EXPECT_NE(Partial.Errors.find("notes.mp4: cannot be played"), std::string::npos) << Partial.Errors;

	const FProgramRun Wrong = RunProgram(Scratch, "--seconds soon");
	EXPECT_EQ(Wrong.ExitCode, 2);
	EXPECT_NE(Wrong.Errors.find("--seconds wants a positive number"), std::string::npos) << Wrong.Errors;
}

// Arguments and paths the program refuses are quoted on the message's one line whatever they
// hold, a frame step too short for the float frame loop is refused rather than run forever, and a
// size with more than two sides is refused rather than half read.
TEST(LessonPlayerProgram, RefusedArgumentsStayOnOneLine)
{
	FScratch Scratch;
	const FProgramRun Unknown = RunProgram(Scratch, Quote(std::string("--comme\xef\xbf\xbd\x06ts\nmore")));
	EXPECT_EQ(Unknown.ExitCode, 2);
	EXPECT_EQ(Unknown.Errors, "vidaria-player: unknown option --comme\xef\xbf\xbd\\x06ts\\x0amore (see --help)\n");

	const FProgramRun Size = RunProgram(Scratch, "--size " + Quote("64x6\r4"));
	EXPECT_EQ(Size.ExitCode, 2);
	EXPECT_EQ(Size.Errors, "vidaria-player: --size wants WIDTHxHEIGHT such as 1280x720, not \"64x6\\x0d4\"\n");

	const FProgramRun Step = RunProgram(Scratch, "--headless --step 1e-300");
	EXPECT_EQ(Step.ExitCode, 2);
	EXPECT_EQ(Step.Errors, "vidaria-player: --step wants a step of at least 1/1000 s, not \"1e-300\"\n");

	// A size is two sides and nothing more: the third side was once read as part of the height.
	for (const char* Wrong : {"1280x720x5", "1280x720px", "+1280x720", "1280x 720", "x720", "1280x"})
	{
		const FProgramRun Refused = RunProgram(Scratch, std::string("--headless --size ") + Quote(Wrong));
		EXPECT_EQ(Refused.ExitCode, 2) << Wrong;
		EXPECT_EQ(Refused.Errors, std::string("vidaria-player: --size wants WIDTHxHEIGHT such as 1280x720, not \"") + Wrong + "\"\n");
	}

	// Paths are echoed the same way when the session refuses them, not only when the parser does.
	const FProgramRun Missing = RunProgram(Scratch, "--headless " + Quote("/no/such\nlesson\x1b[2J.mp4"));
	EXPECT_EQ(Missing.ExitCode, 1);
	EXPECT_NE(Missing.Errors.find("vidaria-player: /no/such\\x0alesson\\x1b[2J.mp4: no such file\n"), std::string::npos) << Missing.Errors;
	const FProgramRun Comments = RunProgram(Scratch, SampleLesson() + " --headless --seconds 0.1 --comments " + Quote("/no/comments\r.json"));
	EXPECT_EQ(Comments.ExitCode, 0);
	EXPECT_NE(Comments.Errors.find("vidaria-player: /no/comments\\x0d.json: cannot be read; playing without comments\n"), std::string::npos) << Comments.Errors;
}

// In a real window (a private X server): a click on the picture pauses, and a screenshot is taken.
TEST(LessonPlayerProgram, WindowTakesAClickAndAScreenshot)
{
	if (std::system("command -v Xvfb >/dev/null && command -v xdotool >/dev/null") != 0)
	{
		GTEST_SKIP() << "Xvfb and xdotool are needed (Debian: xvfb, xdotool)";
	}
	FScratch Scratch;
	// A display number of this process's own, so parallel tests never share a server.
	const std::string Display = ":" + std::to_string(100 + ::getpid() % 800);
	const std::string Server = "Xvfb " + Display + " -screen 0 1280x800x24 -nolisten tcp >/dev/null 2>&1 & echo $!";
	std::string ServerPid;
	if (FILE* Pipe = popen(Server.c_str(), "r"))
	{
		char Buffer[64] = {};
		fgets(Buffer, sizeof(Buffer), Pipe);
		ServerPid = Buffer;
		pclose(Pipe);
	}
	// The server takes a moment to accept clients, longer on a busy machine.
	const std::string Ready = "DISPLAY=" + Display + " xdotool getmouselocation >/dev/null 2>&1";
	for (int Attempt = 0; Attempt < 100 && std::system(Ready.c_str()) != 0; ++Attempt)
	{
		std::this_thread::sleep_for(std::chrono::milliseconds(100));
	}

	// The click comes once the window is mapped; the run lasts long enough for it and the screenshot.
	const std::string Clicker = "(xdotool search --sync --onlyvisible --name vidaria-player >/dev/null && sleep 1 && xdotool mousemove 640 300 click 1) &";
	const fs::path Shots = Scratch.Path / "shots";
	const FProgramRun Run = RunProgram(Scratch, SampleLesson() + " --seconds 5 --screenshots " + Quote(Shots.string()) + " --every 4.5",
		// Leak checking is off for this one run: at exit libdbus (which SDL loads) leaves blocks
		// whose frames LeakSanitizer cannot name once the library is gone, so no suppression can
		// match them. The program's other runs above, the session tests and the window test (which
		// keeps those libraries loaded to the end) check the same code for leaks.
		"DISPLAY=" + Display + " SDL_AUDIODRIVER=dummy SDL_RENDER_DRIVER=software ASAN_OPTIONS=\"$ASAN_OPTIONS:detect_leaks=0\" sh -c " + Quote(Clicker + " exec \"$0\" \"$@\""));
	std::system(("kill " + ServerPid + " 2>/dev/null").c_str());

	ASSERT_EQ(Run.ExitCode, 0) << Run.Errors;
	EXPECT_EQ(Run.Errors.find("running headless"), std::string::npos) << "the window did not open: " << Run.Errors;
	EXPECT_NE(Run.Errors.find("Media player Pause"), std::string::npos) << "the click did not pause: " << Run.Errors;
	EXPECT_TRUE(fs::exists(Shots / "screenshot-0001.png")) << Run.Errors;
}
