#pragma once

// Records what vidaria-player shows, picture and sound, into an MP4 file (H.264 + AAC).

#include "AudioSink.h"
#include "CoreMinimal.h"
#include "Recording/LessonRecorderSettings.h"
#include "Templates/SharedPointer.h"
#include "Templates/UniquePtr.h"

#include <thread>

class FRecorderAudioSink;
class FRecordingQueue;
class FRenderFrame;
struct FRecordingEncoders;

/**
 * Writes the frames of the loop into an MP4 at a constant frame rate, with the mix as its sound.
 * All calls come from the game thread; a worker thread converts and encodes, so AddVideoFrame only
 * copies the picture, and waits only when the worker is several pictures behind. Timestamps come
 * from counts, never the wall clock: picture N is at N / FramesPerSecond, and the sound is held to
 * the picture's length (padded with silence or trimmed at Finish), so both end together.
 */
class FLessonRecorder
{
public:
	/** A recorder with nothing open. */
	FLessonRecorder();
	FLessonRecorder(const FLessonRecorder&) = delete;
	FLessonRecorder& operator=(const FLessonRecorder&) = delete;
	/** Finishes an open recording; a failure is logged. */
	~FLessonRecorder();

	/** Starts a recording; false and one line in OutError (naming the file and the reason) when it cannot. */
	bool Open(const FLessonRecorderSettings& Settings, FString& OutError);
	/** Whether frames are being taken: from a successful Open until Finish or a failure. */
	bool IsOpen() const { return bOpen; }
	/** Adds the next picture, 1 / FramesPerSecond after the previous one; scaled if its size differs; an empty frame is black. */
	void AddVideoFrame(const FRenderFrame& Frame);
	/** Adds Frames frames of the mix (48 kHz interleaved float stereo); ignored without sound. */
	void AddAudio(const float* Interleaved, int32 Frames);
	/** Encodes what is queued, ends the sound with the picture, writes the index and closes the file; false and one line in OutError on failure. */
	bool Finish(FString& OutError);
	/** A sink for UE::Audio::SetAudioSink that forwards the mix to AddAudio; safe to keep after this recorder is gone. */
	TSharedPtr<UE::Audio::IAudioSink> MakeAudioSink();

	/** Pictures taken since the last Open (all of them are in the file once Finish succeeds). */
	int64 GetFramesWritten() const { return FramesWritten; }
	/** Wall seconds AddVideoFrame spent waiting for the worker since the last Open. */
	double GetSecondsWaited() const { return SecondsWaited; }
	/** The video encoder of the current or last recording, e.g. "libx264"; empty before the first Open. */
	const FString& GetVideoEncoderName() const { return VideoEncoderName; }
	/** The settings in use, with the size made even. */
	const FLessonRecorderSettings& GetSettings() const { return Settings; }

private:
	// The worker's loop: takes pictures and sound from Queue and encodes them until the queue closes.
	void RunWorker();
	// Notices a failure of the worker: logs it once and stops taking frames.
	bool CheckWorker();
	// Joins the worker and frees the encoders and the queue.
	void Release();

	// The recording's settings (size made even). Game thread; read by the worker only while it runs.
	FLessonRecorderSettings Settings;
	// The muxer and encoders: the worker's while it runs, the game thread's before and after.
	TUniquePtr<FRecordingEncoders> Encoders;
	// The hand-over to the worker; null when nothing is recorded.
	TUniquePtr<FRecordingQueue> Queue;
	// Converts and encodes; joinable while a recording is open or failed but not finished.
	std::thread Worker;
	// The sink handed out by MakeAudioSink, detached when this recorder goes. Game thread.
	TSharedPtr<FRecorderAudioSink> Sink;
	// Pictures taken since Open. Game thread.
	int64 FramesWritten = 0;
	// See GetSecondsWaited. Game thread.
	double SecondsWaited = 0.0;
	// Whether frames are taken. Game thread.
	bool bOpen = false;
	// The worker's failure once noticed (and logged), reported again by Finish. Game thread.
	FString Failure;
	// See GetVideoEncoderName. Game thread.
	FString VideoEncoderName;
};
