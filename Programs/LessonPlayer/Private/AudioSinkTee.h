#pragma once

// FAudioSinkTee: hands the mix to two sinks, so a window run can record and be heard at once.

#include "AudioSink.h"
#include "CoreMinimal.h"

/** Writes every block of the mix to both of its sinks; a null sink is skipped. */
class FAudioSinkTee : public UE::Audio::IAudioSink
{
public:
	FAudioSinkTee(TSharedPtr<UE::Audio::IAudioSink> InFirst, TSharedPtr<UE::Audio::IAudioSink> InSecond)
		: First(MoveTemp(InFirst))
		, Second(MoveTemp(InSecond))
	{
	}

	void Write(const float* Interleaved, int32 Frames) override
	{
		if (First)
		{
			First->Write(Interleaved, Frames);
		}
		if (Second)
		{
			Second->Write(Interleaved, Frames);
		}
	}

private:
	// The sink that had the mix before (a recording).
	TSharedPtr<UE::Audio::IAudioSink> First;
	// The sink added (the speakers).
	TSharedPtr<UE::Audio::IAudioSink> Second;
};
