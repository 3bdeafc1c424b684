#pragma once

// How vidaria-player talks to the viewer: one line on stderr per thing worth saying, prefixed
// with the program's name. Paths, URLs and arguments come from outside and may hold anything, so
// every line is made printable before it goes out: a newline in a file name cannot split a
// message, and a script reading stderr line by line sees one message per line.

#include "CoreMinimal.h"

namespace LessonPlayerMessages
{
	/** Text as a message may quote it: control characters are shown as \xNN, the rest is kept. */
	FString Printable(const FString& Text);

	/** Writes "vidaria-player: <Line>" on stderr, made printable, as one line. */
	void Tell(const FString& Line);
}
