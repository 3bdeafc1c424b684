#pragma once

#include <string>
#include <string_view>

namespace HeaderTool
{
	/**
	 * The text a string literal token stands for, as UTF-8: escapes resolved, raw strings verbatim,
	 * any prefix (L, u8, u, U) dropped. The literal must be one the tokenizer accepted.
	 */
	std::string DecodeStringLiteral(std::string_view Literal);
}
