#include "FFmpegAudioConverter.h"

#include "FFmpegAudioQueue.h"

#include <algorithm>

extern "C"
{
#include <libavutil/channel_layout.h>
#include <libavutil/frame.h>
#include <libavutil/samplefmt.h>
#include <libswresample/swresample.h>
}

FFmpegAudioConverter::~FFmpegAudioConverter()
{
	swr_free(&Swr);
}

int32_t FFmpegAudioConverter::Convert(const AVFrame* Frame, std::vector<float>& Out)
{
	Out.clear();
	const int32_t Key[3] = {Frame->sample_rate, Frame->format, Frame->ch_layout.nb_channels};
	if (!Swr || !std::equal(Key, Key + 3, SourceKey))
	{
		swr_free(&Swr);
		SourceKey[0] = -1;
		AVChannelLayout InLayout = {};
		// A source that names no speaker positions gets the usual ones for its channel count.
		if (Frame->ch_layout.order == AV_CHANNEL_ORDER_UNSPEC || av_channel_layout_copy(&InLayout, &Frame->ch_layout) < 0)
		{
			av_channel_layout_default(&InLayout, Frame->ch_layout.nb_channels);
		}
		AVChannelLayout OutLayout = AV_CHANNEL_LAYOUT_STEREO;
		int Result = swr_alloc_set_opts2(&Swr, &OutLayout, AV_SAMPLE_FMT_FLT, FFmpegAudioRate, &InLayout, static_cast<AVSampleFormat>(Frame->format),
			Frame->sample_rate, 0, nullptr);
		av_channel_layout_uninit(&InLayout);
		if (Result >= 0 && Frame->ch_layout.nb_channels == 1)
		{
			// A lesson recorded in mono should sound as loud on each side as it was recorded,
			// not 3 dB down as the default pan law would make it.
			const double BothSides[2] = {1.0, 1.0};
			Result = swr_set_matrix(Swr, BothSides, 1);
		}
		if (Result >= 0)
		{
			Result = swr_init(Swr);
		}
		if (Result < 0)
		{
			swr_free(&Swr);
			return -1;
		}
		std::copy(Key, Key + 3, SourceKey);
	}
	const int Capacity = swr_get_out_samples(Swr, Frame->nb_samples);
	if (Capacity <= 0)
	{
		return 0;
	}
	Out.resize(static_cast<size_t>(Capacity) * FFmpegAudioChannels);
	uint8_t* OutPlanes[1] = {reinterpret_cast<uint8_t*>(Out.data())};
	const int Made = swr_convert(Swr, OutPlanes, Capacity, const_cast<const uint8_t**>(Frame->extended_data), Frame->nb_samples);
	Out.resize(static_cast<size_t>(std::max(Made, 0)) * FFmpegAudioChannels);
	return Made < 0 ? -1 : Made;
}

int64_t FFmpegAudioConverter::GetDelayFrames() const
{
	return Swr ? swr_get_delay(Swr, FFmpegAudioRate) : 0;
}

int32_t FFmpegAudioConverter::Drain(std::vector<float>& Out)
{
	Out.clear();
	const int Capacity = Swr ? swr_get_out_samples(Swr, 0) : 0;
	if (Capacity <= 0)
	{
		return 0;
	}
	Out.resize(static_cast<size_t>(Capacity) * FFmpegAudioChannels);
	uint8_t* OutPlanes[1] = {reinterpret_cast<uint8_t*>(Out.data())};
	const int Made = swr_convert(Swr, OutPlanes, Capacity, nullptr, 0);
	Out.resize(static_cast<size_t>(std::max(Made, 0)) * FFmpegAudioChannels);
	return std::max(Made, 0);
}

void FFmpegAudioConverter::Reset()
{
	swr_free(&Swr);
	SourceKey[0] = -1;
}
