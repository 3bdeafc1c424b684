#include "HAL/FileManager.h"

#include "HAL/FileSystemPath.h"

#include <system_error>

namespace fs = std::filesystem;
using UE::Core::Private::ToFileSystemPath;

IFileManager& IFileManager::Get()
{
	static IFileManager Instance;
	return Instance;
}

bool IFileManager::FileExists(const TCHAR* Filename)
{
	std::error_code Error;
	return fs::is_regular_file(ToFileSystemPath(Filename), Error);
}

bool IFileManager::DirectoryExists(const TCHAR* Directory)
{
	std::error_code Error;
	return fs::is_directory(ToFileSystemPath(Directory), Error);
}

bool IFileManager::MakeDirectory(const TCHAR* Path, bool Tree)
{
	const fs::path Target = ToFileSystemPath(Path);
	std::error_code Error;
	if (Tree)
	{
		fs::create_directories(Target, Error);
	}
	else
	{
		fs::create_directory(Target, Error);
	}
	return fs::is_directory(Target, Error);
}

bool IFileManager::DeleteDirectory(const TCHAR* Path, bool RequireExists, bool Tree)
{
	const fs::path Target = ToFileSystemPath(Path);
	std::error_code Error;
	if (!fs::is_directory(fs::symlink_status(Target, Error)))
	{
		return !RequireExists && !fs::exists(fs::symlink_status(Target, Error));
	}
	if (Tree)
	{
		fs::remove_all(Target, Error);
	}
	else
	{
		fs::remove(Target, Error);
	}
	return !Error && !fs::exists(fs::symlink_status(Target, Error));
}

bool IFileManager::Delete(const TCHAR* Filename, bool RequireExists, bool EvenReadOnly, bool Quiet)
{
	const fs::path Target = ToFileSystemPath(Filename);
	std::error_code Error;
	const fs::file_status Status = fs::symlink_status(Target, Error);
	if (!fs::exists(Status))
	{
		return !RequireExists;
	}
	if (fs::is_directory(Status))
	{
		return false;
	}
	return fs::remove(Target, Error) && !Error;
}

bool IFileManager::Move(const TCHAR* Dest, const TCHAR* Src, bool Replace, bool EvenIfReadOnly, bool Attributes, bool bDoNotRetryOrError)
{
	const fs::path From = ToFileSystemPath(Src);
	const fs::path To = ToFileSystemPath(Dest);
	std::error_code Error;
	if (!fs::exists(fs::symlink_status(From, Error)))
	{
		return false;
	}
	if (!Replace && fs::exists(fs::symlink_status(To, Error)))
	{
		return false;
	}
	if (To.has_parent_path())
	{
		fs::create_directories(To.parent_path(), Error);
	}
	Error.clear();
	fs::rename(From, To, Error);
	if (!Error)
	{
		return true;
	}
	if (Error != std::errc::cross_device_link)
	{
		return false;
	}
	// Different file systems: no atomic rename exists, so copy and then remove the source.
	Error.clear();
	fs::copy(From, To, fs::copy_options::overwrite_existing | fs::copy_options::recursive, Error);
	if (Error)
	{
		return false;
	}
	fs::remove_all(From, Error);
	return true;
}

int64 IFileManager::FileSize(const TCHAR* Filename)
{
	std::error_code Error;
	const fs::path Target = ToFileSystemPath(Filename);
	if (!fs::is_regular_file(Target, Error))
	{
		return -1;
	}
	const std::uintmax_t Size = fs::file_size(Target, Error);
	return Error ? -1 : static_cast<int64>(Size);
}
