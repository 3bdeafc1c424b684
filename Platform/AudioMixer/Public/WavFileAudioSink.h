#pragma once

// FWavFileAudioSink: writes the mix to a WAV file (32-bit float, 48 kHz stereo), to record a
// session or to measure what a test played.

#if !PLAIN_PLATFORM_INTERNALS
#error "WavFileAudioSink.h belongs to the stand-in's audio output; the engine has no such header"
#endif

#include "AudioSink.h"
#include "CoreMinimal.h"

#include <cstdio>

namespace UE::Audio
{
	/** A WAV file that is complete and valid after every Write, so a crash never leaves it unreadable. */
	class AUDIOMIXER_API FWavFileAudioSink final : public IAudioSink
	{
	public:
		/** Creates (or replaces) the file; IsOpen tells whether that worked. */
		explicit FWavFileAudioSink(const FString& InPath);
		~FWavFileAudioSink() override;
		FWavFileAudioSink(const FWavFileAudioSink&) = delete;
		FWavFileAudioSink& operator=(const FWavFileAudioSink&) = delete;

		/** True when the file could be created. */
		bool IsOpen() const { return File != nullptr; }
		/** Frames written so far. */
		int64 GetFramesWritten() const { return FramesWritten; }

		void Write(const float* Interleaved, int32 Frames) override;

	private:
		// Writes the header for the frames written so far at the file's start.
		void WriteHeader();

		// The file, or null when it could not be created.
		FILE* File = nullptr;
		// Frames of sound in the file.
		int64 FramesWritten = 0;
	};
}
