#include "Containers/StringConv.h"
#include "Containers/UnrealString.h"
#include "Fonts/FontRasterizer.h"
#include "Fonts/FontUnits.h"
#include "Fonts/SlateFontInfo.h"
#include "Fonts/SlateTextPainter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include <unistd.h>

namespace
{
	// One rasterizer over the system fonts for the whole suite: opening the CJK collection is the slow part.
	FFontRasterizer& Fonts()
	{
		static FFontRasterizer Instance;
		return Instance;
	}

	/** A transparent RGBA8 image to draw into, with questions about what changed. */
	struct FTestImage
	{
		int32_t Width;
		int32_t Height;
		std::vector<uint8_t> Pixels;

		FTestImage(int32_t InWidth, int32_t InHeight)
			: Width(InWidth), Height(InHeight), Pixels(size_t(InWidth) * InHeight * 4, 0)
		{
		}

		FPixelTarget Target() { return {Pixels.data(), Width, Height, Width * 4}; }
		FPixelRect Bounds() const { return {0, 0, Width, Height}; }
		const uint8_t* At(int32_t X, int32_t Y) const { return &Pixels[(size_t(Y) * Width + X) * 4]; }

		/** Pixels whose alpha is not 0, counted inside Rect. */
		int32_t Covered(const FPixelRect& Rect) const
		{
			int32_t Count = 0;
			for (int32_t Y = std::max(Rect.Top, 0); Y < std::min(Rect.Bottom, Height); ++Y)
			{
				for (int32_t X = std::max(Rect.Left, 0); X < std::min(Rect.Right, Width); ++X)
				{
					Count += At(X, Y)[3] != 0;
				}
			}
			return Count;
		}
		int32_t Covered() const { return Covered(Bounds()); }
	};

	FTextDrawStyle WhiteText(float Size)
	{
		FTextDrawStyle Style;
		Style.Size = Size;
		return Style;
	}
}

TEST(FontMeasure, WidthGrowsWithTextAndScalesWithSize)
{
	FFontRasterizer& Rasterizer = Fonts();
	ASSERT_TRUE(Rasterizer.HasDefaultFont());
	const float One = Rasterizer.Measure(U"i", 20).Width;
	const float Three = Rasterizer.Measure(U"iii", 20).Width;
	const float Wide = Rasterizer.Measure(U"WWW", 20).Width;
	EXPECT_GT(One, 0.0f);
	EXPECT_GT(Three, One);
	EXPECT_GT(Wide, Three);

	const FTextExtent Small = Rasterizer.Measure(U"Bullet chat 123", 16);
	const FTextExtent Large = Rasterizer.Measure(U"Bullet chat 123", 32);
	EXPECT_NEAR(Large.Width / Small.Width, 2.0f, 0.1f);
	EXPECT_NEAR(Large.Height / Small.Height, 2.0f, 0.1f);

	// An FString is UTF-16: a character beyond U+FFFF is two code units, which must reach the
	// rasterizer as the one character they are.
	const FString Mixed(TEXT("学习 😂 𠀀"));
	EXPECT_EQ(Mixed.Len(), 8);
	EXPECT_EQ(Rasterizer.Measure(UE::Core::Private::ToCodePoints(*Mixed, Mixed.Len()), 16), Rasterizer.Measure(U"学习 😂 𠀀", 16));
	// A 24 pt engine font is 32 pixels.
	EXPECT_EQ(Rasterizer.Measure(U"Bullet chat 123", FontPointsToPixels(24.0f)), Large);
}

TEST(FontMeasure, CjkTextIsAboutOneEmPerCharacter)
{
	// Ideographs are square: four of them at 20 px are about 80 px wide, which the missing-glyph
	// box of a Latin-only font would not be.
	const FTextExtent Cjk = Fonts().Measure(U"中文弹幕", 20);
	EXPECT_NEAR(Cjk.Width, 80.0f, 4.0f);
	EXPECT_GE(Cjk.Height, 20.0f);
}

