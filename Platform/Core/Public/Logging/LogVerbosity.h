#pragma once

#include "HAL/Platform.h"

/** How important a log line is; a category shows lines up to its current verbosity. */
namespace ELogVerbosity
{
	enum Type : uint8
	{
		NoLogging = 0,
		/** Printed, then the program stops. */
		Fatal,
		Error,
		Warning,
		Display,
		Log,
		Verbose,
		VeryVerbose,
		All = VeryVerbose,
		NumVerbosity,
		VerbosityMask = 0xf,
		SetColor = 0x40,
		BreakOnLog = 0x80,
	};
}

/** The verbosity's name as the log prints it: "Warning", "Display", ... */
CORE_API const TCHAR* ToString(ELogVerbosity::Type Verbosity);
