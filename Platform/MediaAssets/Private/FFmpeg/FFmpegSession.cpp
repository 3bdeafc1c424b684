#include "FFmpegSession.h"

#include "FFmpegSharedState.h"
#include "FFmpegUrl.h"
#include "FFmpegWorker.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstring>
#include <mutex>
#include <system_error>

extern "C"
{
#include <libavutil/log.h>
}

namespace
{
	std::chrono::duration<double> Seconds(double Value)
	{
		return std::chrono::duration<double>(Value);
	}
}

FFmpegSession::FFmpegSession()
	: State(std::make_unique<FFmpegSharedState>())
{
	// FFmpeg's own chatter (warnings about every damaged packet) would drown the host's log;
	// what matters reaches the caller as events. Errors still print.
	static std::once_flag QuietLog;
	std::call_once(QuietLog, [] { av_log_set_level(AV_LOG_ERROR); });
}

FFmpegSession::~FFmpegSession()
{
	Close();
}

bool FFmpegSession::Open(const std::string& UrlOrPath, const FFmpegOpenOptions& Options)
{
	Close();
	Url = UrlOrPath;
	Info = FFmpegMediaInfo();
	Status = EStatus::Preparing;
	bEndPosted = false;
	{
		std::lock_guard<std::mutex> Lock(State->Mutex);
		State->Reset(Options.VideoQueueFrames, Options.AudioQueueSeconds);
	}
	State->bAbort = false;

	FFmpegLocation Location = FFmpegResolveLocation(UrlOrPath, Options.AllowedSchemes);
	if (Location.Error.empty())
	{
		Worker = std::make_unique<FFmpegWorker>(*State, std::move(Location), Options, UrlOrPath);
		try
		{
			Thread = std::thread(&FFmpegWorker::Run, Worker.get());
			return true;
		}
		catch (const std::system_error& Failure)
		{
			Worker.reset();
			Location.Error = std::string("cannot start a thread: ") + Failure.what();
		}
	}
	std::lock_guard<std::mutex> Lock(State->Mutex);
	State->Post(EFFmpegEventType::OpenFailed, "Cannot open '" + UrlOrPath + "': " + Location.Error);
	State->bWorkerDone = true;
	return false;
}

void FFmpegSession::Close()
{
	if (Thread.joinable())
	{
		State->bAbort = true;
		{
			std::lock_guard<std::mutex> Lock(State->Mutex);
			++State->WakeCount;
			State->WorkerWake.notify_all();
			State->DataReady.notify_all();
		}
		Thread.join();
	}
	Worker.reset();
	{
		std::lock_guard<std::mutex> Lock(State->Mutex);
		State->Reset(2, 0.0);
		State->bWorkerDone = true;
	}
	Url.clear();
	Info = FFmpegMediaInfo();
	Status = EStatus::Closed;
	bEndPosted = false;
}

void FFmpegSession::PollEvents(std::vector<FFmpegEvent>& OutEvents)
{
	std::vector<FFmpegEvent> Arrived;
	{
		std::lock_guard<std::mutex> Lock(State->Mutex);
		Arrived.swap(State->Events);
	}
	// The owner sees the media as open from the moment it sees the event, not before, so its
	// state never changes between two of its own calls.
	for (FFmpegEvent& Event : Arrived)
	{
		if (Event.Type == EFFmpegEventType::Opened && Status == EStatus::Preparing)
		{
			Status = EStatus::Opened;
			Info = Event.Info;
		}
		else if (Event.Type == EFFmpegEventType::OpenFailed)
		{
			Status = EStatus::Failed;
		}
		OutEvents.push_back(std::move(Event));
	}
}

void FFmpegSession::Advance(double Delta)
{
	if (Status != EStatus::Opened || !(Delta > 0.0) || !std::isfinite(Delta))
	{
		return;
	}
	std::lock_guard<std::mutex> Lock(State->Mutex);
	if (bEndPosted)
	{
		return;
	}
	State->Clock += Delta;
	// The clock makes older pictures and sound stale, which frees room for the worker.
	++State->WakeCount;
	State->WorkerWake.notify_one();
	CheckEnd();
}

