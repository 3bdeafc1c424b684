// Cached text: a run drawn from its sprite looks as the text painter draws it straight into the
// frame, pixman, the AVX2 loop and the plain loop blend the same bytes, and the cache keeps a run while its look
// is unchanged and lets the least recently drawn go past its cap.

#include "Fonts/SlateTextPainter.h"
#include "FramePainter.h"
#include "FrameRenderer.h"
#include "RenderFrame.h"
#include "Rendering/SlateDrawList.h"
#include "SpriteBlend.h"
#include "TextSprite.h"
#include "TextSpriteCache.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <random>

namespace
{
	/** A frame of varied colours, so a blend that drops or swaps a channel shows. */
	FRenderFrame MakeBackground(int32 Width, int32 Height, uint8 Alpha)
	{
		FRenderFrame Frame(Width, Height);
		for (int32 Y = 0; Y < Height; ++Y)
		{
			for (int32 X = 0; X < Width; ++X)
			{
				uint8* Pixel = Frame.GetData() + (Y * Width + X) * 4;
				Pixel[0] = static_cast<uint8>(X * 3);
				Pixel[1] = static_cast<uint8>(Y * 5);
				Pixel[2] = static_cast<uint8>(255 - X);
				Pixel[3] = Alpha;
			}
		}
		return Frame;
	}

	/** The largest difference of any channel of any pixel. */
	int32 LargestDifference(const FRenderFrame& A, const FRenderFrame& B)
	{
		int32 Largest = 0;
		for (int32 Index = 0; Index < A.GetWidth() * A.GetHeight() * 4; ++Index)
		{
			Largest = FMath::Max(Largest, std::abs(int32(A.GetData()[Index]) - int32(B.GetData()[Index])));
		}
		return Largest;
	}

	FSlateDrawElement MakeRun(const FString& Text, const FVector2D& Position)
	{
		FSlateWindowElementList List;
		FSlateDrawElement::MakeText(List, Position, Text, FSlateFontInfo(FName(TEXT("Regular")), 18), FLinearColor::White, 1.0f);
		return List[0];
	}

	/** Text drawn the old way, every layer straight into the frame. */
	void DrawDirectly(FRenderFrame& Frame, const FSlateDrawElement& Run)
	{
		const FSlateTextCanvas Canvas{Frame.GetData(), Frame.GetWidth(), Frame.GetHeight(), Frame.GetStride(), 0, 0, Frame.GetWidth(), Frame.GetHeight()};
		FSlateTextLook Look;
		Look.Font = &Run.Font;
		Look.Color = Run.Tint;
		Look.ShadowOffset = Run.ShadowOffset;
		Look.ShadowColor = Run.ShadowColor;
		Look.Opacity = Run.Opacity;
		Look.FontScale = Run.FontScale;
		FSlateTextPainter::Get().Draw(Canvas, Run.Position, Run.Text, Look);
	}
} // namespace

TEST(TextSprites, LookAsTheTextDrawnStraightIntoTheFrame)
{
	FSlateDrawElement Plain = MakeRun(TEXT("Hello, world"), FVector2D(10.4, 7.6));
	FSlateDrawElement Dressed = MakeRun(TEXT("你好 outline ÄÖ"), FVector2D(-20.0, 40.0));
	Dressed.Font.OutlineSettings.OutlineSize = 2;
	Dressed.Font.OutlineSettings.OutlineColor = FLinearColor(0.f, 0.f, 0.5f);
	Dressed.Tint = FLinearColor(1.f, 0.8f, 0.1f);
	Dressed.ShadowOffset = FVector2D(-2.0, 3.0);
	Dressed.ShadowColor = FLinearColor(0.f, 0.f, 0.f, 0.8f);
	FSlateDrawElement Faded = MakeRun(TEXT("fading \U0001F600 scaled"), FVector2D(150.0, 80.0));
	Faded.Opacity = 0.5f;
	Faded.FontScale = 1.5f;
	Faded.ShadowOffset = FVector2D(1.0, 1.0);
	Faded.ShadowColor = FLinearColor::Black;

	for (const uint8 FrameAlpha : {uint8(255), uint8(100)})
	{
		for (const FSlateDrawElement* Run : {&Plain, &Dressed, &Faded})
		{
			FRenderFrame Direct = MakeBackground(240, 120, FrameAlpha);
			FRenderFrame Cached = MakeBackground(240, 120, FrameAlpha);
			DrawDirectly(Direct, *Run);
			FSlateWindowElementList List;
			FSlateDrawElement::MakeText(List, Run->Position, Run->Text, Run->Font, Run->Tint, Run->Opacity, Run->ShadowOffset, Run->ShadowColor, Run->FontScale);
			FTextSpriteCache Sprites;
			const FTextSprite* Sprite = Sprites.Find(List[0]);
			ASSERT_NE(Sprite, nullptr);
			ASSERT_GT(Sprite->Width, 0);
			const int32 X = static_cast<int32>(std::lround(static_cast<float>(Run->Position.X)));
			const int32 Y = static_cast<int32>(std::lround(static_cast<float>(Run->Position.Y)));
			FFramePainter(Cached, FrameAlpha == 255).DrawSprite(X + Sprite->OffsetX, Y + Sprite->OffsetY, *Sprite);
			// Layers composed first and then blended round differently from layers blended one by one.
			EXPECT_LE(LargestDifference(Direct, Cached), 3) << TCHAR_TO_UTF8(*Run->Text) << " on a frame of alpha " << int32(FrameAlpha);
			EXPECT_GT(LargestDifference(Direct, MakeBackground(240, 120, FrameAlpha)), 100) << "the text was drawn at all";
		}
	}
}

