// Widget frame costs: the tick and layout passes over a canvas of 1,000 auto-sized text blocks
// (the bullet chat's worst case; no drawing), and one text measurement.

#include "AllocationCounter.h"

#include "Blueprint/UserWidget.h"
#include "Blueprint/WidgetBlueprintGeneratedClass.h"
#include "Blueprint/WidgetTree.h"
#include "Components/CanvasPanel.h"
#include "Components/CanvasPanelSlot.h"
#include "Components/TextBlock.h"
#include "Fonts/FontMeasure.h"
#include "Fonts/SlateFontInfo.h"
#include "Slate/WidgetViewport.h"
#include "UObject/Package.h"

#include <benchmark/benchmark.h>

namespace
{
	/** An empty widget blueprint class made in memory, so the benchmark needs no asset. */
	UClass* MakeHostClass()
	{
		static UClass* Class = []
		{
			UWidgetBlueprintGeneratedClass* Made = NewObject<UWidgetBlueprintGeneratedClass>(GetTransientPackage(), UWidgetBlueprintGeneratedClass::StaticClass(),
				FName(TEXT("BenchmarkHost_C")), RF_Public | RF_Standalone);
			Made->SetSuperStruct(UUserWidget::StaticClass());
			Made->SetStructureSize(UUserWidget::StaticClass()->GetStructureSize());
			Made->SetClassFlags(CLASS_CompiledFromBlueprint);
			return static_cast<UClass*>(Made);
		}();
		return Class;
	}

	/** A user widget in the viewport whose tree is a canvas of Count auto-sized comments. */
	UUserWidget* MakeCommentScreen(int32 Count)
	{
		FWidgetViewport::Get().Reset();
		UUserWidget* Screen = CreateWidget<UUserWidget>(GetTransientPackage(), MakeHostClass());
		UCanvasPanel* Canvas = Screen->WidgetTree->ConstructWidget<UCanvasPanel>();
		Screen->WidgetTree->RootWidget = Canvas;
		for (int32 Index = 0; Index < Count; ++Index)
		{
			UTextBlock* Text = Screen->WidgetTree->ConstructWidget<UTextBlock>();
			Text->SetText(FText::FromString(FString::Printf(TEXT("Comment number %d, flying by"), Index)));
			UCanvasPanelSlot* Slot = Canvas->AddChildToCanvas(Text);
			Slot->SetAutoSize(true);
			Slot->SetPosition(FVector2D(1280.0 - Index, (Index % 40) * 18.0));
		}
		Screen->AddToViewport();
		return Screen;
	}
}

static void BM_TickAndLayoutOfThousandTextCanvas(benchmark::State& State)
{
	MakeCommentScreen(1000);
	FWidgetViewport& Viewport = FWidgetViewport::Get();
	Viewport.Layout();
	const uint64 Before = GetAllocationCount();
	for (auto _ : State)
	{
		Viewport.TickWidgets(1.0f / 60.0f);
		Viewport.Layout();
	}
	State.counters["allocs"] = double(GetAllocationCount() - Before) / double(State.iterations());
	Viewport.Reset();
}
BENCHMARK(BM_TickAndLayoutOfThousandTextCanvas)->Unit(benchmark::kMicrosecond);

static void BM_FirstLayoutOfThousandNewTexts(benchmark::State& State)
{
	// Every text is measured once: the cost of a canvas filling up with new comments.
	for (auto _ : State)
	{
		State.PauseTiming();
		MakeCommentScreen(1000);
		State.ResumeTiming();
		FWidgetViewport::Get().Layout();
	}
	FWidgetViewport::Get().Reset();
}
BENCHMARK(BM_FirstLayoutOfThousandNewTexts)->Unit(benchmark::kMicrosecond)->Iterations(20);

static void BM_MeasureComment(benchmark::State& State)
{
	const FString Latin(TEXT("Great lesson, thanks!"));
	const FString Cjk(TEXT("\u8fd9\u8282\u8bfe\u8bb2\u5f97\u771f\u597d\uff0c\u8c22\u8c22\u8001\u5e08"));
	const FSlateFontInfo Font(FName(TEXT("Regular")), 24);
	const FString& Text = State.range(0) == 0 ? Latin : Cjk;
	FSlateFontMeasure::Get().Measure(Text, Font);
	for (auto _ : State)
	{
		benchmark::DoNotOptimize(FSlateFontMeasure::Get().Measure(Text, Font));
	}
}
BENCHMARK(BM_MeasureComment)->Arg(0)->Arg(1);
