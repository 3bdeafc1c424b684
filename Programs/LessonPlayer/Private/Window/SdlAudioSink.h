#pragma once

// FSdlAudioSink: the mixer's sound played on the default sound device through SDL's queue. The
// mixer writes one block per loop frame on the game thread; SDL's audio thread drains the queue.
// The queue is kept short on purpose: whatever would lie more than MaxQueuedSeconds ahead of the
// device is dropped, so when the loop runs ahead of the sound card (or catches up after a stall)
// the sound never drifts behind the picture. Game thread only.

#include "CoreMinimal.h"
#include "AudioSink.h"
#include "Templates/SharedPointer.h"

/** Plays the mix on the default sound device at 48 kHz float stereo, never more than ~0.2 s behind. */
class FSdlAudioSink : public UE::Audio::IAudioSink
{
public:
	/** The most sound the device queue may hold, in seconds. */
	static constexpr double MaxQueuedSeconds = 0.2;

	/** Opens the default sound device and starts it; null and OutError when there is none. */
	static TSharedPtr<FSdlAudioSink> Open(FString& OutError);
	~FSdlAudioSink() override;
	FSdlAudioSink(const FSdlAudioSink&) = delete;
	FSdlAudioSink& operator=(const FSdlAudioSink&) = delete;

	/** Queues as much of the block as fits under MaxQueuedSeconds and drops the rest. */
	void Write(const float* Interleaved, int32 Frames) override;

	/** Frames queued and not yet handed to the device. */
	int32 GetQueuedFrames() const;
	/** Frames dropped so far because the queue was full. */
	int64 GetDroppedFrames() const { return DroppedFrames; }
	/** The most frames the queue may hold. */
	static int32 GetMaxQueuedFrames();

private:
	explicit FSdlAudioSink(uint32 InDevice) : Device(InDevice) {}

	// SDL's id of the open device; closed by the destructor.
	uint32 Device = 0;
	// Frames that did not fit, counted for the stats and the tests.
	int64 DroppedFrames = 0;
};
