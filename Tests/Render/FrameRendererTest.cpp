// The CPU renderer: what lands in the frame for a small widget tree (borders, text, a video image,
// the input widgets), how opacity, translation and visibility change it, the on-screen messages,
// the bilinear picture scaling, and PNG files.

#include "../Kit/ScriptedMedia.h"

#include "Blueprint/UserWidget.h"
#include "Blueprint/WidgetBlueprintGeneratedClass.h"
#include "Blueprint/WidgetTree.h"
#include "Components/Border.h"
#include "Components/CanvasPanel.h"
#include "Components/CanvasPanelSlot.h"
#include "Components/CheckBox.h"
#include "Components/Image.h"
#include "Components/ProgressBar.h"
#include "Components/Slider.h"
#include "Components/TextBlock.h"
#include "Containers/Ticker.h"
#include "Engine/Engine.h"
#include "FramePainter.h"
#include "FrameRenderer.h"
#include "Materials/Material.h"
#include "MediaPlayer.h"
#include "MediaTexture.h"
#include "RenderFrame.h"
#include "FrameRendererTestTypes.h"
#include "Slate/WidgetViewport.h"
#include "UObject/Package.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

namespace
{
	/** A blank widget blueprint class, so a test builds its tree in code. */
	UClass* HostClass()
	{
		static UClass* Class = [] {
			UWidgetBlueprintGeneratedClass* Made = NewObject<UWidgetBlueprintGeneratedClass>(GetTransientPackage(), UWidgetBlueprintGeneratedClass::StaticClass(),
				FName(TEXT("RenderTestHost_C")), RF_Public | RF_Standalone);
			Made->SetSuperStruct(UUserWidget::StaticClass());
			Made->SetStructureSize(UUserWidget::StaticClass()->GetStructureSize());
			Made->SetClassFlags(CLASS_CompiledFromBlueprint);
			return static_cast<UClass*>(Made);
		}();
		return Class;
	}

	/** A 320 x 240 viewport holding one canvas; widgets are placed on it by Add. */
	struct FScene
	{
		UUserWidget* Screen = nullptr;
		UCanvasPanel* Canvas = nullptr;

		FScene()
		{
			FWidgetViewport::Get().Reset();
			FWidgetViewport::Get().SetViewportSize(FVector2D(320.0, 240.0));
			GEngine->ClearOnScreenDebugMessages();
			Screen = CreateWidget<UUserWidget>(GetTransientPackage(), HostClass());
			Canvas = Screen->WidgetTree->ConstructWidget<UCanvasPanel>();
			Screen->WidgetTree->RootWidget = Canvas;
			Screen->AddToViewport();
		}
		~FScene()
		{
			FWidgetViewport::Get().Reset();
			GEngine->ClearOnScreenDebugMessages();
		}

		template <typename T>
		T* Add(const FVector2D& Position, const FVector2D& Size)
		{
			T* Widget = Screen->WidgetTree->ConstructWidget<T>();
			UCanvasPanelSlot* Slot = Canvas->AddChildToCanvas(Widget);
			Slot->SetPosition(Position);
			Slot->SetSize(Size);
			return Widget;
		}

		FRenderFrame Render() const
		{
			FWidgetViewport::Get().Layout();
			FRenderFrame Frame;
			FFrameRenderer().Render(FWidgetViewport::Get(), Frame);
			return Frame;
		}
	};

	/** Pixels of Frame inside [Left, Right) x [Top, Bottom) for which Test holds. */
	template <typename FTest>
	int32 CountPixels(const FRenderFrame& Frame, int32 Left, int32 Top, int32 Right, int32 Bottom, FTest Test)
	{
		int32 Count = 0;
		for (int32 Y = Top; Y < Bottom; ++Y)
		{
			for (int32 X = Left; X < Right; ++X)
			{
				Count += Test(Frame.GetPixel(X, Y)) ? 1 : 0;
			}
		}
		return Count;
	}

	bool IsBlack(FColor C) { return C.R == 0 && C.G == 0 && C.B == 0; }
	bool IsRed(FColor C) { return C.R > 200 && C.G < 60 && C.B < 60; }
	bool IsBright(FColor C) { return C.R > 200 && C.G > 200 && C.B > 200; }
}

