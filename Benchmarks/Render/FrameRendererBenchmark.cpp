// The CPU renderer's cost for the player's busiest screen: a 1280 x 720 frame with the video
// scaled over all of it and 200 comments of text on top, and the PNG write of such a frame.

#include "AllocationCounter.h"

#include "../../Tests/Kit/ScriptedMedia.h"

#include "Blueprint/UserWidget.h"
#include "Blueprint/WidgetBlueprintGeneratedClass.h"
#include "Blueprint/WidgetTree.h"
#include "Components/CanvasPanel.h"
#include "Components/CanvasPanelSlot.h"
#include "Components/Image.h"
#include "Components/TextBlock.h"
#include "Containers/Ticker.h"
#include "FrameRenderer.h"
#include "MediaPlayer.h"
#include "MediaTexture.h"
#include "RenderFrame.h"
#include "Slate/WidgetViewport.h"
#include "UObject/Package.h"

#include <benchmark/benchmark.h>

#include <filesystem>

namespace
{
	UClass* HostClass()
	{
		static UClass* Class = [] {
			UWidgetBlueprintGeneratedClass* Made = NewObject<UWidgetBlueprintGeneratedClass>(GetTransientPackage(), UWidgetBlueprintGeneratedClass::StaticClass(),
				FName(TEXT("RenderBenchmarkHost_C")), RF_Public | RF_Standalone);
			Made->SetSuperStruct(UUserWidget::StaticClass());
			Made->SetStructureSize(UUserWidget::StaticClass()->GetStructureSize());
			Made->SetClassFlags(CLASS_CompiledFromBlueprint);
			return static_cast<UClass*>(Made);
		}();
		return Class;
	}

	/** The screen: a full-viewport video image under 200 comments, laid out once. */
	void MakeVideoScreen(FScriptedMediaScope& Scripted)
	{
		FWidgetViewport& Viewport = FWidgetViewport::Get();
		Viewport.Reset();
		Viewport.SetViewportSize(FVector2D(1280.0, 720.0));
		UUserWidget* Screen = CreateWidget<UUserWidget>(GetTransientPackage(), HostClass());
		UCanvasPanel* Canvas = Screen->WidgetTree->ConstructWidget<UCanvasPanel>();
		Screen->WidgetTree->RootWidget = Canvas;

		UMediaPlayer* Player = NewObject<UMediaPlayer>(GetTransientPackage());
		UMediaTexture* Video = NewObject<UMediaTexture>(GetTransientPackage());
		Video->SetMediaPlayer(Player);
		Player->OpenUrl(FScriptedMediaScope::Url(TEXT("bench")));
		Scripted.Media(TEXT("bench")).FinishOpen();
		FTSTicker::GetCoreTicker().Tick(1.f / 60.f);
		FTSTicker::GetCoreTicker().Tick(1.f / 60.f);

		UImage* Image = Screen->WidgetTree->ConstructWidget<UImage>();
		Image->SetBrushResourceObject(Video);
		UCanvasPanelSlot* ImageSlot = Canvas->AddChildToCanvas(Image);
		ImageSlot->SetSize(FVector2D(1280.0, 720.0));
		for (int32 Index = 0; Index < 200; ++Index)
		{
			UTextBlock* Text = Screen->WidgetTree->ConstructWidget<UTextBlock>();
			Text->SetText(FText::FromString(FString::Printf(TEXT("Comment number %d, flying by"), Index)));
			UCanvasPanelSlot* Slot = Canvas->AddChildToCanvas(Text);
			Slot->SetAutoSize(true);
			Slot->SetPosition(FVector2D((Index * 97) % 1100, (Index % 20) * 34.0));
		}
		Screen->AddToViewport();
		Viewport.Layout();
	}
}

static void BM_RenderVideoFrameWith200Texts(benchmark::State& State)
{
	FScriptedMediaScope Scripted;
	MakeVideoScreen(Scripted);
	FFrameRenderer Renderer;
	FRenderFrame Frame;
	Renderer.Render(FWidgetViewport::Get(), Frame);
	const uint64 Before = GetAllocationCount();
	for (auto _ : State)
	{
		Renderer.Render(FWidgetViewport::Get(), Frame);
		benchmark::DoNotOptimize(Frame.GetData());
	}
	State.counters["allocs"] = double(GetAllocationCount() - Before) / double(State.iterations());
	FWidgetViewport::Get().Reset();
}
BENCHMARK(BM_RenderVideoFrameWith200Texts)->Unit(benchmark::kMillisecond);

static void BM_SavePng1280x720(benchmark::State& State)
{
	FScriptedMediaScope Scripted;
	MakeVideoScreen(Scripted);
	FRenderFrame Frame;
	FFrameRenderer().Render(FWidgetViewport::Get(), Frame);
	const std::filesystem::path Path = std::filesystem::temp_directory_path() / "render_benchmark.png";
	for (auto _ : State)
	{
		benchmark::DoNotOptimize(Frame.SavePng(FString(Path.c_str())));
	}
	std::filesystem::remove(Path);
	FWidgetViewport::Get().Reset();
}
BENCHMARK(BM_SavePng1280x720)->Unit(benchmark::kMillisecond);
