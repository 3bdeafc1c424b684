#include "Window/LessonWindow.h"

#include "RenderFrame.h"
#include "Slate/WidgetViewport.h"
#include "Window/Letterbox.h"
#include "Window/SdlAudioSink.h"

#define SDL_MAIN_HANDLED
#include <SDL.h>

#include <cstdlib>

DEFINE_LOG_CATEGORY_STATIC(LogLessonWindow, Log, All);

namespace
{
	// Where the pointer is said to be once it left the window: outside every widget, so hovered
	// widgets get their leave event as they would in the engine's own window.
	const FVector2D OffWindow(-1.0, -1.0);

	/** True when the environment variable Name is set and not empty. */
	bool HasEnvironment(const char* Name)
	{
		const char* Value = std::getenv(Name);
		return Value && Value[0] != '\0';
	}

	/** The command of Key, if it has one. Keycodes, not scancodes: the keys are where their letters are printed. */
	bool MapKey(SDL_Keycode Key, ELessonKey& Out)
	{
		switch (Key)
		{
		case SDLK_SPACE: Out = ELessonKey::TogglePause; return true;
		case SDLK_LEFT: Out = ELessonKey::SeekBackward; return true;
		case SDLK_RIGHT: Out = ELessonKey::SeekForward; return true;
		case SDLK_UP: Out = ELessonKey::VolumeUp; return true;
		case SDLK_DOWN: Out = ELessonKey::VolumeDown; return true;
		case SDLK_m: Out = ELessonKey::ToggleMute; return true;
		case SDLK_f: Out = ELessonKey::ToggleFullScreen; return true;
		case SDLK_c: Out = ELessonKey::ToggleComments; return true;
		case SDLK_ESCAPE:
		case SDLK_q: Out = ELessonKey::Quit; return true;
		default: return false;
		}
	}

	/** Holding a seek or volume key repeats it; a held toggle would flicker, and a held quit means nothing more. */
	bool Repeats(ELessonKey Key)
	{
		return Key == ELessonKey::SeekBackward || Key == ELessonKey::SeekForward || Key == ELessonKey::VolumeUp || Key == ELessonKey::VolumeDown;
	}
}

FLessonWindow::~FLessonWindow()
{
	if (PaintingFrame)
	{
		PaintingFrame->Detach();
	}
	if (LockedPixels)
	{
		SDL_UnlockTexture(Texture);
	}
	if (Texture)
	{
		SDL_DestroyTexture(Texture);
	}
	if (Renderer)
	{
		SDL_DestroyRenderer(Renderer);
	}
	if (Window)
	{
		SDL_DestroyWindow(Window);
	}
	if (bVideoStarted)
	{
		SDL_QuitSubSystem(SDL_INIT_VIDEO);
	}
}

bool FLessonWindow::IsDisplayAvailable()
{
	if (!HasEnvironment("DISPLAY") && !HasEnvironment("WAYLAND_DISPLAY"))
	{
		return false;
	}
	SDL_SetMainReady();
	if (SDL_InitSubSystem(SDL_INIT_VIDEO) != 0)
	{
		UE_LOG(LogLessonWindow, Log, TEXT("no display: %s"), UTF8_TO_TCHAR(SDL_GetError()));
		return false;
	}
	const bool bHasScreen = SDL_GetNumVideoDisplays() > 0;
	SDL_QuitSubSystem(SDL_INIT_VIDEO);
	return bHasScreen;
}

