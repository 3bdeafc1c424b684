#include "FFmpegWorker.h"

#include "FFmpegError.h"
#include "FFmpegSharedState.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>

extern "C"
{
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
}

namespace
{
	// Compressed data demuxed ahead while the sound asks for more and the picture queue is full.
	// Beyond this the worker waits for the picture to be taken.
	constexpr size_t MaxBacklogBytes = 32u << 20;
	// Broken packets in a row after which the input counts as ended.
	constexpr int MaxReadFailuresInARow = 32;
	// How long an idle worker sleeps before looking again on its own. Every change that frees
	// room (a clock step, a picture or sound taken, a seek, a close) also wakes it at once.
	constexpr std::chrono::milliseconds IdleWait(20);
}

FFmpegWorker::FFmpegWorker(FFmpegSharedState& InState, FFmpegLocation InLocation, FFmpegOpenOptions InOptions, std::string InMediaName)
	: State(InState)
	, Location(std::move(InLocation))
	, Options(std::move(InOptions))
	, MediaName(std::move(InMediaName))
	, Frame(av_frame_alloc())
	, Packet(av_packet_alloc())
	, SeekCandidate(av_frame_alloc())
{
}

FFmpegWorker::~FFmpegWorker()
{
	av_frame_free(&Frame);
	av_frame_free(&SeekCandidate);
	av_packet_free(&Packet);
}

void FFmpegWorker::Run()
{
	FFmpegMediaInfo Info;
	std::string Error;
	bool bRunning = OpenMedia(Info, Error);
	if (!bRunning)
	{
		std::lock_guard<std::mutex> Lock(State.Mutex);
		State.Post(EFFmpegEventType::OpenFailed, "Cannot open '" + MediaName + "': " + Error);
	}
	while (bRunning && !State.bAbort.load())
	{
		uint32_t Requested = 0;
		double Target = 0.0;
		uint64_t SeenWakes = 0;
		{
			std::lock_guard<std::mutex> Lock(State.Mutex);
			Requested = State.Generation;
			Target = State.SeekTarget;
			SeenWakes = State.WakeCount;
		}
		if (Requested != Generation)
		{
			ApplySeek(Requested, Target);
		}
		const bool bVideoWorked = StepVideo();
		const bool bAudioWorked = StepAudio();
		const bool bWorked = bVideoWorked || bAudioWorked || ReadPacket();

		if (!bOpenedPosted && (bPushedPicture || VideoDecoder.IsFinished()))
		{
			// Opened waits for the first picture, so a file whose headers read but whose picture
			// does not decode fails to open instead of playing black.
			std::lock_guard<std::mutex> Lock(State.Mutex);
			if (bPushedPicture)
			{
				FFmpegEvent Event;
				Event.Type = EFFmpegEventType::Opened;
				Event.Info = Info;
				State.Events.push_back(Event);
				bOpenedPosted = true;
				if (!OpenFailureCause.empty())
				{
					// Something failed while the first picture was being found, yet it came.
					State.Post(EFFmpegEventType::Error, "'" + MediaName + "': " + OpenFailureCause);
				}
			}
			else
			{
				const std::string Cause = OpenFailureCause.empty() ? std::string("no picture could be decoded") : OpenFailureCause;
				State.Post(EFFmpegEventType::OpenFailed, "Cannot open '" + MediaName + "': " + Cause);
				bRunning = false;
			}
		}
		if (bRunning && !bWorked)
		{
			WaitForWork(SeenWakes);
		}
	}
	std::lock_guard<std::mutex> Lock(State.Mutex);
	State.bWorkerDone = true;
	State.DataReady.notify_all();
}

bool FFmpegWorker::OpenMedia(FFmpegMediaInfo& OutInfo, std::string& OutError)
{
	if (!Frame || !Packet || !SeekCandidate)
	{
		OutError = "out of memory";
		return false;
	}
	if (!Input.Open(Location, Options.NetworkTimeoutSeconds, State.bAbort, OutError))
	{
		return false;
	}
	AVStream* Video = Input.GetVideoStream();
	if (Video->codecpar->width <= 0 || Video->codecpar->height <= 0)
	{
		OutError = "the video stream has no picture size";
		return false;
	}
	if (!VideoDecoder.Open(Video, std::max(Options.DecoderThreads, 0), false, OutError))
	{
		return false;
	}
	std::string AudioError;
	if (Input.GetAudioStream() && !AudioDecoder.Open(Input.GetAudioStream(), 1, true, AudioError))
	{
		// Sound that cannot decode is no reason to refuse the picture.
		Input.DropAudioStream();
	}

	int32_t Width = 0;
	int32_t Height = 0;
	FFmpegVideoConverter::FitWithin(Video->codecpar->width, Video->codecpar->height, Options.MaxWidth, Options.MaxHeight, Width, Height);
	// Enough pictures to fill the queue while the owner still holds the one on screen.
	VideoConverter.SetOutputSize(Width, Height, std::max(Options.VideoQueueFrames, 2) + 3);
	const double Rate = Input.GetFrameRate();
	FrameDuration = 1.0 / Rate;

	OutInfo.Duration = Input.GetDuration();
	OutInfo.Width = Width;
	OutInfo.Height = Height;
	OutInfo.FrameRate = Rate;
	OutInfo.bHasAudio = AudioDecoder.IsOpen();
	OutInfo.bSeekable = Input.IsSeekable();

	std::lock_guard<std::mutex> Lock(State.Mutex);
	State.bHasAudio = OutInfo.bHasAudio;
	return true;
}