bool FFmpegSession::Seek(double Target)
{
	if (Status != EStatus::Opened || !Info.bSeekable || !std::isfinite(Target))
	{
		return false;
	}
	Target = std::clamp(Target, 0.0, Info.Duration);
	std::lock_guard<std::mutex> Lock(State->Mutex);
	if (++State->Generation == 0)
	{
		// Generation 0 stands for the open; a wrapped counter skips it.
		State->Generation = 1;
	}
	State->SeekTarget = Target;
	State->Clock = Target;
	State->PictureTime = Target;
	State->AudioCursor = std::llround(Target * FFmpegAudioRate);
	State->Video.Clear();
	State->Audio.Clear();
	State->bVideoFinished = false;
	State->bAudioFinished = false;
	State->VideoEnd = 0.0;
	++State->WakeCount;
	State->WorkerWake.notify_one();
	bEndPosted = false;
	return true;
}

double FFmpegSession::GetTime() const
{
	std::lock_guard<std::mutex> Lock(State->Mutex);
	return State->Clock;
}

std::shared_ptr<const FFmpegVideoFrame> FFmpegSession::AcquireVideoFrame(double Time, double WaitSeconds)
{
	std::unique_lock<std::mutex> Lock(State->Mutex);
	State->PictureTime = std::max(State->PictureTime, Time);
	if (WaitSeconds > 0.0)
	{
		// The picture due at Time is known once a later one is queued or the stream has ended.
		State->DataReady.wait_for(Lock, Seconds(WaitSeconds), [&] {
			return State->bWorkerDone || State->bVideoFinished || State->Video.HasFrameAfter(Time);
		});
	}
	std::shared_ptr<const FFmpegVideoFrame> Picture = State->Video.TakeDue(Time);
	if (Picture)
	{
		++State->WakeCount;
		State->WorkerWake.notify_one();
	}
	if (Status == EStatus::Opened && !bEndPosted)
	{
		if (WaitSeconds > 0.0 && State->bVideoFinished && State->Video.IsEmpty() && State->Clock >= State->VideoEnd && State->bHasAudio)
		{
			// The picture is over; whether the media is depends on the sound, so a waiting caller
			// also waits until it is known whether the sound goes on past the clock.
			State->DataReady.wait_for(Lock, Seconds(WaitSeconds), [&] {
				return State->bWorkerDone || State->bAudioFinished || State->Audio.EndFrame() > std::llround(State->Clock * FFmpegAudioRate);
			});
		}
		CheckEnd();
	}
	return Picture;
}

int32_t FFmpegSession::PullAudio(float* Interleaved, int32_t Frames, double WaitSeconds)
{
	if (!Interleaved || Frames <= 0)
	{
		return 0;
	}
	std::unique_lock<std::mutex> Lock(State->Mutex);
	int64_t First = 0;
	int32_t Count = 0;
	// The window runs from the reader's place to the clock, never past it.
	auto FindWindow = [&] {
		First = std::max(State->AudioCursor, State->OldestAudioFrame());
		const int64_t ClockFrame = std::llround(State->Clock * FFmpegAudioRate);
		Count = static_cast<int32_t>(std::clamp<int64_t>(ClockFrame - First, 0, Frames));
	};
	if (WaitSeconds > 0.0 && State->bHasAudio)
	{
		State->DataReady.wait_for(Lock, Seconds(WaitSeconds), [&] {
			FindWindow();
			return State->bWorkerDone || State->bAudioFinished || Count == 0 || State->Audio.EndFrame() >= First + Count;
		});
	}
	FindWindow();
	State->Audio.Read(First, Interleaved, Count);
	std::memset(Interleaved + static_cast<size_t>(Count) * FFmpegAudioChannels, 0, static_cast<size_t>(Frames - Count) * FFmpegAudioChannels * sizeof(float));
	State->AudioCursor = First + Count;
	if (Count > 0)
	{
		++State->WakeCount;
		State->WorkerWake.notify_one();
	}
	return Count;
}

bool FFmpegSession::CanPlayUrl(const std::string& Url)
{
	return FFmpegCanPlayUrl(Url);
}

void FFmpegSession::CheckEnd()
{
	if (bEndPosted || !State->bVideoFinished || !State->Video.IsEmpty() || State->Clock < State->VideoEnd)
	{
		return;
	}
	// A slide held while the teacher speaks is one picture and minutes of sound: the media ends
	// with whichever stream ends last.
	double EndTime = State->VideoEnd;
	if (State->bHasAudio)
	{
		const int64_t SoundEnd = State->Audio.EndFrame();
		if (!State->bAudioFinished || SoundEnd > std::llround(State->Clock * FFmpegAudioRate))
		{
			return;
		}
		EndTime = std::max(EndTime, static_cast<double>(SoundEnd) / FFmpegAudioRate);
	}
	bEndPosted = true;
	if (EndTime > 0.0 && State->Clock > EndTime)
	{
		State->Clock = EndTime;
	}
	State->Post(EFFmpegEventType::EndReached);
}
