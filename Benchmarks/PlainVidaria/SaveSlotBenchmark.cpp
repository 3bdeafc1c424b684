// What the comment settings' save slot costs: a load from a good slot, a load from a damaged one
// (which the plug-in replaces with its defaults before reading it again), and a save. Each works
// on a scratch project's slot file. Run from a release build; figures in docs/benchmarks.md.

#include "BulletChat/BulletChatSave.h"
#include "Kismet/GameplayStatics.h"
#include "Misc/Paths.h"
#include "UObject/GarbageCollection.h"

#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>

namespace
{
	const TCHAR* const SlotName = TEXT("BULLETCHAT_SGSLOT");

	/** A project folder of the benchmark's own for as long as it lives; the slot starts absent. */
	class FScratchProject
	{
	public:
		FScratchProject()
			: Previous(FPaths::ProjectDir())
			, Dir(std::filesystem::temp_directory_path() / ("vidaria-slot-bench-" + std::to_string(::getpid())))
		{
			std::filesystem::create_directories(Dir);
			FPaths::SetProjectDir(UTF8_TO_TCHAR(Dir.c_str()));
		}
		~FScratchProject()
		{
			FPaths::SetProjectDir(Previous);
			std::filesystem::remove_all(Dir);
		}
		void DamageSlot() const { std::ofstream(TCHAR_TO_UTF8(*UGameplayStatics::GetSaveGamePath(SlotName)), std::ios::trunc) << "{\"Format\": 7, "; }

	private:
		FString Previous;
		std::filesystem::path Dir;
	};
}

static void BM_SettingsLoadFromAGoodSlot(benchmark::State& State)
{
	FScratchProject Project;
	UBulletChatSave::SaveFontSize(30);
	for (auto _ : State)
	{
		benchmark::DoNotOptimize(UBulletChatSave::LoadFontSize());
	}
	CollectGarbage();
}
BENCHMARK(BM_SettingsLoadFromAGoodSlot)->Unit(benchmark::kMicrosecond);

static void BM_SettingsLoadFromADamagedSlot(benchmark::State& State)
{
	FScratchProject Project;
	for (auto _ : State)
	{
		State.PauseTiming();
		Project.DamageSlot();
		State.ResumeTiming();
		benchmark::DoNotOptimize(UBulletChatSave::LoadFontSize());
	}
	CollectGarbage();
}
BENCHMARK(BM_SettingsLoadFromADamagedSlot)->Unit(benchmark::kMicrosecond);

static void BM_SettingsSave(benchmark::State& State)
{
	FScratchProject Project;
	int32 Size = 10;
	for (auto _ : State)
	{
		UBulletChatSave::SaveFontSize(++Size);
	}
	CollectGarbage();
}
BENCHMARK(BM_SettingsSave)->Unit(benchmark::kMicrosecond);

static void BM_CollectGarbageWithNothingToFree(benchmark::State& State)
{
	for (auto _ : State)
	{
		CollectGarbage();
	}
}
BENCHMARK(BM_CollectGarbageWithNothingToFree)->Unit(benchmark::kMicrosecond);
