#include "LessonPlayerPaths.h"

#include "Misc/Paths.h"

FString LessonPlayerPaths::DefaultLesson()
{
	return TEXT(LESSON_PLAYER_DEFAULT_LESSON);
}

FString LessonPlayerPaths::DefaultComments()
{
	return FPaths::ProjectContentDir() + TEXT("BulletChat/DefaultLessonComments.json");
}

FString LessonPlayerPaths::FileUrl(const FString& FullPath)
{
	return TEXT("file://") + FullPath.Replace(TEXT("%"), TEXT("%25"));
}
