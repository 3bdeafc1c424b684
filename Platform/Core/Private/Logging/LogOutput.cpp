// Where UE_LOG lines go: stderr (unless PLAIN_LOG_QUIET=1) and the in-memory capture.

#include "Containers/StringConv.h"
#include "Logging/LogCapture.h"
#include "Logging/LogMacros.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <deque>
#include <mutex>

namespace
{
	struct FLogState
	{
		// Serialises whole lines, so lines from worker threads never interleave, and guards Lines.
		std::mutex Mutex;
		// The most recent lines, oldest first, at most UE::Log::MaxCapturedLines.
		std::deque<UE::Log::FCapturedLine> Lines;
	};

	FLogState& GetState()
	{
		// Never destroyed: static destructors in any module may still log.
		static FLogState* const State = new FLogState();
		return *State;
	}

	// Looked up per line rather than once, so a host or test can silence the console at any time.
	bool IsQuiet()
	{
		const char* Quiet = std::getenv("PLAIN_LOG_QUIET");
		return Quiet && std::strcmp(Quiet, "1") == 0;
	}
}

void UE::Log::Private::Emit(const FLogCategoryBase& Category, ELogVerbosity::Type Verbosity, const FString& Message)
{
	const ELogVerbosity::Type Level = static_cast<ELogVerbosity::Type>(Verbosity & ELogVerbosity::VerbosityMask);
	const FString CategoryName = Category.GetCategoryName().ToString();
	FString Line = CategoryName + TEXT(": ");
	if (Level != ELogVerbosity::Log)
	{
		Line += ToString(Level);
		Line += TEXT(": ");
	}
	Line += Message;
	Line += TEXT('\n');
	const FTCHARToUTF8 Bytes(*Line, Line.Len());

	FLogState& State = GetState();
	{
		std::lock_guard Lock(State.Mutex);
		State.Lines.push_back(FCapturedLine{CategoryName, Level, Message});
		if (State.Lines.size() > static_cast<SIZE_T>(MaxCapturedLines))
		{
			State.Lines.pop_front();
		}
		if (Level == ELogVerbosity::Fatal || !IsQuiet())
		{
			std::fwrite(Bytes.Get(), 1, static_cast<SIZE_T>(Bytes.Length()), stderr);
		}
	}
	if (Level == ELogVerbosity::Fatal)
	{
		std::fflush(stderr);
		std::abort();
	}
}

std::vector<UE::Log::FCapturedLine> UE::Log::GetCapturedLines()
{
	FLogState& State = GetState();
	std::lock_guard Lock(State.Mutex);
	return std::vector<FCapturedLine>(State.Lines.begin(), State.Lines.end());
}

void UE::Log::ClearCapturedLines()
{
	FLogState& State = GetState();
	std::lock_guard Lock(State.Mutex);
	State.Lines.clear();
}