bool FFmpegWorker::StepVideo()
{
	return StepStream(VideoDecoder, &FFmpegSharedState::HasVideoRoom, bVideoEndReported, &FFmpegWorker::HandleVideoFrame, &FFmpegWorker::OnVideoFinished);
}

bool FFmpegWorker::StepAudio()
{
	return AudioDecoder.IsOpen() && StepStream(AudioDecoder, &FFmpegSharedState::HasAudioRoom, bAudioEndReported, &FFmpegWorker::HandleAudioFrame, &FFmpegWorker::OnAudioFinished);
}

bool FFmpegWorker::StepStream(FFmpegStreamDecoder& Decoder, bool (FFmpegSharedState::*HasRoom)(), bool bEndReported, void (FFmpegWorker::*HandleFrame)(), void (FFmpegWorker::*OnFinished)())
{
	{
		std::lock_guard<std::mutex> Lock(State.Mutex);
		if (!(State.*HasRoom)())
		{
			return false;
		}
	}
	switch (Decoder.Step(Frame))
	{
	case FFmpegStreamDecoder::EStep::Frame:
		(this->*HandleFrame)();
		av_frame_unref(Frame);
		return true;
	case FFmpegStreamDecoder::EStep::Progress:
		return true;
	case FFmpegStreamDecoder::EStep::NeedInput:
		return false;
	case FFmpegStreamDecoder::EStep::Finished:
		if (bEndReported)
		{
			return false;
		}
		(this->*OnFinished)();
		return true;
	}
	return false;
}

bool FFmpegWorker::ReadPacket()
{
	if (bInputEnded || !(VideoDecoder.NeedsInput() || AudioDecoder.NeedsInput()))
	{
		return false;
	}
	// The cap holds only while the sound is what asks: the picture must always get its next
	// packet, or a video with pictures far apart (a slide held for minutes) would stall.
	if (!VideoDecoder.NeedsInput() && VideoDecoder.GetBacklogBytes() + AudioDecoder.GetBacklogBytes() > MaxBacklogBytes)
	{
		return false;
	}
	const int Result = Input.ReadPacket(Packet);
	if (Result == AVERROR(EAGAIN) || (Result < 0 && State.bAbort.load()))
	{
		return false;
	}
	if (Result < 0)
	{
		if (Result == AVERROR_INVALIDDATA && ++ReadFailuresInARow < MaxReadFailuresInARow)
		{
			return true;
		}
		if (Result != AVERROR_EOF)
		{
			PostError("read failed: " + FFmpegErrorText(Result));
		}
		bInputEnded = true;
		VideoDecoder.QueueEnd();
		AudioDecoder.QueueEnd();
		return true;
	}
	ReadFailuresInARow = 0;
	if (Packet->stream_index == Input.GetVideoStream()->index)
	{
		VideoDecoder.QueuePacket(Packet);
	}
	else if (Input.GetAudioStream() && Packet->stream_index == Input.GetAudioStream()->index)
	{
		AudioDecoder.QueuePacket(Packet);
	}
	av_packet_unref(Packet);
	return true;
}

void FFmpegWorker::ApplySeek(uint32_t ToGeneration, double Target)
{
	Generation = ToGeneration;
	std::string Error;
	if (!Input.Seek(Target, Error))
	{
		// Decoding goes on from where it was; pictures before the target are still held back.
		char Where[48];
		std::snprintf(Where, sizeof(Where), "seek to %.3f s failed: ", Target);
		PostError(Where + Error);
	}
	VideoDecoder.Flush();
	AudioDecoder.Flush();
	AudioConverter.Reset();
	bInputEnded = false;
	ReadFailuresInARow = 0;
	bVideoEndReported = false;
	bAudioEndReported = false;
	bSeeking = true;
	SeekTarget = Target;
	bHasCandidate = false;
	av_frame_unref(SeekCandidate);
	AudioFloor = std::llround(Target * FFmpegAudioRate);
	NextAudioFrame = AudioFloor;
	LastVideoTime = Target;
}

void FFmpegWorker::WaitForWork(uint64_t SeenWakes)
{
	std::unique_lock<std::mutex> Lock(State.Mutex);
	State.WorkerWake.wait_for(Lock, IdleWait, [&] { return State.bAbort.load() || State.WakeCount != SeenWakes; });
}

void FFmpegWorker::PostError(const std::string& What)
{
	if (!bOpenedPosted)
	{
		if (OpenFailureCause.empty())
		{
			OpenFailureCause = What;
		}
		return;
	}
	std::lock_guard<std::mutex> Lock(State.Mutex);
	State.Post(EFFmpegEventType::Error, "'" + MediaName + "': " + What);
}
