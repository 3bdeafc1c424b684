#pragma once

#include <stdexcept>
#include <string>

namespace HeaderTool
{
	/**
	 * What any stage throws when the header cannot be read: the line it is about and the reason,
	 * worded for the user. Main prints it as "<file>:<line>: error: <reason>" and writes nothing.
	 */
	class ParseError : public std::runtime_error
	{
	public:
		ParseError(int InLine, const std::string& Reason)
			: std::runtime_error(Reason)
			, Line(InLine)
		{
		}

		// 1-based line in the header the error is reported against.
		int Line;
	};
}
