#include "FFmpegWorker.h"

#include "FFmpegSharedState.h"

#include <algorithm>
#include <cmath>

extern "C"
{
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
}

// What the worker does with each decoded frame: pictures held back until a seek's target is
// known, converted and queued; sound trimmed to the seek target, converted and queued.

namespace
{
	int64_t BestTimestamp(const AVFrame* Frame)
	{
		return Frame->best_effort_timestamp != AV_NOPTS_VALUE ? Frame->best_effort_timestamp : Frame->pts;
	}
}

void FFmpegWorker::HandleVideoFrame()
{
	const int64_t Timestamp = BestTimestamp(Frame);
	const double Time = Timestamp != AV_NOPTS_VALUE ? Input.ToMediaTime(Timestamp, Input.GetVideoStream()) : LastVideoTime + FrameDuration;
	LastVideoTime = Time;
	if (bSeeking)
	{
		// Accurate seeking: the picture due at the target is the newest one not after it, known
		// only once a later one shows up.
		if (Time <= SeekTarget + 1e-6)
		{
			av_frame_unref(SeekCandidate);
			av_frame_move_ref(SeekCandidate, Frame);
			CandidateTime = Time;
			bHasCandidate = true;
			return;
		}
		if (bHasCandidate)
		{
			PushPicture(SeekCandidate, CandidateTime);
		}
		PushPicture(Frame, Time);
		CompleteSeek();
		return;
	}
	PushPicture(Frame, Time);
}

void FFmpegWorker::PushPicture(AVFrame* Source, double Time)
{
	std::shared_ptr<FFmpegVideoFrame> Picture = VideoConverter.Convert(Source);
	if (!Picture)
	{
		return;
	}
	Picture->Time = Time;
	Picture->Duration = FrameDuration;
	Picture->Generation = Generation;
	std::lock_guard<std::mutex> Lock(State.Mutex);
	if (Generation != State.Generation)
	{
		return;
	}
	State.Video.Push(std::move(Picture));
	State.VideoEnd = std::max(State.VideoEnd, Time + FrameDuration);
	bPushedPicture = true;
	State.DataReady.notify_all();
}

void FFmpegWorker::CompleteSeek()
{
	bSeeking = false;
	bHasCandidate = false;
	av_frame_unref(SeekCandidate);
	std::lock_guard<std::mutex> Lock(State.Mutex);
	if (Generation == State.Generation)
	{
		State.Post(EFFmpegEventType::SeekCompleted);
	}
}

void FFmpegWorker::OnVideoFinished()
{
	bVideoEndReported = true;
	if (bSeeking)
	{
		if (bHasCandidate)
		{
			PushPicture(SeekCandidate, CandidateTime);
		}
		CompleteSeek();
	}
	std::lock_guard<std::mutex> Lock(State.Mutex);
	if (Generation == State.Generation)
	{
		State.bVideoFinished = true;
		State.DataReady.notify_all();
	}
}

void FFmpegWorker::HandleAudioFrame()
{
	// What the resampler still holds from earlier frames comes out ahead of this frame's sound.
	const int64_t Held = AudioConverter.GetDelayFrames();
	const int32_t Made = AudioConverter.Convert(Frame, AudioBuffer);
	if (Made <= 0)
	{
		return;
	}
	const int64_t Timestamp = BestTimestamp(Frame);
	const int64_t Start = Timestamp != AV_NOPTS_VALUE ? std::llround(Input.ToMediaTime(Timestamp, Input.GetAudioStream()) * FFmpegAudioRate) - Held : NextAudioFrame;
	PushSound(Start, Made);
}

void FFmpegWorker::PushSound(int64_t StartFrame, int32_t Frames)
{
	const float* Samples = AudioBuffer.data();
	if (StartFrame < AudioFloor)
	{
		const int64_t Skip = std::min<int64_t>(AudioFloor - StartFrame, Frames);
		Samples += Skip * FFmpegAudioChannels;
		Frames -= static_cast<int32_t>(Skip);
		StartFrame += Skip;
	}
	NextAudioFrame = StartFrame + Frames;
	if (Frames <= 0)
	{
		return;
	}
	std::lock_guard<std::mutex> Lock(State.Mutex);
	if (Generation != State.Generation)
	{
		return;
	}
	State.Audio.Push(StartFrame, Samples, Frames);
	State.DataReady.notify_all();
}

void FFmpegWorker::OnAudioFinished()
{
	bAudioEndReported = true;
	const int32_t Made = AudioConverter.Drain(AudioBuffer);
	if (Made > 0)
	{
		PushSound(NextAudioFrame, Made);
	}
	std::lock_guard<std::mutex> Lock(State.Mutex);
	if (Generation == State.Generation)
	{
		State.bAudioFinished = true;
		State.DataReady.notify_all();
	}
}