TEST(FrameRenderer, DrawsBorderTextAndVideoWhereTheyAreAndNothingElsewhere)
{
	FScene Scene;
	UBorder* Border = Scene.Add<UBorder>(FVector2D(10, 10), FVector2D(100, 50));
	Border->SetBrushColor(FLinearColor(1.f, 0.f, 0.f));
	UTextBlock* Text = Scene.Add<UTextBlock>(FVector2D(10, 100), FVector2D(200, 40));
	Text->SetText(FText::FromString(TEXT("HELLO")));

	// The video reaches the image as the plug-in wires it: a material whose texture is the media texture.
	FScriptedMediaScope Scripted;
	UMediaPlayer* Player = NewObject<UMediaPlayer>();
	UMediaTexture* Video = NewObject<UMediaTexture>();
	Video->SetMediaPlayer(Player);
	UMaterial* Material = NewObject<UMaterial>();
	Material->SetVideoTexture(Video);
	UImage* Image = Scene.Add<UImage>(FVector2D(200, 150), FVector2D(100, 80));
	Image->SetBrushResourceObject(Material);
	ASSERT_TRUE(Player->OpenUrl(FScriptedMediaScope::Url(TEXT("clip"))));
	Scripted.Media(TEXT("clip")).FinishOpen();
	for (int32 Frame = 0; Frame < 3; ++Frame)
	{
		FTSTicker::GetCoreTicker().Tick(1.f / 60.f);
	}
	ASSERT_GT(Video->GetWidth(), 0) << "the scripted media made a picture";

	const FRenderFrame Frame = Scene.Render();
	ASSERT_EQ(Frame.GetWidth(), 320);
	ASSERT_EQ(Frame.GetHeight(), 240);
	EXPECT_EQ(CountPixels(Frame, 10, 10, 110, 60, IsRed), 100 * 50) << "the border fills its box";
	EXPECT_TRUE(IsBlack(Frame.GetPixel(9, 9)));
	EXPECT_TRUE(IsBlack(Frame.GetPixel(110, 60)));
	EXPECT_GT(CountPixels(Frame, 10, 100, 210, 140, IsBright), 40) << "white glyphs inside the text's box";
	EXPECT_EQ(CountPixels(Frame, 0, 145, 200, 240, IsBright), 0) << "nothing white below the text";
	// The scripted picture is cyan with a small red count; scaled up it fills the image's box.
	const FColor Centre = Frame.GetPixel(250, 190);
	EXPECT_LT(Centre.R, 20);
	EXPECT_GT(Centre.G, 250);
	EXPECT_GT(Centre.B, 250);
	EXPECT_EQ(CountPixels(Frame, 200, 150, 300, 230, [](FColor C) { return C.G > 250 && C.B > 250 && C.R < 20; }), 100 * 80);
	EXPECT_TRUE(IsBlack(Frame.GetPixel(199, 190)));
	EXPECT_TRUE(IsBlack(Frame.GetPixel(300, 190)));

	// Closed, the media texture has no picture: the image shows black, not a stale frame.
	Player->Close();
	EXPECT_TRUE(IsBlack(Scene.Render().GetPixel(250, 190)));
}

TEST(FrameRenderer, OpacityTranslationAndVisibilityChangeWhatIsDrawn)
{
	FScene Scene;
	UBorder* Border = Scene.Add<UBorder>(FVector2D(10, 10), FVector2D(40, 40));
	Border->SetBrushColor(FLinearColor(1.f, 0.f, 0.f));
	UTextBlock* Text = Scene.Add<UTextBlock>(FVector2D(10, 100), FVector2D(200, 40));
	Text->SetText(FText::FromString(TEXT("HELLO")));

	Scene.Canvas->SetRenderOpacity(0.f);
	const FRenderFrame Faded = Scene.Render();
	EXPECT_EQ(CountPixels(Faded, 0, 0, 320, 240, [](FColor C) { return !IsBlack(C); }), 0) << "opacity 0 on the parent draws nothing";

	Scene.Canvas->SetRenderOpacity(0.5f);
	const FColor Half = Scene.Render().GetPixel(20, 20);
	EXPECT_NEAR(Half.R, 128, 2) << "half opacity blends half of the red over black";
	EXPECT_EQ(Half.G, 0);

	Scene.Canvas->SetRenderOpacity(1.f);
	Border->SetRenderTranslation(FVector2D(100, 5));
	const FRenderFrame Moved = Scene.Render();
	EXPECT_TRUE(IsBlack(Moved.GetPixel(20, 20)));
	EXPECT_TRUE(IsRed(Moved.GetPixel(120, 25)));
	EXPECT_EQ(CountPixels(Moved, 0, 0, 320, 240, IsRed), 40 * 40);

	// Past the right edge the border is clipped by the viewport, not wrapped or dropped.
	Border->SetRenderTranslation(FVector2D(290, 0));
	EXPECT_EQ(CountPixels(Scene.Render(), 0, 0, 320, 240, IsRed), 20 * 40);

	Border->SetVisibility(ESlateVisibility::Hidden);
	EXPECT_EQ(CountPixels(Scene.Render(), 0, 0, 320, 240, IsRed), 0);
}