TEST(TextSprites, PixmanTheAvx2LoopAndThePlainLoopBlendTheSameBytes)
{
	std::mt19937 Random(7);
	FTextSprite Sprite;
	Sprite.Width = 37;
	Sprite.Height = 11;
	Sprite.Pixels.resize(37 * 11 * 4);
	for (size_t Pixel = 0; Pixel < Sprite.Pixels.size(); Pixel += 4)
	{
		// Premultiplied: no channel above its alpha; some pixels clear, some opaque.
		const uint8 Alpha = static_cast<uint8>(Pixel % 12 == 0 ? 0 : Pixel % 8 == 0 ? 255
		                                                                            : Random() % 256);
		for (int32 Channel = 0; Channel < 3; ++Channel)
		{
			Sprite.Pixels[Pixel + Channel] = static_cast<uint8>(Alpha == 0 ? 0 : Random() % (Alpha + 1));
		}
		Sprite.Pixels[Pixel + 3] = Alpha;
	}
	// A clear row and an opaque row, which the AVX2 loop skips and copies eight pixels at a time.
	std::fill(Sprite.Pixels.begin(), Sprite.Pixels.begin() + 37 * 4, uint8(0));
	for (size_t Pixel = 37 * 4; Pixel < 2 * 37 * 4; Pixel += 4)
	{
		Sprite.Pixels[Pixel + 3] = 255;
	}
	FRenderFrame WithPixman = MakeBackground(64, 32, 255);
	FRenderFrame WithLoop = MakeBackground(64, 32, 255);
	FRenderFrame WithAvx2 = MakeBackground(64, 32, 255);
	// Partly off the left and bottom edges, so all clip the same way; 37 wide, so the AVX2 loop
	// has a tail of pixels that do not fill a step of eight.
	for (const auto& [X, Y] : {std::pair{-5, 25}, std::pair{20, 3}, std::pair{50, -4}})
	{
		FFramePainter(WithPixman, true, ESpriteBlender::Pixman).DrawSprite(X, Y, Sprite);
		FFramePainter(WithLoop, true, ESpriteBlender::Loop).DrawSprite(X, Y, Sprite);
		FFramePainter(WithAvx2, true, ESpriteBlender::Avx2).DrawSprite(X, Y, Sprite);
	}
	EXPECT_EQ(LargestDifference(WithPixman, WithLoop), 0);
	EXPECT_EQ(LargestDifference(WithAvx2, WithLoop), 0);
	EXPECT_NE(LargestDifference(WithPixman, MakeBackground(64, 32, 255)), 0);
	EXPECT_EQ(WithPixman.GetPixel(63, 31), MakeBackground(64, 32, 255).GetPixel(63, 31)) << "outside every sprite";
}