TEST(FontMeasure, LinesStackAndEmptyTextIsOneLineTall)
{
	FFontRasterizer& Rasterizer = Fonts();
	const FTextExtent Empty = Rasterizer.Measure(U"", 20);
	EXPECT_EQ(Empty.Width, 0.0f);
	EXPECT_GE(Empty.Height, 20.0f);
	EXPECT_EQ(Empty.LineCount, 1);

	const FTextExtent Short = Rasterizer.Measure(U"ab", 20);
	const FTextExtent Long = Rasterizer.Measure(U"abcdef", 20);
	const FTextExtent TwoLines = Rasterizer.Measure(U"ab\nabcdef", 20);
	EXPECT_EQ(Short.Height, Empty.Height);
	EXPECT_EQ(TwoLines.LineCount, 2);
	EXPECT_EQ(TwoLines.Height, 2 * Short.Height);
	EXPECT_EQ(TwoLines.Width, Long.Width);
	EXPECT_EQ(Rasterizer.Measure(U"abcdef\n", 20).Height, 2 * Short.Height);

	// An outline pads the box on every side.
	const FTextExtent Outlined = Rasterizer.Measure(U"ab", 20, 2.0f);
	EXPECT_EQ(Outlined.Width, Short.Width + 4.0f);
	EXPECT_EQ(Outlined.Height, Short.Height + 4.0f);
}

TEST(FontMeasure, CharactersNoFontHasAndNonsenseSizesNeverFail)
{
	FFontRasterizer& Rasterizer = Fonts();
	// A private-use codepoint, a lone surrogate, a value past Unicode, control characters.
	const std::u32string Odd = {U'a', char32_t(0x10FFFD), char32_t(0xD800), char32_t(0x110000), U'\r', char32_t(0x7F), U'b'};
	const FTextExtent Extent = Rasterizer.Measure(Odd, 20);
	EXPECT_GE(Extent.Width, Rasterizer.Measure(U"ab", 20).Width);
	EXPECT_EQ(Extent.LineCount, 1);

	FTestImage Image(200, 40);
	Rasterizer.DrawText(Image.Target(), 0, 0, Odd, WhiteText(20), Image.Bounds());
	EXPECT_GT(Image.Covered(), 0);

	EXPECT_EQ(Rasterizer.Measure(U"abc", 0).Width, 0.0f);
	EXPECT_EQ(Rasterizer.Measure(U"abc", -5).Height, 0.0f);
	EXPECT_GT(Rasterizer.Measure(U"abc", 1e9f).Width, 0.0f);
	Rasterizer.DrawText(FPixelTarget{}, 0, 0, U"abc", WhiteText(20), {0, 0, 100, 100});
}

TEST(FontLoading, MissingFileReportsAndFallsBackToTheDefault)
{
	FFontRasterizer Rasterizer;
	std::vector<std::string> Logged;
	Rasterizer.SetLogSink([&Logged](const std::string& Message) { Logged.push_back(Message); });

	const FFontLoadResult Missing = Rasterizer.LoadFont("/nonexistent/NoSuchFont.ttf");
	EXPECT_FALSE(Missing.bLoaded);
	EXPECT_NE(Missing.Error.find("/nonexistent/NoSuchFont.ttf"), std::string::npos);
	EXPECT_EQ(Logged.size(), 1u);
	EXPECT_EQ(Missing.Font, Rasterizer.GetDefaultFont());
	EXPECT_EQ(Rasterizer.Measure(U"Hello", 20, 0, Missing.Font), Rasterizer.Measure(U"Hello", 20));
	EXPECT_FALSE(Rasterizer.LoadFont(__FILE__).bLoaded);
	EXPECT_FALSE(Rasterizer.LoadFont("/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf", -1).bLoaded);
	EXPECT_EQ(Logged.size(), 3u);

	// A Latin-only font still draws CJK through the default font behind it.
	const std::string DejaVu = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";
	const FFontLoadResult Latin = Rasterizer.LoadFont(DejaVu);
	ASSERT_TRUE(Latin.bLoaded) << Latin.Error;
	EXPECT_EQ(Rasterizer.LoadFont(DejaVu).Font, Latin.Font);
	EXPECT_NE(Rasterizer.Measure(U"Hello", 20, 0, Latin.Font).Width, Rasterizer.Measure(U"Hello", 20).Width);
	EXPECT_NEAR(Rasterizer.Measure(U"中文", 20, 0, Latin.Font).Width, 40.0f, 2.0f);

	// Kerning is applied: "AV" sits tighter than its letters apart.
	const float Pair = Rasterizer.Measure(U"AV", 40, 0, Latin.Font).Width;
	const float Apart = Rasterizer.Measure(U"A", 40, 0, Latin.Font).Width + Rasterizer.Measure(U"V", 40, 0, Latin.Font).Width;
	EXPECT_LT(Pair, Apart);
}

