// The program's session on the real sample lesson, headless, judged by the frames the renderer
// paints: what a viewer would see of the bar, of a flying comment and of a pause.

#include "Components/Widget.h"
#include "FrameRenderer.h"
#include "LessonPlayerOptions.h"
#include "LessonPlayerPaths.h"
#include "LessonSession.h"
#include "MediaPlayer.h"
#include "Misc/Paths.h"
#include "RenderFrame.h"
#include "MediaPlaylist.h"
#include "ScriptedMedia.h"
#include "Slate/WidgetViewport.h"
#include "TestApp.h"
#include "UI_VidariaSystem.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <unistd.h>

namespace
{
	constexpr float Step = 1.0f / 30.0f;

	/** Mean brightness (0..255) of a rectangle of the frame. */
	double MeanBrightness(const FRenderFrame& Frame, int32 Left, int32 Top, int32 Width, int32 Height)
	{
		double Sum = 0.0;
		for (int32 Y = Top; Y < Top + Height; ++Y)
		{
			for (int32 X = Left; X < Left + Width; ++X)
			{
				const FColor Pixel = Frame.GetPixel(X, Y);
				Sum += (Pixel.R + Pixel.G + Pixel.B) / 3.0;
			}
		}
		return Sum / (Width * Height);
	}

	/** How much bluer than red a rectangle is on average: the sample lesson's picture is deep blue, the bar grey. */
	double MeanBlueExcess(const FRenderFrame& Frame, int32 Left, int32 Top, int32 Width, int32 Height)
	{
		double Sum = 0.0;
		for (int32 Y = Top; Y < Top + Height; ++Y)
		{
			for (int32 X = Left; X < Left + Width; ++X)
			{
				const FColor Pixel = Frame.GetPixel(X, Y);
				Sum += double(Pixel.B) - double(Pixel.R);
			}
		}
		return Sum / (Width * Height);
	}

	/** The leftmost column with near-white pixels in the band of rows; -1 when there is none. */
	int32 LeftmostWhite(const FRenderFrame& Frame, int32 Top, int32 Bottom)
	{
		for (int32 X = 0; X < Frame.GetWidth(); ++X)
		{
			for (int32 Y = Top; Y < Bottom; ++Y)
			{
				const FColor Pixel = Frame.GetPixel(X, Y);
				if (Pixel.R > 230 && Pixel.G > 230 && Pixel.B > 230)
				{
					return X;
				}
			}
		}
		return -1;
	}

	class LessonSession : public ::testing::Test
	{
	protected:
		// A project of the test's own, with the real content: the viewer's saved comment settings
		// (the c key turns comments off) must neither reach the test nor be changed by it.
		LessonSession()
			: RealProject(FPaths::ProjectDir())
			, Project(std::filesystem::temp_directory_path() / ("vidaria-session-" + std::to_string(::getpid())))
		{
			std::filesystem::remove_all(Project);
			std::filesystem::create_directories(Project);
			std::filesystem::create_directory_symlink(TCHAR_TO_UTF8(*FPaths::ProjectContentDir()), Project / "Content");
			FPaths::SetProjectDir(FString(UTF8_TO_TCHAR(Project.c_str())));
		}

		~LessonSession() override
		{
			Session.Reset();
			FPaths::SetProjectDir(RealProject);
			std::filesystem::remove_all(Project);
		}

		/** Starts a session on the bundled lesson, without comments, and plays until it runs. */
		void StartOnSampleLesson()
		{
			FLessonPlayerOptions Options;
			Options.Lessons.Add(LessonPlayerPaths::DefaultLesson());
			Session = MakeUnique<FLessonSession>(Options, App);
			ASSERT_TRUE(Session->Start());
			ASSERT_TRUE(App.WaitUntil([this] { Session->Tick(Step); return Session->GetMediaPlayer()->IsPlaying(); }))
				<< "the sample lesson did not start";
		}

		void Run(double Seconds)
		{
			for (double Time = 0.0; Time < Seconds; Time += Step)
			{
				Session->Tick(Step);
			}
		}

		FRenderFrame Paint()
		{
			FRenderFrame Frame;
			Renderer.Render(FWidgetViewport::Get(), Frame);
			return Frame;
		}

		FString RealProject;
		std::filesystem::path Project;
		FTestApp App;
		FFrameRenderer Renderer;
		TUniquePtr<FLessonSession> Session;
	};
} // namespace

