#pragma once

// The audio sink a recorder hands out: the mixer writes into it and the sound goes to the recorder.

#include "AudioSink.h"
#include "CoreMinimal.h"

class FLessonRecorder;

/**
 * Forwards the mix to a FLessonRecorder's AddAudio. The sink may outlive its recorder (the mixer
 * holds it until another sink is set): the recorder detaches it when it is destroyed, and a
 * detached sink drops what it is given. Game thread only, like the mixer.
 */
class FRecorderAudioSink final : public UE::Audio::IAudioSink
{
public:
	/** A sink that forwards to Recorder until Detach. */
	explicit FRecorderAudioSink(FLessonRecorder& InRecorder) : Recorder(&InRecorder) {}

	/** Passes the block to the recorder, if it is still there. */
	virtual void Write(const float* Interleaved, int32 Frames) override;
	/** Forgets the recorder; later blocks are dropped. */
	void Detach() { Recorder = nullptr; }

private:
	// The recorder the sound goes to; null once detached. Game thread only.
	FLessonRecorder* Recorder;
};
