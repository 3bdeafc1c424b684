#pragma once

// Fundamental types, character types and export macros, as the engine's HAL/Platform.h gives them
// on Linux and Mac.
//
// TCHAR is char16_t: text is UTF-16, so a character outside the Basic Multilingual Plane (an emoji,
// a rare CJK ideograph) takes two TCHARs, a surrogate pair, and string lengths count code units.
// Text enters and leaves as UTF-8 at the edges (files, logs, fonts, JSON, the command line).
// wchar_t is 4 bytes here and 2 on Windows: no engine string is a wchar_t string on any platform
// but Windows, so a call that wants one (wcslen, _wtof, L"...") does not build against TCHAR.

#include <cstddef>
#include <cstdint>

using uint8 = std::uint8_t;
using uint16 = std::uint16_t;
using uint32 = std::uint32_t;
using uint64 = std::uint64_t;
using int8 = std::int8_t;
using int16 = std::int16_t;
using int32 = std::int32_t;
using int64 = std::int64_t;
using SIZE_T = std::size_t;
using SSIZE_T = std::ptrdiff_t;
using UPTRINT = std::uintptr_t;
using PTRINT = std::intptr_t;

using ANSICHAR = char;
using WIDECHAR = char16_t;
using UTF8CHAR = char8_t;
using UTF16CHAR = char16_t;
using UTF32CHAR = char32_t;
using CHAR16 = char16_t;
using CHAR32 = char32_t;
using TCHAR = WIDECHAR;

#define PLATFORM_TCHAR_IS_CHAR16 1
#define TEXT_PASTE(x) u##x
#define TEXT(x) TEXT_PASTE(x)

#define DLLEXPORT __attribute__((visibility("default")))
#define DLLIMPORT __attribute__((visibility("default")))

#define FORCEINLINE inline __attribute__((always_inline))
#define FORCENOINLINE __attribute__((noinline))

// An index that is not one, as returned by the engine's searches.
inline constexpr int32 INDEX_NONE = -1;

#define UE_ARRAY_COUNT(Array) (sizeof(Array) / sizeof((Array)[0]))

// Marks a parameter or variable as intentionally unused without a cast at each site.
#define UE_UNUSED(x) ((void)(x))
