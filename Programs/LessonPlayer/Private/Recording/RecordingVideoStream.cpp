#include "Recording/RecordingVideoStream.h"

#include "Recording/RecordingMuxer.h"

#include <algorithm>
#include <iterator>

extern "C"
{
#include <libavcodec/avcodec.h>
#include <libavutil/imgutils.h>
#include <libavutil/opt.h>
#include <libswscale/swscale.h>
}

namespace
{
	// libavcodec's MPEG-4 quantiser for the fallback; 4 looks close to x264's crf 23 on slides and text.
	constexpr int FallbackQuantizer = 4;
	// Seconds between keyframes: seeking in the recording lands at most this far before the target.
	constexpr int KeyframeSeconds = 2;
}

FRecordingVideoStream::~FRecordingVideoStream()
{
	sws_freeContext(Scaler);
	av_frame_free(&Picture);
	avcodec_free_context(&Codec);
}

bool FRecordingVideoStream::Open(FRecordingMuxer& InMuxer, const std::string& EncoderName, const std::string& Preset, int Width, int Height, int Fps, std::string& OutError)
{
	Muxer = &InMuxer;
	const AVCodec* Encoder = nullptr;
	if (EncoderName.empty())
	{
		Encoder = avcodec_find_encoder_by_name("libx264");
		Encoder = Encoder ? Encoder : avcodec_find_encoder_by_name("mpeg4");
		if (!Encoder)
		{
			OutError = "this libavcodec has neither the libx264 nor the mpeg4 encoder";
			return false;
		}
	}
	else
	{
		Encoder = avcodec_find_encoder_by_name(EncoderName.c_str());
		if (!Encoder || Encoder->type != AVMEDIA_TYPE_VIDEO)
		{
			OutError = "no video encoder '" + EncoderName + "' in this libavcodec";
			return false;
		}
	}
	Codec = avcodec_alloc_context3(Encoder);
	Picture = av_frame_alloc();
	if (!Codec || !Picture)
	{
		OutError = "out of memory";
		return false;
	}
	Codec->width = Width;
	Codec->height = Height;
	Codec->pix_fmt = AV_PIX_FMT_YUV420P;
	Codec->time_base = AVRational{1, Fps};
	Codec->framerate = AVRational{Fps, 1};
	Codec->sample_aspect_ratio = AVRational{1, 1};
	Codec->gop_size = Fps * KeyframeSeconds;
	// The renderer paints sRGB; HD players assume BT.709, whose curve is close enough to sRGB's.
	Codec->color_range = AVCOL_RANGE_MPEG;
	Codec->colorspace = AVCOL_SPC_BT709;
	Codec->color_primaries = AVCOL_PRI_BT709;
	Codec->color_trc = AVCOL_TRC_BT709;
	// Let the encoder choose: x264 spreads its work over the cores while the game thread paints.
	Codec->thread_count = 0;
	if (Muxer->WantsGlobalHeader())
	{
		Codec->flags |= AV_CODEC_FLAG_GLOBAL_HEADER;
	}
	if (std::string(Encoder->name) == "libx264")
	{
		// An unknown preset is refused here rather than by x264, whose message would not name it.
		static const char* const Presets[] = {"ultrafast", "superfast", "veryfast", "faster", "fast", "medium", "slow", "slower", "veryslow", "placebo"};
		if (!Preset.empty() && std::find(std::begin(Presets), std::end(Presets), Preset) == std::end(Presets))
		{
			OutError = "no x264 preset '" + Preset + "'";
			return false;
		}
		av_opt_set(Codec->priv_data, "preset", Preset.empty() ? "veryfast" : Preset.c_str(), 0);
		av_opt_set(Codec->priv_data, "crf", "23", 0);
	}
	else
	{
		Codec->flags |= AV_CODEC_FLAG_QSCALE;
		Codec->global_quality = FF_QP2LAMBDA * FallbackQuantizer;
	}
	int Result = avcodec_open2(Codec, Encoder, nullptr);
	if (Result < 0)
	{
		OutError = std::string("cannot open the ") + Encoder->name + " encoder: " + RecordingErrorText(Result);
		return false;
	}
	Stream = Muxer->AddStream(Codec, OutError);
	if (!Stream)
	{
		return false;
	}
	Picture->format = Codec->pix_fmt;
	Picture->width = Width;
	Picture->height = Height;
	Result = av_frame_get_buffer(Picture, 0);
	if (Result < 0)
	{
		OutError = "cannot allocate a picture: " + RecordingErrorText(Result);
		return false;
	}
	return true;
}

std::string FRecordingVideoStream::GetEncoderName() const
{
	return Codec ? Codec->codec->name : "";
}

bool FRecordingVideoStream::PrepareScaler(int SourceWidth, int SourceHeight, std::string& OutError)
{
	if (Scaler && SourceWidth == ScalerWidth && SourceHeight == ScalerHeight)
	{
		return true;
	}
	sws_freeContext(Scaler);
	Scaler = sws_getContext(SourceWidth, SourceHeight, AV_PIX_FMT_RGBA, Codec->width, Codec->height, AV_PIX_FMT_YUV420P, SWS_BILINEAR, nullptr, nullptr, nullptr);
	if (!Scaler)
	{
		OutError = "cannot convert a " + std::to_string(SourceWidth) + "x" + std::to_string(SourceHeight) + " picture";
		return false;
	}
	// Full-range RGB in, limited-range BT.709 out, matching the tags on the stream.
	const int* Coefficients = sws_getCoefficients(SWS_CS_ITU709);
	sws_setColorspaceDetails(Scaler, Coefficients, 1, Coefficients, 0, 0, 1 << 16, 1 << 16);
	ScalerWidth = SourceWidth;
	ScalerHeight = SourceHeight;
	return true;
}

bool FRecordingVideoStream::Encode(const uint8_t* Rgba, int SourceWidth, int SourceHeight, std::string& OutError)
{
	// The encoder may still hold the previous picture (its lookahead); then this makes a fresh one.
	int Result = av_frame_make_writable(Picture);
	if (Result < 0)
	{
		OutError = "cannot allocate a picture: " + RecordingErrorText(Result);
		return false;
	}
	if (!Rgba || SourceWidth <= 0 || SourceHeight <= 0)
	{
		// Limited-range black: Y 16, chroma centred.
		for (int Plane = 0; Plane < 3; ++Plane)
		{
			const int Rows = Plane == 0 ? Codec->height : Codec->height / 2;
			for (int Row = 0; Row < Rows; ++Row)
			{
				uint8_t* Line = Picture->data[Plane] + static_cast<ptrdiff_t>(Row) * Picture->linesize[Plane];
				std::fill(Line, Line + (Plane == 0 ? Codec->width : Codec->width / 2), Plane == 0 ? 16 : 128);
			}
		}
	}
	else
	{
		if (!PrepareScaler(SourceWidth, SourceHeight, OutError))
		{
			return false;
		}
		const uint8_t* SourcePlanes[1] = {Rgba};
		const int SourceStrides[1] = {SourceWidth * 4};
		sws_scale(Scaler, SourcePlanes, SourceStrides, 0, SourceHeight, Picture->data, Picture->linesize);
	}
	Picture->pts = FramesEncoded++;
	return Muxer->Encode(Codec, Stream, Picture, OutError);
}

bool FRecordingVideoStream::Flush(std::string& OutError)
{
	return Muxer->Encode(Codec, Stream, nullptr, OutError);
}
