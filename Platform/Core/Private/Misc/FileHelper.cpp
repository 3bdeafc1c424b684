#include "Misc/FileHelper.h"

#include "HAL/FileSystemPath.h"
#include "String/Utf8Codec.h"

#include <atomic>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <string>
#include <system_error>
#include <unistd.h>

namespace fs = std::filesystem;
using UE::Core::Private::ToFileSystemPath;

namespace
{
	bool ReadAllBytes(const TCHAR* Filename, std::string& OutBytes)
	{
		std::error_code Error;
		const fs::path Path = ToFileSystemPath(Filename);
		if (!fs::is_regular_file(Path, Error))
		{
			return false;
		}
		std::ifstream Stream(Path, std::ios::binary);
		if (!Stream)
		{
			return false;
		}
		// One read of the size the file has: a large document is not grown into a buffer twice
		// its size. A file that changes meanwhile gives what could be read.
		const std::uintmax_t Size = fs::file_size(Path, Error);
		OutBytes.resize(Error ? 0 : static_cast<SIZE_T>(Size));
		Stream.read(OutBytes.data(), static_cast<std::streamsize>(OutBytes.size()));
		OutBytes.resize(static_cast<SIZE_T>(Stream.gcount()));
		return !Stream.bad();
	}

	void AppendUtf16(std::u16string& Out, const uint8* Bytes, SIZE_T Size, bool bBigEndian)
	{
		const auto UnitAt = [Bytes, bBigEndian](SIZE_T Index) -> char16_t
		{
			return static_cast<char16_t>(bBigEndian ? (Bytes[Index] << 8 | Bytes[Index + 1]) : (Bytes[Index + 1] << 8 | Bytes[Index]));
		};
		for (SIZE_T Index = 0; Index + 1 < Size; Index += 2)
		{
			const char16_t Unit = UnitAt(Index);
			if (Unit >= 0xD800 && Unit <= 0xDBFF && Index + 3 < Size && UnitAt(Index + 2) >= 0xDC00 && UnitAt(Index + 2) <= 0xDFFF)
			{
				Out.push_back(Unit);
				Out.push_back(UnitAt(Index + 2));
				Index += 2;
				continue;
			}
			// Half a pair is no character: it would turn into garbage at the next UTF-8 edge.
			const bool bLoneSurrogate = Unit >= 0xD800 && Unit <= 0xDFFF;
			Out.push_back(bLoneSurrogate ? UE::Core::Private::ReplacementChar : Unit);
		}
	}

	std::string Encode(const FString& String, FFileHelper::EEncodingOptions Encoding)
	{
		std::string Bytes;
		switch (Encoding)
		{
		case FFileHelper::EEncodingOptions::ForceAnsi:
			for (const TCHAR Char : String)
			{
				Bytes.push_back(static_cast<uint32>(Char) < 128u ? static_cast<char>(Char) : '?');
			}
			break;
		case FFileHelper::EEncodingOptions::ForceUnicode:
			Bytes = "\xFF\xFE";
			// The string's own code units, as written; a surrogate pair stays a pair.
			for (const TCHAR Char : String)
			{
				Bytes.push_back(static_cast<char>(Char & 0xFF));
				Bytes.push_back(static_cast<char>(Char >> 8));
			}
			break;
		case FFileHelper::EEncodingOptions::ForceUTF8:
			Bytes = "\xEF\xBB\xBF";
			[[fallthrough]];
		default:
			UE::Core::Private::AppendTcharAsUtf8(Bytes, *String, static_cast<SIZE_T>(String.Len()));
			break;
		}
		return Bytes;
	}

	// Writes to a temporary file beside the target and renames it over the target, so readers
	// (and a crash) only ever see the old file or the complete new one.
	bool WriteAllBytes(const char* Data, SIZE_T Size, const TCHAR* Filename, uint32 WriteFlags)
	{
		const fs::path Target = ToFileSystemPath(Filename);
		std::error_code Error;
		if (Target.empty() || ((WriteFlags & FILEWRITE_NoReplaceExisting) && fs::exists(Target, Error)))
		{
			return false;
		}
		if (Target.has_parent_path())
		{
			fs::create_directories(Target.parent_path(), Error);
		}
		if (WriteFlags & FILEWRITE_Append)
		{
			std::ofstream Stream(Target, std::ios::binary | std::ios::app);
			Stream.write(Data, static_cast<std::streamsize>(Size));
			return static_cast<bool>(Stream.flush());
		}
		static std::atomic<uint32> Counter{0};
		fs::path Temporary = Target;
		Temporary += ".tmp" + std::to_string(getpid()) + "_" + std::to_string(Counter.fetch_add(1));
		{
			std::ofstream Stream(Temporary, std::ios::binary | std::ios::trunc);
			Stream.write(Data, static_cast<std::streamsize>(Size));
			if (!Stream.flush())
			{
				Stream.close();
				fs::remove(Temporary, Error);
				return false;
			}
		}
		fs::rename(Temporary, Target, Error);
		if (Error)
		{
			fs::remove(Temporary, Error);
			return false;
		}
		return true;
	}
}

void FFileHelper::BufferToString(FString& Result, const uint8* Buffer, int32 Size)
{
	const SIZE_T Length = Buffer && Size > 0 ? static_cast<SIZE_T>(Size) : 0;
	if (Length >= 2 && ((Buffer[0] == 0xFF && Buffer[1] == 0xFE) || (Buffer[0] == 0xFE && Buffer[1] == 0xFF)))
	{
		std::u16string Text;
		AppendUtf16(Text, Buffer + 2, Length - 2, Buffer[0] == 0xFE);
		Result = FString(static_cast<int32>(Text.size()), Text.c_str());
		return;
	}
	// The text ends at its first NUL, as a C string would.
	const SIZE_T Skip = (Length >= 3 && Buffer[0] == 0xEF && Buffer[1] == 0xBB && Buffer[2] == 0xBF) ? 3 : 0;
	const char* Bytes = reinterpret_cast<const char*>(Buffer) + Skip;
	Result = FString::FromUTF8(Bytes, static_cast<int32>(strnlen(Bytes, Length - Skip)));
}

bool FFileHelper::LoadFileToString(FString& Result, const TCHAR* Filename)
{
	Result.Empty();
	std::string Bytes;
	if (!ReadAllBytes(Filename, Bytes))
	{
		return false;
	}
	BufferToString(Result, reinterpret_cast<const uint8*>(Bytes.data()), static_cast<int32>(Bytes.size()));
	return true;
}

bool FFileHelper::LoadFileToArray(TArray<uint8>& Result, const TCHAR* Filename, uint32 Flags)
{
	Result.Empty();
	std::string Bytes;
	if (!ReadAllBytes(Filename, Bytes))
	{
		return false;
	}
	Result.Append(reinterpret_cast<const uint8*>(Bytes.data()), static_cast<int32>(Bytes.size()));
	return true;
}

bool FFileHelper::SaveStringToFile(const FString& String, const TCHAR* Filename, EEncodingOptions EncodingOptions, IFileManager* FileManager, uint32 WriteFlags)
{
	const std::string Bytes = Encode(String, EncodingOptions);
	return WriteAllBytes(Bytes.data(), Bytes.size(), Filename, WriteFlags);
}

bool FFileHelper::SaveArrayToFile(const TArray<uint8>& Array, const TCHAR* Filename, IFileManager* FileManager, uint32 WriteFlags)
{
	return WriteAllBytes(reinterpret_cast<const char*>(Array.GetData()), static_cast<SIZE_T>(Array.Num()), Filename, WriteFlags);
}
