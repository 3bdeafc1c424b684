#pragma once

#include "CoreMinimal.h"

class UMediaPlayer;

namespace PlainVidaria
{
	/**
	 * Gives the media player asset named InMediaPlayerName (the plain asset name: no folder, no
	 * extension, any letter case) wherever it lies below the project's content directory.
	 *
	 * InOutMediaPlayerPath is the caller's cache: pass the path an earlier call left there, or an
	 * empty string. When it still loads a media player, the content directory is not touched.
	 * Otherwise every file below the content directory is listed on the calling thread, and the
	 * first file named <InMediaPlayerName>.uasset, in the file manager's order, gives the new path
	 * ("/Game/Folder/Name"), written back even when that asset turns out to be no media player.
	 * Keep the string between calls to pay for the scan once.
	 *
	 * Null when no media player is found; when no file of that name exists at all, a red line on
	 * screen says so. Game thread only.
	 */
	PLAINVIDARIA_API UMediaPlayer* LoadMediaPlayer(const FString& InMediaPlayerName, FString& InOutMediaPlayerPath);
}
