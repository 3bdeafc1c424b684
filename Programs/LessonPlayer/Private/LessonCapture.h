#pragma once

// FLessonCapture: what the program keeps of the frames it runs. It paints the viewport when a
// picture is wanted (a window to fill, a recording, a screenshot that is due, statistics), feeds
// the recorder with every frame and the mixer's sound, and writes screenshots at their times.

#include "CoreMinimal.h"
#include "FrameRenderer.h"
#include "Recording/LessonRecorder.h"
#include "RenderFrame.h"

class FEngineLoop;
struct FLessonPlayerOptions;

/** The renderer, the recorder and the screenshot schedule of one run. */
class FLessonCapture
{
public:
	~FLessonCapture();

	/**
	 * Sets the loop's paint handler and opens the recording. bAlwaysPaint paints every frame (a
	 * window shows each one). False, with one line told, when the recording or the screenshot
	 * folder cannot be made: the run should not pretend to record.
	 */
	bool Begin(const FLessonPlayerOptions& Options, FEngineLoop& InLoop, bool bAlwaysPaint);

	/** After each frame: hands the frame to the recorder, writes a screenshot when one is due; NextDeltaSeconds tells whether the next frame must be painted for one. */
	void AfterFrame(double LoopSeconds, double NextDeltaSeconds);

	/** Writes a screenshot of Picture now (a window passes what it shows); true when written. */
	bool WriteScreenshot(const FRenderFrame& Picture);

	/** Finishes the recording; false (told) when the file could not be completed. */
	bool End();

	/** The last painted frame. */
	const FRenderFrame& GetFrame() const { return Frame; }
	/**
	 * The frame, for a window to attach to its own picture so the next frame is painted straight
	 * into it; null when something reads the frame after it was shown (a recording, screenshots),
	 * since the window takes the memory back when it shows it.
	 */
	FRenderFrame* GetFrameToPaintInPlace() { return Recorder.IsOpen() || !ScreenshotDir.IsEmpty() ? nullptr : &Frame; }
	/** How the renderer's text cache has fared. */
	FTextSpriteCacheStats GetTextCacheStats() const { return Renderer.GetTextCacheStats(); }
	/** Screenshots written so far. */
	int32 GetScreenshotCount() const { return ScreenshotCount; }
	/** Seconds spent handing frames to the recorder. */
	double GetRecordingSeconds() const { return RecordingSeconds; }
	/** True when the next frame will be painted. */
	bool WillPaint() const { return bAlwaysPaint || Recorder.IsOpen() || bScreenshotDue; }
	/** Makes AfterFrame leave screenshots to the caller (a window captures its own picture). */
	void SetScreenshotsFromCaller(bool bInFromCaller) { bScreenshotsFromCaller = bInFromCaller; }
	/** True when a screenshot is due at LoopSeconds. */
	bool IsScreenshotDue(double LoopSeconds) const;

private:
	// The loop whose paint handler this set.
	FEngineLoop* Loop = nullptr;
	// Paints the viewport.
	FFrameRenderer Renderer;
	// The last painted picture.
	FRenderFrame Frame;
	// The MP4 writer; closed when nothing is recorded.
	FLessonRecorder Recorder;
	// Where screenshots go; empty for none.
	FString ScreenshotDir;
	// Loop seconds between screenshots.
	double ScreenshotEvery = 1.0;
	// The loop time of the next screenshot.
	double NextScreenshotAt = 0.0;
	// Screenshots written.
	int32 ScreenshotCount = 0;
	// Wall seconds in the recorder.
	double RecordingSeconds = 0.0;
	// Paint every frame.
	bool bAlwaysPaint = false;
	// A screenshot falls on the next frame, so it must be painted.
	bool bScreenshotDue = false;
	// The caller writes screenshots itself.
	bool bScreenshotsFromCaller = false;
};
