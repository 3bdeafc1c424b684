#pragma once

// Where the mixed sound goes. Stand-in only: the engine owns an audio device; here the host
// chooses a sink, and with none the mix is made and dropped, so playback behaves the same.

#if !PLAIN_PLATFORM_INTERNALS
#error "AudioSink.h belongs to the stand-in's audio output; the engine has no such header"
#endif

#include "CoreMinimal.h"
#include "Templates/SharedPointer.h"

namespace UE::Audio
{
	/** The mix's format: 48 kHz, interleaved float stereo. */
	inline constexpr int32 MixerSampleRate = 48000;
	inline constexpr int32 MixerChannels = 2;

	/** Receives the mix, one block per frame of the loop, on the game thread. */
	class IAudioSink
	{
	public:
		virtual ~IAudioSink() = default;
		/** Takes Frames frames of interleaved stereo at MixerSampleRate. */
		virtual void Write(const float* Interleaved, int32 Frames) = 0;
	};

	/** Sends the mix to Sink from the next frame on; null drops it. Game thread only. */
	AUDIOMIXER_API void SetAudioSink(TSharedPtr<IAudioSink> Sink);

	/** The current sink, or null. */
	AUDIOMIXER_API TSharedPtr<IAudioSink> GetAudioSink();
}
