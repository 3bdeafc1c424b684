#pragma once

// Stand-in only: the last log lines kept in memory so tests can assert on what was logged.

#if !PLAIN_PLATFORM_INTERNALS
#error "Logging/LogCapture.h belongs to the stand-in's tests; the engine has no such header"
#endif

#include "Containers/UnrealString.h"
#include "HAL/Platform.h"
#include "Logging/LogVerbosity.h"

#include <vector>

namespace UE::Log
{
	/** One logged line as UE_LOG received it (the message without category or verbosity prefix). */
	struct FCapturedLine
	{
		FString Category;
		ELogVerbosity::Type Verbosity = ELogVerbosity::Log;
		FString Message;
	};

	/** The last lines logged (at most MaxCapturedLines), oldest first; a copy, safe to keep. */
	CORE_API std::vector<FCapturedLine> GetCapturedLines();
	CORE_API void ClearCapturedLines();

	/** How many lines the capture keeps before dropping the oldest. */
	inline constexpr int32 MaxCapturedLines = 10000;
}