// The bar comes up when the pointer moves and is gone after a quiet spell of more than five seconds.
TEST_F(LessonSession, BarShowsAfterAPointerMoveAndHidesAfterSixQuietSeconds)
{
	StartOnSampleLesson();
	// The bar's empty top margin when it is open, the picture when it is not.
	const int32 BarTop = 720 - 58;
	App.MovePointerTo(FVector2D(600.0, 300.0));
	App.MovePointerTo(FVector2D(640.0, 320.0));
	Run(0.5);
	const double OpenBlue = MeanBlueExcess(Paint(), 20, BarTop, 1240, 6);

	Run(6.0);
	const double ClosedBlue = MeanBlueExcess(Paint(), 20, BarTop, 1240, 6);
	EXPECT_LT(OpenBlue, 25.0) << "the grey bar should cover the picture's bottom";
	EXPECT_GT(ClosedBlue, 45.0) << "the blue picture should show where the bar was";
}

// A sent comment enters at the right edge and travels left, frame after frame.
TEST_F(LessonSession, ASentCommentFliesRightToLeft)
{
	StartOnSampleLesson();
	Session->SendComment(TEXT("Hello from the test"));
	Run(1.0);
	const int32 Before = LeftmostWhite(Paint(), 0, 40);
	Run(0.5);
	const int32 After = LeftmostWhite(Paint(), 0, 40);
	ASSERT_GE(Before, 0) << "the comment should be on screen in the top track";
	ASSERT_GE(After, 0);
	EXPECT_LT(After, Before - 20) << "in half a second the comment should move well to the left";
}

// A click on the picture pauses: the pause mark shows and the picture stands still.
TEST_F(LessonSession, AClickOnThePicturePausesAndShowsThePauseMark)
{
	StartOnSampleLesson();
	const FRenderFrame Playing = Paint();
	App.ClickWidget(Session->GetPlayerWidget(), TEXT("PauseButton"));
	ASSERT_TRUE(App.WaitUntil([this] { return Session->GetMediaPlayer()->IsPaused(); }));
	Run(0.2);
	const FRenderFrame Paused = Paint();
	Run(1.0);
	const FRenderFrame StillPaused = Paint();

	// The pause mark: a light 96 x 96 square, centred 30 px above the middle of the picture.
	EXPECT_GT(MeanBrightness(Paused, 592, 252, 96, 96), MeanBrightness(Playing, 592, 252, 96, 96) + 40.0);
	EXPECT_EQ(MeanBrightness(Paused, 0, 0, 1280, 600), MeanBrightness(StillPaused, 0, 0, 1280, 600)) << "the picture moved while paused";
}

// Three lessons: each that ends opens the next, although the lesson player closes the media player
// at every end (which drops the player's playlist); the step buttons still step and wrap.
TEST_F(LessonSession, EachEndedLessonOpensTheNextAndTheStepButtonsStillWrap)
{
	FScriptedMediaScope Scripted;
	FLessonPlayerOptions Options;
	for (const TCHAR* Name : {TEXT("a"), TEXT("b"), TEXT("c")})
	{
		Scripted.Media(Name).Duration = FTimespan::FromSeconds(1.0);
		Options.Lessons.Add(FScriptedMediaScope::Url(Name));
	}
	Session = MakeUnique<FLessonSession>(Options, App);
	ASSERT_TRUE(Session->Start());
	UMediaPlayer* Player = Session->GetMediaPlayer();
	// Lets the lesson that is opening finish opening, and runs until it plays.
	auto Play = [&](const TCHAR* Name) {
		ASSERT_TRUE(Scripted.Media(Name).bOpening) << FTCHARToUTF8(Name).Get() << " is not opening";
		Scripted.Media(Name).FinishOpen();
		for (int32 Frame = 0; Frame < 30 && !Player->IsPlaying(); ++Frame)
		{
			Session->Tick(Step);
		}
		ASSERT_TRUE(Player->IsPlaying());
		EXPECT_EQ(Player->GetUrl(), FScriptedMediaScope::Url(Name));
	};
	auto Click = [&](const TCHAR* Button) {
		App.MovePointerTo(FVector2D(600.0, 300.0));
		App.MovePointerTo(FVector2D(640.0, 320.0));
		Run(0.5);
		App.ClickWidget(Session->GetPlayerWidget(), Button);
	};

	Play(TEXT("a"));
	EXPECT_EQ(Session->GetCurrentEntry(), 0);
	Run(1.5);
	Play(TEXT("b"));
	EXPECT_EQ(Session->GetCurrentEntry(), 1) << "lesson 1 ended, so lesson 2 plays";
	EXPECT_EQ(Player->GetPlaylist()->Num(), 3) << "the session listed its lessons again";

	Click(TEXT("NestButton"));
	Play(TEXT("c"));
	Click(TEXT("NestButton"));
	Play(TEXT("a"));
	EXPECT_EQ(Session->GetCurrentEntry(), 0) << "past the last lesson, Next wraps to the first";
	Click(TEXT("PreviousButton"));
	Play(TEXT("c"));
	EXPECT_EQ(Session->GetCurrentEntry(), 2) << "before the first lesson, Previous wraps to the last";
	EXPECT_FALSE(Session->IsFinished());
}
