#pragma once

#include "Containers/Array.h"
#include "Containers/UnrealString.h"
#include "HAL/FileManager.h"
#include "HAL/Platform.h"

/**
 * Whole-file loading and saving, as the engine's FFileHelper. Text is read as UTF-8 unless a byte
 * order mark says UTF-16; a failure returns false and leaves the output empty. A save replaces the
 * file atomically (written beside it, then renamed over it), so a crash mid-save never leaves a
 * half-written file; the folder is made if missing.
 */
struct FFileHelper
{
	/** Text encoding of a save. AutoDetect writes UTF-8 without a byte order mark. */
	enum class EEncodingOptions
	{
		AutoDetect,
		/** Characters beyond ASCII become '?'. */
		ForceAnsi,
		/** UTF-16 little-endian with a byte order mark. */
		ForceUnicode,
		/** UTF-8 with a byte order mark. */
		ForceUTF8,
		ForceUTF8WithoutBOM,
	};

	static CORE_API bool LoadFileToString(FString& Result, const TCHAR* Filename);
	static CORE_API bool LoadFileToArray(TArray<uint8>& Result, const TCHAR* Filename, uint32 Flags = 0);
	/** Decodes Size bytes of text (byte order mark honoured, else UTF-8) into Result. */
	static CORE_API void BufferToString(FString& Result, const uint8* Buffer, int32 Size);

	static CORE_API bool SaveStringToFile(const FString& String, const TCHAR* Filename, EEncodingOptions EncodingOptions = EEncodingOptions::AutoDetect,
		IFileManager* FileManager = &IFileManager::Get(), uint32 WriteFlags = 0);
	static CORE_API bool SaveArrayToFile(const TArray<uint8>& Array, const TCHAR* Filename, IFileManager* FileManager = &IFileManager::Get(),
		uint32 WriteFlags = 0);
};
