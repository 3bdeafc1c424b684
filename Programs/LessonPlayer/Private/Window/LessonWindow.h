#pragma once

// FLessonWindow: the desktop window of vidaria-player. It shows the frames the renderer paints,
// scaled to the window with their aspect kept (black bars), turns the viewer's mouse into pointer
// events of the widget viewport and the viewer's keys into ELessonKey commands, and opens the
// sound device. One window per process, game thread only; the program paces its frames itself,
// so nothing here waits for the screen's refresh.

#include "CoreMinimal.h"
#include "AudioSink.h"
#include "Math/IntPoint.h"
#include "Math/Vector2D.h"
#include "Templates/SharedPointer.h"
#include "Window/LessonKey.h"

class FRenderFrame;
struct SDL_Renderer;
struct SDL_Texture;
struct SDL_Window;
union SDL_Event;

/** An SDL2 window with a streaming texture, the viewer's input and the sound device. */
class FLessonWindow
{
public:
	FLessonWindow() = default;
	~FLessonWindow();
	FLessonWindow(const FLessonWindow&) = delete;
	FLessonWindow& operator=(const FLessonWindow&) = delete;

	/** True when a display can be opened (DISPLAY or WAYLAND_DISPLAY set and SDL's video starts). */
	static bool IsDisplayAvailable();

	/** Opens a resizable window of Width x Height showing black; false and OutError on failure. */
	bool Open(const FString& Title, int32 Width, int32 Height, FString& OutError);

	/**
	 * Drains SDL's events: pointer moves, left presses and releases are queued on
	 * FWidgetViewport::Get() in viewport pixels (window coordinates mapped through the letterboxed
	 * picture to the viewport's size); keys go to OutKeys; false once the viewer closed the window
	 * (or pressed Quit, which is still added to OutKeys).
	 */
	bool PumpEvents(TArray<ELessonKey>& OutKeys);

	/**
	 * Lets the next frame be painted straight into the window's picture: attaches Frame to the
	 * streaming texture, locked, at the viewport's size, until Present shows it (and detaches
	 * Frame). Nothing is copied on the way to the screen then. False, and Frame left as it was,
	 * when the texture cannot be locked; Present then uploads the frame as usual.
	 */
	bool BeginPicture(FRenderFrame& Frame);

	/** Shows Frame, scaled to the window with its aspect kept (black bars); a frame painted in place is not copied. */
	void Present(const FRenderFrame& Frame);

	/** Reads back what the window shows now (for screenshots of the real window). */
	bool CaptureWindow(FRenderFrame& Out) const;

	/**
	 * Opens the default sound device (48 kHz stereo float, SDL's queue); null and OutError when
	 * there is none. The sink keeps the queue short (drops what is beyond ~0.2 s) so sound never
	 * lags the picture.
	 */
	TSharedPtr<UE::Audio::IAudioSink> OpenAudioDevice(FString& OutError);

	/** Fills the screen with the window (its picture letterboxed), or gives the window back its size. */
	void ToggleFullScreen();

	/** True between a successful Open and the viewer closing the window. */
	bool IsOpen() const { return Window != nullptr && !bClosed; }
	/** The size of the window's drawable area in pixels (0 x 0 before Open). */
	FIntPoint GetOutputSize() const;

private:
	/** Handles one SDL event; false when it closes the window. */
	bool HandleEvent(const SDL_Event& Event, TArray<ELessonKey>& OutKeys);
	/** The viewport point under the window point (X, Y), in window coordinates as SDL reports them. */
	FVector2D WindowToViewport(int32 X, int32 Y) const;
	/** Queues the move held back while moves were being merged, if any. */
	void FlushPendingMove();
	/** Draws the last picture, letterboxed, into the renderer's back buffer. */
	void DrawPicture() const;
	/** Makes Texture Size big, unless it is already; false when SDL cannot. */
	bool EnsureTexture(const FIntPoint& Size);

	// The window; null until Open succeeds.
	SDL_Window* Window = nullptr;
	// Draws into Window.
	SDL_Renderer* Renderer = nullptr;
	// The last presented picture, remade when the frame size changes.
	SDL_Texture* Texture = nullptr;
	// The size of Texture in pixels.
	FIntPoint TextureSize = FIntPoint(0, 0);
	// The frame painting into the locked Texture, between BeginPicture and Present; null otherwise.
	FRenderFrame* PaintingFrame = nullptr;
	// Where the locked Texture's pixels are; null while it is not locked.
	void* LockedPixels = nullptr;
	// True while this window holds a reference on SDL's video subsystem.
	bool bVideoStarted = false;
	// Set when the viewer closed the window or pressed Quit.
	bool bClosed = false;
	// True while the left button is down, so leaving the window does not end a drag.
	bool bLeftButtonDown = false;
	// The latest pointer move of this pump, held back so a burst of moves is routed once.
	FVector2D PendingMove = FVector2D::ZeroVector;
	// Whether PendingMove waits to be queued.
	bool bHasPendingMove = false;
};
