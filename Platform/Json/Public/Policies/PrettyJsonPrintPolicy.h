#pragma once

#include "CoreTypes.h"

/** Selects JSON text with one field or element per line, indented by tabs: for people to read. */
template<class CharType = TCHAR>
struct TPrettyJsonPrintPolicy
{
	static constexpr bool bPretty = true;
};