TEST(FrameRenderer, InputWidgetsShowTheirValues)
{
	FScene Scene;
	USlider* Slider = Scene.Add<USlider>(FVector2D(0, 0), FVector2D(200, 16));
	UProgressBar* Bar = Scene.Add<UProgressBar>(FVector2D(0, 40), FVector2D(200, 16));
	UCheckBox* Check = Scene.Add<UCheckBox>(FVector2D(0, 80), FVector2D(16, 16));
	Bar->SetFillColorAndOpacity(FLinearColor(0.f, 0.f, 1.f));
	auto IsBlue = [](FColor C) { return C.B > 200 && C.R < 60; };
	auto ThumbAt = [](const FRenderFrame& Frame) {
		// The thumb is the one part of the slider taller than its track.
		for (int32 X = 0; X < 200; ++X)
		{
			if (IsBright(Frame.GetPixel(X, 1)))
			{
				return X;
			}
		}
		return -1;
	};

	Slider->SetValue(0.f);
	Bar->SetPercent(0.25f);
	const FRenderFrame First = Scene.Render();
	EXPECT_EQ(ThumbAt(First), 0);
	EXPECT_EQ(CountPixels(First, 0, 40, 200, 56, IsBlue), 50 * 16);
	EXPECT_EQ(CountPixels(First, 2, 82, 14, 94, IsBright), 0) << "an unchecked box is empty";

	Slider->SetValue(1.f);
	Bar->SetPercent(2.f);
	Check->SetIsChecked(true);
	const FRenderFrame Second = Scene.Render();
	EXPECT_EQ(ThumbAt(Second), 192) << "the thumb stays inside the box at the maximum";
	EXPECT_EQ(CountPixels(Second, 0, 40, 200, 56, IsBlue), 200 * 16) << "the fill is clamped to the bar";
	EXPECT_GT(CountPixels(Second, 2, 82, 14, 94, IsBright), 10) << "a checked box shows a tick";
}

TEST(FrameRenderer, OnScreenMessagesAppearAtTheTopLeftInTheirColour)
{
	FScene Scene;
	EXPECT_EQ(CountPixels(Scene.Render(), 0, 0, 320, 240, IsRed), 0);
	GEngine->AddOnScreenDebugMessage(-1, 5.f, FColor::Red, TEXT("Cannot open the video"));
	const FRenderFrame Frame = Scene.Render();
	EXPECT_GT(CountPixels(Frame, 0, 0, 200, 40, IsRed), 20);
	EXPECT_EQ(CountPixels(Frame, 0, 40, 320, 240, IsRed), 0) << "one line stays at the top";
}

TEST(FrameRenderer, DrawsAWidgetItHasNeverHeardOfByWhatItPaints)
{
	FScene Scene;
	UTestSwatch* Swatch = Scene.Add<UTestSwatch>(FVector2D(20, 30), FVector2D(100, 40));
	Swatch->Color = FColor(0, 0, 255);
	Swatch->Label = TEXT("Swatch");
	const FRenderFrame Frame = Scene.Render();
	auto IsBlue = [](FColor C) { return C.B > 200 && C.R < 60 && C.G < 60; };
	EXPECT_GT(CountPixels(Frame, 20, 30, 120, 70, IsBlue), 100 * 40 * 3 / 4) << "its box, mostly uncovered by the label";
	EXPECT_GT(CountPixels(Frame, 20, 30, 120, 70, IsBright), 20) << "its label over the box";
	EXPECT_EQ(CountPixels(Frame, 0, 0, 320, 240, IsBlue), CountPixels(Frame, 20, 30, 120, 70, IsBlue)) << "nothing outside its box";

	Swatch->SetRenderOpacity(0.f);
	EXPECT_EQ(CountPixels(Scene.Render(), 0, 0, 320, 240, [](FColor C) { return !IsBlack(C); }), 0) << "at opacity 0 it shows nothing";
}

TEST(FramePainter, ScalesPicturesSmoothlyAndStaysInsideTheClip)
{
	// Two texels, black then white, stretched over 100 pixels: a ramp with pure ends.
	const uint8 Texels[8] = {0, 0, 0, 255, 255, 255, 255, 255};
	FMediaTextureSample Sample;
	Sample.Width = 2;
	Sample.Height = 1;
	Sample.Stride = 8;
	Sample.Pixels = Texels;
	FRenderFrame Frame(120, 10);
	Frame.Clear(FColor(10, 20, 30));
	FFramePainter Painter(Frame);
	Painter.SetClip({0, 0, 90, 10});
	Painter.DrawPicture({0, 0, 100, 10}, Sample, FLinearColor::White, 1.f);
	EXPECT_EQ(Frame.GetPixel(0, 5).R, 0);
	EXPECT_NEAR(Frame.GetPixel(50, 5).R, 128, 4);
	for (int32 X = 1; X < 90; ++X)
	{
		ASSERT_GE(Frame.GetPixel(X, 5).R, Frame.GetPixel(X - 1, 5).R) << "no step backwards at " << X;
	}
	EXPECT_EQ(Frame.GetPixel(90, 5), FColor(10, 20, 30)) << "clipped";
	EXPECT_EQ(Frame.GetPixel(110, 5), FColor(10, 20, 30));
}