bool FLessonWindow::Open(const FString& Title, int32 Width, int32 Height, FString& OutError)
{
	if (Window)
	{
		OutError = TEXT("the window is already open");
		return false;
	}
	if (Width <= 0 || Height <= 0)
	{
		OutError = FString::Printf(TEXT("cannot open a window of %dx%d"), Width, Height);
		return false;
	}
	SDL_SetMainReady();
	if (!bVideoStarted)
	{
		if (SDL_InitSubSystem(SDL_INIT_VIDEO) != 0)
		{
			OutError = FString::Printf(TEXT("no display: %s"), UTF8_TO_TCHAR(SDL_GetError()));
			return false;
		}
		bVideoStarted = true;
	}
	SDL_SetHint(SDL_HINT_RENDER_SCALE_QUALITY, "linear");
	// The program paces its frames from its own clock; waiting for the refresh would add a second pacer.
	SDL_SetHint(SDL_HINT_RENDER_VSYNC, "0");
	// The click that focuses the window is also a click on the player.
	SDL_SetHint(SDL_HINT_MOUSE_FOCUS_CLICKTHROUGH, "1");

	Window = SDL_CreateWindow(FTCHARToUTF8(*Title).Get(), SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED, Width, Height, SDL_WINDOW_RESIZABLE | SDL_WINDOW_ALLOW_HIGHDPI);
	if (!Window)
	{
		OutError = FString::Printf(TEXT("cannot open a window: %s"), UTF8_TO_TCHAR(SDL_GetError()));
		return false;
	}
	// The first renderer SDL offers is the accelerated one where there is one; software otherwise.
	Renderer = SDL_CreateRenderer(Window, -1, 0);
	if (!Renderer)
	{
		Renderer = SDL_CreateRenderer(Window, -1, SDL_RENDERER_SOFTWARE);
	}
	if (!Renderer)
	{
		OutError = FString::Printf(TEXT("cannot draw into the window: %s"), UTF8_TO_TCHAR(SDL_GetError()));
		SDL_DestroyWindow(Window);
		Window = nullptr;
		return false;
	}
	SDL_RendererInfo Info;
	if (SDL_GetRendererInfo(Renderer, &Info) == 0)
	{
		UE_LOG(LogLessonWindow, Log, TEXT("window %dx%d drawn by SDL's %s renderer"), Width, Height, UTF8_TO_TCHAR(Info.name));
	}
	DrawPicture();
	SDL_RenderPresent(Renderer);
	return true;
}

void FLessonWindow::ToggleFullScreen()
{
	if (!Window)
	{
		return;
	}
	// The desktop's own mode: no change of display mode, so switching is instant and safe.
	const bool bDesktop = (SDL_GetWindowFlags(Window) & SDL_WINDOW_FULLSCREEN_DESKTOP) == SDL_WINDOW_FULLSCREEN_DESKTOP;
	SDL_SetWindowFullscreen(Window, bDesktop ? 0 : SDL_WINDOW_FULLSCREEN_DESKTOP);
}

FIntPoint FLessonWindow::GetOutputSize() const
{
	int OutWidth = 0;
	int OutHeight = 0;
	if (!Renderer || SDL_GetRendererOutputSize(Renderer, &OutWidth, &OutHeight) != 0)
	{
		return FIntPoint(0, 0);
	}
	return FIntPoint(OutWidth, OutHeight);
}

bool FLessonWindow::PumpEvents(TArray<ELessonKey>& OutKeys)
{
	if (!Window)
	{
		return false;
	}
	SDL_Event Event;
	while (SDL_PollEvent(&Event))
	{
		if (!HandleEvent(Event, OutKeys))
		{
			bClosed = true;
		}
	}
	FlushPendingMove();
	return !bClosed;
}

