#include "FFmpegMediaBackend.h"

#include "FFmpeg/FFmpegAudioQueue.h"
#include "MediaAssetsLog.h"
#include "MediaBackendRegistry.h"
#include "MediaClockPolicy.h"

#include <cstdarg>
#include <cstring>
#include <mutex>

extern "C"
{
#include <libavutil/log.h>
}

namespace
{
	// FFmpeg's own lines (one per damaged packet, say) would drown the log; the player reports
	// what matters in one line of its own, so FFmpeg's text only shows at Verbose.
	void ForwardFFmpegLog(void* Context, int Level, const char* Format, va_list Arguments)
	{
		if (Level > av_log_get_level())
		{
			return;
		}
		char Line[1024];
		int PrintPrefix = 1;
		av_log_format_line2(Context, Level, Format, Arguments, Line, sizeof(Line), &PrintPrefix);
		FString Text = UTF8_TO_TCHAR(Line);
		Text.TrimEndInline();
		UE_LOG(LogMediaAssets, Verbose, TEXT("FFmpeg: %s"), *Text);
	}
}

bool FFmpegMediaBackend::Open(const FString& Location, FString& OutError)
{
	static std::once_flag RouteLog;
	std::call_once(RouteLog, [] { av_log_set_callback(&ForwardFFmpegLog); });

	const FString Scheme = FMediaBackendRegistry::GetScheme(Location);
	bLocal = Scheme.IsEmpty() || Scheme == TEXT("file");
	if (Session.Open(std::string(TCHAR_TO_UTF8(*Location))))
	{
		return true;
	}
	std::vector<FFmpegEvent> Events;
	Session.PollEvents(Events);
	OutError = Events.empty() ? FString(TEXT("refused")) : CauseOf(Events.back().Message);
	Session.Close();
	return false;
}

void FFmpegMediaBackend::PollEvents(TArray<FMediaBackendEvent>& OutEvents)
{
	std::vector<FFmpegEvent> Events;
	Session.PollEvents(Events);
	for (const FFmpegEvent& Event : Events)
	{
		FMediaBackendEvent& Out = OutEvents.AddDefaulted_GetRef();
		switch (Event.Type)
		{
		case EFFmpegEventType::Opened: Out.Type = EMediaBackendEvent::Opened; break;
		case EFFmpegEventType::OpenFailed: Out.Type = EMediaBackendEvent::OpenFailed; break;
		case EFFmpegEventType::SeekCompleted: Out.Type = EMediaBackendEvent::SeekCompleted; break;
		case EFFmpegEventType::EndReached: Out.Type = EMediaBackendEvent::EndReached; break;
		case EFFmpegEventType::Error: Out.Type = EMediaBackendEvent::Error; break;
		}
		Out.Message = Event.Type == EFFmpegEventType::OpenFailed ? CauseOf(Event.Message) : FString(UTF8_TO_TCHAR(Event.Message.c_str()));
	}
}

TSharedPtr<const FMediaTextureSample> FFmpegMediaBackend::AcquireVideoSample()
{
	if (!Session.IsOpen())
	{
		return nullptr;
	}
	std::shared_ptr<const FFmpegVideoFrame> Frame = Session.AcquireVideoFrame(Session.GetTime(), GetWaitSeconds());
	if (!Frame)
	{
		return nullptr;
	}
	TSharedPtr<FMediaTextureSample> Sample = MakeShared<FMediaTextureSample>();
	Sample->Width = Frame->Width;
	Sample->Height = Frame->Height;
	Sample->Stride = Frame->Stride;
	Sample->Time = FTimespan::FromSeconds(Frame->Time);
	Sample->Pixels = Frame->Pixels.data();
	Sample->Storage = Frame;
	return Sample;
}

int32 FFmpegMediaBackend::PullAudio(float* Interleaved, int32 Frames)
{
	if (!Session.IsOpen())
	{
		std::memset(Interleaved, 0, sizeof(float) * FFmpegAudioChannels * static_cast<size_t>(Frames));
		return 0;
	}
	return Session.PullAudio(Interleaved, Frames, GetWaitSeconds());
}

FString FFmpegMediaBackend::CauseOf(const std::string& Message) const
{
	const std::string Prefix = "Cannot open '" + Session.GetUrl() + "': ";
	const std::string Cause = Message.compare(0, Prefix.size(), Prefix) == 0 ? Message.substr(Prefix.size()) : Message;
	return UTF8_TO_TCHAR(Cause.c_str());
}

double FFmpegMediaBackend::GetWaitSeconds() const
{
	if (bLocal)
	{
		return LocalWaitSeconds;
	}
	return GetMediaClockPolicy() == EMediaClockPolicy::FixedStep ? NetworkWaitSeconds : 0.0;
}
