#include "Recording/RecordingAudioStream.h"

#include "Recording/RecordingMuxer.h"

#include <algorithm>

extern "C"
{
#include <libavcodec/avcodec.h>
#include <libavutil/audio_fifo.h>
#include <libavutil/channel_layout.h>
#include <libavutil/samplefmt.h>
#include <libswresample/swresample.h>
}

namespace
{
	// Plenty for a teacher's voice and background music in stereo.
	constexpr int64_t BitsPerSecond = 128000;
}

FRecordingAudioStream::~FRecordingAudioStream()
{
	av_audio_fifo_free(Fifo);
	swr_free(&Converter);
	av_frame_free(&Block);
	avcodec_free_context(&Codec);
}

bool FRecordingAudioStream::Open(FRecordingMuxer& InMuxer, std::string& OutError)
{
	Muxer = &InMuxer;
	const AVCodec* Encoder = avcodec_find_encoder_by_name("aac");
	if (!Encoder)
	{
		OutError = "this libavcodec has no aac encoder";
		return false;
	}
	Codec = avcodec_alloc_context3(Encoder);
	Block = av_frame_alloc();
	if (!Codec || !Block)
	{
		OutError = "out of memory";
		return false;
	}
	// Not const: this libswresample's swr_alloc_set_opts2 takes the layouts by plain pointer.
	AVChannelLayout Stereo = AV_CHANNEL_LAYOUT_STEREO;
	Codec->sample_fmt = AV_SAMPLE_FMT_FLTP;
	Codec->sample_rate = SampleRate;
	Codec->bit_rate = BitsPerSecond;
	Codec->time_base = AVRational{1, SampleRate};
	av_channel_layout_copy(&Codec->ch_layout, &Stereo);
	if (Muxer->WantsGlobalHeader())
	{
		Codec->flags |= AV_CODEC_FLAG_GLOBAL_HEADER;
	}
	int Result = avcodec_open2(Codec, Encoder, nullptr);
	if (Result < 0)
	{
		OutError = "cannot open the aac encoder: " + RecordingErrorText(Result);
		return false;
	}
	bSmallLastBlock = (Encoder->capabilities & AV_CODEC_CAP_SMALL_LAST_FRAME) != 0;
	Stream = Muxer->AddStream(Codec, OutError);
	if (!Stream)
	{
		return false;
	}
	Block->format = Codec->sample_fmt;
	Block->sample_rate = SampleRate;
	Block->nb_samples = Codec->frame_size;
	av_channel_layout_copy(&Block->ch_layout, &Stereo);
	Result = av_frame_get_buffer(Block, 0);
	Fifo = av_audio_fifo_alloc(AV_SAMPLE_FMT_FLTP, 2, Codec->frame_size * 4);
	if (Result >= 0 && Fifo)
	{
		Result = swr_alloc_set_opts2(&Converter, &Stereo, AV_SAMPLE_FMT_FLTP, SampleRate, &Stereo, AV_SAMPLE_FMT_FLT, SampleRate, 0, nullptr);
		Result = Result < 0 ? Result : swr_init(Converter);
	}
	if (Result < 0 || !Fifo)
	{
		OutError = "cannot prepare the sound: " + (Fifo ? RecordingErrorText(Result) : std::string("out of memory"));
		return false;
	}
	return true;
}

bool FRecordingAudioStream::Push(const float* Interleaved, int Frames, std::string& OutError)
{
	if (!Interleaved || Frames <= 0)
	{
		return true;
	}
	for (std::vector<float>& Plane : Planes)
	{
		Plane.resize(static_cast<size_t>(Frames));
	}
	uint8_t* Out[2] = {reinterpret_cast<uint8_t*>(Planes[0].data()), reinterpret_cast<uint8_t*>(Planes[1].data())};
	const uint8_t* In[1] = {reinterpret_cast<const uint8_t*>(Interleaved)};
	const int Made = swr_convert(Converter, Out, Frames, In, Frames);
	if (Made < 0)
	{
		OutError = "cannot convert the sound: " + RecordingErrorText(Made);
		return false;
	}
	if (av_audio_fifo_write(Fifo, reinterpret_cast<void**>(Out), Made) < Made)
	{
		OutError = "out of memory for the sound";
		return false;
	}
	return true;
}

bool FRecordingAudioStream::EncodeBlock(int Count, std::string& OutError)
{
	Block->nb_samples = Codec->frame_size;
	const int Result = av_frame_make_writable(Block);
	if (Result < 0)
	{
		OutError = "cannot allocate sound: " + RecordingErrorText(Result);
		return false;
	}
	const int Read = av_audio_fifo_read(Fifo, reinterpret_cast<void**>(Block->data), Count);
	if (Read <= 0)
	{
		OutError = "the sound queue ran dry";
		return false;
	}
	if (Read < Codec->frame_size)
	{
		if (bSmallLastBlock)
		{
			Block->nb_samples = Read;
		}
		else
		{
			// An encoder without short blocks gets silence after the end; the track runs a block long.
			av_samples_set_silence(Block->data, Read, Codec->frame_size - Read, 2, AV_SAMPLE_FMT_FLTP);
		}
	}
	Block->pts = SamplesEncoded;
	SamplesEncoded += Read;
	return Muxer->Encode(Codec, Stream, Block, OutError);
}

bool FRecordingAudioStream::EncodeUpTo(int64_t LimitSamples, std::string& OutError)
{
	const int Size = Codec->frame_size;
	while (av_audio_fifo_size(Fifo) >= Size && SamplesEncoded + Size <= LimitSamples)
	{
		if (!EncodeBlock(Size, OutError))
		{
			return false;
		}
	}
	return true;
}

bool FRecordingAudioStream::Finish(int64_t TotalSamples, std::string& OutError)
{
	int64_t Missing = TotalSamples - SamplesEncoded - av_audio_fifo_size(Fifo);
	if (Missing > 0)
	{
		// The picture ran past the sound (or no sound came): the rest of the track is silence.
		const int Chunk = Codec->frame_size;
		for (std::vector<float>& Plane : Planes)
		{
			Plane.assign(static_cast<size_t>(Chunk), 0.0f);
		}
		void* Silence[2] = {Planes[0].data(), Planes[1].data()};
		while (Missing > 0)
		{
			const int Count = static_cast<int>(std::min<int64_t>(Missing, Chunk));
			if (av_audio_fifo_write(Fifo, Silence, Count) < Count)
			{
				OutError = "out of memory for the sound";
				return false;
			}
			Missing -= Count;
		}
	}
	while (SamplesEncoded < TotalSamples)
	{
		const int Count = static_cast<int>(std::min<int64_t>(TotalSamples - SamplesEncoded, Codec->frame_size));
		if (!EncodeBlock(Count, OutError))
		{
			return false;
		}
	}
	// Sound past the picture's end is dropped.
	av_audio_fifo_reset(Fifo);
	return Muxer->Encode(Codec, Stream, nullptr, OutError);
}