TEST(FontLocator, UsesDejaVuWithoutCjkAndCopesWithNoFontsAtAll)
{
	const std::filesystem::path Root = std::filesystem::temp_directory_path() / ("plain-fonts-" + std::to_string(::getpid()));
	std::filesystem::create_directories(Root / "elsewhere");
	std::filesystem::create_symlink("/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf", Root / "elsewhere" / "DejaVuSans.ttf");

	const FDefaultFontFiles Found = FFontLocator(Root).FindDefaults();
	ASSERT_EQ(Found.Regular.size(), 1u);
	EXPECT_EQ(Found.Regular[0].Path, (Root / "elsewhere" / "DejaVuSans.ttf").string());
	EXPECT_EQ(Found.Bold, Found.Regular);
	FFontRasterizer LatinOnly{FFontLocator(Root)};
	EXPECT_GT(LatinOnly.Measure(U"Hello", 20).Width, 0.0f);

	std::vector<std::string> Logged;
	FFontRasterizer Bare{FFontLocator(Root / "nothing-here"), [&Logged](const std::string& Message) { Logged.push_back(Message); }};
	EXPECT_FALSE(Bare.HasDefaultFont());
	EXPECT_EQ(Logged.size(), 1u);
	EXPECT_EQ(Bare.Measure(U"Hello", 20).Width, 0.0f);
	FTestImage Image(50, 50);
	Bare.DrawText(Image.Target(), 0, 0, U"Hello", WhiteText(20), Image.Bounds());
	EXPECT_EQ(Image.Covered(), 0);
	std::filesystem::remove_all(Root);
}

TEST(FontDraw, ChangesPixelsOnlyInsideTheBoxAndTheClip)
{
	FFontRasterizer& Rasterizer = Fonts();
	const std::u32string Text = U"Hello 世界";
	FTestImage Image(240, 80);
	const FTextExtent Box = Rasterizer.DrawText(Image.Target(), 10, 12, Text, WhiteText(24), Image.Bounds());
	EXPECT_EQ(Box, Rasterizer.Measure(Text, 24));
	const FPixelRect Inside{10, 12, 10 + int32_t(Box.Width), 12 + int32_t(Box.Height)};
	EXPECT_GT(Image.Covered(Inside), 100);
	EXPECT_EQ(Image.Covered(), Image.Covered(Inside));

	// Clipped to the left half: nothing at or right of the clip edge, and the left half as before.
	FTestImage Clipped(240, 80);
	const FPixelRect LeftHalf{0, 0, 60, 80};
	Rasterizer.DrawText(Clipped.Target(), 10, 12, Text, WhiteText(24), LeftHalf);
	EXPECT_EQ(Clipped.Covered(), Clipped.Covered(LeftHalf));
	EXPECT_EQ(Clipped.Covered(LeftHalf), Image.Covered(LeftHalf));

	// Text partly outside the image is cut, not written out of bounds.
	FTestImage Edge(40, 20);
	Rasterizer.DrawText(Edge.Target(), -15, -10, Text, WhiteText(24), {-100, -100, 1000, 1000});
	EXPECT_GT(Edge.Covered(), 0);
}

TEST(FontDraw, AnFStringsSurrogatePairsDrawAsTheCharactersTheyEncode)
{
	// The engine's road (an FString of UTF-16, a font in points) against the characters themselves:
	// a pair split into halves would draw two missing-glyph boxes instead of one emoji.
	FTestImage Painted(200, 40);
	FSlateFontInfo Font;
	Font.Size = 12.0f;
	FSlateTextLook Look;
	Look.Font = &Font;
	const FSlateTextCanvas Canvas{Painted.Pixels.data(), Painted.Width, Painted.Height, Painted.Width * 4, 0, 0, Painted.Width, Painted.Height};
	FSlateTextPainter::Get().Draw(Canvas, FVector2D(4.0, 4.0), FString(TEXT("学习 😂 𠀀")), Look);

	FTestImage Direct(200, 40);
	FFontRasterizer::Get().DrawText(Direct.Target(), 4, 4, U"学习 😂 𠀀", WhiteText(FontPointsToPixels(12.0f)), Direct.Bounds());
	EXPECT_GT(Direct.Covered(), 100);
	EXPECT_TRUE(Painted.Pixels == Direct.Pixels);
}

