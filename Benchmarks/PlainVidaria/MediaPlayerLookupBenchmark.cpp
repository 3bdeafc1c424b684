// PlainVidaria::LoadMediaPlayer's costs: a lookup with an empty held path, which lists a content
// directory of 10,000 files each time, against `find <dir> -name NAME.uasset` over the same tree
// (process start included, as a user typing it would pay), and a lookup with the held path, which
// touches no directory. Run from a release build; figures in docs/settings-and-module.md.

#include "AllocationCounter.h"
#include "MediaPlayer.h"
#include "MediaPlayerLookup.h"
#include "Misc/Paths.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>

namespace
{
	constexpr int32 NumFolders = 100;
	constexpr int32 FilesPerFolder = 100;

	// A scratch project whose content directory holds 10,000 .uasset files in 100 folders; the one
	// media player sits in the last folder the file manager lists, so every scan walks the whole list.
	class FLookupTree
	{
	public:
		static FLookupTree& Get()
		{
			static FLookupTree Tree;
			return Tree;
		}

		// Points FPaths at this project for the lifetime of the returned guard.
		struct FProjectScope
		{
			explicit FProjectScope(const std::string& Dir) : Previous(FPaths::ProjectDir()) { FPaths::SetProjectDir(UTF8_TO_TCHAR(Dir.c_str())); }
			~FProjectScope() { FPaths::SetProjectDir(Previous); }
			// The project directory to go back to.
			FString Previous;
		};

		// The project folder.
		std::string Root;

	private:
		FLookupTree()
		{
			Root = (std::filesystem::temp_directory_path() / ("lookup-bench-" + std::to_string(getpid()))).string();
			for (int32 Folder = 0; Folder < NumFolders; ++Folder)
			{
				const std::string Dir = Root + "/Content/Lessons/F" + std::to_string(1000 + Folder);
				std::filesystem::create_directories(Dir);
				for (int32 File = 0; File < FilesPerFolder - (Folder == NumFolders - 1 ? 1 : 0); ++File)
				{
					std::ofstream(Dir + "/Asset" + std::to_string(File) + ".uasset") << "{}";
				}
			}
			std::ofstream(Root + "/Content/Lessons/F" + std::to_string(1000 + NumFolders - 1) + "/MP_Target.uasset")
				<< R"({ "Class": "/Script/MediaAssets.MediaPlayer" })";
		}

		~FLookupTree()
		{
			std::error_code Error;
			std::filesystem::remove_all(Root, Error);
		}
	};

	void BM_LoadMediaPlayer_EmptyHeldPath(benchmark::State& State)
	{
		FLookupTree& Tree = FLookupTree::Get();
		FLookupTree::FProjectScope Project(Tree.Root);
		const uint64 AllocationsBefore = GetAllocationCount();
		for (auto _ : State)
		{
			FString Path;
			UMediaPlayer* Player = PlainVidaria::LoadMediaPlayer(TEXT("MP_Target"), Path);
			if (!Player)
			{
				State.SkipWithError("the media player was not found");
				break;
			}
			benchmark::DoNotOptimize(Player);
		}
		State.counters["allocs"] = benchmark::Counter(static_cast<double>(GetAllocationCount() - AllocationsBefore) / static_cast<double>(State.iterations()));
	}
	BENCHMARK(BM_LoadMediaPlayer_EmptyHeldPath)->Unit(benchmark::kMillisecond);

	void BM_FindCommand(benchmark::State& State)
	{
		const std::string Command = "find '" + FLookupTree::Get().Root + "/Content' -name MP_Target.uasset";
		for (auto _ : State)
		{
			FILE* Pipe = popen(Command.c_str(), "r");
			if (!Pipe)
			{
				State.SkipWithError("popen failed");
				break;
			}
			std::string Output;
			char Buffer[512];
			while (size_t Read = fread(Buffer, 1, sizeof(Buffer), Pipe))
			{
				Output.append(Buffer, Read);
			}
			pclose(Pipe);
			if (Output.find("MP_Target.uasset") == std::string::npos)
			{
				State.SkipWithError("find did not list the file");
				break;
			}
		}
	}
	BENCHMARK(BM_FindCommand)->Unit(benchmark::kMillisecond);

	void BM_LoadMediaPlayer_HeldPath(benchmark::State& State)
	{
		FLookupTree::FProjectScope Project(FLookupTree::Get().Root);
		FString Path;
		PlainVidaria::LoadMediaPlayer(TEXT("MP_Target"), Path);
		for (auto _ : State)
		{
			benchmark::DoNotOptimize(PlainVidaria::LoadMediaPlayer(TEXT("MP_Target"), Path));
		}
	}
	BENCHMARK(BM_LoadMediaPlayer_HeldPath)->Unit(benchmark::kMicrosecond);
}
