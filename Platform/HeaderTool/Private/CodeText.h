#pragma once

#include "Defs.h"

#include <initializer_list>
#include <set>
#include <string>
#include <string_view>

namespace HeaderTool
{
	/**
	 * TEXT("...") for UTF-8 text: quotes, backslashes and control characters escaped, everything
	 * else (Chinese included) kept as UTF-8 bytes, which the compiler reads as the source charset.
	 * Invalid UTF-8 becomes U+FFFD so the literal always compiles.
	 */
	std::string TextLiteral(std::string_view Utf8);

	/** "{ { TEXT("Key"), TEXT("Value") }, ... }", or "{ }" when there is none. */
	std::string MetaList(const MetaData& Meta);

	/** "A | B | C" for the flags in Flags, in the order Order lists them; None when there is none. */
	std::string FlagChain(std::initializer_list<const char*> Order, const std::set<std::string>& Flags, const char* None);

	/** Text with every character that cannot be in an identifier replaced by '_'. */
	std::string Identifierize(std::string_view Text);

	/** The name a type is registered under: its first letter dropped ("UFoo" -> "Foo", "FBar" -> "Bar"). */
	std::string StripPrefix(std::string_view CppName);
}
