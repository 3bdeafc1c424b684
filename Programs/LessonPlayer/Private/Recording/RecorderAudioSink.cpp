#include "Recording/RecorderAudioSink.h"

#include "Recording/LessonRecorder.h"

void FRecorderAudioSink::Write(const float* Interleaved, int32 Frames)
{
	if (Recorder)
	{
		Recorder->AddAudio(Interleaved, Frames);
	}
}
