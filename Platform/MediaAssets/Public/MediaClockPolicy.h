#pragma once

#if !PLAIN_PLATFORM_INTERNALS
#error "MediaClockPolicy.h belongs to the stand-in; the engine has no such header"
#endif

// How the stand-in's media keeps up with the loop's clock. Stand-in only: the engine's players
// run on the wall clock and drop what is late; a headless host that runs a fixed step as fast as
// it can must instead hold each frame until the media due at it is decoded, or its recording and
// screenshots show pictures from seconds ago.

#include "CoreMinimal.h"

/** What a frame does when the picture or sound due at the clock is not decoded yet. */
enum class EMediaClockPolicy : uint8
{
	/**
	 * The loop follows the wall clock (a window, the tests' default). A local file may hold the
	 * frame briefly while its decoder catches up; a network stream never does, so a slow server
	 * shows late pictures instead of freezing the window.
	 */
	WallClock,
	/**
	 * The loop runs a fixed step at its own pace (a headless run). Every media, network streams
	 * included, holds the frame until what is due is decoded (or the network gives up), so the
	 * run shows the same frames whatever the machine and the network.
	 */
	FixedStep,
};

/** Game thread; read by every backend at each frame, so it may change while media is open. */
MEDIAASSETS_API void SetMediaClockPolicy(EMediaClockPolicy Policy);
MEDIAASSETS_API EMediaClockPolicy GetMediaClockPolicy();
