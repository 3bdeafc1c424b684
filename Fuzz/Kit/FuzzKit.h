#pragma once

// What every fuzz target shares: the input as text the way a file's bytes become an FString, a
// quiet log, a scratch project folder per process, and a loud stop when a target's own
// expectation fails (libFuzzer keeps the input that did it).

#include "CoreMinimal.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace PlainFuzz
{
	/** The bytes read as UTF-8, as the file helpers read a document: bad bytes become U+FFFD, NULs stay. */
	FString Text(const uint8_t* Data, size_t Size);

	/**
	 * Silences the log (thousands of warnings a second otherwise) unless PLAIN_LOG_QUIET is set,
	 * and points the project at a scratch folder of this process, removed at exit. With
	 * bWithContent the scratch project sees the repository's Content/ (the real blueprints).
	 */
	void Start(bool bWithContent);

	/** The scratch project folder Start made, with a trailing slash. */
	const std::string& ScratchDir();

	/** Writes Size bytes to Path (made with its folders), replacing it. */
	void WriteFile(const std::string& Path, const uint8_t* Data, size_t Size);

	/**
	 * Drops the log lines the stand-in keeps for tests. Called at the end of every input: a kept
	 * line outlives its input, and libFuzzer answers every input that leaves memory behind with a
	 * full leak check, which would cost far more than the input itself.
	 */
	void ForgetLog();

	/** Stops the run with Message when Condition is false: a broken expectation is a finding. */
	void Expect(bool Condition, const char* Message);
}
