// Records small synthetic lessons and reads the files back with libavformat, as a player would.

#include "Recording/LessonRecorder.h"

#include "Logging/LogCapture.h"
#include "RenderFrame.h"

#include <gtest/gtest.h>

#include <cmath>
#include <csignal>
#include <filesystem>
#include <stdlib.h>
#include <sys/resource.h>
#include <string>
#include <vector>

extern "C"
{
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libswscale/swscale.h>
}

namespace
{
	constexpr int32 Fps = 30;

	// A folder of its own under the system's temporary folder, removed with everything in it.
	struct FTempFolder
	{
		std::string Path = (std::filesystem::temp_directory_path() / "recorder-test-XXXXXX").string();
		FTempFolder() { EXPECT_NE(mkdtemp(Path.data()), nullptr); }
		~FTempFolder() { std::filesystem::remove_all(Path); }
	};

	// Dark blue, with a red bar 40 pixels wide whose left edge is at 40 + 8 * Index.
	void PaintBar(FRenderFrame& Frame, int Index)
	{
		Frame.Clear(FColor(10, 10, 40, 255));
		for (int32 Y = 0; Y < Frame.GetHeight(); ++Y)
		{
			uint8* Row = Frame.GetData() + Y * Frame.GetStride();
			for (int32 X = 40 + 8 * Index; X < 80 + 8 * Index && X < Frame.GetWidth(); ++X)
			{
				Row[X * 4 + 0] = 230;
				Row[X * 4 + 1] = 20;
				Row[X * 4 + 2] = 20;
			}
		}
	}

	// A 440 Hz tone, Frames frames of interleaved stereo from sample Start on.
	std::vector<float> Tone(int64 Start, int32 Frames)
	{
		std::vector<float> Samples(static_cast<size_t>(Frames) * 2);
		for (int32 I = 0; I < Frames; ++I)
		{
			Samples[I * 2] = Samples[I * 2 + 1] = 0.3f * static_cast<float>(std::sin(2.0 * 3.14159265 * 440.0 * static_cast<double>(Start + I) / 48000.0));
		}
		return Samples;
	}

	// What a player finds in a recording; RGB24 of one decoded picture.
	struct FProbe
	{
		std::vector<std::string> VideoCodecs, AudioCodecs;
		int Width = 0, Height = 0;
		double Duration = 0.0, AudioDuration = 0.0;
		std::vector<uint8_t> Rgb;
		uint8_t Red(int X, int Y) const { return Rgb[(Y * Width + X) * 3]; }
		uint8_t Blue(int X, int Y) const { return Rgb[(Y * Width + X) * 3 + 2]; }
	};

	FProbe Probe(const std::string& Path, int PictureToDecode)
	{
		FProbe Out;
		AVFormatContext* Format = nullptr;
		if (avformat_open_input(&Format, Path.c_str(), nullptr, nullptr) < 0 || avformat_find_stream_info(Format, nullptr) < 0)
		{
			ADD_FAILURE() << "cannot read " << Path;
			avformat_close_input(&Format);
			return Out;
		}
		Out.Duration = static_cast<double>(Format->duration) / AV_TIME_BASE;
		int VideoIndex = -1;
		for (unsigned I = 0; I < Format->nb_streams; ++I)
		{
			const AVStream* Stream = Format->streams[I];
			const std::string Name = avcodec_get_name(Stream->codecpar->codec_id);
			if (Stream->codecpar->codec_type == AVMEDIA_TYPE_VIDEO)
			{
				Out.VideoCodecs.push_back(Name);
				Out.Width = Stream->codecpar->width;
				Out.Height = Stream->codecpar->height;
				VideoIndex = static_cast<int>(I);
			}
			else if (Stream->codecpar->codec_type == AVMEDIA_TYPE_AUDIO)
			{
				Out.AudioCodecs.push_back(Name);
				Out.AudioDuration = static_cast<double>(Stream->duration) * av_q2d(Stream->time_base);
			}
		}
		const AVCodecParameters* Parameters = VideoIndex >= 0 ? Format->streams[VideoIndex]->codecpar : nullptr;
		AVCodecContext* Decoder = Parameters ? avcodec_alloc_context3(avcodec_find_decoder(Parameters->codec_id)) : nullptr;
		AVPacket* Packet = av_packet_alloc();
		AVFrame* Frame = av_frame_alloc();
		if (Decoder && avcodec_parameters_to_context(Decoder, Parameters) >= 0 && avcodec_open2(Decoder, Decoder->codec, nullptr) >= 0)
		{
			int Decoded = 0;
			const auto Receive = [&]
			{
				while (Out.Rgb.empty() && avcodec_receive_frame(Decoder, Frame) >= 0)
				{
					if (Decoded++ == PictureToDecode)
					{
						Out.Rgb.resize(static_cast<size_t>(Frame->width * Frame->height * 3));
						SwsContext* Scaler = sws_getContext(Frame->width, Frame->height, static_cast<AVPixelFormat>(Frame->format), Frame->width, Frame->height, AV_PIX_FMT_RGB24, SWS_POINT, nullptr, nullptr, nullptr);
						uint8_t* Planes[1] = {Out.Rgb.data()};
						const int Strides[1] = {Frame->width * 3};
						sws_scale(Scaler, Frame->data, Frame->linesize, 0, Frame->height, Planes, Strides);
						sws_freeContext(Scaler);
					}
				}
			};
			while (Out.Rgb.empty() && av_read_frame(Format, Packet) >= 0)
			{
				if (Packet->stream_index == VideoIndex && avcodec_send_packet(Decoder, Packet) >= 0)
				{
					Receive();
				}
				av_packet_unref(Packet);
			}
			if (Out.Rgb.empty() && avcodec_send_packet(Decoder, nullptr) >= 0)
			{
				Receive();
			}
		}
		EXPECT_FALSE(Out.Rgb.empty()) << "picture " << PictureToDecode << " of " << Path << " did not decode";
		av_frame_free(&Frame);
		av_packet_free(&Packet);
		avcodec_free_context(&Decoder);
		avformat_close_input(&Format);
		return Out;
	}
}

