#include "Misc/Char.h"

#include <cwctype>
#include <locale.h>
#include <wctype.h>

namespace UE::Core::Private
{
	namespace
	{
		// The process may run in the "C" locale, whose wide tables know ASCII only; C.UTF-8 carries
		// the full Unicode tables and does not depend on what the host set. Made once, never freed.
		locale_t UnicodeLocale()
		{
			static const locale_t Locale = newlocale(LC_CTYPE_MASK, "C.UTF-8", static_cast<locale_t>(nullptr));
			return Locale;
		}
	}

	uint32 WideToLower(uint32 Char)
	{
		const locale_t Locale = UnicodeLocale();
		const uint32 Lower = static_cast<uint32>(Locale ? towlower_l(static_cast<wint_t>(Char), Locale) : towlower(static_cast<wint_t>(Char)));
		// A code unit maps only to a code unit: the few letters whose other case lies in another
		// plane (none in the Basic Multilingual Plane today) keep their case rather than wrap.
		return Lower <= 0xFFFF ? Lower : Char;
	}

	uint32 WideToUpper(uint32 Char)
	{
		const locale_t Locale = UnicodeLocale();
		const uint32 Upper = static_cast<uint32>(Locale ? towupper_l(static_cast<wint_t>(Char), Locale) : towupper(static_cast<wint_t>(Char)));
		return Upper <= 0xFFFF ? Upper : Char;
	}

	bool WideIsAlpha(uint32 Char)
	{
		const locale_t Locale = UnicodeLocale();
		return (Locale ? iswalpha_l(static_cast<wint_t>(Char), Locale) : iswalpha(static_cast<wint_t>(Char))) != 0;
	}

	bool WideIsWhitespace(uint32 Char)
	{
		// The Unicode White_Space property in full: iswspace leaves out the no-break spaces, yet
		// they separate words in text a user types and trimming them is what a user expects.
		return (Char >= 0x09 && Char <= 0x0D) || Char == 0x20 || Char == 0x85 || Char == 0xA0 || Char == 0x1680
			|| (Char >= 0x2000 && Char <= 0x200A) || Char == 0x2028 || Char == 0x2029 || Char == 0x202F || Char == 0x205F
			|| Char == 0x3000;
	}

	bool WideIsUpper(uint32 Char)
	{
		const locale_t Locale = UnicodeLocale();
		return (Locale ? iswupper_l(static_cast<wint_t>(Char), Locale) : iswupper(static_cast<wint_t>(Char))) != 0;
	}

	bool WideIsLower(uint32 Char)
	{
		const locale_t Locale = UnicodeLocale();
		return (Locale ? iswlower_l(static_cast<wint_t>(Char), Locale) : iswlower(static_cast<wint_t>(Char))) != 0;
	}
}
