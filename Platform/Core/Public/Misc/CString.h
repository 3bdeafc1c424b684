#pragma once

// Null-terminated TCHAR string helpers (FCString) and the search options shared with FString.

#include "HAL/Platform.h"

/** Whether a comparison or search tells 'a' from 'A'. */
namespace ESearchCase
{
	enum Type
	{
		CaseSensitive,
		IgnoreCase,
	};
}

/** Which end of a string a search starts from. */
namespace ESearchDir
{
	enum Type
	{
		FromStart,
		FromEnd,
	};
}

/** Functions on null-terminated strings of one character type; only TCHAR strings are provided. */
template<typename T>
struct TCString;

/**
 * Functions on null-terminated TCHAR strings, as the engine's FCString. Case-insensitive variants
 * fold with FChar::ToLower, so they agree with FString's comparisons. A null pointer is read as "".
 * The number parsers never fail: they read the longest valid prefix and give 0 when there is none,
 * and they always read '.' as the decimal point, whatever the locale ("1.5x" is 1.5).
 */
template<>
struct TCString<TCHAR>
{
	using CharType = TCHAR;

	static CORE_API int32 Strlen(const TCHAR* String);
	static CORE_API int32 Strcmp(const TCHAR* A, const TCHAR* B);
	static CORE_API int32 Stricmp(const TCHAR* A, const TCHAR* B);
	static CORE_API int32 Strncmp(const TCHAR* A, const TCHAR* B, SIZE_T Count);
	static CORE_API int32 Strnicmp(const TCHAR* A, const TCHAR* B, SIZE_T Count);

	/** First occurrence of Char in String, or nullptr; the terminator itself can be found. */
	static CORE_API const TCHAR* Strchr(const TCHAR* String, TCHAR Char);

	/** First occurrence of Find in String, or nullptr. An empty Find matches at the start. */
	static CORE_API const TCHAR* Strstr(const TCHAR* String, const TCHAR* Find);
	static CORE_API const TCHAR* Stristr(const TCHAR* String, const TCHAR* Find);

	/** Leading whitespace skipped, optional sign, decimal digits; saturates instead of overflowing. */
	static CORE_API int32 Atoi(const TCHAR* String);
	static CORE_API int64 Atoi64(const TCHAR* String);
	static CORE_API float Atof(const TCHAR* String);
	static CORE_API double Atod(const TCHAR* String);

	/** Like strtoll: End (if not null) receives the first character not read. Base 2..36, or 0. */
	static CORE_API int64 Strtoi64(const TCHAR* String, TCHAR** End, int32 Base);
	static CORE_API int32 Strtoi(const TCHAR* String, TCHAR** End, int32 Base);

	/** True for an optional sign, then digits with at most one '.', and at least one digit. */
	static CORE_API bool IsNumeric(const TCHAR* String);
};

using FCString = TCString<TCHAR>;
