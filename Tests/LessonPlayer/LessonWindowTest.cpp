// The lesson player's window under a private X server: what it shows (letterboxed), where the
// viewer's clicks land in the viewport, which keys become which commands, and the sound queue's
// latency bound. xdotool plays the viewer, through the X server as a real mouse and keyboard would.

#include "LessonWindowTestTypes.h"

#include "TestApp.h"
#include "Window/LessonWindow.h"
#include "Window/Letterbox.h"
#include "Window/SdlAudioSink.h"

#include "Blueprint/WidgetTree.h"
#include "Components/Button.h"
#include "Components/CanvasPanel.h"
#include "Components/CanvasPanelSlot.h"
#include "RenderFrame.h"
#include "Slate/WidgetViewport.h"
#include "UObject/Package.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <link.h>
#include <string>
#include <thread>
#include <unistd.h>
#include <vector>

#if defined(__SANITIZE_ADDRESS__)
// SDL loads system libraries (libdbus for the input method and the screensaver, Mesa's GL driver)
// that keep memory for the life of the process; lsan.supp beside this file names them. The fast
// unwinder is kept: the slow one deadlocks inside Mesa's LLVM JIT (both take the unwinder's lock),
// and the first frame, which the fast one always gets, is enough to name the library.
extern "C" const char* __lsan_default_options()
{
	return "suppressions=" PLAIN_TEST_SOURCE_DIR "/lsan.supp";
}
#endif

namespace
{
	bool OnPath(const char* Program)
	{
		return std::system((std::string("command -v ") + Program + " >/dev/null 2>&1").c_str()) == 0;
	}

	/** Starts Xvfb on the first free display of :90..:99, waits until it accepts clients and sets DISPLAY; its pid, or 0. */
	pid_t StartXvfb()
	{
		for (int Display = 90; Display <= 99; ++Display)
		{
			if (access(("/tmp/.X" + std::to_string(Display) + "-lock").c_str(), F_OK) == 0)
			{
				continue;
			}
			// The shell prints the server's pid; the server prints its number once it accepts
			// clients, or nothing when it lost a race for the lock.
			const std::string Name = ":" + std::to_string(Display);
			FILE* Out = popen(("Xvfb " + Name + " -screen 0 1280x1024x24 -nolisten tcp -noreset -displayfd 1 2>/dev/null & echo $!").c_str(), "r");
			int Pid = 0;
			int Number = -1;
			const bool bStarted = Out && fscanf(Out, "%d %d", &Pid, &Number) == 2 && Number == Display;
			if (Out)
			{
				pclose(Out);
			}
			if (bStarted)
			{
				setenv("DISPLAY", Name.c_str(), 1);
				return Pid;
			}
		}
		return 0;
	}

	bool Xdotool(const std::string& Arguments)
	{
		return std::system(("xdotool " + Arguments + " >/dev/null 2>&1").c_str()) == 0;
	}

	/** A 1280x720 frame, its left half Left and its right half Right. */
	FRenderFrame SplitFrame(FColor Left, FColor Right)
	{
		FRenderFrame Frame(1280, 720);
		Frame.Clear(Left);
		for (int32 Y = 0; Y < 720; ++Y)
		{
			for (uint8* Pixel = Frame.GetData() + (Y * 1280 + 640) * 4; Pixel < Frame.GetData() + (Y + 1) * 1280 * 4; Pixel += 4)
			{
				Pixel[0] = Right.R;
				Pixel[1] = Right.G;
				Pixel[2] = Right.B;
			}
		}
		return Frame;
	}

	/** Colours within 2 levels per channel (scaling may round), fully opaque. */
	::testing::AssertionResult Near(FColor Actual, FColor Expected)
	{
		const bool bNear = std::abs(Actual.R - Expected.R) <= 2 && std::abs(Actual.G - Expected.G) <= 2 && std::abs(Actual.B - Expected.B) <= 2 && Actual.A == 255;
		return (bNear ? ::testing::AssertionSuccess() : ::testing::AssertionFailure())
			<< "got " << int(Actual.R) << "," << int(Actual.G) << "," << int(Actual.B) << "," << int(Actual.A);
	}

	class LessonWindowTest : public ::testing::Test
	{
	protected:
		static void SetUpTestSuite()
		{
			unsetenv("WAYLAND_DISPLAY");
			setenv("SDL_VIDEODRIVER", "x11", 1);
			Server = OnPath("Xvfb") ? StartXvfb() : 0;
		}

