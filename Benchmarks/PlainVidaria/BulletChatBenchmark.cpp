// The bullet chat's costs: taking in a large comment document (against the JSON library's own
// parse of the same text), an offer refused because the comment is already flying (the overlay
// makes one per comment per frame of its second), and a frame with 1,000 comments in flight on a
// 1280x720 overlay, timers and layout included. Run from a release build; figures in docs/bullet-chat.md.

#include "AllocationCounter.h"
#include "Blueprint/UserWidget.h"
#include "Blueprint/WidgetTree.h"
#include "BulletChat/BulletChatTrackManager.h"
#include "BulletChat/UI_BulletChat.h"
#include "Components/CanvasPanel.h"
#include "HeadlessApplication.h"
#include "MediaPlayer.h"
#include "Misc/FileHelper.h"
#include "Misc/Paths.h"

#include <benchmark/benchmark.h>
#include <rapidjson/reader.h>

#include <ctime>
#include <filesystem>
#include <unistd.h>

namespace
{
	FString MakeCommentDocument(int32 Count)
	{
		FString Text = TEXT("{ \"datas\": [");
		for (int32 Index = 0; Index < Count; ++Index)
		{
			Text += FString::Printf(TEXT("%s{ \"id\": %d, \"post_id\": 7, \"bullet_chat_author_id\": %d, \"bullet_chat_author\": \"Ann%d\", ")
				TEXT("\"bullet_chat_date\": \"2024.05.01-12.00.00\", \"time\": \"00:%02d:%02d\", \"bullet_chat_content\": \"Hello 你好 %d\", ")
				TEXT("\"fabulous\": %d }"),
				Index > 0 ? TEXT(", ") : TEXT(""), Index + 1, Index % 1000, Index % 37, (Index / 60) % 60, Index % 60, Index, Index % 50);
		}
		Text += TEXT("] }");
		return Text;
	}

	// A scratch project with an overlay blueprint and a 240x32 node blueprint.
	void WriteAssets()
	{
		const std::filesystem::path Dir = std::filesystem::temp_directory_path() / ("bulletchat-bench-" + std::to_string(getpid()));
		FPaths::SetProjectDir(UTF8_TO_TCHAR(Dir.string().c_str()));
		const FString Content = FPaths::ProjectContentDir() + TEXT("Bench/");
		FFileHelper::SaveStringToFile(TEXT("{ \"Class\": \"WidgetBlueprint\", \"ParentClass\": \"UI_BulletChatNode\", \"Tree\": { \"Name\": \"NodeCanvas\", ")
			TEXT("\"Class\": \"CanvasPanel\", \"Children\": [ { \"Name\": \"NodeText\", \"Class\": \"TextBlock\", \"Slot\": { \"Size\": [240, 32] } } ] } }"),
			*(Content + TEXT("WBP_Node.uasset")));
		FFileHelper::SaveStringToFile(TEXT("{ \"Class\": \"WidgetBlueprint\", \"ParentClass\": \"UI_BulletChat\", ")
			TEXT("\"Defaults\": { \"BulletChatNodeClass\": \"/Game/Bench/WBP_Node.WBP_Node_C\" }, \"Tree\": { \"Name\": \"RootCanvas\", \"Class\": \"CanvasPanel\" } }"),
			*(Content + TEXT("WBP_Overlay.uasset")));
	}

	// A 1280x720 app with the overlay on screen and started (it has a player that never plays).
	struct FOverlayBench
	{
		FOverlayBench()
		{
			WriteAssets();
			UClass* OverlayClass = LoadObject<UClass>(nullptr, TEXT("/Game/Bench/WBP_Overlay.WBP_Overlay_C"));
			Overlay = CreateWidget<UUI_BulletChat>(App.GetWorld(), OverlayClass);
			Overlay->AddToViewport();
			Player = NewObject<UMediaPlayer>();
			Player->AddToRoot();
			Overlay->Init(Player);
			App.TickFrames(2);
			Canvas = Cast<UCanvasPanel>(Overlay->WidgetTree->FindWidget(TEXT("RootCanvas")));
			Manager = NewObject<UBulletChatTrackManager>(Overlay);
			Manager->AddToRoot();
			Manager->Init(Canvas, LoadObject<UClass>(nullptr, TEXT("/Game/Bench/WBP_Node.WBP_Node_C")));
		}
		~FOverlayBench()
		{
			Manager->RemoveFromRoot();
			Player->RemoveFromRoot();
		}

