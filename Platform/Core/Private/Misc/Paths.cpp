#include "Misc/Paths.h"

#include "HAL/FileSystemPath.h"
#include "Misc/Char.h"

#include <cstdlib>
#include <mutex>
#include <system_error>
#include <vector>

#ifndef PLAIN_DEFAULT_PROJECT_DIR
#define PLAIN_DEFAULT_PROJECT_DIR "./"
#endif

namespace
{
	bool IsSeparator(TCHAR Char)
	{
		return Char == '/' || Char == '\\';
	}

	int32 FindLastSeparator(const FString& Path)
	{
		for (int32 Index = Path.Len() - 1; Index >= 0; --Index)
		{
			if (IsSeparator(Path[Index]))
			{
				return Index;
			}
		}
		return INDEX_NONE;
	}

	// Length of the part that makes a path absolute: "/" or a drive such as "C:/" (or "C:").
	int32 RootLength(const FString& Path)
	{
		if (!Path.IsEmpty() && IsSeparator(Path[0]))
		{
			return 1;
		}
		if (Path.Len() >= 2 && Path[1] == ':' && FChar::IsAlpha(Path[0]))
		{
			return (Path.Len() >= 3 && IsSeparator(Path[2])) ? 3 : 2;
		}
		return 0;
	}

	// Collapses "." and "dir/..". A ".." with nothing before it to cancel either fails (leaving
	// Path alone) or, for an absolute path when bClampAtRoot is set, stays at the root as the
	// operating system would resolve it.
	bool CollapseParts(FString& Path, bool bClampAtRoot)
	{
		FString Normal = Path.Replace(TEXT("\\"), TEXT("/"), ESearchCase::CaseSensitive);
		const int32 Root = RootLength(Normal);
		const bool bTrailingSlash = Normal.Len() > Root && Normal.EndsWith(TEXT("/"));
		std::vector<FString> Parts;
		FString Rest = Normal.RightChop(Root);
		FString Part;
		while (!Rest.IsEmpty())
		{
			if (!Rest.Split(TEXT("/"), &Part, &Rest))
			{
				Part = Rest;
				Rest.Empty();
			}
			if (Part.IsEmpty() || Part.Equals(TEXT(".")))
			{
				continue;
			}
			if (Part.Equals(TEXT("..")))
			{
				if (!Parts.empty() && !Parts.back().Equals(TEXT("..")))
				{
					Parts.pop_back();
					continue;
				}
				if (Root > 0 && bClampAtRoot)
				{
					continue;
				}
				return false;
			}
			Parts.push_back(Part);
		}
		FString Result = Normal.Left(Root);
		for (SIZE_T Index = 0; Index < Parts.size(); ++Index)
		{
			Result += Index > 0 ? TEXT("/") : TEXT("");
			Result += Parts[Index];
		}
		if (bTrailingSlash && !Parts.empty())
		{
			Result += TEXT("/");
		}
		Path = Result;
		return true;
	}

	FString CurrentDirectory()
	{
		std::error_code Error;
		const std::filesystem::path Current = std::filesystem::current_path(Error);
		return Error ? FString(TEXT("/")) : UE::Core::Private::FromFileSystemPath(Current);
	}

	// Stand-in only: the directory SetProjectDir chose.
	struct FProjectDirOverride
	{
		// Guards Directory: hosts set it while worker threads may be reading paths.
		std::mutex Mutex;
		// The chosen project directory; empty when none was set.
		FString Directory;
	};

	FProjectDirOverride& GetProjectDirOverride()
	{
		static FProjectDirOverride Override;
		return Override;
	}
}

FString FPaths::ProjectDir()
{
	FString Directory;
	{
		FProjectDirOverride& Override = GetProjectDirOverride();
		std::lock_guard Lock(Override.Mutex);
		Directory = Override.Directory;
	}
	if (Directory.IsEmpty())
	{
		const char* FromEnvironment = std::getenv("PLAINVIDARIA_PROJECT_DIR");
		Directory = FromEnvironment && *FromEnvironment ? FString(FromEnvironment) : FString(PLAIN_DEFAULT_PROJECT_DIR);
	}
	Directory = ConvertRelativePathToFull(Directory);
	if (!Directory.EndsWith(TEXT("/")))
	{
		Directory += TEXT("/");
	}
	return Directory;
}

FString FPaths::ProjectContentDir()
{
	return ProjectDir() + TEXT("Content/");
}

FString FPaths::ProjectSavedDir()
{
	return ProjectDir() + TEXT("Saved/");
}

FString FPaths::ProjectIntermediateDir()
{
	return ProjectDir() + TEXT("Intermediate/");
}

