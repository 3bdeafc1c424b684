// Reading comment documents: FJsonSerializer::Deserialize (text to FJsonObject tree; compare with
// BM_RapidJsonSaxWide, the library's own parse of the same text, in JsonLibraryBenchmark.cpp), and
// the memory a 100 MB document needs beyond its tree. Run from a release build; see docs/json.md for figures.

#include "CommentDocument.h"
#include "Dom/JsonObject.h"
#include "Serialization/JsonReader.h"
#include "Serialization/JsonSerializer.h"

#include <benchmark/benchmark.h>

#include <fstream>
#include <malloc.h>
#include <string>

namespace
{
	// One field of /proc/self/status in kB (VmRSS, VmHWM), or -1.
	long ReadStatusKb(const char* Field)
	{
		std::ifstream Status("/proc/self/status");
		std::string Line;
		while (std::getline(Status, Line))
		{
			if (Line.rfind(Field, 0) == 0)
			{
				return std::stol(Line.substr(Line.find(':') + 1));
			}
		}
		return -1;
	}

	// Makes VmHWM start again from the current resident size.
	void ResetPeakResident()
	{
		std::ofstream("/proc/self/clear_refs") << "5";
	}
}

// Text to tree. The reader takes a moved copy (made outside the timing), as a caller reading a
// file does; freeing the tree is outside the timing too.
static void BM_DeserializeCommentDocument(benchmark::State& State)
{
	const FString& Text = JsonBench::HundredThousandRecords();
	for (auto _ : State)
	{
		State.PauseTiming();
		FString Copy = Text;
		TSharedPtr<FJsonObject> Object;
		State.ResumeTiming();

		const bool bRead = FJsonSerializer::Deserialize(TJsonReaderFactory<>::Create(MoveTemp(Copy)), Object);

		State.PauseTiming();
		if (!bRead || Object->GetArrayField(TEXT("datas")).Num() != 100000)
		{
			State.SkipWithError("document not read");
		}
		Object.Reset();
		State.ResumeTiming();
	}
	State.SetBytesProcessed(State.iterations() * int64(Text.Len()));
}
// The warm-up takes the first touch of fresh heap pages, slow on a virtual machine, out of the figure.
BENCHMARK(BM_DeserializeCommentDocument)->Unit(benchmark::kMillisecond)->MinWarmUpTime(2.0)->MinTime(2.0);

// A document of about 100 MB of UTF-8 (470,000 records; four times that as TCHAR text). Tree_MB
// is the heap the tree holds once read; Peak_MB is how far the resident size rose above text
// and program during the read; Transient_MB, the difference, is the parser's own working memory,
// which should stay near zero. Run it once per process: later runs reuse freed pages unseen.
static void BM_HundredMegabyteDocumentMemory(benchmark::State& State)
{
	for (auto _ : State)
	{
		State.PauseTiming();
		const double HeapBeforeMb = double(mallinfo2().uordblks + mallinfo2().hblkhd) / (1024.0 * 1024.0);
		FString Text = JsonBench::MakeCommentDocument(470000);
		const double TextMb = double(Text.Len()) * sizeof(TCHAR) / (1024.0 * 1024.0);
		malloc_trim(0);
		const double ResidentBeforeMb = double(ReadStatusKb("VmRSS:")) / 1024.0;
		ResetPeakResident();
		TSharedPtr<FJsonObject> Object;
		State.ResumeTiming();

		const bool bRead = FJsonSerializer::Deserialize(TJsonReaderFactory<>::Create(MoveTemp(Text)), Object);

		State.PauseTiming();
		if (!bRead)
		{
			State.SkipWithError("document not read");
		}
		// The reader, and the text it took, are gone by now: the heap holds the tree alone.
		const double TreeMb = double(mallinfo2().uordblks + mallinfo2().hblkhd) / (1024.0 * 1024.0) - HeapBeforeMb;
		const double PeakMb = double(ReadStatusKb("VmHWM:")) / 1024.0 - ResidentBeforeMb;
		State.counters["Text_MB"] = TextMb;
		State.counters["Tree_MB"] = TreeMb;
		State.counters["Peak_MB"] = PeakMb;
		State.counters["Transient_MB"] = PeakMb - TreeMb;
		Object.Reset();
		State.ResumeTiming();
	}
}
BENCHMARK(BM_HundredMegabyteDocumentMemory)->Unit(benchmark::kMillisecond)->Iterations(1);