		FBulletChatData Comment(int32 ID) const
		{
			FBulletChatData Data;
			Data.ID = ID;
			Data.PostID = Data.AuthorID = Data.Fabulous = 0;
			Data.Content = TEXT("Hello 你好");
			return Data;
		}

		FHeadlessApplication App;
		UUI_BulletChat* Overlay = nullptr;
		UMediaPlayer* Player = nullptr;
		UCanvasPanel* Canvas = nullptr;
		UBulletChatTrackManager* Manager = nullptr;
	};

	// CPU seconds of this thread: the machine is shared, and wall time would mostly measure the
	// other builds on it. Page faults count, as they are work the ingest causes.
	double SecondsOf(TFunctionRef<void()> Work)
	{
		timespec Start{}, End{};
		clock_gettime(CLOCK_THREAD_CPUTIME_ID, &Start);
		Work();
		clock_gettime(CLOCK_THREAD_CPUTIME_ID, &End);
		return double(End.tv_sec - Start.tv_sec) + double(End.tv_nsec - Start.tv_nsec) * 1e-9;
	}
}

// RawRatio is the library's bare parse time over ResetDatas' time, both the best of their runs in
// CPU time: 1.0 would mean taking the comments in costs no more than reading the text once.
// Ingest_ms and Raw_ms are those two times.
static void BM_ResetDatasHundredThousandRecords(benchmark::State& State)
{
	FOverlayBench Bench;
	const FString Text = MakeCommentDocument(100000);
	using FEncoding = rapidjson::UTF16<TCHAR>;
	double RawSeconds = 1e9;
	for (int32 Run = 0; Run < 3; ++Run)
	{
		RawSeconds = FMath::Min(RawSeconds, SecondsOf([&Text] {
			rapidjson::GenericReader<FEncoding, FEncoding> Reader;
			rapidjson::GenericStringStream<FEncoding> Stream(*Text);
			rapidjson::BaseReaderHandler<FEncoding> Handler;
			Reader.Parse<rapidjson::kParseDefaultFlags>(Stream, Handler);
		}));
	}
	double BestSeconds = 1e9;
	for (auto _ : State)
	{
		BestSeconds = FMath::Min(BestSeconds, SecondsOf([&] { Bench.Overlay->ResetDatas(Text); }));
	}
	State.counters["RawRatio"] = RawSeconds / BestSeconds;
	State.counters["Ingest_ms"] = BestSeconds * 1000.0;
	State.counters["Raw_ms"] = RawSeconds * 1000.0;
	State.SetBytesProcessed(State.iterations() * int64(Text.Len()));
}
BENCHMARK(BM_ResetDatasHundredThousandRecords)->Unit(benchmark::kMillisecond)->MinTime(2.0);

// The offer the overlay repeats every frame of a comment's second while that comment is flying.
static void BM_RefusedSpawnOfCommentInFlight(benchmark::State& State)
{
	FOverlayBench Bench;
	for (int32 ID = 0; ID < 20; ++ID)
	{
		Bench.Manager->SpawnBulletChatNode(Bench.Comment(ID));
	}
	const FBulletChatData InFlight = Bench.Comment(19);
	const uint64 AllocationsBefore = GetAllocationCount();
	for (auto _ : State)
	{
		Bench.Manager->SpawnBulletChatNode(InFlight);
	}
	State.counters["allocs"] = double(GetAllocationCount() - AllocationsBefore) / double(State.iterations());
}
BENCHMARK(BM_RefusedSpawnOfCommentInFlight);

// One 60 Hz frame with 1,000 comments flying: 100 timer firings per node per second, their
// moves, the overlay's and nodes' ticks and the layout. Iterations stay under the shortest
// flight (about 9 s), so every comment is in the air for every timed frame.
static void BM_FrameWithThousandCommentsInFlight(benchmark::State& State)
{
	FOverlayBench Bench;
	for (int32 ID = 0; ID < 1000; ++ID)
	{
		Bench.Manager->SpawnBulletChatNode(Bench.Comment(ID));
	}
	Bench.App.TickFrames(2);
	for (auto _ : State)
	{
		Bench.App.TickFrame();
	}
	State.counters["InFlight"] = double(Bench.Canvas->GetChildrenCount());
}
BENCHMARK(BM_FrameWithThousandCommentsInFlight)->Unit(benchmark::kMicrosecond)->Iterations(500);
