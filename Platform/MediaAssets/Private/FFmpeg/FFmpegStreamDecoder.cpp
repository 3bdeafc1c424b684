#include "FFmpegStreamDecoder.h"

#include "FFmpegError.h"

extern "C"
{
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
}

namespace
{
	// A stream whose decoder fails this many times in a row is treated as ended, so a hopeless
	// stream cannot keep the worker busy for ever.
	constexpr int MaxFailuresInARow = 64;
}

FFmpegStreamDecoder::~FFmpegStreamDecoder()
{
	ClearBacklog();
	avcodec_free_context(&Codec);
}

bool FFmpegStreamDecoder::Open(AVStream* InStream, int InThreads, bool bInFreshAfterFlush, std::string& OutError)
{
	Stream = InStream;
	Threads = InThreads;
	bFreshAfterFlush = bInFreshAfterFlush;
	const AVCodec* Decoder = avcodec_find_decoder(Stream->codecpar->codec_id);
	if (!Decoder)
	{
		OutError = std::string("no decoder for ") + avcodec_get_name(Stream->codecpar->codec_id);
		return false;
	}
	Codec = avcodec_alloc_context3(Decoder);
	if (!Codec)
	{
		OutError = "out of memory";
		return false;
	}
	int Result = avcodec_parameters_to_context(Codec, Stream->codecpar);
	if (Result >= 0)
	{
		Codec->pkt_timebase = Stream->time_base;
		Codec->thread_count = Threads;
		Codec->thread_type = FF_THREAD_FRAME | FF_THREAD_SLICE;
		Result = avcodec_open2(Codec, Decoder, nullptr);
	}
	if (Result < 0)
	{
		OutError = std::string("cannot open the ") + Decoder->name + " decoder: " + FFmpegErrorText(Result);
		avcodec_free_context(&Codec);
		return false;
	}
	return true;
}

void FFmpegStreamDecoder::QueuePacket(AVPacket* Packet)
{
	AVPacket* Held = av_packet_alloc();
	if (!Held)
	{
		av_packet_unref(Packet);
		return;
	}
	av_packet_move_ref(Held, Packet);
	BacklogBytes += static_cast<size_t>(Held->size);
	Backlog.push_back(Held);
	bNeedsInput = false;
}

FFmpegStreamDecoder::EStep FFmpegStreamDecoder::Step(AVFrame* OutFrame)
{
	if (bFinished)
	{
		return EStep::Finished;
	}
	const int Received = avcodec_receive_frame(Codec, OutFrame);
	if (Received >= 0)
	{
		FailuresInARow = 0;
		return EStep::Frame;
	}
	if (Received == AVERROR_EOF)
	{
		bFinished = true;
		return EStep::Finished;
	}
	if (Received != AVERROR(EAGAIN))
	{
		// A frame that failed to decode; the next one may be fine.
		++Skipped;
		if (++FailuresInARow >= MaxFailuresInARow)
		{
			bFinished = true;
			return EStep::Finished;
		}
		return EStep::Progress;
	}

	if (!Backlog.empty())
	{
		AVPacket* Packet = Backlog.front();
		const int Sent = avcodec_send_packet(Codec, Packet);
		if (Sent == AVERROR(EAGAIN))
		{
			// Cannot happen right after the decoder asked for input; keep the packet for later.
			return EStep::Progress;
		}
		Backlog.pop_front();
		BacklogBytes -= static_cast<size_t>(Packet->size);
		av_packet_free(&Packet);
		if (Sent < 0)
		{
			// A broken packet is skipped; decoding resumes with the next one.
			++Skipped;
			if (++FailuresInARow >= MaxFailuresInARow)
			{
				bFinished = true;
				return EStep::Finished;
			}
		}
		return EStep::Progress;
	}
	if (bEndQueued && !bEndSent)
	{
		avcodec_send_packet(Codec, nullptr);
		bEndSent = true;
		return EStep::Progress;
	}
	if (bEndSent)
	{
		// A decoder that drained without saying EOF has nothing more to give.
		bFinished = true;
		return EStep::Finished;
	}
	bNeedsInput = true;
	return EStep::NeedInput;
}

void FFmpegStreamDecoder::Flush()
{
	ClearBacklog();
	if (Codec && bFreshAfterFlush)
	{
		avcodec_free_context(&Codec);
		std::string Ignored;
		// The same parameters opened fine before; should it fail now, the stream just ends.
		if (!Open(Stream, Threads, true, Ignored))
		{
			bFinished = true;
			return;
		}
	}
	else if (Codec)
	{
		avcodec_flush_buffers(Codec);
	}
	bEndQueued = false;
	bEndSent = false;
	bFinished = false;
	bNeedsInput = false;
	FailuresInARow = 0;
}

void FFmpegStreamDecoder::ClearBacklog()
{
	for (AVPacket* Packet : Backlog)
	{
		av_packet_free(&Packet);
	}
	Backlog.clear();
	BacklogBytes = 0;
}