		static void TearDownTestSuite()
		{
			// The server is the shell's child, not ours: wait for it to go, so the next run finds the display free.
			for (int32 Try = 0; Server > 0 && kill(Server, Try == 0 ? SIGTERM : 0) == 0 && Try < 200; ++Try)
			{
				std::this_thread::sleep_for(std::chrono::milliseconds(10));
			}
		}

		void SetUp() override
		{
			if (!OnPath("Xvfb"))
			{
				GTEST_SKIP() << "Xvfb is not installed (Debian: xvfb); the window needs an X server to open";
			}
			ASSERT_GT(Server, 0) << "no free display in :90..:99 for a private Xvfb";
			ASSERT_TRUE(OnPath("xdotool")) << "xdotool is missing (Debian: xdotool)";
			ASSERT_TRUE(FLessonWindow::IsDisplayAvailable());
		}

		/**
		 * Opens Window, then keeps the GL driver it loaded (Mesa's *_dri.so) in memory to the end:
		 * the driver leaks a little on purpose and is unloaded with the display, after which
		 * LeakSanitizer could no longer name it for lsan.supp.
		 */
		static void OpenWindow(FLessonWindow& Window, const TCHAR* Title, int32 Width, int32 Height)
		{
			FString Error;
			ASSERT_TRUE(Window.Open(Title, Width, Height, Error)) << Error;
			std::vector<std::string> Drivers;
			dl_iterate_phdr([](dl_phdr_info* Info, size_t, void* Out) {
				if (Info->dlpi_name && std::strstr(Info->dlpi_name, "_dri.so"))
				{
					static_cast<std::vector<std::string>*>(Out)->push_back(Info->dlpi_name);
				}
				return 0;
			}, &Drivers);
			for (const std::string& Driver : Drivers)
			{
				dlopen(Driver.c_str(), RTLD_NOW | RTLD_NOLOAD | RTLD_NODELETE);
			}
		}

		/** Pumps Window (and ticks App when given) until Done holds; false after five seconds. */
		template<class ConditionT>
		static bool PumpUntil(FLessonWindow& Window, TArray<ELessonKey>& Keys, FTestApp* App, ConditionT Done)
		{
			const auto Deadline = std::chrono::steady_clock::now() + std::chrono::seconds(5);
			while (std::chrono::steady_clock::now() < Deadline)
			{
				Window.PumpEvents(Keys);
				if (App)
				{
					App->TickFrame();
				}
				if (Done())
				{
					return true;
				}
				std::this_thread::sleep_for(std::chrono::milliseconds(5));
			}
			return false;
		}

		// The private X server of this test program.
		static inline pid_t Server = 0;
	};
}

TEST(LessonWindowLetterbox, MapsTheBarsOutsideThePictureAndSurvivesEmptySizes)
{
	const FLetterbox Tall = FLetterbox::Fit(FIntPoint(1280, 720), FIntPoint(901, 300));
	EXPECT_EQ(Tall.Width, 533);
	EXPECT_EQ(Tall.X + Tall.Width / 2, 450) << "centred";
	const FLetterbox Wide = FLetterbox::Fit(FIntPoint(1280, 720), FIntPoint(640, 480));
	EXPECT_LT(Wide.ToPicture(FVector2D(320.0, 30.0), FVector2D(1280.0, 720.0)).Y, 0.0) << "the top bar is above the picture, not its first row";
	// A minimised window has no output: nothing is drawn and nothing divides by zero.
	EXPECT_TRUE(FLetterbox::Fit(FIntPoint(1280, 720), FIntPoint(0, 0)).IsEmpty());
	EXPECT_TRUE(FLetterbox::Fit(FIntPoint(0, 720), FIntPoint(640, 480)).IsEmpty());
	EXPECT_EQ(FLetterbox().ToPicture(FVector2D(5.0, 5.0), FVector2D(1280.0, 720.0)), FVector2D::ZeroVector);
}

