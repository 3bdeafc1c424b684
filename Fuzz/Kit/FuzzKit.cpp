#include "FuzzKit.h"

#include "Containers/StringConv.h"
#include "Logging/LogCapture.h"
#include "Misc/Paths.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <system_error>
#include <unistd.h>

namespace
{
	std::string& Scratch()
	{
		static std::string Dir;
		return Dir;
	}

	void RemoveScratch()
	{
		std::error_code Ignored;
		std::filesystem::remove_all(Scratch(), Ignored);
	}

	/**
	 * Where the scratch project goes: memory (/dev/shm) when the machine has it, else the temporary
	 * folder. Targets rewrite files on every input (the save slot four times, and each load of a
	 * bad slot replaces it), and ext4 pushes a file replaced by truncation or by a rename over it
	 * out to the disk at once: on the 2-core machine the SaveSlot target spent about 20 of its
	 * 25 ms an input waiting for that, and runs 7 times faster in memory. TMPDIR, when set, wins.
	 */
	std::filesystem::path ScratchParent()
	{
		std::error_code Error;
		const char* Chosen = std::getenv("TMPDIR");
		if ((!Chosen || !*Chosen) && std::filesystem::is_directory("/dev/shm", Error) && access("/dev/shm", W_OK) == 0)
		{
			return "/dev/shm";
		}
		return std::filesystem::temp_directory_path();
	}
}

// The sanitizer's defaults for every fuzz target (ASAN_OPTIONS adds to them). clang's driver links
// libFuzzer's C++ library ahead of the shared sanitizer runtime, and the runtime refuses to start
// unless it comes first; nothing that library does before the runtime starts allocates through
// anything but the runtime's malloc, so the order check is off.
extern "C" const char* __asan_default_options()
{
	return "verify_asan_link_order=0";
}

FString PlainFuzz::Text(const uint8_t* Data, size_t Size)
{
	const FUTF8ToTCHAR Converted(reinterpret_cast<const ANSICHAR*>(Data), static_cast<int32>(Size));
	return FString(Converted.Length(), Converted.Get());
}

void PlainFuzz::Start(bool bWithContent)
{
	setenv("PLAIN_LOG_QUIET", "1", 0);
	const std::filesystem::path Dir = ScratchParent() / ("plain-fuzz-" + std::to_string(getpid()));
	std::filesystem::create_directories(Dir);
	if (bWithContent)
	{
		std::error_code Ignored;
		std::filesystem::create_directory_symlink(std::filesystem::path(PLAIN_FUZZ_CONTENT_DIR), Dir / "Content", Ignored);
	}
	Scratch() = Dir.string() + "/";
	std::atexit(&RemoveScratch);
	FPaths::SetProjectDir(UTF8_TO_TCHAR(Scratch().c_str()));
}

const std::string& PlainFuzz::ScratchDir()
{
	return Scratch();
}

void PlainFuzz::WriteFile(const std::string& Path, const uint8_t* Data, size_t Size)
{
	std::filesystem::create_directories(std::filesystem::path(Path).parent_path());
	std::ofstream(Path, std::ios::binary | std::ios::trunc).write(reinterpret_cast<const char*>(Data), static_cast<std::streamsize>(Size));
}

void PlainFuzz::ForgetLog()
{
	UE::Log::ClearCapturedLines();
}

void PlainFuzz::Expect(bool Condition, const char* Message)
{
	if (!Condition)
	{
		std::fprintf(stderr, "fuzz expectation failed: %s\n", Message);
		std::abort();
	}
}
