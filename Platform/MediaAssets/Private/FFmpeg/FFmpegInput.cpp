#include "FFmpegInput.h"

#include "FFmpegError.h"

#include <cmath>
#include <cstdio>

extern "C"
{
#include <libavformat/avformat.h>
#include <libavutil/dict.h>
}

FFmpegInput::~FFmpegInput()
{
	if (Format)
	{
		avformat_close_input(&Format);
	}
}

int FFmpegInput::InterruptCallback(void* Opaque)
{
	// libavformat calls this from inside its blocking reads on the worker thread, so the deadline
	// needs no lock; only the abort flag comes from another thread.
	const FFmpegInput* Self = static_cast<const FFmpegInput*>(Opaque);
	if (Self->AbortFlag && Self->AbortFlag->load(std::memory_order_relaxed))
	{
		return 1;
	}
	return Self->bDeadlineArmed && std::chrono::steady_clock::now() > Self->Deadline ? 1 : 0;
}

std::string FFmpegInput::InterruptReason() const
{
	if (AbortFlag && AbortFlag->load())
	{
		return "closed while opening";
	}
	char Text[64];
	std::snprintf(Text, sizeof(Text), "no answer within %g s", TimeoutSeconds);
	return Text;
}

bool FFmpegInput::Open(const FFmpegLocation& Location, double InTimeoutSeconds, const std::atomic<bool>& bAbort, std::string& OutError)
{
	AbortFlag = &bAbort;
	TimeoutSeconds = InTimeoutSeconds;
	Format = avformat_alloc_context();
	if (!Format)
	{
		OutError = "out of memory";
		return false;
	}
	Format->interrupt_callback.callback = &FFmpegInput::InterruptCallback;
	Format->interrupt_callback.opaque = this;

	AVDictionary* Options = nullptr;
	// Every nested open (a redirect, a playlist's segments, a key) is held to the same list.
	av_dict_set(&Options, "protocol_whitelist", Location.ProtocolWhitelist.c_str(), 0);
	if (Location.bNetwork)
	{
		// A read that stalls after the open fails after the same time instead of hanging.
		av_dict_set_int(&Options, "rw_timeout", static_cast<int64_t>(InTimeoutSeconds * 1e6), 0);
		bDeadlineArmed = true;
		Deadline = std::chrono::steady_clock::now() + std::chrono::microseconds(static_cast<int64_t>(InTimeoutSeconds * 1e6));
	}
	int Result = avformat_open_input(&Format, Location.Address.c_str(), nullptr, &Options);
	av_dict_free(&Options);
	if (Result >= 0)
	{
		Result = avformat_find_stream_info(Format, nullptr);
		if (Result < 0)
		{
			OutError = Result == AVERROR_EXIT ? InterruptReason() : "cannot read the streams: " + FFmpegErrorText(Result);
			return false;
		}
	}
	else
	{
		// avformat_open_input has freed the context.
		OutError = Result == AVERROR_EXIT ? InterruptReason() : FFmpegErrorText(Result);
		return false;
	}
	bDeadlineArmed = false;

	const int VideoIndex = av_find_best_stream(Format, AVMEDIA_TYPE_VIDEO, -1, -1, nullptr, 0);
	// Cover art of a song is a video stream of one picture, not a video.
	if (VideoIndex < 0 || (Format->streams[VideoIndex]->disposition & AV_DISPOSITION_ATTACHED_PIC))
	{
		OutError = "no video stream";
		return false;
	}
	VideoStream = Format->streams[VideoIndex];
	const int AudioIndex = av_find_best_stream(Format, AVMEDIA_TYPE_AUDIO, -1, VideoIndex, nullptr, 0);
	AudioStream = AudioIndex >= 0 ? Format->streams[AudioIndex] : nullptr;
	for (unsigned Index = 0; Index < Format->nb_streams; ++Index)
	{
		// The demuxer then skips packets of streams nobody decodes.
		AVStream* Stream = Format->streams[Index];
		Stream->discard = (Stream == VideoStream || Stream == AudioStream) ? AVDISCARD_DEFAULT : AVDISCARD_ALL;
	}

	Origin = Format->start_time != AV_NOPTS_VALUE ? static_cast<double>(Format->start_time) / AV_TIME_BASE : 0.0;
	Duration = Format->duration != AV_NOPTS_VALUE && Format->duration > 0 ? static_cast<double>(Format->duration) / AV_TIME_BASE : 0.0;
	return true;
}

int FFmpegInput::ReadPacket(AVPacket* Packet)
{
	return av_read_frame(Format, Packet);
}

bool FFmpegInput::Seek(double Seconds, std::string& OutError)
{
	const int64_t Target = static_cast<int64_t>(std::llround((Seconds + Origin) * AV_TIME_BASE));
	// The latest keyframe not after the target; the worker decodes forward from there.
	int Result = avformat_seek_file(Format, -1, INT64_MIN, Target, Target, 0);
	if (Result < 0)
	{
		Result = av_seek_frame(Format, -1, Target, AVSEEK_FLAG_BACKWARD);
	}
	if (Result < 0)
	{
		OutError = FFmpegErrorText(Result);
		return false;
	}
	return true;
}

double FFmpegInput::ToMediaTime(int64_t Timestamp, const AVStream* Stream) const
{
	return static_cast<double>(Timestamp) * av_q2d(Stream->time_base) - Origin;
}

bool FFmpegInput::IsSeekable() const
{
	return Format && Format->pb && (Format->pb->seekable & AVIO_SEEKABLE_NORMAL) && Duration > 0.0;
}

double FFmpegInput::GetFrameRate() const
{
	const AVRational Rate = av_guess_frame_rate(Format, VideoStream, nullptr);
	const double Value = Rate.num > 0 && Rate.den > 0 ? av_q2d(Rate) : 0.0;
	// Beyond these bounds the rate is a timebase, not a frame rate.
	return Value >= 1.0 && Value <= 240.0 ? Value : 30.0;
}

void FFmpegInput::DropAudioStream()
{
	if (AudioStream)
	{
		AudioStream->discard = AVDISCARD_ALL;
		AudioStream = nullptr;
	}
}
