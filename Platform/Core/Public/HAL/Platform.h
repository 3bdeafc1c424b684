#pragma once

// Fundamental types, character type and export macros, as the engine's HAL/Platform.h gives them.
//
// TCHAR is wchar_t: on Linux that is UTF-32, one code unit per code point, which keeps string
// indexing simple. Text enters and leaves as UTF-8 at the edges (files, logs, JSON).

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
using WIDECHAR = wchar_t;
using UTF8CHAR = char8_t;
using TCHAR = wchar_t;

#define TEXT_PASTE(x) L##x
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
