#include "Misc/CString.h"

#include "Misc/Char.h"

#include <cstdlib>
#include <limits>
#include <locale.h>
#include <stdlib.h>
#include <string>

namespace
{
	const TCHAR* SkipWhitespace(const TCHAR* String)
	{
		while (*String && FChar::IsWhitespace(*String))
		{
			++String;
		}
		return String;
	}

	// The C library's number readers take narrow text; a number is ASCII, so the ASCII run at the
	// start of String is all they can read, one byte per TCHAR (an End offset maps back 1:1).
	std::string AsciiPrefix(const TCHAR* String)
	{
		std::string Narrow;
		for (; *String != 0 && static_cast<uint32>(*String) < 128u; ++String)
		{
			Narrow.push_back(static_cast<char>(*String));
		}
		return Narrow;
	}

	// Numbers read the same everywhere: strtod alone would take ',' as the decimal point once a
	// library in the process switched LC_NUMERIC, so parse with a private "C" locale.
	locale_t NumericCLocale()
	{
		static const locale_t CLocale = newlocale(LC_NUMERIC_MASK, "C", static_cast<locale_t>(nullptr));
		return CLocale;
	}

	double ParseDoublePrefix(const TCHAR* String)
	{
		if (!String)
		{
			return 0.0;
		}
		const std::string Narrow = AsciiPrefix(SkipWhitespace(String));
		const locale_t CLocale = NumericCLocale();
		return CLocale ? strtod_l(Narrow.c_str(), nullptr, CLocale) : std::strtod(Narrow.c_str(), nullptr);
	}

	template <bool bIgnoreCase>
	int32 CompareN(const TCHAR* A, const TCHAR* B, SIZE_T Count)
	{
		A = A ? A : TEXT("");
		B = B ? B : TEXT("");
		for (SIZE_T Index = 0; Index < Count; ++Index)
		{
			TCHAR CharA = A[Index];
			TCHAR CharB = B[Index];
			if constexpr (bIgnoreCase)
			{
				CharA = FChar::ToLower(CharA);
				CharB = FChar::ToLower(CharB);
			}
			if (CharA != CharB)
			{
				return CharA < CharB ? -1 : 1;
			}
			if (CharA == 0)
			{
				return 0;
			}
		}
		return 0;
	}

	template <bool bIgnoreCase>
	const TCHAR* Find(const TCHAR* String, const TCHAR* Needle)
	{
		if (!String || !Needle)
		{
			return nullptr;
		}
		const int32 NeedleLen = FCString::Strlen(Needle);
		for (const TCHAR* It = String;; ++It)
		{
			if (CompareN<bIgnoreCase>(It, Needle, NeedleLen) == 0)
			{
				return It;
			}
			if (*It == 0)
			{
				return nullptr;
			}
		}
	}
}

int32 FCString::Strlen(const TCHAR* String)
{
	if (!String)
	{
		return 0;
	}
	const TCHAR* End = String;
	while (*End != 0)
	{
		++End;
	}
	return static_cast<int32>(End - String);
}

int32 FCString::Strcmp(const TCHAR* A, const TCHAR* B)
{
	return CompareN<false>(A, B, std::numeric_limits<SIZE_T>::max());
}

int32 FCString::Stricmp(const TCHAR* A, const TCHAR* B)
{
	return CompareN<true>(A, B, std::numeric_limits<SIZE_T>::max());
}

int32 FCString::Strncmp(const TCHAR* A, const TCHAR* B, SIZE_T Count)
{
	return CompareN<false>(A, B, Count);
}

int32 FCString::Strnicmp(const TCHAR* A, const TCHAR* B, SIZE_T Count)
{
	return CompareN<true>(A, B, Count);
}

const TCHAR* FCString::Strchr(const TCHAR* String, TCHAR Char)
{
	if (!String)
	{
		return nullptr;
	}
	for (;; ++String)
	{
		if (*String == Char)
		{
			return String;
		}
		if (*String == 0)
		{
			return nullptr;
		}
	}
}

const TCHAR* FCString::Strstr(const TCHAR* String, const TCHAR* Needle)
{
	return Find<false>(String, Needle);
}

const TCHAR* FCString::Stristr(const TCHAR* String, const TCHAR* Needle)
{
	return Find<true>(String, Needle);
}

int64 FCString::Atoi64(const TCHAR* String)
{
	if (!String)
	{
		return 0;
	}
	String = SkipWhitespace(String);
	const bool bNegative = (*String == '-');
	if (*String == '+' || *String == '-')
	{
		++String;
	}
	// Accumulate as a negative number: its range is one larger, so INT64_MIN reads exactly.
	int64 Value = 0;
	constexpr int64 Min = std::numeric_limits<int64>::min();
	for (; FChar::IsDigit(*String); ++String)
	{
		const int64 Digit = *String - '0';
		if (Value < (Min + Digit) / 10)
		{
			Value = Min;
			break;
		}
		Value = Value * 10 - Digit;
	}
	if (bNegative)
	{
		return Value;
	}
	return Value == Min ? std::numeric_limits<int64>::max() : -Value;
}

int32 FCString::Atoi(const TCHAR* String)
{
	const int64 Value = Atoi64(String);
	if (Value > std::numeric_limits<int32>::max())
	{
		return std::numeric_limits<int32>::max();
	}
	if (Value < std::numeric_limits<int32>::min())
	{
		return std::numeric_limits<int32>::min();
	}
	return static_cast<int32>(Value);
}

float FCString::Atof(const TCHAR* String)
{
	return static_cast<float>(ParseDoublePrefix(String));
}

double FCString::Atod(const TCHAR* String)
{
	return ParseDoublePrefix(String);
}

int64 FCString::Strtoi64(const TCHAR* String, TCHAR** End, int32 Base)
{
	if (!String)
	{
		if (End)
		{
			*End = nullptr;
		}
		return 0;
	}
	const std::string Narrow = AsciiPrefix(String);
	char* NarrowEnd = nullptr;
	const long long Value = std::strtoll(Narrow.c_str(), &NarrowEnd, Base);
	if (End)
	{
		*End = const_cast<TCHAR*>(String) + (NarrowEnd - Narrow.c_str());
	}
	return static_cast<int64>(Value);
}

int32 FCString::Strtoi(const TCHAR* String, TCHAR** End, int32 Base)
{
	const int64 Value = Strtoi64(String, End, Base);
	if (Value > std::numeric_limits<int32>::max())
	{
		return std::numeric_limits<int32>::max();
	}
	if (Value < std::numeric_limits<int32>::min())
	{
		return std::numeric_limits<int32>::min();
	}
	return static_cast<int32>(Value);
}

bool FCString::IsNumeric(const TCHAR* String)
{
	if (!String)
	{
		return false;
	}
	if (*String == '-' || *String == '+')
	{
		++String;
	}
	bool bHasDot = false;
	bool bHasDigit = false;
	for (; *String; ++String)
	{
		if (*String == '.')
		{
			if (bHasDot)
			{
				return false;
			}
			bHasDot = true;
		}
		else if (FChar::IsDigit(*String))
		{
			bHasDigit = true;
		}
		else
		{
			return false;
		}
	}
	return bHasDigit;
}

