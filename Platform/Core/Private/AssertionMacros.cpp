#include "Misc/AssertionMacros.h"

#include <cstdio>
#include <cstdlib>

namespace UE::Assert
{
	void Fail(const char* Expression, const char* File, int Line, const char* Message)
	{
		std::fprintf(stderr, "Assertion failed: %s [%s:%d]%s%s\n", Expression, File, Line, Message ? " " : "", Message ? Message : "");
		std::fflush(stderr);
		std::abort();
	}

	bool EnsureFailed(const char* Expression, const char* File, int Line)
	{
		std::fprintf(stderr, "Ensure condition failed: %s [%s:%d]\n", Expression, File, Line);
		return false;
	}
}
