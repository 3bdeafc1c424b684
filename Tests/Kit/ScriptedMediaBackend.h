#pragma once

// The scripted media backend: a stand-in for a real decoder that a test drives by hand. The test
// decides when an open finishes or fails, the duration, whether seeking works, when the end comes,
// and reads back every call the player made. Header-only, so module tests can use it without the
// rest of the kit. See docs/testing.md, "Scripted media".

#include "CoreMinimal.h"
#include "MediaBackend.h"

#include <algorithm>
#include <cmath>
#include <vector>

/** One call a scripted backend received: its name and its arguments as text ("Seek", "2.5"). */
struct FScriptedMediaCall
{
	FString Name;
	FString Args;
};

/**
 * The script of one scripted media ("scripted://<name>"), shared by every backend opened for it, so
 * a test keeps the same script across closes and reopens. Game thread only, like the player.
 */
struct FScriptedMedia
{
	// What the media is like once opened. Change before FinishOpen.
	FTimespan Duration = FTimespan::FromSeconds(10.0);
	bool bSeekable = true;
	/** Post EndReached by itself when the clock reaches Duration (else only ReachEnd does). */
	bool bEndAtDuration = true;
	/** Hold seeks until CompleteSeek (else each completes at the player's next poll). */
	bool bHoldSeeks = false;
	/** Sample value of the constant sound the media plays, on both channels. */
	float AudioLevel = 0.5f;
	/** Size of the pictures in pixels (a benchmark asks for a lesson's size; tests keep them tiny). */
	int32 PictureWidth = 2;
	int32 PictureHeight = 2;

	/** Every call received, oldest first (queries such as GetTime are left out). */
	TArray<FScriptedMediaCall> Calls;
	/** Events queued for the player's next poll. */
	TArray<FMediaBackendEvent> Outbox;
	/** The media clock. */
	FTimespan Time;
	/** Open succeeded and Close has not come since. */
	bool bOpen = false;
	/** An Open came and neither FinishOpen nor FailOpen answered it yet. */
	bool bOpening = false;
	/** Pictures made so far (one per Advance while open), and whether one waits to be taken. */
	int32 PicturesMade = 0;
	bool bPictureWaiting = false;
	/** EndReached was posted at the current position; cleared by a seek. */
	bool bEndPosted = false;
	/** Where the sound reader stands, in 48 kHz frames. */
	int64 AudioCursor = 0;

	/** Lets the pending open succeed. */
	void FinishOpen()
	{
		bOpening = false;
		bOpen = true;
		Post(EMediaBackendEvent::Opened);
	}
	/** Lets the pending open fail with Reason. */
	void FailOpen(const FString& Reason)
	{
		bOpening = false;
		Post(EMediaBackendEvent::OpenFailed, Reason);
	}
	/** Completes a held seek. */
	void CompleteSeek() { Post(EMediaBackendEvent::SeekCompleted); }
	/** Brings the end now. */
	void ReachEnd()
	{
		Time = Duration;
		bEndPosted = true;
		Post(EMediaBackendEvent::EndReached);
	}
	/** Reports a playback error. */
	void PostError(const FString& Message) { Post(EMediaBackendEvent::Error, Message); }

	/** The calls named Name, in order, as their argument texts. */
	TArray<FString> ArgsOf(const FString& Name) const
	{
		TArray<FString> Args;
		for (const FScriptedMediaCall& Call : Calls)
		{
			if (Call.Name == Name)
			{
				Args.Add(Call.Args);
			}
		}
		return Args;
	}
	/** The names of all calls but Advance, in order, joined by spaces: "Open SetRate Seek". */
	FString CallNames() const
	{
		FString Names;
		for (const FScriptedMediaCall& Call : Calls)
		{
			if (Call.Name != TEXT("Advance"))
			{
				Names += Names.IsEmpty() ? Call.Name : TEXT(" ") + Call.Name;
			}
		}
		return Names;
	}

	void Post(EMediaBackendEvent Type, const FString& Message = FString()) { Outbox.Add({Type, Message}); }
	void Record(const TCHAR* Name, const FString& Args = FString()) { Calls.Add({Name, Args}); }
};

/** The backend a player gets for a scripted URL; does what its script says. */
class FScriptedMediaBackend final : public IMediaBackend
{
public:
	explicit FScriptedMediaBackend(TSharedPtr<FScriptedMedia> InScript) : Script(MoveTemp(InScript)) {}

