// The media open path on any bytes: they are written to a file that a UMediaPlayer opens through
// the FFmpeg backend, with a media texture taking its pictures; the frame loop's media step runs
// until the open ends (at most two seconds of wall time), then a bounded number of frames plays
// and the player closes. Every input's work is bounded, so a run gives a steady rate; run with a
// short -timeout to catch a stuck open.

#include "FuzzKit.h"

#include "Containers/Ticker.h"
#include "MediaPlayer.h"
#include "MediaTexture.h"
#include "UObject/UObjectGlobals.h"

#include <chrono>
#include <thread>

namespace
{
	constexpr float Step = 1.f / 30.f;
	constexpr int32 PlayedFrames = 20;
	constexpr double OpenWallSeconds = 2.0;

	UMediaPlayer* Player = nullptr;
	UMediaTexture* Texture = nullptr;
	std::string MediaFile;

	void TickMedia()
	{
		FTSTicker::GetCoreTicker().Tick(Step);
		std::this_thread::sleep_for(std::chrono::microseconds(500));
	}
}

extern "C" int LLVMFuzzerInitialize(int* Argc, char*** Argv)
{
	PlainFuzz::Start(false);
	MediaFile = PlainFuzz::ScratchDir() + "input.mp4";
	Player = NewObject<UMediaPlayer>();
	Player->AddToRoot();
	Texture = NewObject<UMediaTexture>();
	Texture->AddToRoot();
	Texture->SetMediaPlayer(Player);
	return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* Data, size_t Size)
{
	PlainFuzz::WriteFile(MediaFile, Data, Size);
	if (Player->OpenFile(FString(UTF8_TO_TCHAR(MediaFile.c_str()))))
	{
		const auto Deadline = std::chrono::steady_clock::now() + std::chrono::duration<double>(OpenWallSeconds);
		while (Player->IsPreparing() && std::chrono::steady_clock::now() < Deadline)
		{
			TickMedia();
		}
		for (int32 Frame = 0; Frame < PlayedFrames && Player->IsReady(); ++Frame)
		{
			TickMedia();
		}
	}
	Player->Close();
	TickMedia();
	PlainFuzz::ForgetLog();
	return 0;
}