TEST(FontDraw, OutlineAndShadowCoverMoreAndOpacityZeroDrawsNothing)
{
	FFontRasterizer& Rasterizer = Fonts();
	FTestImage Plain(200, 60);
	Rasterizer.DrawText(Plain.Target(), 4, 4, U"Outline 描边", WhiteText(24), Plain.Bounds());

	FTextDrawStyle Style = WhiteText(24);
	Style.OutlineSize = 2.0f;
	FTestImage Outlined(200, 60);
	Rasterizer.DrawText(Outlined.Target(), 2, 2, U"Outline 描边", Style, Outlined.Bounds());
	EXPECT_GT(Outlined.Covered(), Plain.Covered() * 5 / 4);
	// The fill sits where it sat without the outline (the outline shifts the box, not the glyphs).
	bool bSawBlackEdge = false;
	for (int32_t Y = 0; Y < 60; ++Y)
	{
		for (int32_t X = 0; X < 200; ++X)
		{
			bSawBlackEdge |= Outlined.At(X, Y)[3] == 255 && Outlined.At(X, Y)[0] == 0;
			if (Plain.At(X, Y)[3] == 255)
			{
				EXPECT_EQ(Outlined.At(X, Y)[0], 255) << X << "," << Y;
			}
		}
	}
	EXPECT_TRUE(bSawBlackEdge);

	FTextDrawStyle Shadowed = WhiteText(24);
	Shadowed.ShadowOffsetX = 3.0f;
	Shadowed.ShadowOffsetY = 3.0f;
	Shadowed.ShadowColor = {0, 0, 0, 255};
	FTestImage WithShadow(200, 60);
	Rasterizer.DrawText(WithShadow.Target(), 4, 4, U"Outline 描边", Shadowed, WithShadow.Bounds());
	EXPECT_GT(WithShadow.Covered(), Plain.Covered() * 5 / 4);

	Style.Opacity = 0.0f;
	Style.ShadowOffsetX = 2.0f;
	Style.ShadowColor = {0, 0, 0, 255};
	FTestImage Invisible(200, 60);
	Rasterizer.DrawText(Invisible.Target(), 4, 4, U"Outline 描边", Style, Invisible.Bounds());
	EXPECT_EQ(Invisible.Covered(), 0);
}

TEST(FontDraw, BlendsStraightAlphaOverWhatIsThere)
{
	FFontRasterizer& Rasterizer = Fonts();
	// A full block glyph covers its pixels completely, so each blends exactly as the colours say.
	const std::u32string Block = U"\u2588";
	FTestImage Red(40, 40);
	for (size_t Index = 0; Index < Red.Pixels.size(); Index += 4)
	{
		Red.Pixels[Index] = 255;
		Red.Pixels[Index + 3] = 255;
	}
	FTextDrawStyle Half = WhiteText(30);
	Half.Opacity = 0.5f;
	Rasterizer.DrawText(Red.Target(), 5, 0, Block, Half, Red.Bounds());
	const uint8_t* Pink = Red.At(12, 15);
	EXPECT_EQ(Pink[0], 255);
	EXPECT_NEAR(Pink[1], 128, 1);
	EXPECT_EQ(Pink[3], 255);

	// Over a transparent pixel the text keeps its own colour and carries its alpha.
	FTestImage Clear(40, 40);
	FTextDrawStyle Blue = WhiteText(30);
	Blue.Color = {0, 0, 255, 128};
	Rasterizer.DrawText(Clear.Target(), 5, 0, Block, Blue, Clear.Bounds());
	const uint8_t* Pixel = Clear.At(12, 15);
	EXPECT_EQ(Pixel[2], 255);
	EXPECT_EQ(Pixel[0], 0);
	EXPECT_NEAR(Pixel[3], 128, 1);
}

TEST(FontCache, ATinyBudgetDrawsTheSameAsALargeOne)
{
	// Every call empties the glyph cache; what is drawn must not depend on what was cached.
	FFontRasterizer Thrifty;
	Thrifty.SetCacheBudget(1);
	FTextDrawStyle Style = WhiteText(20);
	Style.OutlineSize = 1.5f;
	FTestImage Expected(300, 60);
	FTestImage Actual(300, 60);
	Fonts().DrawText(Expected.Target(), 0, 0, U"Budget 预算 test\nline two", Style, Expected.Bounds());
	for (int32_t Pass = 0; Pass < 2; ++Pass)
	{
		std::fill(Actual.Pixels.begin(), Actual.Pixels.end(), 0);
		Thrifty.DrawText(Actual.Target(), 0, 0, U"Budget 预算 test\nline two", Style, Actual.Bounds());
		EXPECT_EQ(Actual.Pixels, Expected.Pixels);
	}
}
