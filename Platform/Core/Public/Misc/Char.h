#pragma once

// Character classification and case mapping for TCHAR and ANSICHAR.

#include "HAL/Platform.h"

namespace UE::Core::Private
{
	// Full Unicode mappings of one code unit, independent of the process locale (the "C" locale
	// maps ASCII only). A surrogate is no letter and maps to itself.
	CORE_API uint32 WideToLower(uint32 Char);
	CORE_API uint32 WideToUpper(uint32 Char);
	CORE_API bool WideIsAlpha(uint32 Char);
	CORE_API bool WideIsWhitespace(uint32 Char);
	CORE_API bool WideIsUpper(uint32 Char);
	CORE_API bool WideIsLower(uint32 Char);
}

/**
 * Character helpers, as the engine's TChar: one code unit at a time. ASCII takes an inline fast
 * path; other TCHARs use Unicode case tables, so 'É' lowers to 'é' whatever the process locale.
 * ANSICHAR is ASCII only.
 */
template <typename CharType>
struct TChar
{
	static constexpr bool IsAscii(CharType Char)
	{
		return static_cast<uint32>(Char) < 128u;
	}

	static CharType ToLower(CharType Char)
	{
		if (IsAscii(Char))
		{
			return (Char >= 'A' && Char <= 'Z') ? static_cast<CharType>(Char + ('a' - 'A')) : Char;
		}
		if constexpr (sizeof(CharType) > 1)
		{
			return static_cast<CharType>(UE::Core::Private::WideToLower(static_cast<uint32>(Char)));
		}
		return Char;
	}

	static CharType ToUpper(CharType Char)
	{
		if (IsAscii(Char))
		{
			return (Char >= 'a' && Char <= 'z') ? static_cast<CharType>(Char - ('a' - 'A')) : Char;
		}
		if constexpr (sizeof(CharType) > 1)
		{
			return static_cast<CharType>(UE::Core::Private::WideToUpper(static_cast<uint32>(Char)));
		}
		return Char;
	}

	static constexpr bool IsDigit(CharType Char) { return Char >= '0' && Char <= '9'; }

	static constexpr bool IsHexDigit(CharType Char)
	{
		return IsDigit(Char) || (Char >= 'a' && Char <= 'f') || (Char >= 'A' && Char <= 'F');
	}

	static bool IsAlpha(CharType Char)
	{
		if (IsAscii(Char))
		{
			return (Char >= 'a' && Char <= 'z') || (Char >= 'A' && Char <= 'Z');
		}
		return sizeof(CharType) > 1 && UE::Core::Private::WideIsAlpha(static_cast<uint32>(Char));
	}

	static bool IsAlnum(CharType Char) { return IsDigit(Char) || IsAlpha(Char); }

	static bool IsUpper(CharType Char)
	{
		if (IsAscii(Char))
		{
			return Char >= 'A' && Char <= 'Z';
		}
		return sizeof(CharType) > 1 && UE::Core::Private::WideIsUpper(static_cast<uint32>(Char));
	}

	static bool IsLower(CharType Char)
	{
		if (IsAscii(Char))
		{
			return Char >= 'a' && Char <= 'z';
		}
		return sizeof(CharType) > 1 && UE::Core::Private::WideIsLower(static_cast<uint32>(Char));
	}

	static bool IsWhitespace(CharType Char)
	{
		if (IsAscii(Char))
		{
			return Char == ' ' || (Char >= '\t' && Char <= '\r');
		}
		return sizeof(CharType) > 1 && UE::Core::Private::WideIsWhitespace(static_cast<uint32>(Char));
	}

	static constexpr bool IsLinebreak(CharType Char)
	{
		const uint32 Code = static_cast<uint32>(Char);
		return (Code >= '\n' && Code <= '\r') || Code == 0x85u || Code == 0x2028u || Code == 0x2029u;
	}

	/** The value of a decimal digit character; only meaningful when IsDigit is true. */
	static constexpr int32 ConvertCharDigitToInt(CharType Char) { return static_cast<int32>(Char) - '0'; }
};

using FChar = TChar<TCHAR>;
using FCharWide = TChar<WIDECHAR>;
using FCharAnsi = TChar<ANSICHAR>;