	bool Open(const FString& Location, FString& OutError) override
	{
		Script->Record(TEXT("Open"), Location);
		Script->Outbox.Reset();
		Script->Time = FTimespan::Zero();
		Script->bOpen = false;
		Script->bOpening = true;
		Script->bEndPosted = false;
		Script->AudioCursor = 0;
		return true;
	}
	void Close() override
	{
		Script->Record(TEXT("Close"));
		Script->bOpen = false;
		Script->bOpening = false;
		Script->Outbox.Reset();
	}
	void PollEvents(TArray<FMediaBackendEvent>& OutEvents) override
	{
		OutEvents.Append(Script->Outbox);
		Script->Outbox.Reset();
	}
	void Advance(FTimespan Delta) override
	{
		Script->Record(TEXT("Advance"), FString::Printf(TEXT("%.6f"), Delta.GetTotalSeconds()));
		if (!Script->bOpen || Script->bEndPosted)
		{
			return;
		}
		Script->Time = std::min(Script->Time + Delta, Script->Duration);
		++Script->PicturesMade;
		Script->bPictureWaiting = true;
		if (Script->bEndAtDuration && Script->Time >= Script->Duration)
		{
			Script->ReachEnd();
		}
	}
	bool Seek(FTimespan Time) override
	{
		Script->Record(TEXT("Seek"), FString::Printf(TEXT("%.3f"), Time.GetTotalSeconds()));
		if (!Script->bOpen || !Script->bSeekable)
		{
			return false;
		}
		Script->Time = std::clamp(Time, FTimespan::Zero(), Script->Duration);
		Script->bEndPosted = false;
		Script->AudioCursor = std::llround(Script->Time.GetTotalSeconds() * 48000.0);
		if (!Script->bHoldSeeks)
		{
			Script->CompleteSeek();
		}
		return true;
	}
	bool SetRate(float Rate) override
	{
		Script->Record(TEXT("SetRate"), FString::Printf(TEXT("%g"), Rate));
		return true;
	}
	bool SetNativeVolume(float Volume) override
	{
		Script->Record(TEXT("SetNativeVolume"), FString::Printf(TEXT("%g"), Volume));
		return false;
	}
	FTimespan GetTime() const override { return Script->Time; }
	FTimespan GetDuration() const override { return Script->bOpen ? Script->Duration : FTimespan::Zero(); }
	bool SupportsSeeking() const override { return Script->bOpen && Script->bSeekable; }
	TSharedPtr<const FMediaTextureSample> AcquireVideoSample() override
	{
		if (!Script->bPictureWaiting)
		{
			return nullptr;
		}
		Script->bPictureWaiting = false;
		// An opaque cyan picture (2x2 unless asked) whose red channel counts the pictures, so a
		// test can tell them apart.
		const int32 Width = FMath::Max(1, Script->PictureWidth);
		const int32 Height = FMath::Max(1, Script->PictureHeight);
		const size_t PixelCount = static_cast<size_t>(Width) * static_cast<size_t>(Height);
		auto Pixels = std::make_shared<std::vector<uint8>>(PixelCount * 4, static_cast<uint8>(255));
		for (size_t Pixel = 0; Pixel < PixelCount; ++Pixel)
		{
			(*Pixels)[Pixel * 4] = static_cast<uint8>(Script->PicturesMade);
		}
		TSharedPtr<FMediaTextureSample> Sample = MakeShared<FMediaTextureSample>();
		Sample->Width = Width;
		Sample->Height = Height;
		Sample->Stride = Width * 4;
		Sample->Time = Script->Time;
		Sample->Pixels = Pixels->data();
		Sample->Storage = Pixels;
		return Sample;
	}
	int32 PullAudio(float* Interleaved, int32 Frames) override
	{
		const int64 ClockFrame = std::llround(Script->Time.GetTotalSeconds() * 48000.0);
		const int32 Count = static_cast<int32>(std::clamp<int64>(ClockFrame - Script->AudioCursor, 0, Frames));
		std::fill(Interleaved, Interleaved + Count * 2, Script->AudioLevel);
		std::fill(Interleaved + Count * 2, Interleaved + Frames * 2, 0.f);
		Script->AudioCursor += Count;
		return Count;
	}

private:
	// The script shared with the test and with later opens of the same name.
	TSharedPtr<FScriptedMedia> Script;
};
