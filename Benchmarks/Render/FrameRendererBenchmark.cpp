// The CPU renderer's cost for the player's busiest screens: a frame with the video over all of it
// and comments of text on top (200 plain lines; 1,000 in the bullet chat's look, moving every
// frame, at 1280x720 and 1920x1080), the two ways of blending text, and the PNG write of a frame.

#include "AllocationCounter.h"

#include "../../Tests/Kit/ScriptedMedia.h"

#include "Blueprint/UserWidget.h"
#include "Blueprint/WidgetBlueprintGeneratedClass.h"
#include "Blueprint/WidgetTree.h"
#include "Components/CanvasPanel.h"
#include "Components/CanvasPanelSlot.h"
#include "Components/Image.h"
#include "Components/TextBlock.h"
#include "Fonts/SlateFontInfo.h"
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

	/**
	 * The bullet chat at its densest: a video picture of the viewport's own size under Count
	 * comments in the overlay's look (bold 24 pt, a 2-pixel outline), texts of 8 to 40
	 * characters, some Chinese. Returns the comments, which the benchmark moves every frame.
	 */
	TArray<UTextBlock*> MakeCommentScreen(FScriptedMediaScope& Scripted, int32 Width, int32 Height, int32 Count)
	{
		FWidgetViewport& Viewport = FWidgetViewport::Get();
		Viewport.Reset();
		Viewport.SetViewportSize(FVector2D(Width, Height));
		UUserWidget* Screen = CreateWidget<UUserWidget>(GetTransientPackage(), HostClass());
		UCanvasPanel* Canvas = Screen->WidgetTree->ConstructWidget<UCanvasPanel>();
		Screen->WidgetTree->RootWidget = Canvas;

		UMediaPlayer* Player = NewObject<UMediaPlayer>(GetTransientPackage());
		UMediaTexture* Video = NewObject<UMediaTexture>(GetTransientPackage());
		Video->SetMediaPlayer(Player);
		FScriptedMedia& Media = Scripted.Media(TEXT("dense"));
		Media.PictureWidth = Width;
		Media.PictureHeight = Height;
		Player->OpenUrl(FScriptedMediaScope::Url(TEXT("dense")));
		Media.FinishOpen();
		FTSTicker::GetCoreTicker().Tick(1.f / 60.f);
		FTSTicker::GetCoreTicker().Tick(1.f / 60.f);
		UImage* Image = Screen->WidgetTree->ConstructWidget<UImage>();
		Image->SetBrushResourceObject(Video);
		Canvas->AddChildToCanvas(Image)->SetSize(FVector2D(Width, Height));

		FSlateFontInfo Font(FName(TEXT("Bold")), 24.0f);
		Font.OutlineSettings.OutlineSize = 2;
		Font.OutlineSettings.OutlineColor = FLinearColor(0.f, 0.f, 0.f, 0.85f);
		const TCHAR* Words[] = {TEXT("great"), TEXT("lesson"), TEXT("你好"), TEXT("thanks"), TEXT("学习"), TEXT("wow"), TEXT("so clear"), TEXT("+1")};
		TArray<UTextBlock*> Comments;
		const int32 Lanes = FMath::Max(1, Height / 40);
		for (int32 Index = 0; Index < Count; ++Index)
		{
			FString Text = FString::Printf(TEXT("#%d"), Index);
			for (int32 Word = 0; Word < 1 + Index % 6; ++Word)
			{
				Text += TEXT(" ");
				Text += Words[(Index + Word * 3) % 8];
			}
			UTextBlock* Comment = Screen->WidgetTree->ConstructWidget<UTextBlock>();
			Comment->SetText(FText::FromString(Text));
			Comment->SetFont(Font);
			UCanvasPanelSlot* Slot = Canvas->AddChildToCanvas(Comment);
			Slot->SetAutoSize(true);
			Slot->SetPosition(FVector2D((Index * 211) % Width, (Index % Lanes) * 40.0));
			Comments.Add(Comment);
		}
		Screen->AddToViewport();
		Viewport.Layout();
		return Comments;
	}

	/** Renders frames of Count comments flying left a few pixels a frame, blended by Blender. */
	void RunCommentScreen(benchmark::State& State, int32 Width, int32 Height, ESpriteBlender Blender)
	{
		FScriptedMediaScope Scripted;
		const TArray<UTextBlock*> Comments = MakeCommentScreen(Scripted, Width, Height, static_cast<int32>(State.range(0)));
		FFrameRenderer Renderer;
		Renderer.SetSpriteBlender(Blender);
		FRenderFrame Frame;
		Renderer.Render(FWidgetViewport::Get(), Frame);
		const uint64 Before = GetAllocationCount();
		int32 Step = 0;
		for (auto _ : State)
		{
			++Step;
			for (UTextBlock* Comment : Comments)
			{
				Comment->SetRenderTranslation(FVector2D(-3.0 * (Step % 200), 0.0));
			}
			Renderer.Render(FWidgetViewport::Get(), Frame);
			benchmark::DoNotOptimize(Frame.GetData());
		}
		State.counters["allocs"] = double(GetAllocationCount() - Before) / double(State.iterations());
		State.counters["rasterised"] = double(Renderer.GetTextCacheStats().Misses);
		State.counters["cacheMB"] = double(Renderer.GetTextCacheStats().Bytes) / double(1 << 20);
		FWidgetViewport::Get().Reset();
	}
}

static void BM_Render720pWithComments(benchmark::State& State)
{
	RunCommentScreen(State, 1280, 720, ESpriteBlender::Pixman);
}
BENCHMARK(BM_Render720pWithComments)->Arg(1000)->Unit(benchmark::kMillisecond);

static void BM_Render720pWithCommentsPlainLoop(benchmark::State& State)
{
	RunCommentScreen(State, 1280, 720, ESpriteBlender::Loop);
}
BENCHMARK(BM_Render720pWithCommentsPlainLoop)->Arg(1000)->Unit(benchmark::kMillisecond);

static void BM_Render720pWithCommentsAvx2(benchmark::State& State)
{
	RunCommentScreen(State, 1280, 720, ESpriteBlender::Avx2);
}
BENCHMARK(BM_Render720pWithCommentsAvx2)->Arg(1000)->Unit(benchmark::kMillisecond);

static void BM_Render1080pWithComments(benchmark::State& State)
{
	RunCommentScreen(State, 1920, 1080, ESpriteBlender::Pixman);
}
BENCHMARK(BM_Render1080pWithComments)->Arg(1000)->Unit(benchmark::kMillisecond);

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