bool FLessonWindow::HandleEvent(const SDL_Event& Event, TArray<ELessonKey>& OutKeys)
{
	const Uint32 OurId = SDL_GetWindowID(Window);
	FWidgetViewport& Viewport = FWidgetViewport::Get();
	switch (Event.type)
	{
	case SDL_QUIT:
		return false;
	case SDL_WINDOWEVENT:
		if (Event.window.windowID != OurId)
		{
			break;
		}
		if (Event.window.event == SDL_WINDOWEVENT_CLOSE)
		{
			return false;
		}
		if (Event.window.event == SDL_WINDOWEVENT_LEAVE && !bLeftButtonDown)
		{
			PendingMove = OffWindow;
			bHasPendingMove = true;
		}
		break;
	case SDL_MOUSEMOTION:
		if (Event.motion.windowID == OurId)
		{
			PendingMove = WindowToViewport(Event.motion.x, Event.motion.y);
			bHasPendingMove = true;
		}
		break;
	case SDL_MOUSEBUTTONDOWN:
	case SDL_MOUSEBUTTONUP:
		if (Event.button.windowID == OurId && Event.button.button == SDL_BUTTON_LEFT)
		{
			// The moves before a press are routed first, so the press finds the widgets the pointer is over.
			FlushPendingMove();
			const FVector2D Position = WindowToViewport(Event.button.x, Event.button.y);
			bLeftButtonDown = Event.type == SDL_MOUSEBUTTONDOWN;
			if (bLeftButtonDown)
			{
				Viewport.QueuePointerPress(Position);
			}
			else
			{
				Viewport.QueuePointerRelease(Position);
			}
		}
		break;
	case SDL_KEYDOWN:
	{
		// Shortcuts of the desktop (Alt+Tab, Ctrl+Q of a window manager) are not the player's.
		if (Event.key.windowID != OurId || (Event.key.keysym.mod & (KMOD_CTRL | KMOD_ALT | KMOD_GUI)) != 0)
		{
			break;
		}
		if (Event.key.keysym.sym == SDLK_F11 && !Event.key.repeat)
		{
			ToggleFullScreen();
			break;
		}
		ELessonKey Key;
		if (MapKey(Event.key.keysym.sym, Key) && (!Event.key.repeat || Repeats(Key)))
		{
			OutKeys.Add(Key);
			if (Key == ELessonKey::Quit)
			{
				return false;
			}
		}
		break;
	}
	default:
		break;
	}
	return true;
}

FVector2D FLessonWindow::WindowToViewport(int32 X, int32 Y) const
{
	int WindowWidth = 0;
	int WindowHeight = 0;
	SDL_GetWindowSize(Window, &WindowWidth, &WindowHeight);
	const FIntPoint Output = GetOutputSize();
	if (WindowWidth <= 0 || WindowHeight <= 0)
	{
		return OffWindow;
	}
	// SDL reports whole window points; the centre of the point is where the viewer pointed.
	// On a high-density screen a point covers several output pixels, hence the scale.
	const FVector2D OutputPoint((X + 0.5) * Output.X / WindowWidth, (Y + 0.5) * Output.Y / WindowHeight);
	const FVector2D ViewportSize = FWidgetViewport::Get().GetViewportSize();
	// Before the first frame the picture will have the viewport's size, so the bars are the same.
	const FIntPoint Picture = TextureSize.X > 0 ? TextureSize : FIntPoint(int32(ViewportSize.X), int32(ViewportSize.Y));
	const FLetterbox Box = FLetterbox::Fit(Picture, Output);
	return Box.IsEmpty() ? OffWindow : Box.ToPicture(OutputPoint, ViewportSize);
}

void FLessonWindow::FlushPendingMove()
{
	if (bHasPendingMove)
	{
		FWidgetViewport::Get().QueuePointerMove(PendingMove);
		bHasPendingMove = false;
	}
}

bool FLessonWindow::EnsureTexture(const FIntPoint& Size)
{
	if (Texture && Size == TextureSize)
	{
		return true;
	}
	if (Texture)
	{
		SDL_DestroyTexture(Texture);
	}
	// RGBA32 names the byte order R, G, B, A whatever the machine's endianness (ABGR8888 on
	// little-endian), which is the frame's own layout: no conversion on upload.
	Texture = SDL_CreateTexture(Renderer, SDL_PIXELFORMAT_RGBA32, SDL_TEXTUREACCESS_STREAMING, Size.X, Size.Y);
	TextureSize = Texture ? Size : FIntPoint(0, 0);
	if (!Texture)
	{
		UE_LOG(LogLessonWindow, Error, TEXT("cannot make a %dx%d picture: %s"), Size.X, Size.Y, UTF8_TO_TCHAR(SDL_GetError()));
		return false;
	}
	// The window is opaque: the frame's alpha must not darken the picture.
	SDL_SetTextureBlendMode(Texture, SDL_BLENDMODE_NONE);
	return true;
}

