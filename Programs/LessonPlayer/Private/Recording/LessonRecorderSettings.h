#pragma once

// What vidaria-player records with: the file, the picture's size and rate, and whether it has sound.

#include "CoreMinimal.h"

/** What a recording is made with. */
struct FLessonRecorderSettings
{
	/** The .mp4 to write; a file already there is replaced and missing folders are made. */
	FString Path;
	/** Picture width in pixels; frames of another size are scaled to it. Odd sizes are rounded down to even (4:2:0 needs pairs). */
	int32 Width = 1280;
	/** Picture height in pixels; see Width. */
	int32 Height = 720;
	/** Constant frame rate (1 to 240): every AddVideoFrame is the next frame, 1/FramesPerSecond later. */
	int32 FramesPerSecond = 30;
	/** Write an AAC track fed by AddAudio (or the sink from MakeAudioSink); silence where none came. */
	bool bWithSound = true;
	/** The libavcodec video encoder by name; empty picks libx264, or mpeg4 where libx264 is missing. */
	FString VideoEncoder;
	/** libx264's speed preset; empty is veryfast. superfast or ultrafast encode faster into larger files. */
	FString VideoPreset;
};
