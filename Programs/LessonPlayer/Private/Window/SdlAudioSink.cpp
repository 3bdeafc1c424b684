#include "Window/SdlAudioSink.h"

#define SDL_MAIN_HANDLED
#include <SDL.h>

#include <algorithm>
#include <cmath>

namespace
{
	// One frame: a float per channel.
	constexpr int32 BytesPerFrame = int32(sizeof(float)) * UE::Audio::MixerChannels;
}

int32 FSdlAudioSink::GetMaxQueuedFrames()
{
	return int32(std::lround(MaxQueuedSeconds * UE::Audio::MixerSampleRate));
}

TSharedPtr<FSdlAudioSink> FSdlAudioSink::Open(FString& OutError)
{
	SDL_SetMainReady();
	if (SDL_InitSubSystem(SDL_INIT_AUDIO) != 0)
	{
		OutError = FString::Printf(TEXT("no sound: %s"), UTF8_TO_TCHAR(SDL_GetError()));
		return nullptr;
	}
	SDL_AudioSpec Wanted;
	SDL_zero(Wanted);
	Wanted.freq = UE::Audio::MixerSampleRate;
	Wanted.format = AUDIO_F32SYS;
	Wanted.channels = Uint8(UE::Audio::MixerChannels);
	// About 21 ms per device period: short enough for the latency rule, long enough not to starve.
	Wanted.samples = 1024;
	Wanted.callback = nullptr;
	// No allowed changes: SDL converts to whatever the hardware takes, so the queue always holds the mixer's format.
	const SDL_AudioDeviceID Device = SDL_OpenAudioDevice(nullptr, 0, &Wanted, nullptr, 0);
	if (Device == 0)
	{
		OutError = FString::Printf(TEXT("no sound device: %s"), UTF8_TO_TCHAR(SDL_GetError()));
		SDL_QuitSubSystem(SDL_INIT_AUDIO);
		return nullptr;
	}
	SDL_PauseAudioDevice(Device, 0);
	return TSharedPtr<FSdlAudioSink>(new FSdlAudioSink(Device));
}

FSdlAudioSink::~FSdlAudioSink()
{
	SDL_CloseAudioDevice(Device);
	SDL_QuitSubSystem(SDL_INIT_AUDIO);
}

void FSdlAudioSink::Write(const float* Interleaved, int32 Frames)
{
	if (!Interleaved || Frames <= 0)
	{
		return;
	}
	// Filling up to the limit and dropping the tail keeps the queue as full as the rule allows,
	// so a loop that runs slightly fast loses a few samples now and then instead of stuttering.
	const int32 Room = std::max(0, GetMaxQueuedFrames() - GetQueuedFrames());
	const int32 Taken = std::min(Frames, Room);
	if (Taken > 0 && SDL_QueueAudio(Device, Interleaved, Uint32(Taken) * BytesPerFrame) != 0)
	{
		DroppedFrames += Frames;
		return;
	}
	DroppedFrames += Frames - Taken;
}

int32 FSdlAudioSink::GetQueuedFrames() const
{
	return int32(SDL_GetQueuedAudioSize(Device) / BytesPerFrame);
}
