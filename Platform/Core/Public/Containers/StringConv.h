#pragma once

// Conversions between TCHAR text and UTF-8 for the edges of the program (files, consoles, C
// libraries), as the engine's StringConv.h gives them.

#include "HAL/Platform.h"

#include <string>

/**
 * TCHAR text converted to UTF-8, owned by this object. Get() is valid while the object lives, so
 * TCHAR_TO_UTF8's result must be used within the full expression that makes it. Code units that
 * are not Unicode scalar values become U+FFFD.
 */
class FTCHARToUTF8
{
public:
	CORE_API explicit FTCHARToUTF8(const TCHAR* Source);
	CORE_API FTCHARToUTF8(const TCHAR* Source, int32 SourceLen);

	/** Null-terminated UTF-8 bytes; never null. */
	const ANSICHAR* Get() const { return Buffer.c_str(); }

	/** Number of bytes, without the terminator. */
	int32 Length() const { return static_cast<int32>(Buffer.size()); }

private:
	// The converted bytes.
	std::string Buffer;
};

/**
 * UTF-8 bytes converted to TCHAR text, owned by this object (see FTCHARToUTF8 for the lifetime
 * rule). Malformed bytes become U+FFFD; a conversion never fails.
 */
class FUTF8ToTCHAR
{
public:
	CORE_API explicit FUTF8ToTCHAR(const ANSICHAR* Source);
	CORE_API FUTF8ToTCHAR(const ANSICHAR* Source, int32 SourceLen);

	/** Null-terminated TCHAR text; never null. */
	const TCHAR* Get() const { return Buffer.c_str(); }

	/** Number of TCHARs, without the terminator. */
	int32 Length() const { return static_cast<int32>(Buffer.size()); }

private:
	// The converted characters.
	std::wstring Buffer;
};

#define TCHAR_TO_UTF8(str) (ANSICHAR*)FTCHARToUTF8((const TCHAR*)(str)).Get()
#define UTF8_TO_TCHAR(str) (TCHAR*)FUTF8ToTCHAR((const ANSICHAR*)(str)).Get()
