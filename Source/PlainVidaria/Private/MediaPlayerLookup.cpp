#include "MediaPlayerLookup.h"

#include "Engine/Engine.h"
#include "HAL/FileManager.h"
#include "MediaPlayer.h"
#include "Misc/Paths.h"
#include "Templates/Casts.h"
#include "UObject/UObjectGlobals.h"

namespace
{
	// The asset's package path if a file <InMediaPlayerName>.uasset lies below the content
	// directory. OutMediaPlayerPath is written only on success, so a failed scan leaves the
	// caller's cache as it was.
	bool FindMediaPlayerPath(const FString& InMediaPlayerName, FString& OutMediaPlayerPath)
	{
		const FString ContentDir = FPaths::ConvertRelativePathToFull(FPaths::ProjectContentDir());
		TArray<FString> FoundFiles;
		IFileManager::Get().FindFilesRecursive(FoundFiles, *ContentDir, TEXT("*.*"), true, false, true);

		const FString WantedFileName = InMediaPlayerName + TEXT(".uasset");
		for (const FString& FoundFile : FoundFiles)
		{
			// Asset names are matched as the engine matches names, ignoring case; the path keeps
			// the file's own spelling so the loader finds it on a case-sensitive disk.
			if (!FPaths::GetCleanFilename(FoundFile).Equals(WantedFileName, ESearchCase::IgnoreCase))
			{
				continue;
			}
			FString ContentRoot;
			FString RelativePath;
			FoundFile.Split(TEXT("/Content/"), &ContentRoot, &RelativePath, ESearchCase::IgnoreCase, ESearchDir::FromStart);
			RelativePath.RemoveFromEnd(TEXT(".uasset"), 7, ESearchCase::IgnoreCase);

			FString PackagePath = TEXT("/Game");
			PackagePath.PathAppend(*RelativePath, RelativePath.Len());
			OutMediaPlayerPath = MoveTemp(PackagePath);
			return true;
		}
		return false;
	}

	// The media player at a package path; null for nothing there or an object of another class.
	UMediaPlayer* LoadMediaPlayerAt(const FString& InMediaPlayerPath)
	{
		const TCHAR* Path = InMediaPlayerPath.IsEmpty() ? TEXT("") : *InMediaPlayerPath;
		UObject* Loaded = StaticLoadObject(UMediaPlayer::StaticClass(), nullptr, Path, nullptr, LOAD_None, nullptr, true, nullptr);
		return Cast<UMediaPlayer>(Loaded);
	}
}

namespace PlainVidaria
{
	UMediaPlayer* LoadMediaPlayer(const FString& InMediaPlayerName, FString& InOutMediaPlayerPath)
	{
		if (UMediaPlayer* Cached = LoadMediaPlayerAt(InOutMediaPlayerPath))
		{
			return Cached;
		}
		if (FindMediaPlayerPath(InMediaPlayerName, InOutMediaPlayerPath))
		{
			// A file of that name that is no media player gives null without a message: the asset
			// is there, only of another kind, and the path now says where.
			return LoadMediaPlayerAt(InOutMediaPlayerPath);
		}
		if (GEngine)
		{
			const FString Message = FString::Printf(
				TEXT("The instance named %s can't be found. Please check whether the name of mediaplayer has been modified or deleted."),
				*InMediaPlayerName);
			GEngine->AddOnScreenDebugMessage(-1, 10.0f, FColor::Red, Message, true, FVector2D::UnitVector);
		}
		return nullptr;
	}
}
