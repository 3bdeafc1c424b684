#include "Logging/LogCategory.h"

FLogCategoryBase::FLogCategoryBase(const TCHAR* InCategoryName, ELogVerbosity::Type InDefaultVerbosity, ELogVerbosity::Type InCompileTimeVerbosity)
	: Verbosity(static_cast<uint8>(InDefaultVerbosity & ELogVerbosity::VerbosityMask))
	, DefaultVerbosity(InDefaultVerbosity)
	, CompileTimeVerbosity(InCompileTimeVerbosity)
	, CategoryName(InCategoryName)
{
	SetVerbosity(InDefaultVerbosity);
}

void FLogCategoryBase::SetVerbosity(ELogVerbosity::Type NewVerbosity)
{
	const uint8 Level = static_cast<uint8>(NewVerbosity & ELogVerbosity::VerbosityMask);
	const uint8 Ceiling = static_cast<uint8>(CompileTimeVerbosity & ELogVerbosity::VerbosityMask);
	Verbosity.store(Level < Ceiling ? Level : Ceiling, std::memory_order_relaxed);
}

const TCHAR* ToString(ELogVerbosity::Type Verbosity)
{
	switch (Verbosity & ELogVerbosity::VerbosityMask)
	{
	case ELogVerbosity::NoLogging: return TEXT("NoLogging");
	case ELogVerbosity::Fatal: return TEXT("Fatal");
	case ELogVerbosity::Error: return TEXT("Error");
	case ELogVerbosity::Warning: return TEXT("Warning");
	case ELogVerbosity::Display: return TEXT("Display");
	case ELogVerbosity::Log: return TEXT("Log");
	case ELogVerbosity::Verbose: return TEXT("Verbose");
	case ELogVerbosity::VeryVerbose: return TEXT("VeryVerbose");
	default: return TEXT("UnknownVerbosity");
	}
}