bool FLessonWindow::BeginPicture(FRenderFrame& Frame)
{
	if (!Renderer || LockedPixels)
	{
		return false;
	}
	// The renderer sizes its frame to the viewport, so the texture must have that size to be painted into.
	const FVector2D Viewport = FWidgetViewport::Get().GetViewportSize();
	const FIntPoint Size(FMath::RoundToInt32(static_cast<float>(Viewport.X)), FMath::RoundToInt32(static_cast<float>(Viewport.Y)));
	if (Size.X <= 0 || Size.Y <= 0 || !EnsureTexture(Size))
	{
		return false;
	}
	// A streaming texture's lock hands out memory the next unlock shows (the texture's own pixels
	// in SDL's software renderer, the buffer a GPU renderer uploads from): painting there is the
	// whole of the way to the screen. Its old contents are undefined, and the renderer clears first.
	int Pitch = 0;
	if (SDL_LockTexture(Texture, nullptr, &LockedPixels, &Pitch) != 0)
	{
		LockedPixels = nullptr;
		return false;
	}
	Frame.Attach(static_cast<uint8*>(LockedPixels), Size.X, Size.Y, Pitch);
	if (!Frame.IsAttached())
	{
		SDL_UnlockTexture(Texture);
		LockedPixels = nullptr;
		return false;
	}
	PaintingFrame = &Frame;
	return true;
}

void FLessonWindow::Present(const FRenderFrame& Frame)
{
	if (!Renderer)
	{
		return;
	}
	const bool bPaintedInPlace = LockedPixels && Frame.IsAttached() && Frame.GetData() == LockedPixels;
	if (LockedPixels)
	{
		SDL_UnlockTexture(Texture);
		LockedPixels = nullptr;
	}
	if (PaintingFrame)
	{
		// The locked memory is SDL's again: the frame must not paint into it any more.
		PaintingFrame->Detach();
		PaintingFrame = nullptr;
	}
	const FIntPoint Size(Frame.GetWidth(), Frame.GetHeight());
	if (!bPaintedInPlace && Size.X > 0 && Size.Y > 0 && EnsureTexture(Size))
	{
		SDL_UpdateTexture(Texture, nullptr, Frame.GetData(), Frame.GetStride());
	}
	DrawPicture();
	SDL_RenderPresent(Renderer);
}

void FLessonWindow::DrawPicture() const
{
	SDL_SetRenderDrawColor(Renderer, 0, 0, 0, 255);
	SDL_RenderClear(Renderer);
	if (!Texture)
	{
		return;
	}
	const FLetterbox Box = FLetterbox::Fit(TextureSize, GetOutputSize());
	if (!Box.IsEmpty())
	{
		const SDL_Rect Target{ Box.X, Box.Y, Box.Width, Box.Height };
		// Shown at its own size the picture needs no filtering, and a texture sampled without it
		// is cheaper for a renderer that samples on the CPU (llvmpipe, SDL's software renderer).
		const bool bOneToOne = Box.Width == TextureSize.X && Box.Height == TextureSize.Y;
		SDL_SetTextureScaleMode(Texture, bOneToOne ? SDL_ScaleModeNearest : SDL_ScaleModeLinear);
		SDL_RenderCopy(Renderer, Texture, nullptr, &Target);
	}
}

bool FLessonWindow::CaptureWindow(FRenderFrame& Out) const
{
	const FIntPoint Output = GetOutputSize();
	if (!Renderer || Output.X <= 0 || Output.Y <= 0)
	{
		return false;
	}
	// What was presented is gone from the back buffer once it was swapped, so the last picture is
	// drawn again, exactly as Present draws it, and read before it is shown.
	DrawPicture();
	Out.Resize(Output.X, Output.Y);
	if (SDL_RenderReadPixels(Renderer, nullptr, SDL_PIXELFORMAT_RGBA32, Out.GetData(), Out.GetStride()) != 0)
	{
		UE_LOG(LogLessonWindow, Error, TEXT("cannot read the window back: %s"), UTF8_TO_TCHAR(SDL_GetError()));
		return false;
	}
	// Back buffers may carry any alpha; the window shows every pixel fully.
	uint8* Bytes = Out.GetData();
	for (int64 Index = 3; Index < int64(Output.X) * Output.Y * 4; Index += 4)
	{
		Bytes[Index] = 255;
	}
	return true;
}

TSharedPtr<UE::Audio::IAudioSink> FLessonWindow::OpenAudioDevice(FString& OutError)
{
	return FSdlAudioSink::Open(OutError);
}
