#include "AudioMixerDevice.h"

#include "AudioSink.h"
#include "Components/SynthComponent.h"
#include "Containers/Ticker.h"
#include "UObject/WeakObjectPtrTemplates.h"

#include <algorithm>
#include <cmath>

namespace
{
	struct FMixer
	{
		// Synths in the mix, weakly: a component's life is its owner's affair.
		TArray<TWeakObjectPtr<USynthComponent>> Synths;
		// Where the mix goes; null drops it.
		TSharedPtr<UE::Audio::IAudioSink> Sink;
		// Seconds mixed so far; frames per step come from it so rounding never drifts.
		double MixedSeconds = 0.0;
		int64 MixedFrames = 0;
		// The block being mixed, reused every frame.
		TArray<float> Block;
		bool bTickerAdded = false;
	};

	FMixer& Mixer()
	{
		static FMixer Instance;
		return Instance;
	}

	bool MixStep(float DeltaSeconds)
	{
		FMixer& M = Mixer();
		if (DeltaSeconds <= 0.f)
		{
			return true;
		}
		M.MixedSeconds += DeltaSeconds;
		const int64 Target = std::llround(M.MixedSeconds * UE::Audio::MixerSampleRate);
		const int32 Frames = static_cast<int32>(Target - M.MixedFrames);
		M.MixedFrames = Target;
		if (Frames <= 0)
		{
			return true;
		}
		M.Block.SetNumUninitialized(Frames * UE::Audio::MixerChannels);
		std::fill(M.Block.GetData(), M.Block.GetData() + M.Block.Num(), 0.f);
		M.Synths.RemoveAll([](const TWeakObjectPtr<USynthComponent>& Synth) { return !Synth.IsValid(); });
		const TArray<TWeakObjectPtr<USynthComponent>> Snapshot = M.Synths;
		for (const TWeakObjectPtr<USynthComponent>& Synth : Snapshot)
		{
			if (USynthComponent* Alive = Synth.Get())
			{
				Alive->MixInto(M.Block.GetData(), Frames);
			}
		}
		if (M.Sink)
		{
			M.Sink->Write(M.Block.GetData(), Frames);
		}
		return true;
	}
}

namespace UE::Audio
{
	void SetAudioSink(TSharedPtr<IAudioSink> Sink)
	{
		Mixer().Sink = MoveTemp(Sink);
	}

	TSharedPtr<IAudioSink> GetAudioSink()
	{
		return Mixer().Sink;
	}
}

namespace UE::Audio::Private
{
	void AddSynth(USynthComponent* Synth)
	{
		FMixer& M = Mixer();
		if (!M.bTickerAdded)
		{
			M.bTickerAdded = true;
			FTSTicker::GetCoreTicker().AddTicker(FTickerDelegate::CreateStatic(&MixStep));
		}
		M.Synths.AddUnique(Synth);
	}

	void RemoveSynth(USynthComponent* Synth)
	{
		Mixer().Synths.Remove(Synth);
	}
}
