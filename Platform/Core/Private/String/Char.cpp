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

	namespace
	{
		// A code unit maps only to a code unit: the few letters whose other case lies outside the
		// Basic Multilingual Plane keep their case rather than turn into half a pair.
		uint32 MapUnit(uint32 Char, bool bLower)
		{
			const locale_t Locale = UnicodeLocale();
			const wint_t Unit = static_cast<wint_t>(Char);
			const uint32 Mapped = static_cast<uint32>(bLower ? (Locale ? towlower_l(Unit, Locale) : towlower(Unit))
															 : (Locale ? towupper_l(Unit, Locale) : towupper(Unit)));
			return Mapped <= 0xFFFF ? Mapped : Char;
		}

		// Every code unit's other case, looked up once per process: case-insensitive comparison and
		// hashing of non-ASCII text is then one load per unit instead of a call into the C library.
		struct FCaseTables
		{
			uint16 Lower[0x10000];
			uint16 Upper[0x10000];

			FCaseTables()
			{
				for (uint32 Unit = 0; Unit < 0x10000; ++Unit)
				{
					Lower[Unit] = static_cast<uint16>(MapUnit(Unit, true));
					Upper[Unit] = static_cast<uint16>(MapUnit(Unit, false));
				}
			}
		};

		// Built when the library loads, so a lookup needs no guard; anything that folds case while
		// the library is still loading gets the C library's answer.
		const FCaseTables* const GCaseTables = new FCaseTables;
	}

	uint32 WideToLower(uint32 Char)
	{
		const FCaseTables* const Tables = GCaseTables;
		return Tables && Char <= 0xFFFF ? Tables->Lower[Char] : MapUnit(Char, true);
	}

	uint32 WideToUpper(uint32 Char)
	{
		const FCaseTables* const Tables = GCaseTables;
		return Tables && Char <= 0xFFFF ? Tables->Upper[Char] : MapUnit(Char, false);
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
