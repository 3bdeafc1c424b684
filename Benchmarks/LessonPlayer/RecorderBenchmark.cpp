// What recording costs: 720p pictures and the mix through FLessonRecorder into an MP4, end to end
// (copy, RGBA -> YUV, H.264 and AAC encoding, the file and its index), and how long the game
// thread spends inside AddVideoFrame meanwhile.

#include "Recording/LessonRecorder.h"

#include "RenderFrame.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <filesystem>
#include <stdlib.h>
#include <string>
#include <vector>

namespace
{
	using FClock = std::chrono::steady_clock;

	constexpr int32 Width = 1280;
	constexpr int32 Height = 720;
	constexpr int32 Fps = 30;
	constexpr int FramesPerRecording = 120;

	// Pictures that look like a lesson to the encoder: a panning, slightly grainy "video" behind a
	// static slide of text-like blocks, with comments crossing at 160 pixels a second.
	std::vector<FRenderFrame> MakePictures(int Count)
	{
		std::vector<FRenderFrame> Pictures;
		for (int Index = 0; Index < Count; ++Index)
		{
			FRenderFrame& Frame = Pictures.emplace_back(Width, Height);
			for (int32 Y = 0; Y < Height; ++Y)
			{
				uint8* Row = Frame.GetData() + Y * Frame.GetStride();
				for (int32 X = 0; X < Width; ++X)
				{
					const int32 U = X + 4 * Index;
					const uint32 Grain = (static_cast<uint32>(U) * 2654435761u ^ static_cast<uint32>(Y) * 40503u) >> 29;
					const bool bText = X > 200 && X < 1080 && Y > 150 && Y < 500 && (Y / 12) % 3 != 0 && ((X / 9) % 7) != 0;
					Row[X * 4 + 0] = bText ? 30 : static_cast<uint8>(120 + 80 * std::sin(U * 0.01) + Grain);
					Row[X * 4 + 1] = bText ? 30 : static_cast<uint8>(110 + 60 * std::cos(Y * 0.013 + U * 0.004) + Grain);
					Row[X * 4 + 2] = bText ? 30 : static_cast<uint8>(100 + 50 * std::sin((U + Y) * 0.007) + Grain);
					Row[X * 4 + 3] = 255;
				}
			}
			for (int Lane = 0; Lane < 6; ++Lane)
			{
				const int32 Left = Width - (Index * 160 / Fps + Lane * 90) % (Width + 300);
				for (int32 Y = 40 + Lane * 50; Y < 64 + Lane * 50; ++Y)
				{
					for (int32 X = std::max(0, Left); X < std::min(Width, Left + 300); ++X)
					{
						uint8* Pixel = Frame.GetData() + Y * Frame.GetStride() + X * 4;
						Pixel[0] = Pixel[1] = Pixel[2] = ((X / 11 + Y / 7) % 3) ? 250 : 20;
					}
				}
			}
		}
		return Pictures;
	}

	// Keeps this thread's core busy for Milliseconds, as painting and ticking the rest of a frame would.
	void BusyFor(int64_t Milliseconds)
	{
		const FClock::time_point End = FClock::now() + std::chrono::milliseconds(Milliseconds);
		while (FClock::now() < End)
		{
		}
	}

	// Argument: milliseconds of other game-thread work per frame (0: frames back to back).
	void BM_RecordLesson720p(benchmark::State& State)
	{
		static const std::vector<FRenderFrame> Pictures = MakePictures(Fps);
		std::vector<float> Sound(1600 * 2);
		for (size_t I = 0; I < Sound.size(); I += 2)
		{
			Sound[I] = Sound[I + 1] = 0.2f * static_cast<float>(std::sin(static_cast<double>(I) * 0.03));
		}
		std::string Folder = (std::filesystem::temp_directory_path() / "recorder-bench-XXXXXX").string();
		if (!mkdtemp(Folder.data()))
		{
			State.SkipWithError("cannot make a temporary folder");
			return;
		}
		FLessonRecorderSettings Settings;
		Settings.Path = FString((Folder + "/lesson.mp4").c_str());
		double GameThreadSeconds = 0.0;
		double WaitSeconds = 0.0;
		for (auto _ : State)
		{
			FLessonRecorder Recorder;
			FString Error;
			if (!Recorder.Open(Settings, Error))
			{
				State.SkipWithError(TCHAR_TO_UTF8(*Error));
				break;
			}
			for (int Index = 0; Index < FramesPerRecording; ++Index)
			{
				BusyFor(State.range(0));
				Recorder.AddAudio(Sound.data(), 1600);
				const FClock::time_point Start = FClock::now();
				Recorder.AddVideoFrame(Pictures[static_cast<size_t>(Index) % Pictures.size()]);
				GameThreadSeconds += std::chrono::duration<double>(FClock::now() - Start).count();
			}
			if (!Recorder.Finish(Error))
			{
				State.SkipWithError(TCHAR_TO_UTF8(*Error));
				break;
			}
			WaitSeconds += Recorder.GetSecondsWaited();
		}
		const double Frames = static_cast<double>(State.iterations()) * FramesPerRecording;
		State.SetItemsProcessed(static_cast<int64_t>(Frames));
		State.counters["game_ms_per_frame"] = benchmark::Counter(GameThreadSeconds * 1000.0 / Frames);
		State.counters["waiting_ms_per_frame"] = benchmark::Counter(WaitSeconds * 1000.0 / Frames);
		std::error_code Ignored;
		State.counters["file_kB"] = benchmark::Counter(static_cast<double>(std::filesystem::file_size(Folder + "/lesson.mp4", Ignored)) / 1000.0);
		std::filesystem::remove_all(Folder);
	}
	BENCHMARK(BM_RecordLesson720p)->Arg(0)->Arg(10)->Unit(benchmark::kMillisecond)->UseRealTime()->MeasureProcessCPUTime();
}