TEST(LessonRecorder, WritesScaledPictureAndToneThatEndTogether)
{
	FTempFolder Temp;
	FLessonRecorderSettings Settings;
	Settings.Path = FString((Temp.Path + "/made/here/lesson.mp4").c_str());
	Settings.Width = 320;
	Settings.Height = 180;
	FLessonRecorder Recorder;
	FString Error;
	ASSERT_TRUE(Recorder.Open(Settings, Error)) << TCHAR_TO_UTF8(*Error);
	EXPECT_TRUE(Recorder.IsOpen());

	// Two seconds painted at twice the recorded size; the mixer runs a third of a second ahead of the picture.
	TSharedPtr<UE::Audio::IAudioSink> Sink = Recorder.MakeAudioSink();
	FRenderFrame Frame(640, 360);
	int64 SamplesSent = 0;
	for (int Index = 0; Index < 2 * Fps; ++Index)
	{
		const int32 Block = Index == 0 ? 16000 + 1600 : 1600;
		Sink->Write(Tone(SamplesSent, Block).data(), Block);
		SamplesSent += Block;
		PaintBar(Frame, Index);
		Recorder.AddVideoFrame(Frame);
	}
	ASSERT_TRUE(Recorder.Finish(Error)) << TCHAR_TO_UTF8(*Error);
	EXPECT_FALSE(Recorder.IsOpen());
	EXPECT_EQ(Recorder.GetFramesWritten(), 2 * Fps);

	const FProbe File = Probe(TCHAR_TO_UTF8(*Settings.Path), Fps);
	EXPECT_EQ(File.VideoCodecs, std::vector<std::string>{"h264"});
	EXPECT_EQ(File.AudioCodecs, std::vector<std::string>{"aac"});
	EXPECT_EQ(File.Width, 320);
	EXPECT_EQ(File.Height, 180);
	EXPECT_NEAR(File.Duration, 2.0, 1.0 / Fps);
	EXPECT_NEAR(File.AudioDuration, 2.0, 1.0 / Fps);
	ASSERT_FALSE(File.Rgb.empty());
	// Picture 30 has the bar over source columns 280-319, recorded columns 140-159.
	EXPECT_GT(File.Red(150, 90), 170);
	EXPECT_LT(File.Blue(150, 90), 70);
	EXPECT_LT(File.Red(60, 90), 60);
	EXPECT_LT(File.Red(250, 90), 60);
}

