// IFileManager's directory searches.

#include "HAL/FileManager.h"

#include "HAL/FileSystemPath.h"

#include <algorithm>
#include <string>
#include <system_error>
#include <vector>

namespace fs = std::filesystem;
using UE::Core::Private::ToFileSystemPath;

namespace
{
	struct FEntry
	{
		// The name as stored on disk (UTF-8 bytes), which is also the sort key.
		std::string Name;
		// A real directory; symbolic links to directories are left out altogether.
		bool bDirectory = false;
	};

	// One directory's entries, sorted by name. An unreadable directory reads as empty.
	std::vector<FEntry> ListDirectory(const fs::path& Directory)
	{
		std::vector<FEntry> Entries;
		std::error_code Error;
		fs::directory_iterator It(Directory, fs::directory_options::skip_permission_denied, Error);
		for (; !Error && It != fs::directory_iterator(); It.increment(Error))
		{
			// The type comes from the directory listing itself, so this costs no extra system
			// call per entry except for symbolic links, whose target must be looked at.
			std::error_code TypeError;
			const bool bLink = It->is_symlink(TypeError);
			const bool bDirectory = It->is_directory(TypeError);
			if (TypeError || (bLink && bDirectory))
			{
				continue;
			}
			if (!bDirectory && !It->is_regular_file(TypeError))
			{
				continue;
			}
			Entries.push_back(FEntry{It->path().filename().native(), bDirectory});
		}
		std::sort(Entries.begin(), Entries.end(), [](const FEntry& A, const FEntry& B) { return A.Name < B.Name; });
		return Entries;
	}

	// "*.*" means every name in the engine, even one without a dot.
	FString EffectiveWildcard(const TCHAR* Wildcard)
	{
		FString Result = (Wildcard && *Wildcard) ? FString(Wildcard) : FString(TEXT("*"));
		return Result == TEXT("*.*") ? FString(TEXT("*")) : Result;
	}

	FString WithoutTrailingSeparators(const TCHAR* Directory)
	{
		FString Result = Directory ? FString(Directory) : FString();
		Result.ReplaceCharInline('\\', '/', ESearchCase::CaseSensitive);
		while (Result.Len() > 1 && Result.EndsWith(TEXT("/")))
		{
			Result.LeftChopInline(1);
		}
		return Result;
	}
}

void IFileManager::FindFiles(TArray<FString>& FoundFiles, const TCHAR* Directory, const TCHAR* FileExtension)
{
	FString Extension = FileExtension ? FString(FileExtension) : FString();
	Extension.RemoveFromStart(TEXT("*"));
	Extension.RemoveFromStart(TEXT("."));
	const FString Wildcard = Extension.IsEmpty() ? FString(TEXT("*")) : TEXT("*.") + Extension;
	FindFiles(FoundFiles, *(WithoutTrailingSeparators(Directory) / Wildcard), true, false);
}

void IFileManager::FindFiles(TArray<FString>& Result, const TCHAR* Filename, bool Files, bool Directories)
{
	const FString Pattern = WithoutTrailingSeparators(Filename);
	const int32 Slash = Pattern.Find(TEXT("/"), ESearchCase::CaseSensitive, ESearchDir::FromEnd);
	const FString Directory = Slash == INDEX_NONE ? FString(TEXT(".")) : (Slash == 0 ? FString(TEXT("/")) : Pattern.Left(Slash));
	const FString Wildcard = EffectiveWildcard(*Pattern.Mid(Slash + 1));
	for (const FEntry& Entry : ListDirectory(ToFileSystemPath(*Directory)))
	{
		const FString Name = FString::FromUTF8(Entry.Name.data(), static_cast<int32>(Entry.Name.size()));
		if ((Entry.bDirectory ? Directories : Files) && Name.MatchesWildcard(Wildcard))
		{
			Result.Add(Name);
		}
	}
}

void IFileManager::FindFilesRecursive(TArray<FString>& FileNames, const TCHAR* StartDirectory, const TCHAR* Filename, bool Files, bool Directories,
	bool bClearFileNames)
{
	if (bClearFileNames)
	{
		FileNames.Empty();
	}
	const FString Wildcard = EffectiveWildcard(Filename);
	// Depth-first with an explicit stack, so a very deep tree cannot exhaust the call stack.
	// Subfolders are pushed in reverse so that they come off in name order.
	struct FPending
	{
		// The folder as it will be printed (StartDirectory/...).
		FString Path;
		// Whether to list the folder itself before its contents.
		bool bListSelf = false;
	};
	std::vector<FPending> Stack{FPending{WithoutTrailingSeparators(StartDirectory), false}};
	while (!Stack.empty())
	{
		FPending Current = std::move(Stack.back());
		Stack.pop_back();
		if (Current.bListSelf)
		{
			FileNames.Add(Current.Path);
		}
		const std::vector<FEntry> Entries = ListDirectory(ToFileSystemPath(*Current.Path));
		const SIZE_T FirstChild = Stack.size();
		for (const FEntry& Entry : Entries)
		{
			const FString Name = FString::FromUTF8(Entry.Name.data(), static_cast<int32>(Entry.Name.size()));
			if (Entry.bDirectory)
			{
				Stack.push_back(FPending{Current.Path / Name, Directories && Name.MatchesWildcard(Wildcard)});
			}
			else if (Files && Name.MatchesWildcard(Wildcard))
			{
				FileNames.Add(Current.Path / Name);
			}
		}
		std::reverse(Stack.begin() + static_cast<std::ptrdiff_t>(FirstChild), Stack.end());
	}
}
