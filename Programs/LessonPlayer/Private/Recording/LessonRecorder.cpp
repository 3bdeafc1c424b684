#include "Recording/LessonRecorder.h"

#include "Recording/RecorderAudioSink.h"
#include "Recording/RecordingAudioStream.h"
#include "Recording/RecordingMuxer.h"
#include "Recording/RecordingQueue.h"
#include "Recording/RecordingVideoStream.h"
#include "RenderFrame.h"

#include <filesystem>
#include <string>
#include <vector>

DEFINE_LOG_CATEGORY_STATIC(LogLessonRecorder, Log, All);

namespace
{
	// Pictures the game thread may run ahead of the encoder: enough to ride out a slow frame or a
	// keyframe, few enough that a 720p queue stays near 15 MB.
	constexpr int QueuedPictures = 4;
	// The largest picture side taken; libx264 itself stops at 16384.
	constexpr int32 MaxSide = 8192;

	FString ToFString(const std::string& Utf8)
	{
		return FString(UTF8_TO_TCHAR(Utf8.c_str()));
	}

	// The picture's length in samples of the sound track, rounded down to whole samples.
	int64 SamplesForFrames(int64 Frames, int32 FramesPerSecond)
	{
		return Frames * FRecordingAudioStream::SampleRate / FramesPerSecond;
	}
}

/** What the worker encodes with; the muxer is declared first so it is freed last. */
struct FRecordingEncoders
{
	/** The file. */
	FRecordingMuxer Muxer;
	/** The picture track. */
	FRecordingVideoStream Video;
	/** The sound track, when the settings ask for one. */
	FRecordingAudioStream Audio;
};

FLessonRecorder::FLessonRecorder() = default;

FLessonRecorder::~FLessonRecorder()
{
	if (Queue)
	{
		// A failure of the worker is logged when noticed; only a failure of the finish itself is new here.
		FString Error;
		if (!Finish(Error) && Failure.IsEmpty())
		{
			UE_LOG(LogLessonRecorder, Error, TEXT("%s"), *Error);
		}
	}
	if (Sink)
	{
		Sink->Detach();
	}
}

bool FLessonRecorder::Open(const FLessonRecorderSettings& InSettings, FString& OutError)
{
	if (Queue)
	{
		OutError = FString::Printf(TEXT("Cannot record to '%s': already recording '%s'"), *InSettings.Path, *Settings.Path);
		return false;
	}
	Settings = InSettings;
	Settings.Width &= ~1;
	Settings.Height &= ~1;
	FramesWritten = 0;
	SecondsWaited = 0.0;
	Failure.Empty();
	VideoEncoderName.Empty();

	std::string Error;
	if (Settings.Path.IsEmpty())
	{
		Error = "no file given";
	}
	else if (Settings.Width < 2 || Settings.Height < 2 || Settings.Width > MaxSide || Settings.Height > MaxSide)
	{
		Error = "the picture size " + std::to_string(InSettings.Width) + "x" + std::to_string(InSettings.Height) + " is outside 2x2 to 8192x8192";
	}
	else if (Settings.FramesPerSecond < 1 || Settings.FramesPerSecond > 240)
	{
		Error = "the frame rate " + std::to_string(Settings.FramesPerSecond) + " is outside 1 to 240";
	}
	if (Error.empty())
	{
		const std::string Path = TCHAR_TO_UTF8(*Settings.Path);
		// A folder that is missing is made; one that cannot be made shows up as avio_open's reason.
		std::error_code Ignored;
		const std::filesystem::path Folder = std::filesystem::path(Path).parent_path();
		if (!Folder.empty())
		{
			std::filesystem::create_directories(Folder, Ignored);
		}
		Encoders = TUniquePtr<FRecordingEncoders>(new FRecordingEncoders());
		const bool bReady = Encoders->Muxer.Create(Error)
			&& Encoders->Video.Open(Encoders->Muxer, TCHAR_TO_UTF8(*Settings.VideoEncoder), TCHAR_TO_UTF8(*Settings.VideoPreset), Settings.Width, Settings.Height, Settings.FramesPerSecond, Error)
			&& (!Settings.bWithSound || Encoders->Audio.Open(Encoders->Muxer, Error))
			&& Encoders->Muxer.Begin(Path, Error);
		if (!bReady)
		{
			Encoders = nullptr;
		}
	}
	if (!Encoders)
	{
		OutError = FString::Printf(TEXT("Cannot record to '%s': %s"), *InSettings.Path, *ToFString(Error));
		return false;
	}
	VideoEncoderName = ToFString(Encoders->Video.GetEncoderName());
	Queue = TUniquePtr<FRecordingQueue>(new FRecordingQueue(QueuedPictures));
	Worker = std::thread([this] { RunWorker(); });
	bOpen = true;
	return true;
}