TEST(LessonRecorder, FallsBackToMpeg4AndFillsMissingSoundWithSilence)
{
	FTempFolder Temp;
	FLessonRecorderSettings Settings;
	Settings.Path = FString((Temp.Path + "/quiet.mp4").c_str());
	Settings.Width = 161;
	Settings.Height = 91;
	Settings.VideoEncoder = TEXT("mpeg4");
	{
		FLessonRecorder Recorder;
		FString Error;
		ASSERT_TRUE(Recorder.Open(Settings, Error)) << TCHAR_TO_UTF8(*Error);
		EXPECT_EQ(Recorder.GetVideoEncoderName(), TEXT("mpeg4"));
		FRenderFrame Frame(160, 90);
		for (int Index = 0; Index < 15; ++Index)
		{
			PaintBar(Frame, Index);
			// An empty frame records as black rather than shifting the timeline.
			Recorder.AddVideoFrame(Index == 3 ? FRenderFrame() : Frame);
		}
		// Left open: the destructor finishes the file.
	}
	const FProbe File = Probe(TCHAR_TO_UTF8(*Settings.Path), 7);
	EXPECT_EQ(File.VideoCodecs, std::vector<std::string>{"mpeg4"});
	EXPECT_EQ(File.AudioCodecs, std::vector<std::string>{"aac"});
	EXPECT_EQ(File.Width, 160);
	EXPECT_EQ(File.Height, 90);
	EXPECT_NEAR(File.Duration, 0.5, 1.0 / Fps);
	EXPECT_NEAR(File.AudioDuration, 0.5, 1.0 / Fps);
}

TEST(LessonRecorder, NamesTheFileAndTheReasonWhenItCannotRecord)
{
	FTempFolder Temp;
	const std::string NotAFolder = Temp.Path + "/plain-file";
	FILE* Plain = fopen(NotAFolder.c_str(), "w");
	ASSERT_NE(Plain, nullptr);
	fclose(Plain);

	FLessonRecorder Recorder;
	FLessonRecorderSettings Settings;
	FString Error;
	Settings.Path = FString((NotAFolder + "/lesson.mp4").c_str());
	EXPECT_FALSE(Recorder.Open(Settings, Error));
	EXPECT_TRUE(Error.Contains(Settings.Path)) << TCHAR_TO_UTF8(*Error);
	EXPECT_TRUE(Error.Contains(TEXT("Not a directory"))) << TCHAR_TO_UTF8(*Error);
	EXPECT_FALSE(Recorder.IsOpen());
	Recorder.AddVideoFrame(FRenderFrame(64, 64));
	EXPECT_EQ(Recorder.GetFramesWritten(), 0);
	EXPECT_FALSE(Recorder.Finish(Error));

	Settings.Path = FString((Temp.Path + "/lesson.mp4").c_str());
	Settings.VideoEncoder = TEXT("no-such-encoder");
	EXPECT_FALSE(Recorder.Open(Settings, Error));
	EXPECT_TRUE(Error.Contains(TEXT("no video encoder 'no-such-encoder'"))) << TCHAR_TO_UTF8(*Error);
	Settings.VideoEncoder.Empty();
	Settings.VideoPreset = TEXT("warp");
	EXPECT_FALSE(Recorder.Open(Settings, Error));
	EXPECT_TRUE(Error.Contains(TEXT("no x264 preset 'warp'"))) << TCHAR_TO_UTF8(*Error);
	Settings.VideoPreset.Empty();

	// A disk that fills up mid-way (a file size limit stands in for it): the recording stops,
	// says so once, and Finish reports it.
	UE::Log::ClearCapturedLines();
	Settings.bWithSound = false;
	rlimit Limit = {};
	ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &Limit), 0);
	const rlimit Small = {16 * 1024, Limit.rlim_max};
	signal(SIGXFSZ, SIG_IGN);
	ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &Small), 0);
	ASSERT_TRUE(Recorder.Open(Settings, Error)) << TCHAR_TO_UTF8(*Error);
	FRenderFrame Noise(160, 90);
	uint32 Seed = 1;
	for (int Index = 0; Index < 600 && Recorder.IsOpen(); ++Index)
	{
		for (int32 Byte = 0; Byte < Noise.GetStride() * Noise.GetHeight(); ++Byte)
		{
			Seed = Seed * 1664525u + 1013904223u;
			Noise.GetData()[Byte] = static_cast<uint8>(Seed >> 24);
		}
		Recorder.AddVideoFrame(Noise);
	}
	EXPECT_FALSE(Recorder.IsOpen());
	EXPECT_FALSE(Recorder.Finish(Error));
	setrlimit(RLIMIT_FSIZE, &Limit);
	EXPECT_TRUE(Error.Contains(Settings.Path + TEXT("' stopped: write failed: File too large"))) << TCHAR_TO_UTF8(*Error);
	int ErrorLines = 0;
	for (const UE::Log::FCapturedLine& Line : UE::Log::GetCapturedLines())
	{
		ErrorLines += Line.Verbosity == ELogVerbosity::Error ? 1 : 0;
	}
	EXPECT_EQ(ErrorLines, 1);

	// The mixer may keep the sink after the recorder is gone.
	TSharedPtr<UE::Audio::IAudioSink> Sink;
	{
		FLessonRecorder Gone;
		Sink = Gone.MakeAudioSink();
	}
	const float Silence[4] = {};
	Sink->Write(Silence, 2);
}