TEST_F(LessonWindowTest, ShowsThePresentedFrameLetterboxedInWindowsOfOtherAspects)
{
	const FColor Left(200, 100, 50, 255);
	const FColor Right(30, 60, 220, 255);
	const FColor Black(0, 0, 0, 255);
	FRenderFrame Shown;
	{
		FLessonWindow Window;
		ASSERT_NO_FATAL_FAILURE(OpenWindow(Window, TEXT("LessonWindowTest bars"), 640, 480));
		ASSERT_TRUE(Window.CaptureWindow(Shown));
		EXPECT_TRUE(Near(Shown.GetPixel(320, 240), Black)) << "a new window is black";

		Window.Present(SplitFrame(Left, Right));
		ASSERT_TRUE(Window.CaptureWindow(Shown));
		ASSERT_EQ(Shown.GetWidth(), 640);
		ASSERT_EQ(Shown.GetHeight(), 480);
		EXPECT_TRUE(Near(Shown.GetPixel(320, 20), Black)) << "top bar";
		EXPECT_TRUE(Near(Shown.GetPixel(160, 240), Left));
		EXPECT_TRUE(Near(Shown.GetPixel(480, 240), Right));
		EXPECT_TRUE(Near(Shown.GetPixel(5, 65), Left)) << "the picture starts right below the bar";
		EXPECT_TRUE(Near(Shown.GetPixel(320, 470), Black)) << "bottom bar";
	}
	FLessonWindow Window;
	ASSERT_NO_FATAL_FAILURE(OpenWindow(Window, TEXT("LessonWindowTest pillars"), 900, 300));
	Window.Present(SplitFrame(Left, Right));
	ASSERT_TRUE(Window.CaptureWindow(Shown));
	EXPECT_TRUE(Near(Shown.GetPixel(90, 150), Black)) << "left bar";
	EXPECT_TRUE(Near(Shown.GetPixel(300, 150), Left));
	EXPECT_TRUE(Near(Shown.GetPixel(600, 150), Right));
	EXPECT_TRUE(Near(Shown.GetPixel(850, 150), Black)) << "right bar";

	// Painted straight into the window's picture: the colours swapped, rows as far apart as SDL keeps them.
	FWidgetViewport::Get().SetViewportSize(FVector2D(1280.0, 720.0));
	FRenderFrame InPlace;
	ASSERT_TRUE(Window.BeginPicture(InPlace));
	ASSERT_TRUE(InPlace.IsAttached());
	ASSERT_EQ(InPlace.GetWidth(), 1280);
	InPlace.Clear(Left);
	for (int32 Y = 0; Y < 720; ++Y)
	{
		for (int32 X = 0; X < 640; ++X)
		{
			uint8* Pixel = InPlace.GetData() + Y * InPlace.GetStride() + X * 4;
			Pixel[0] = Right.R;
			Pixel[1] = Right.G;
			Pixel[2] = Right.B;
		}
	}
	Window.Present(InPlace);
	EXPECT_FALSE(InPlace.IsAttached()) << "the window takes its memory back when it shows it";
	EXPECT_EQ(InPlace.GetWidth(), 0);
	ASSERT_TRUE(Window.CaptureWindow(Shown));
	EXPECT_TRUE(Near(Shown.GetPixel(300, 150), Right));
	EXPECT_TRUE(Near(Shown.GetPixel(600, 150), Left));
	EXPECT_TRUE(Near(Shown.GetPixel(850, 150), Black));
}

