#pragma once

// Where the program finds what it plays when the viewer names nothing, and how a file becomes a
// URL the playlist can hold.

#include "CoreMinimal.h"

namespace LessonPlayerPaths
{
	/** The bundled sample lesson, made by the build (never committed). */
	FString DefaultLesson();
	/** The comments that go with the sample lesson, in the project's content. */
	FString DefaultComments();
	/** A file URL for an absolute path; "%" is escaped, as the media player decodes escapes in file URLs. */
	FString FileUrl(const FString& FullPath);
}
