#pragma once

// ELessonKey: the keyboard commands of the lesson player's window. The window turns SDL's keys
// into these, so the program's loop never sees SDL and a test can feed the same commands.

#include "CoreTypes.h"

/** What a key press asks the player to do. */
enum class ELessonKey : uint8
{
	/** Space: pause a playing lesson, or resume a paused one. */
	TogglePause,
	/** Left arrow: jump back a few seconds. */
	SeekBackward,
	/** Right arrow: jump ahead a few seconds. */
	SeekForward,
	/** Up arrow: louder. */
	VolumeUp,
	/** Down arrow: quieter. */
	VolumeDown,
	/** M: mute, or give back the volume from before muting. */
	ToggleMute,
	/** F: the player's own full screen (its widget fills the viewport), or back. */
	ToggleFullScreen,
	/** C: hide the flying comments, or show them again. */
	ToggleComments,
	/** Escape or Q: close the player. */
	Quit
};