TEST_F(LessonWindowTest, ClicksReachTheViewportAtTheMappedPosition)
{
	FTestApp App;
	UTestPointerProbe* Probe = CreateWidget<UTestPointerProbe>(GetTransientPackage(), UTestPointerProbe::StaticClass());
	UCanvasPanel* Canvas = Probe->WidgetTree->ConstructWidget<UCanvasPanel>();
	Probe->WidgetTree->RootWidget = Canvas;
	UButton* Button = Probe->WidgetTree->ConstructWidget<UButton>();
	UCanvasPanelSlot* Slot = Canvas->AddChildToCanvas(Button);
	Slot->SetPosition(FVector2D(600.0, 330.0));
	Slot->SetSize(FVector2D(80.0, 60.0));
	Button->OnPressed.AddDynamic(Probe, &UTestPointerProbe::OnPressed);
	Button->OnReleased.AddDynamic(Probe, &UTestPointerProbe::OnReleased);
	Button->OnClicked.AddDynamic(Probe, &UTestPointerProbe::OnClicked);
	App.GetViewport().AddWidget(Probe, 0);
	App.TickFrame();

	FLessonWindow Window;
	ASSERT_NO_FATAL_FAILURE(OpenWindow(Window, TEXT("LessonWindowTest click"), 640, 480));
	Window.Present(FRenderFrame(1280, 720));
	TArray<ELessonKey> Keys;

	// The 1280x720 viewport fills 640x360 of the window below a 60-pixel bar: a window pixel is
	// two viewport pixels, and its centre is where the viewer pointed.
	ASSERT_TRUE(Xdotool("search --sync --name '^LessonWindowTest click$' mousemove --window %1 100 400"));
	ASSERT_TRUE(PumpUntil(Window, Keys, &App, [&] { return Probe->Moves.Num() > 0 && Probe->Moves.Last().X > 150.0; }));
	EXPECT_NEAR(Probe->Moves.Last().X, 201.0, 1.0);
	EXPECT_NEAR(Probe->Moves.Last().Y, 681.0, 1.0);

	ASSERT_TRUE(Xdotool("search --sync --name '^LessonWindowTest click$' mousemove --window %1 320 240 click 1"));
	ASSERT_TRUE(PumpUntil(Window, Keys, &App, [&] { return Probe->ButtonEvents.Contains(TEXT("Clicked")); }))
		<< "button events: " << FTCHARToUTF8(*FString::Join(Probe->ButtonEvents, TEXT(" "))).Get();
	EXPECT_EQ(FString::Join(Probe->ButtonEvents, TEXT(" ")), TEXT("Pressed Released Clicked"));
	EXPECT_NEAR(Probe->Moves.Last().X, 641.0, 1.0);
	EXPECT_NEAR(Probe->Moves.Last().Y, 361.0, 1.0);
	EXPECT_TRUE(Keys.IsEmpty());
}

TEST_F(LessonWindowTest, KeysBecomeCommandsAndQuitClosesTheWindow)
{
	FLessonWindow Window;
	ASSERT_NO_FATAL_FAILURE(OpenWindow(Window, TEXT("LessonWindowTest keys"), 320, 240));
	TArray<ELessonKey> Keys;
	ASSERT_TRUE(Xdotool("search --sync --name '^LessonWindowTest keys$' mousemove --window %1 10 10 windowfocus --sync %1 key space m c Left Up x"));
	ASSERT_TRUE(PumpUntil(Window, Keys, nullptr, [&] { return Keys.Num() >= 5; }));
	const TArray<ELessonKey> Expected = { ELessonKey::TogglePause, ELessonKey::ToggleMute, ELessonKey::ToggleComments, ELessonKey::SeekBackward, ELessonKey::VolumeUp };
	FString Got;
	for (ELessonKey Key : Keys)
	{
		Got += FString::Printf(TEXT("%d "), int32(Key));
	}
	EXPECT_TRUE(Keys == Expected) << "x has no command; got " << FTCHARToUTF8(*Got).Get();
	EXPECT_TRUE(Window.PumpEvents(Keys)) << "still open";

	Keys.Reset();
	ASSERT_TRUE(Xdotool("key Escape"));
	ASSERT_TRUE(PumpUntil(Window, Keys, nullptr, [&] { return !Keys.IsEmpty(); }));
	EXPECT_EQ(Keys[0], ELessonKey::Quit);
	EXPECT_FALSE(Window.PumpEvents(Keys)) << "Quit closes the window";
	EXPECT_FALSE(Window.IsOpen());
}

TEST(LessonWindowSound, KeepsAtMostAFifthOfASecondQueued)
{
	setenv("SDL_AUDIODRIVER", "dummy", 1);
	FLessonWindow Window;
	FString Error;
	TSharedPtr<UE::Audio::IAudioSink> Opened = Window.OpenAudioDevice(Error);
	ASSERT_TRUE(Opened.IsValid()) << Error;
	FSdlAudioSink& Sink = static_cast<FSdlAudioSink&>(*Opened);

	// The loop runs far ahead of the device here: one second of 1/60 s blocks at once.
	TArray<float> Block;
	Block.Init(0.25f, 800 * 2);
	Sink.Write(Block.GetData(), 800);
	EXPECT_EQ(Sink.GetDroppedFrames(), 0) << "a short queue takes a whole block";
	for (int32 Index = 1; Index < 60; ++Index)
	{
		Sink.Write(Block.GetData(), 800);
		ASSERT_LE(Sink.GetQueuedFrames(), 9600);
	}
	EXPECT_GT(Sink.GetDroppedFrames(), 0) << "what lies beyond the limit is dropped, not queued";
	Sink.Write(nullptr, 800);
	Sink.Write(Block.GetData(), -5);
}
