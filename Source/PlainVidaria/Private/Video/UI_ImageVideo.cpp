#include "Video/UI_ImageVideo.h"

#include "MediaPlayer.h"

UUI_ImageVideo::UUI_ImageVideo(const FObjectInitializer& ObjectInitializer)
	: Super()
{
	MediaPlayer = nullptr;
}

void UUI_ImageVideo::InitMadia()
{
}

bool UUI_ImageVideo::Play(const FString& InURL)
{
	if (!MediaPlayer)
	{
		return false;
	}
	// The player alone decides whether the text is a URL; a refused URL is not retried as a file.
	if (MediaPlayer->CanPlayUrl(InURL))
	{
		return MediaPlayer->OpenUrl(InURL);
	}
	return MediaPlayer->OpenFile(InURL);
}

void UUI_ImageVideo::NativeConstruct()
{
	Super::NativeConstruct();
	InitMadia();
}

void UUI_ImageVideo::NativeDestruct()
{
	Super::NativeDestruct();
	if (MediaPlayer)
	{
		MediaPlayer->Close();
	}
	MediaPlayer = nullptr;
}
