#include "MediaTexture.h"

#include "MediaPlayer.h"

void UMediaTexture::SetMediaPlayer(UMediaPlayer* NewMediaPlayer)
{
	MediaPlayer = NewMediaPlayer;
	Sample.Reset();
	SeenSerial = NewMediaPlayer ? NewMediaPlayer->GetVideoSampleSerial() : 0;
}

int32 UMediaTexture::GetWidth() const
{
	Sync();
	return Sample ? Sample->Width : 0;
}

int32 UMediaTexture::GetHeight() const
{
	Sync();
	return Sample ? Sample->Height : 0;
}

TSharedPtr<const FMediaTextureSample> UMediaTexture::GetSample() const
{
	Sync();
	return Sample;
}

uint64 UMediaTexture::GetFrameCount() const
{
	Sync();
	return FrameCount;
}

void UMediaTexture::Sync() const
{
	const UMediaPlayer* Player = MediaPlayer;
	if (!Player || Player->GetVideoSampleSerial() == SeenSerial)
	{
		return;
	}
	// Counted from the player, not from reads, so a renderer that looks now and then still
	// learns how many pictures went by.
	FrameCount += Player->GetVideoSampleSerial() - SeenSerial;
	SeenSerial = Player->GetVideoSampleSerial();
	Sample = Player->GetVideoSample();
}