TEST(TextSpriteCache, KeepsARunWhileItsLookIsUnchangedAndTellsLooksApart)
{
	FTextSpriteCache Sprites;
	const FSlateDrawElement Run = MakeRun(TEXT("hello"), FVector2D(0.0, 0.0));
	const FTextSprite* First = Sprites.Find(Run);
	FSlateDrawElement Moved = Run;
	Moved.Position = FVector2D(300.0, 12.5);
	EXPECT_EQ(Sprites.Find(Moved), First) << "a run that only moved is drawn from the same sprite";
	EXPECT_EQ(Sprites.GetStats().Hits, 1);
	EXPECT_EQ(Sprites.GetStats().Misses, 1);

	FSlateDrawElement Shouted = Run;
	Shouted.Text = TEXT("HELLO");
	FSlateDrawElement Red = Run;
	Red.Tint = FLinearColor::Red;
	FSlateDrawElement Half = Run;
	Half.Opacity = 0.5f;
	FSlateDrawElement Outlined = Run;
	Outlined.Font.OutlineSettings.OutlineSize = 1;
	for (const FSlateDrawElement* Changed : {&Shouted, &Red, &Half, &Outlined})
	{
		const int64 Misses = Sprites.GetStats().Misses;
		Sprites.Find(*Changed);
		EXPECT_EQ(Sprites.GetStats().Misses, Misses + 1) << "a new look is rasterised: " << TCHAR_TO_UTF8(*Changed->Text);
	}
	EXPECT_EQ(Sprites.GetStats().Entries, 5);

	// What cannot show does not make a new look: a shadow of alpha 0, an outline colour with no outline.
	FSlateDrawElement InvisibleShadow = Run;
	InvisibleShadow.ShadowOffset = FVector2D(2.0, 2.0);
	InvisibleShadow.ShadowColor = FLinearColor(0.f, 0.f, 0.f, 0.f);
	FSlateDrawElement UnusedOutlineColour = Run;
	UnusedOutlineColour.Font.OutlineSettings.OutlineColor = FLinearColor::Red;
	const int64 Hits = Sprites.GetStats().Hits;
	Sprites.Find(InvisibleShadow);
	Sprites.Find(UnusedOutlineColour);
	EXPECT_EQ(Sprites.GetStats().Hits, Hits + 2);
}

TEST(TextSpriteCache, DropsTheLeastRecentlyDrawnRunsPastItsCapButNoneOfTheFrameBeingDrawn)
{
	FTextSpriteCache Sprites;
	const FSlateDrawElement A = MakeRun(TEXT("first comment"), FVector2D(0.0, 0.0));
	const FSlateDrawElement B = MakeRun(TEXT("second comment"), FVector2D(0.0, 0.0));
	const FSlateDrawElement C = MakeRun(TEXT("third comment"), FVector2D(0.0, 0.0));
	auto DrawFrame = [&Sprites](std::initializer_list<const FSlateDrawElement*> Runs) {
		Sprites.BeginFrame();
		for (const FSlateDrawElement* Run : Runs)
		{
			Sprites.Find(*Run);
		}
	};
	DrawFrame({&A});
	const int64 OneRun = Sprites.GetStats().Bytes;
	// Room for two runs of about this size, not three.
	Sprites.SetBudgetBytes(OneRun * 5 / 2);
	DrawFrame({&B});
	DrawFrame({&A});
	DrawFrame({&C});
	EXPECT_EQ(Sprites.GetStats().Evictions, 1);
	EXPECT_LE(Sprites.GetStats().Bytes, Sprites.GetBudgetBytes());
	const int64 Misses = Sprites.GetStats().Misses;
	DrawFrame({&A, &C});
	EXPECT_EQ(Sprites.GetStats().Misses, Misses) << "A was drawn after B, so B went";

	// A frame that draws all three keeps all three: dropping one it draws would rasterise it every frame.
	DrawFrame({&A, &B, &C});
	DrawFrame({&A, &B, &C});
	EXPECT_EQ(Sprites.GetStats().Misses, Misses + 1) << "B came back once, and stayed";
	EXPECT_EQ(Sprites.GetStats().Entries, 3);
	DrawFrame({&C});
	DrawFrame({&C});
	EXPECT_LE(Sprites.GetStats().Bytes, Sprites.GetBudgetBytes()) << "once the screen needs less, the bytes go back";

	// A run larger than the whole cap is still drawn; it just is all the cache holds.
	Sprites.SetBudgetBytes(16);
	DrawFrame({&A});
	ASSERT_NE(Sprites.Find(A), nullptr);
	EXPECT_GT(Sprites.Find(A)->Width, 0);
	DrawFrame({&A});
	DrawFrame({&A});
	EXPECT_EQ(Sprites.GetStats().Entries, 1);
}
