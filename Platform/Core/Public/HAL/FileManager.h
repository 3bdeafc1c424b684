#pragma once

#include "Containers/Array.h"
#include "Containers/UnrealString.h"
#include "HAL/Platform.h"

/** Write options for FFileHelper's savers. */
enum EFileWrite
{
	FILEWRITE_None = 0x00,
	FILEWRITE_NoFail = 0x01,
	/** Fail if the file exists already. */
	FILEWRITE_NoReplaceExisting = 0x02,
	FILEWRITE_EvenIfReadOnly = 0x04,
	/** Add to the end of the file instead of replacing it. */
	FILEWRITE_Append = 0x08,
	FILEWRITE_AllowRead = 0x10,
	FILEWRITE_Silent = 0x20,
};

/**
 * The file system, as the engine's IFileManager: reach it through IFileManager::Get(). Paths are
 * UTF-8 on disk. No call throws or stops the program: a missing or unreadable file gives false,
 * -1 or no result. Every call is safe from any thread.
 */
class IFileManager
{
public:
	static CORE_API IFileManager& Get();

	/**
	 * Appends the names (no path) of the files directly in Directory, sorted; FileExtension
	 * ("txt", ".txt" or "*.txt", any case) filters them, null or "" keeps all.
	 */
	CORE_API void FindFiles(TArray<FString>& FoundFiles, const TCHAR* Directory, const TCHAR* FileExtension = nullptr);
	/** Appends the names (no path) matching Filename, a folder and a wildcard such as "Movies/Intro*", sorted. */
	CORE_API void FindFiles(TArray<FString>& Result, const TCHAR* Filename, bool Files, bool Directories);
	/**
	 * Adds StartDirectory/relative/path for every file (and/or directory) under StartDirectory
	 * whose name matches the wildcard Filename ('*', '?', any case; "*.*" matches every name).
	 * Order is fixed: each directory's entries sorted by name, its files before its subfolders,
	 * each subfolder listed just before its contents. Unreadable folders are skipped and symbolic
	 * links to folders are not followed, so a link loop cannot trap the search.
	 */
	CORE_API void FindFilesRecursive(TArray<FString>& FileNames, const TCHAR* StartDirectory, const TCHAR* Filename, bool Files, bool Directories,
		bool bClearFileNames = true);

	CORE_API bool FileExists(const TCHAR* Filename);
	CORE_API bool DirectoryExists(const TCHAR* Directory);
	/** True if the directory exists afterwards; Tree also makes missing parents. */
	CORE_API bool MakeDirectory(const TCHAR* Path, bool Tree = false);
	/** Tree removes the contents too; otherwise the directory must be empty. */
	CORE_API bool DeleteDirectory(const TCHAR* Path, bool RequireExists = false, bool Tree = false);
	/** Deletes a file (never a directory); a missing file is success unless RequireExists. */
	CORE_API bool Delete(const TCHAR* Filename, bool RequireExists = false, bool EvenReadOnly = false, bool Quiet = false);
	/**
	 * Renames Src to Dest, making Dest's folder if needed. On one file system this is atomic: a
	 * reader sees the old Dest or the new one, never a mix. Across file systems it copies, then
	 * deletes Src.
	 */
	CORE_API bool Move(const TCHAR* Dest, const TCHAR* Src, bool Replace = true, bool EvenIfReadOnly = false, bool Attributes = false,
		bool bDoNotRetryOrError = false);
	/** Size in bytes, or -1 if Filename is not a readable file. */
	CORE_API int64 FileSize(const TCHAR* Filename);

private:
	IFileManager() = default;
};
