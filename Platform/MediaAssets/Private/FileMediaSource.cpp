#include "FileMediaSource.h"

#include "HAL/FileManager.h"
#include "Misc/Paths.h"

void UFileMediaSource::SetFilePath(const FString& Path)
{
	FilePath = Path;
}

FString UFileMediaSource::GetFullPath() const
{
	if (FilePath.IsEmpty())
	{
		return FString();
	}
	// "./" marks a file among the project's content, as in the engine; any other relative path is
	// the host's (a command line argument), so it is taken from the current folder.
	if (FilePath.StartsWith(TEXT("./")))
	{
		return FPaths::ConvertRelativePathToFull(FPaths::ProjectContentDir(), FilePath.RightChop(2));
	}
	return FPaths::ConvertRelativePathToFull(FilePath);
}

FString UFileMediaSource::GetUrl() const
{
	return FString(TEXT("file://")) + GetFullPath();
}

bool UFileMediaSource::Validate() const
{
	return !FilePath.IsEmpty() && IFileManager::Get().FileExists(*GetFullPath());
}
