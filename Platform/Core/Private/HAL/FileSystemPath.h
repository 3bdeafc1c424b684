#pragma once

// Bridges FString paths and std::filesystem: file names on Linux are bytes, read and written as UTF-8.

#include "Containers/StringConv.h"
#include "Containers/UnrealString.h"

#include <filesystem>
#include <string>

namespace UE::Core::Private
{
	inline std::filesystem::path ToFileSystemPath(const TCHAR* Path)
	{
		const FTCHARToUTF8 Bytes(Path ? Path : TEXT(""));
		return std::filesystem::path(std::string(Bytes.Get(), static_cast<SIZE_T>(Bytes.Length())));
	}

	inline FString FromFileSystemPath(const std::filesystem::path& Path)
	{
		const std::string& Bytes = Path.native();
		return FString::FromUTF8(Bytes.data(), static_cast<int32>(Bytes.size()));
	}
}