void FLessonRecorder::RunWorker()
{
	const bool bWithSound = Settings.bWithSound;
	const int32 FramesPerSecond = Settings.FramesPerSecond;
	FRecordingPicture Picture;
	std::vector<float> Sound;
	bool bHasPicture = false;
	std::string Error;
	while (Queue->Take(Picture, bHasPicture, Sound))
	{
		bool bGood = true;
		if (bWithSound && !Sound.empty())
		{
			bGood = Encoders->Audio.Push(Sound.data(), static_cast<int>(Sound.size() / 2), Error);
		}
		if (bGood && bHasPicture)
		{
			bGood = Encoders->Video.Encode(Picture.Rgba.empty() ? nullptr : Picture.Rgba.data(), Picture.Width, Picture.Height, Error);
		}
		// Sound that runs ahead of the picture waits in the FIFO, so Finish can still trim it.
		if (bGood && bWithSound)
		{
			bGood = Encoders->Audio.EncodeUpTo(SamplesForFrames(Encoders->Video.GetFramesEncoded(), FramesPerSecond), Error);
		}
		if (!bGood)
		{
			Queue->Fail(Error);
			return;
		}
	}
}

bool FLessonRecorder::CheckWorker()
{
	if (!bOpen)
	{
		return false;
	}
	const std::string WorkerFailure = Queue->GetFailure();
	if (WorkerFailure.empty())
	{
		return true;
	}
	Failure = FString::Printf(TEXT("Recording '%s' stopped: %s"), *Settings.Path, *ToFString(WorkerFailure));
	UE_LOG(LogLessonRecorder, Error, TEXT("%s"), *Failure);
	bOpen = false;
	return false;
}

void FLessonRecorder::AddVideoFrame(const FRenderFrame& Frame)
{
	if (!CheckWorker())
	{
		return;
	}
	if (Queue->PushPicture(Frame.GetData(), Frame.GetWidth(), Frame.GetHeight(), SecondsWaited))
	{
		++FramesWritten;
	}
	else
	{
		CheckWorker();
	}
}

void FLessonRecorder::AddAudio(const float* Interleaved, int32 Frames)
{
	if (!Settings.bWithSound || !Interleaved || Frames <= 0 || !CheckWorker())
	{
		return;
	}
	if (!Queue->PushSound(Interleaved, Frames))
	{
		CheckWorker();
	}
}

bool FLessonRecorder::Finish(FString& OutError)
{
	if (!Queue)
	{
		OutError = TEXT("Nothing is being recorded");
		return false;
	}
	CheckWorker();
	Queue->Close();
	Worker.join();
	std::string Error = Queue->GetFailure();
	bool bGood = Error.empty();
	if (bGood)
	{
		bGood = Encoders->Video.Flush(Error)
			&& (!Settings.bWithSound || Encoders->Audio.Finish(SamplesForFrames(FramesWritten, Settings.FramesPerSecond), Error))
			&& Encoders->Muxer.End(Error);
	}
	else
	{
		// Best effort: an encoder failure leaves the file writable, and an index makes what was recorded playable.
		std::string Ignored;
		Encoders->Muxer.End(Ignored);
	}
	Release();
	if (!Failure.IsEmpty())
	{
		OutError = Failure;
		return false;
	}
	if (!bGood)
	{
		OutError = FString::Printf(TEXT("Recording '%s' failed: %s"), *Settings.Path, *ToFString(Error));
		return false;
	}
	return true;
}

void FLessonRecorder::Release()
{
	if (Worker.joinable())
	{
		Queue->Close();
		Worker.join();
	}
	Queue = nullptr;
	Encoders = nullptr;
	bOpen = false;
}

TSharedPtr<UE::Audio::IAudioSink> FLessonRecorder::MakeAudioSink()
{
	if (!Sink)
	{
		Sink = MakeShared<FRecorderAudioSink>(*this);
	}
	return Sink;
}
