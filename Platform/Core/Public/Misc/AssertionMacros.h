#pragma once

// check/ensure as the engine has them. check() stops the program with the failed expression and
// its place; ensure() reports once and lets the caller go on. Both stay on in every build of the
// stand-in, so a broken assumption in a test shows up where it happens.

#include "HAL/Platform.h"

namespace UE::Assert
{
	[[noreturn]] CORE_API void Fail(const char* Expression, const char* File, int Line, const char* Message = nullptr);
	CORE_API bool EnsureFailed(const char* Expression, const char* File, int Line);
}

#define check(expr) ((expr) ? (void)0 : ::UE::Assert::Fail(#expr, __FILE__, __LINE__))
#define checkf(expr, message, ...) ((expr) ? (void)0 : ::UE::Assert::Fail(#expr, __FILE__, __LINE__, message))
#define checkNoEntry() ::UE::Assert::Fail("unreachable code", __FILE__, __LINE__)
#define verify(expr) check(expr)
#define ensure(expr) ((expr) ? true : ::UE::Assert::EnsureFailed(#expr, __FILE__, __LINE__))
#define ensureMsgf(expr, ...) ensure(expr)
