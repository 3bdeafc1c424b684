#pragma once

#include "CoreTypes.h"

/** Selects JSON text without spaces or line breaks: the smallest text, for files and the wire. */
template<class CharType = TCHAR>
struct TCondensedJsonPrintPolicy
{
	static constexpr bool bPretty = false;
};
