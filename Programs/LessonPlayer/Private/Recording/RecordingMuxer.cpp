#include "Recording/RecordingMuxer.h"

#include <algorithm>
#include <mutex>

extern "C"
{
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/dict.h>
#include <libavutil/error.h>
#include <libavutil/log.h>
#include <libavutil/mem.h>
}

std::string RecordingErrorText(int ErrorCode)
{
	char Buffer[AV_ERROR_MAX_STRING_SIZE] = {};
	if (av_strerror(ErrorCode, Buffer, sizeof(Buffer)) < 0)
	{
		return "error " + std::to_string(ErrorCode);
	}
	return Buffer;
}

FRecordingMuxer::~FRecordingMuxer()
{
	Release();
}

void FRecordingMuxer::Release()
{
	if (Format && Format->pb)
	{
		avio_closep(&Format->pb);
	}
	avformat_free_context(Format);
	Format = nullptr;
	av_packet_free(&Packet);
	bHeaderWritten = false;
}

bool FRecordingMuxer::Create(std::string& OutError)
{
	// As the media module does: x264's banner and the muxer's progress notes are not for the
	// viewer; errors still show. The level is process-wide, so it is set once and only lowered.
	static std::once_flag QuietLog;
	std::call_once(QuietLog, [] { av_log_set_level(std::min(av_log_get_level(), AV_LOG_ERROR)); });
	Release();
	// The container is MP4 whatever the file is called: the recorder promises an .mp4.
	const int Result = avformat_alloc_output_context2(&Format, nullptr, "mp4", nullptr);
	Packet = av_packet_alloc();
	if (Result < 0 || !Format || !Packet)
	{
		OutError = Result < 0 ? "no MP4 muxer in this libavformat: " + RecordingErrorText(Result) : "out of memory";
		Release();
		return false;
	}
	return true;
}

bool FRecordingMuxer::WantsGlobalHeader() const
{
	return Format && (Format->oformat->flags & AVFMT_GLOBALHEADER) != 0;
}

AVStream* FRecordingMuxer::AddStream(const AVCodecContext* Codec, std::string& OutError)
{
	AVStream* Stream = Format ? avformat_new_stream(Format, nullptr) : nullptr;
	if (!Stream)
	{
		OutError = "cannot add a stream to the MP4 muxer";
		return nullptr;
	}
	const int Result = avcodec_parameters_from_context(Stream->codecpar, Codec);
	if (Result < 0)
	{
		OutError = "cannot describe the stream: " + RecordingErrorText(Result);
		return nullptr;
	}
	// A hint only: the muxer picks its own time base in avformat_write_header.
	Stream->time_base = Codec->time_base;
	if (Codec->codec_type == AVMEDIA_TYPE_VIDEO)
	{
		Stream->avg_frame_rate = Codec->framerate;
		Stream->r_frame_rate = Codec->framerate;
	}
	return Stream;
}

bool FRecordingMuxer::Begin(const std::string& Path, std::string& OutError)
{
	// "file:" keeps a colon in the path from being read as a protocol name. The muxer opens the
	// file again by its url for +faststart's second pass.
	const std::string Url = "file:" + Path;
	av_freep(&Format->url);
	Format->url = av_strdup(Url.c_str());
	int Result = Format->url ? avio_open(&Format->pb, Url.c_str(), AVIO_FLAG_WRITE) : AVERROR(ENOMEM);
	if (Result < 0)
	{
		OutError = RecordingErrorText(Result);
		return false;
	}
	AVDictionary* Options = nullptr;
	// The index goes to the front at the end, so a browser or player can start before the whole file is read.
	av_dict_set(&Options, "movflags", "+faststart", 0);
	Result = avformat_write_header(Format, &Options);
	av_dict_free(&Options);
	if (Result < 0)
	{
		OutError = "cannot write the MP4 header: " + RecordingErrorText(Result);
		return false;
	}
	bHeaderWritten = true;
	return true;
}

bool FRecordingMuxer::Encode(AVCodecContext* Codec, AVStream* Stream, const AVFrame* Frame, std::string& OutError)
{
	int Result = avcodec_send_frame(Codec, Frame);
	if (Result < 0 && !(Frame == nullptr && Result == AVERROR_EOF))
	{
		OutError = std::string(Codec->codec->name) + " refused a frame: " + RecordingErrorText(Result);
		return false;
	}
	for (;;)
	{
		Result = avcodec_receive_packet(Codec, Packet);
		if (Result == AVERROR(EAGAIN) || Result == AVERROR_EOF)
		{
			return true;
		}
		if (Result < 0)
		{
			OutError = std::string(Codec->codec->name) + " failed: " + RecordingErrorText(Result);
			return false;
		}
		av_packet_rescale_ts(Packet, Codec->time_base, Stream->time_base);
		Packet->stream_index = Stream->index;
		// Takes the packet's data over (the packet is reset), interleaving the two streams by time.
		Result = av_interleaved_write_frame(Format, Packet);
		if (Result < 0)
		{
			OutError = "write failed: " + RecordingErrorText(Result);
			return false;
		}
	}
}

bool FRecordingMuxer::End(std::string& OutError)
{
	if (!bHeaderWritten)
	{
		OutError = "the file was never started";
		return false;
	}
	bHeaderWritten = false;
	int Result = av_write_trailer(Format);
	if (Result < 0)
	{
		OutError = "cannot finish the file: " + RecordingErrorText(Result);
		Release();
		return false;
	}
	Result = avio_closep(&Format->pb);
	Release();
	if (Result < 0)
	{
		OutError = "cannot close the file: " + RecordingErrorText(Result);
		return false;
	}
	return true;
}
