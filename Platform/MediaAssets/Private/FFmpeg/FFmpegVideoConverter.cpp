#include "FFmpegVideoConverter.h"

#include <algorithm>
#include <cmath>

extern "C"
{
#include <libavutil/frame.h>
#include <libavutil/pixdesc.h>
#include <libswscale/swscale.h>
}

namespace
{
	// libswscale's vector code may touch a few bytes past the last row's end.
	constexpr size_t RowSlack = 64;

	bool IsFullRange(const AVFrame* Frame)
	{
		if (Frame->color_range == AVCOL_RANGE_JPEG)
		{
			return true;
		}
		const AVPixelFormat Format = static_cast<AVPixelFormat>(Frame->format);
		return Format == AV_PIX_FMT_YUVJ420P || Format == AV_PIX_FMT_YUVJ422P || Format == AV_PIX_FMT_YUVJ444P || Format == AV_PIX_FMT_YUVJ440P;
	}

	int ColourMatrix(const AVFrame* Frame)
	{
		if (Frame->colorspace != AVCOL_SPC_UNSPECIFIED && Frame->colorspace != AVCOL_SPC_RGB)
		{
			return Frame->colorspace;
		}
		// Untagged video is taken as HD (BT.709) from 720 lines up, else SD (BT.601), as players do.
		return Frame->height >= 720 ? SWS_CS_ITU709 : SWS_CS_ITU601;
	}
}

FFmpegVideoConverter::~FFmpegVideoConverter()
{
	sws_freeContext(Sws);
}

void FFmpegVideoConverter::SetOutputSize(int32_t Width, int32_t Height, int32_t PoolSize)
{
	OutWidth = Width;
	OutHeight = Height;
	SourceKey[0] = -1;
	Pool.clear();
	PoolLimit = PoolSize;
}

std::shared_ptr<FFmpegVideoFrame> FFmpegVideoConverter::TakeFreePicture()
{
	for (const std::shared_ptr<FFmpegVideoFrame>& Picture : Pool)
	{
		// Only the pool holds it, and nobody can copy a pointer that only the pool holds, so
		// the count cannot rise behind our back.
		if (Picture.use_count() == 1)
		{
			return Picture;
		}
	}
	auto Picture = std::make_shared<FFmpegVideoFrame>();
	Picture->Width = OutWidth;
	Picture->Height = OutHeight;
	Picture->Stride = OutWidth * 4;
	Picture->Pixels.resize(static_cast<size_t>(Picture->Stride) * OutHeight + RowSlack);
	if (static_cast<int32_t>(Pool.size()) < PoolLimit)
	{
		Pool.push_back(Picture);
	}
	return Picture;
}

void FFmpegVideoConverter::FitWithin(int32_t Width, int32_t Height, int32_t MaxWidth, int32_t MaxHeight, int32_t& OutWidth, int32_t& OutHeight)
{
	double Scale = 1.0;
	if (MaxWidth > 0 && Width > MaxWidth)
	{
		Scale = std::min(Scale, static_cast<double>(MaxWidth) / Width);
	}
	if (MaxHeight > 0 && Height > MaxHeight)
	{
		Scale = std::min(Scale, static_cast<double>(MaxHeight) / Height);
	}
	OutWidth = std::max(1, static_cast<int32_t>(std::lround(Width * Scale)));
	OutHeight = std::max(1, static_cast<int32_t>(std::lround(Height * Scale)));
}

bool FFmpegVideoConverter::Prepare(const AVFrame* Frame)
{
	const int32_t Key[5] = {Frame->width, Frame->height, Frame->format, ColourMatrix(Frame), IsFullRange(Frame) ? 1 : 0};
	if (Sws && std::equal(Key, Key + 5, SourceKey))
	{
		return true;
	}
	Sws = sws_getCachedContext(Sws, Frame->width, Frame->height, static_cast<AVPixelFormat>(Frame->format), OutWidth, OutHeight, AV_PIX_FMT_RGBA,
		SWS_BILINEAR, nullptr, nullptr, nullptr);
	if (!Sws)
	{
		SourceKey[0] = -1;
		return false;
	}
	const AVPixFmtDescriptor* Descriptor = av_pix_fmt_desc_get(static_cast<AVPixelFormat>(Frame->format));
	if (Descriptor && !(Descriptor->flags & AV_PIX_FMT_FLAG_RGB))
	{
		sws_setColorspaceDetails(Sws, sws_getCoefficients(Key[3]), Key[4], sws_getCoefficients(SWS_CS_DEFAULT), 1, 0, 1 << 16, 1 << 16);
	}
	std::copy(Key, Key + 5, SourceKey);
	return true;
}

std::shared_ptr<FFmpegVideoFrame> FFmpegVideoConverter::Convert(const AVFrame* Frame)
{
	if (OutWidth <= 0 || OutHeight <= 0 || Frame->width <= 0 || Frame->height <= 0 || !Prepare(Frame))
	{
		return nullptr;
	}
	std::shared_ptr<FFmpegVideoFrame> Picture = TakeFreePicture();
	uint8_t* const Planes[4] = {Picture->Pixels.data(), nullptr, nullptr, nullptr};
	const int Strides[4] = {Picture->Stride, 0, 0, 0};
	const int Rows = sws_scale(Sws, Frame->data, Frame->linesize, 0, Frame->height, Planes, Strides);
	return Rows > 0 ? Picture : nullptr;
}
