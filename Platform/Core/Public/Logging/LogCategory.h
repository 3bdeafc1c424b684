#pragma once

#include "HAL/Platform.h"
#include "Logging/LogVerbosity.h"
#include "UObject/NameTypes.h"

#include <atomic>

/**
 * A named log category with a verbosity that can change at run time (never above the one fixed
 * at compile time). Categories are made by the DECLARE/DEFINE_LOG_CATEGORY macros as globals;
 * reading and changing the verbosity is safe from any thread.
 */
struct FLogCategoryBase
{
public:
	CORE_API FLogCategoryBase(const TCHAR* InCategoryName, ELogVerbosity::Type InDefaultVerbosity, ELogVerbosity::Type InCompileTimeVerbosity);

	/** True when a line of this verbosity would be dropped. */
	bool IsSuppressed(ELogVerbosity::Type VerbosityLevel) const
	{
		return (VerbosityLevel & ELogVerbosity::VerbosityMask) > Verbosity.load(std::memory_order_relaxed);
	}

	const FName& GetCategoryName() const { return CategoryName; }
	ELogVerbosity::Type GetVerbosity() const { return static_cast<ELogVerbosity::Type>(Verbosity.load(std::memory_order_relaxed)); }
	ELogVerbosity::Type GetCompileTimeVerbosity() const { return CompileTimeVerbosity; }
	/** Clamped to the compile-time verbosity, as lines above it were compiled out. */
	CORE_API void SetVerbosity(ELogVerbosity::Type NewVerbosity);
	void ResetToDefault() { SetVerbosity(DefaultVerbosity); }

private:
	// The category's current verbosity; written by SetVerbosity from any thread.
	std::atomic<uint8> Verbosity;
	// The verbosity it starts with.
	ELogVerbosity::Type DefaultVerbosity;
	// The most verbose level compiled in.
	ELogVerbosity::Type CompileTimeVerbosity;
	// The name printed in front of each line.
	FName CategoryName;
};

/** The category type the macros derive from; carries the compile-time verbosity for UE_LOG. */
template <ELogVerbosity::Type InDefaultVerbosity, ELogVerbosity::Type InCompileTimeVerbosity>
struct FLogCategory : public FLogCategoryBase
{
	static constexpr ELogVerbosity::Type CompileTimeVerbosity = InCompileTimeVerbosity;

	explicit FLogCategory(const TCHAR* InCategoryName)
		: FLogCategoryBase(InCategoryName, InDefaultVerbosity, InCompileTimeVerbosity)
	{
	}
};
