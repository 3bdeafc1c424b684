#pragma once

// Conversions between TCHAR (UTF-16) text and UTF-8 for the edges of the program (files, consoles,
// C libraries), as the engine's StringConv.h gives them.

#include "HAL/Platform.h"

#include <string>

/**
 * TCHAR text converted to UTF-8, owned by this object. Get() is valid while the object lives, so
 * TCHAR_TO_UTF8's result must be used within the full expression that makes it. A surrogate pair
 * becomes one four-byte character; a lone surrogate becomes U+FFFD.
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
 * rule). A character beyond U+FFFF becomes a surrogate pair; malformed bytes become U+FFFD; a
 * conversion never fails.
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
	std::u16string Buffer;
};

#define TCHAR_TO_UTF8(str) (ANSICHAR*)FTCHARToUTF8((const TCHAR*)(str)).Get()
#define UTF8_TO_TCHAR(str) (TCHAR*)FUTF8ToTCHAR((const ANSICHAR*)(str)).Get()

#if PLAIN_PLATFORM_INTERNALS
namespace UE::Core::Private
{
	/**
	 * The stand-in's (its fonts and renderer draw by code point): the characters of Length TCHARs,
	 * a surrogate pair read as one, a lone surrogate as U+FFFD.
	 */
	CORE_API std::u32string ToCodePoints(const TCHAR* Chars, int32 Length);
}
#endif