FString FPaths::ProjectConfigDir()
{
	return ProjectDir() + TEXT("Config/");
}

void FPaths::SetProjectDir(const FString& Directory)
{
	FProjectDirOverride& Override = GetProjectDirOverride();
	std::lock_guard Lock(Override.Mutex);
	Override.Directory = Directory;
}

FString FPaths::ConvertRelativePathToFull(const FString& InPath)
{
	return ConvertRelativePathToFull(CurrentDirectory(), InPath);
}

FString FPaths::ConvertRelativePathToFull(const FString& BasePath, const FString& InPath)
{
	FString Full = IsRelative(InPath) ? FString(BasePath) / InPath : InPath;
	if (IsRelative(Full))
	{
		Full = CurrentDirectory() / Full;
	}
	CollapseParts(Full, true);
	return Full;
}

bool FPaths::CollapseRelativeDirectories(FString& InPath)
{
	return CollapseParts(InPath, false);
}

bool FPaths::IsRelative(const FString& InPath)
{
	return RootLength(InPath) == 0;
}

FString FPaths::GetCleanFilename(const FString& InPath)
{
	return InPath.RightChop(FindLastSeparator(InPath) + 1);
}

FString FPaths::GetBaseFilename(const FString& InPath, bool bRemovePath)
{
	const FString Work = bRemovePath ? GetCleanFilename(InPath) : InPath;
	const int32 Dot = Work.Find(TEXT("."), ESearchCase::CaseSensitive, ESearchDir::FromEnd);
	return Dot != INDEX_NONE && Dot > FindLastSeparator(Work) ? Work.Left(Dot) : Work;
}

FString FPaths::GetExtension(const FString& InPath, bool bIncludeDot)
{
	const FString Filename = GetCleanFilename(InPath);
	const int32 Dot = Filename.Find(TEXT("."), ESearchCase::CaseSensitive, ESearchDir::FromEnd);
	return Dot == INDEX_NONE ? FString() : Filename.Mid(Dot + (bIncludeDot ? 0 : 1));
}

FString FPaths::GetPath(const FString& InPath)
{
	const int32 Separator = FindLastSeparator(InPath);
	return Separator == INDEX_NONE ? FString() : InPath.Left(Separator);
}

FString FPaths::GetPathLeaf(const FString& InPath)
{
	FString Trimmed = InPath;
	while (Trimmed.Len() > 1 && IsSeparator(Trimmed[Trimmed.Len() - 1]))
	{
		Trimmed.LeftChopInline(1);
	}
	return GetCleanFilename(Trimmed);
}

FString FPaths::ChangeExtension(const FString& InPath, const FString& InNewExtension)
{
	const FString Extension = GetExtension(InPath, true);
	return Extension.IsEmpty() ? InPath : SetExtension(InPath, InNewExtension);
}

FString FPaths::SetExtension(const FString& InPath, const FString& InNewExtension)
{
	FString Result = InPath.LeftChop(GetExtension(InPath, true).Len());
	if (!InNewExtension.IsEmpty() && !InNewExtension.StartsWith(TEXT(".")))
	{
		Result += TEXT(".");
	}
	return Result + InNewExtension;
}

void FPaths::Split(const FString& InPath, FString& PathPart, FString& FilenamePart, FString& ExtensionPart)
{
	PathPart = GetPath(InPath);
	FilenamePart = GetBaseFilename(InPath);
	ExtensionPart = GetExtension(InPath);
}

void FPaths::NormalizeFilename(FString& InPath)
{
	InPath.ReplaceCharInline('\\', '/', ESearchCase::CaseSensitive);
}

void FPaths::NormalizeDirectoryName(FString& InPath)
{
	NormalizeFilename(InPath);
	while (InPath.Len() > RootLength(InPath) && InPath.EndsWith(TEXT("/")))
	{
		InPath.LeftChopInline(1);
	}
}

bool FPaths::FileExists(const FString& InPath)
{
	std::error_code Error;
	return std::filesystem::is_regular_file(UE::Core::Private::ToFileSystemPath(*InPath), Error);
}

bool FPaths::DirectoryExists(const FString& InPath)
{
	std::error_code Error;
	return std::filesystem::is_directory(UE::Core::Private::ToFileSystemPath(*InPath), Error);
}

FString FPaths::CombineParts(const TCHAR* const* Parts, int32 NumParts)
{
	FString Result;
	for (int32 Index = 0; Index < NumParts; ++Index)
	{
		if (*Parts[Index] != 0)
		{
			Result /= Parts[Index];
		}
	}
	return Result;
}
