#pragma once

// The two ways the program runs a session: headless, as fast as the machine allows with a fixed
// step (for recordings, screenshots and machines without a display), and in a window, in real
// time with the viewer's mouse and keys.

#include "CoreMinimal.h"

class FHeadlessApplication;
class FLessonSession;
struct FLessonPlayerOptions;

namespace LessonRunner
{
	/** Runs until the goal time or the last lesson's end; the process's exit code. */
	int32 RunHeadless(FLessonSession& Session, FHeadlessApplication& App, const FLessonPlayerOptions& Options);

	/** Runs in an SDL window until the viewer closes it (or the goal time); the process's exit code. */
	int32 RunInWindow(FLessonSession& Session, FHeadlessApplication& App, const FLessonPlayerOptions& Options);
}
