#pragma once

#include "Containers/UnrealString.h"
#include "HAL/Platform.h"

/**
 * Path helpers, as the engine's FPaths. Paths use '/' (a '\' is read as one too). The project
 * folders are absolute and end in '/': the project directory is, in order of precedence, what
 * SetProjectDir gave, the PLAINVIDARIA_PROJECT_DIR environment variable, or the folder the build
 * was configured for. The pure string helpers never touch the disk.
 */
class FPaths
{
public:
	static CORE_API FString ProjectDir();
	/** ProjectDir() + "Content/". */
	static CORE_API FString ProjectContentDir();
	/** ProjectDir() + "Saved/". */
	static CORE_API FString ProjectSavedDir();
	/** ProjectDir() + "Intermediate/". */
	static CORE_API FString ProjectIntermediateDir();
	/** ProjectDir() + "Config/". */
	static CORE_API FString ProjectConfigDir();
#if PLAIN_PLATFORM_INTERNALS
	/** The stand-in's: where the project lives, for hosts and tests; an empty path restores the default. */
	static CORE_API void SetProjectDir(const FString& Directory);
#endif

	/** Absolute, '/'-separated, "." and ".." collapsed; a relative path is taken from the current directory. */
	static CORE_API FString ConvertRelativePathToFull(const FString& InPath);
	static CORE_API FString ConvertRelativePathToFull(const FString& BasePath, const FString& InPath);
	/** Removes "." parts and "dir/.." pairs; false (path unchanged) when a ".." has nothing to cancel. */
	static CORE_API bool CollapseRelativeDirectories(FString& InPath);
	static CORE_API bool IsRelative(const FString& InPath);

	/** "a/b/c.txt" -> "c.txt". */
	static CORE_API FString GetCleanFilename(const FString& InPath);
	/** "a/b/c.txt" -> "c" (or "a/b/c" with bRemovePath false). */
	static CORE_API FString GetBaseFilename(const FString& InPath, bool bRemovePath = true);
	/** "a/b/c.txt" -> "txt" (".txt" with bIncludeDot); "" when the file name has no dot. */
	static CORE_API FString GetExtension(const FString& InPath, bool bIncludeDot = false);
	/** "a/b/c.txt" -> "a/b"; "" when there is no separator. */
	static CORE_API FString GetPath(const FString& InPath);
	/** The last part of a path, ignoring a trailing '/': "a/b/" -> "b". */
	static CORE_API FString GetPathLeaf(const FString& InPath);
	/** Replaces the extension ("" removes it); a path without one is returned unchanged. */
	static CORE_API FString ChangeExtension(const FString& InPath, const FString& InNewExtension);
	/** As ChangeExtension, but also adds the extension when there is none. */
	static CORE_API FString SetExtension(const FString& InPath, const FString& InNewExtension);
	static CORE_API void Split(const FString& InPath, FString& PathPart, FString& FilenamePart, FString& ExtensionPart);

	/** Joins the parts with exactly one '/' between each; empty parts are skipped. */
	template <typename... PathTypes>
	static FString Combine(const PathTypes&... InPaths)
	{
		const TCHAR* Parts[] = {PathText(InPaths)..., nullptr};
		return CombineParts(Parts, static_cast<int32>(sizeof...(PathTypes)));
	}

	/** Turns every '\' into '/'. */
	static CORE_API void NormalizeFilename(FString& InPath);
	/** NormalizeFilename, then drops a trailing '/' (a root "/" stays). */
	static CORE_API void NormalizeDirectoryName(FString& InPath);

	static CORE_API bool FileExists(const FString& InPath);
	static CORE_API bool DirectoryExists(const FString& InPath);

private:
	static const TCHAR* PathText(const FString& Path) { return *Path; }
	static const TCHAR* PathText(const TCHAR* Path) { return Path ? Path : TEXT(""); }
	static CORE_API FString CombineParts(const TCHAR* const* Parts, int32 NumParts);
};
