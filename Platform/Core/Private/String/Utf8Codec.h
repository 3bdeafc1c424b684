#pragma once

// UTF-8 <-> UTF-32 (TCHAR) conversion used wherever text crosses the program's edge: files, the
// console, file names, narrow string literals.

#include "HAL/Platform.h"

#include <string>

namespace UE::Core::Private
{
	/** The replacement character every undecodable byte or unencodable code unit turns into. */
	inline constexpr wchar_t ReplacementChar = 0xFFFD;

	/**
	 * Appends the decoded Bytes. A malformed sequence (stray continuation byte, overlong form,
	 * surrogate, beyond U+10FFFF, cut short) becomes one U+FFFD per maximal invalid part, so a
	 * broken file still reads and nothing after the fault is lost.
	 */
	void AppendUtf8AsWide(std::wstring& Out, const char* Bytes, SIZE_T Length);

	/** Appends Chars as UTF-8; surrogates and values beyond U+10FFFF are written as U+FFFD. */
	void AppendWideAsUtf8(std::string& Out, const wchar_t* Chars, SIZE_T Length);
}