TEST(RenderFrame, SavePngWritesAFileThatReadsBackWithItsSizeAndPixels)
{
	FRenderFrame Frame(37, 21);
	Frame.Clear(FColor(1, 2, 3, 255));
	FFramePainter(Frame).FillRect({5, 6, 7, 8}, FColor(200, 100, 50), 1.f);
	const std::filesystem::path Path = std::filesystem::temp_directory_path() / "render_frame_test.png";
	ASSERT_TRUE(Frame.SavePng(FString(Path.c_str())));

	// Read the header ourselves: the signature, then IHDR's big-endian width and height.
	std::ifstream File(Path, std::ios::binary);
	const std::vector<unsigned char> Bytes((std::istreambuf_iterator<char>(File)), std::istreambuf_iterator<char>());
	ASSERT_GT(Bytes.size(), 24u);
	EXPECT_EQ(Bytes[1], 'P');
	EXPECT_EQ(Bytes[2], 'N');
	EXPECT_EQ(Bytes[3], 'G');
	EXPECT_EQ((Bytes[16] << 24) | (Bytes[17] << 16) | (Bytes[18] << 8) | Bytes[19], 37);
	EXPECT_EQ((Bytes[20] << 24) | (Bytes[21] << 16) | (Bytes[22] << 8) | Bytes[23], 21);

	FRenderFrame Read;
	ASSERT_TRUE(Read.LoadPng(FString(Path.c_str())));
	EXPECT_EQ(Read.GetWidth(), 37);
	EXPECT_EQ(Read.GetHeight(), 21);
	EXPECT_EQ(Read.GetPixel(6, 7), FColor(200, 100, 50));
	EXPECT_EQ(Read.GetPixel(0, 0), FColor(1, 2, 3));
	std::filesystem::remove(Path);

	EXPECT_FALSE(Frame.SavePng(TEXT("/nonexistent-folder/frame.png")));
	EXPECT_FALSE(Read.LoadPng(TEXT("/nonexistent-folder/frame.png")));
	EXPECT_EQ(Read.GetWidth(), 37) << "a failed read leaves the frame as it was";
	EXPECT_FALSE(FRenderFrame().SavePng(TEXT("/tmp/empty.png")));
}

TEST(RenderFrame, PaintsIntoAttachedMemoryWithItsStrideUntilResizedAway)
{
	// 3 x 2 pixels in rows of 16 bytes (4 bytes of padding), as a locked texture may hand out.
	std::vector<uint8> Memory(32, 7);
	FRenderFrame Frame;
	Frame.Attach(Memory.data(), 3, 2, 16);
	ASSERT_TRUE(Frame.IsAttached());
	EXPECT_EQ(Frame.GetStride(), 16);
	Frame.Resize(3, 2);
	ASSERT_TRUE(Frame.IsAttached()) << "the same size keeps the memory";
	Frame.Clear(FColor(1, 2, 3, 255));
	FFramePainter(Frame, true).FillRect({1, 1, 3, 2}, FColor(200, 100, 50), 1.f);
	EXPECT_EQ(Frame.GetPixel(2, 1), FColor(200, 100, 50));
	EXPECT_EQ(Memory[16 + 8], 200) << "the second row starts a stride in";
	EXPECT_EQ(Memory[12], 7) << "padding between rows is left alone";
	EXPECT_EQ(Memory[28], 7);

	const FRenderFrame Copy = Frame;
	EXPECT_FALSE(Copy.IsAttached()) << "a copy owns its pixels";
	EXPECT_EQ(Copy.GetStride(), 12);
	EXPECT_EQ(Copy.GetPixel(2, 1), FColor(200, 100, 50));

	Frame.Resize(4, 4);
	EXPECT_FALSE(Frame.IsAttached()) << "another size cannot fit the memory";
	Frame.Clear(FColor::White);
	EXPECT_EQ(Memory[0], 1) << "and the memory is not written any more";

	Frame.Attach(Memory.data(), 4, 2, 8);
	EXPECT_FALSE(Frame.IsAttached()) << "a stride shorter than a row is refused";
}
