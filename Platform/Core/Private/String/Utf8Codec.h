#pragma once

// UTF-8 <-> UTF-16 (TCHAR) conversion used wherever text crosses the program's edge: files, the
// console, file names, narrow string literals, the libraries that speak UTF-8.

#include "HAL/Platform.h"

#include <string>

namespace UE::Core::Private
{
	/** The replacement character every undecodable byte or unencodable code unit turns into. */
	inline constexpr TCHAR ReplacementChar = 0xFFFD;

	/**
	 * Decodes Length bytes into Out, which must have room for Length code units (no byte sequence
	 * decodes to more units than it has bytes), and returns the units written. A character beyond
	 * U+FFFF becomes a surrogate pair. A malformed sequence (stray continuation byte, overlong form,
	 * encoded surrogate, beyond U+10FFFF, cut short) becomes one U+FFFD per maximal invalid part, so
	 * a broken file still reads and nothing after the fault is lost.
	 */
	int32 DecodeUtf8(const char* Bytes, SIZE_T Length, TCHAR* Out);

	/** How many code units DecodeUtf8 makes of Length bytes, without writing them. */
	int32 CountUtf8AsTchars(const char* Bytes, SIZE_T Length);

	/**
	 * The character at Chars[Index] of Length units, moving Index past it: a surrogate pair is read
	 * as one code point, a lone surrogate as U+FFFD.
	 */
	inline uint32 ReadCodePoint(const TCHAR* Chars, SIZE_T Length, SIZE_T& Index)
	{
		const uint32 Unit = Chars[Index++];
		if (Unit >= 0xD800 && Unit <= 0xDBFF && Index < Length && Chars[Index] >= 0xDC00 && Chars[Index] <= 0xDFFF)
		{
			return 0x10000 + ((Unit - 0xD800) << 10) + (static_cast<uint32>(Chars[Index++]) - 0xDC00);
		}
		return Unit >= 0xD800 && Unit <= 0xDFFF ? static_cast<uint32>(ReplacementChar) : Unit;
	}

	/** Appends Chars as UTF-8; a surrogate pair is one character, a lone surrogate is written as U+FFFD. */
	void AppendTcharAsUtf8(std::string& Out, const TCHAR* Chars, SIZE_T Length);
}
