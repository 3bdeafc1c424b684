#pragma once

// Log categories and UE_LOG, as the engine declares them.
//
//   In a header:   MYMODULE_API DECLARE_LOG_CATEGORY_EXTERN(LogMine, Log, All);
//   In one .cpp:   DEFINE_LOG_CATEGORY(LogMine);
//   Anywhere:      UE_LOG(LogMine, Warning, TEXT("Could not open %s"), *Path);
//
// A line prints to stderr as "LogMine: Warning: Could not open x" ("LogMine: text" at Log
// verbosity). Fatal prints and then stops the program.

#include "Containers/UnrealString.h"
#include "HAL/Platform.h"
#include "Logging/LogCategory.h"
#include "Logging/LogVerbosity.h"

#include <type_traits>

namespace UE::Log::Private
{
	/** Writes one line (stderr unless PLAIN_LOG_QUIET=1, and the capture); aborts after a Fatal. */
	CORE_API void Emit(const FLogCategoryBase& Category, ELogVerbosity::Type Verbosity, const FString& Message);
}

#define DECLARE_LOG_CATEGORY_EXTERN(CategoryName, DefaultVerbosity, CompileTimeVerbosity) \
	extern struct FLogCategory##CategoryName : public FLogCategory<ELogVerbosity::DefaultVerbosity, ELogVerbosity::CompileTimeVerbosity> \
	{ \
		FLogCategory##CategoryName() : FLogCategory(TEXT(#CategoryName)) {} \
	} CategoryName;

#define DEFINE_LOG_CATEGORY(CategoryName) FLogCategory##CategoryName CategoryName;

#define DEFINE_LOG_CATEGORY_STATIC(CategoryName, DefaultVerbosity, CompileTimeVerbosity) \
	static struct FLogCategory##CategoryName : public FLogCategory<ELogVerbosity::DefaultVerbosity, ELogVerbosity::CompileTimeVerbosity> \
	{ \
		FLogCategory##CategoryName() : FLogCategory(TEXT(#CategoryName)) {} \
	} CategoryName;

#define UE_LOG(CategoryName, Verbosity, Format, ...) \
	do \
	{ \
		constexpr ELogVerbosity::Type UE_LogLineVerbosity = ELogVerbosity::Verbosity; \
		if constexpr ((UE_LogLineVerbosity & ELogVerbosity::VerbosityMask) <= std::remove_cvref_t<decltype(CategoryName)>::CompileTimeVerbosity) \
		{ \
			if (UE_LogLineVerbosity == ELogVerbosity::Fatal || !CategoryName.IsSuppressed(UE_LogLineVerbosity)) \
			{ \
				::UE::Log::Private::Emit(CategoryName, UE_LogLineVerbosity, FString::Printf(Format __VA_OPT__(, ) __VA_ARGS__)); \
			} \
		} \
	} while (false)

#define UE_CLOG(Condition, CategoryName, Verbosity, Format, ...) \
	do \
	{ \
		if (Condition) \
		{ \
			UE_LOG(CategoryName, Verbosity, Format __VA_OPT__(, ) __VA_ARGS__); \
		} \
	} while (false)

#define UE_GET_LOG_VERBOSITY(CategoryName) CategoryName.GetVerbosity()
#define UE_SET_LOG_VERBOSITY(CategoryName, Verbosity) CategoryName.SetVerbosity(ELogVerbosity::Verbosity)
