#include "Fonts/FontRasterizer.h"

#include "Fonts/CoverageBlend.h"
#include "Fonts/FontGlyphCache.h"

#include <algorithm>
#include <cmath>
#include <iostream>
#include <utility>

namespace
{
	constexpr int32_t RegularFontIndex = 0;
	constexpr int32_t BoldFontIndex = 1;

	// Beyond these a single glyph's bitmap would run to megabytes; larger requests are clamped.
	constexpr float MaxSizePixels = 1024.0f;
	constexpr float MaxOutlinePixels = 64.0f;

	/** One glyph placed in the text's box: pen position and baseline in whole pixels. */
	struct FPlacedGlyph
	{
		int32_t FaceSlot;
		uint32_t GlyphIndex;
		int32_t X;
		int32_t BaselineY;
	};

	int32_t ToFixed26(float Pixels, float Max)
	{
		return static_cast<int32_t>(std::lround(std::clamp(Pixels, 0.0f, Max) * 64.0f));
	}

	int32_t RoundToPixels(int64_t Fixed26) { return static_cast<int32_t>((Fixed26 + 32) >> 6); }
	int32_t CeilToPixels(int64_t Fixed26) { return static_cast<int32_t>((Fixed26 + 63) >> 6); }

	/**
	 * Lays the text out line by line and returns its box; fills Out with the placed glyphs when
	 * given. A line is as tall as the tallest face it uses, and never shorter than the primary
	 * face, so an empty line keeps the font's height. Kerning applies between neighbours drawn by
	 * the same face. Tabs count as spaces; other control characters take no room.
	 */
	template <typename CharT>
	FTextExtent LayOutText(FFontGlyphCache& Cache, std::basic_string_view<CharT> Text, int32_t Chain, int32_t Size, int32_t Outline26, std::vector<FPlacedGlyph>* Out)
	{
		FTextExtent Extent;
		const int32_t Primary = Cache.GetPrimaryFace(Chain);
		const int32_t Outline = CeilToPixels(Outline26);
		const FFaceLineMetrics PrimaryLine = Size > 0 ? Cache.GetLineMetrics(Primary, Size) : FFaceLineMetrics{};
		int32_t Top = 0;
		int32_t Widest = 0;
		size_t LineStart = 0;
		for (;;)
		{
			FFaceLineMetrics Line = PrimaryLine;
			const size_t FirstGlyph = Out ? Out->size() : 0;
			int64_t Pen = 0;
			int32_t PreviousFace = -1;
			uint32_t PreviousGlyph = 0;
			size_t Index = LineStart;
			for (; Index < Text.size() && Text[Index] != CharT('\n'); ++Index)
			{
				char32_t Codepoint = static_cast<char32_t>(Text[Index]);
				if (Codepoint == U'\t')
				{
					Codepoint = U' ';
				}
				else if (Codepoint < 0x20 || Codepoint == 0x7F || Size <= 0)
				{
					continue;
				}
				const FGlyphMetrics Glyph = Cache.GetGlyph(Chain, Size, Codepoint);
				if (Glyph.FaceSlot < 0)
				{
					continue;
				}
				if (Glyph.FaceSlot != PreviousFace)
				{
					const FFaceLineMetrics FaceLine = Cache.GetLineMetrics(Glyph.FaceSlot, Size);
					Line.Ascender = std::max(Line.Ascender, FaceLine.Ascender);
					Line.Descender = std::min(Line.Descender, FaceLine.Descender);
				}
				else if (Glyph.bFaceHasKerning)
				{
					Pen += Cache.GetKerning(Glyph.FaceSlot, Size, PreviousGlyph, Glyph.GlyphIndex);
				}
				if (Out)
				{
					Out->push_back({Glyph.FaceSlot, Glyph.GlyphIndex, RoundToPixels(Pen) + Outline, 0});
				}
				Pen += Glyph.Advance;
				PreviousFace = Glyph.FaceSlot;
				PreviousGlyph = Glyph.GlyphIndex;
			}

			// The baseline is known only once the line's faces are: place the line's glyphs now.
			if (Out)
			{
				for (size_t Placed = FirstGlyph; Placed < Out->size(); ++Placed)
				{
					(*Out)[Placed].BaselineY = Outline + Top + Line.Ascender;
				}
			}
			// A line with nothing on it has no outline to make room for.
			const int32_t LineWidth = Pen > 0 ? CeilToPixels(Pen) + 2 * Outline : 0;
			Widest = std::max(Widest, LineWidth);
			Top += Line.Ascender - Line.Descender;
			++Extent.LineCount;
			if (Index >= Text.size())
			{
				break;
			}
			LineStart = Index + 1;
		}
		Extent.Width = static_cast<float>(Widest);
		Extent.Height = Top > 0 ? static_cast<float>(Top + 2 * Outline) : 0.0f;
		return Extent;
	}

	void PaintLayer(FFontGlyphCache& Cache, const std::vector<FPlacedGlyph>& Glyphs, int32_t Size, int32_t Outline26, const FPixelTarget& Target, const FPixelRect& Clip, int32_t OriginX, int32_t OriginY, FTextColor Color, float Opacity)
	{
		if (Color.A == 0)
		{
			return;
		}
		for (const FPlacedGlyph& Glyph : Glyphs)
		{
			const FGlyphBitmap* Bitmap = Cache.GetBitmap(Glyph.FaceSlot, Size, Glyph.GlyphIndex, Outline26);
			BlendCoverage(Target, Clip, OriginX + Glyph.X + Bitmap->Left, OriginY + Glyph.BaselineY - Bitmap->Top, Bitmap->Coverage.data(), Bitmap->Width, Bitmap->Height, Color, Opacity);
		}
	}
}

FFontRasterizer::FFontRasterizer(const FFontLocator& Locator, FLogSink Sink)
	: Cache(std::make_unique<FFontGlyphCache>())
	, LogSink(std::move(Sink))
{
	if (!LogSink)
	{
		LogSink = [](const std::string& Message) { std::cerr << "Fonts: " << Message << '\n'; };
	}
	const FDefaultFontFiles Defaults = Locator.FindDefaults();
	std::lock_guard Lock(Mutex);
	DefaultRegularFaces = OpenFaces(Defaults.Regular);
	std::vector<int32_t> BoldFaces = OpenFaces(Defaults.Bold);
	if (BoldFaces.empty())
	{
		BoldFaces = DefaultRegularFaces;
	}
	FontChains.push_back(Cache->AddChain(DefaultRegularFaces));
	FontChains.push_back(Cache->AddChain(BoldFaces));
	if (DefaultRegularFaces.empty())
	{
		Log("no default font found (looked for Noto Sans CJK and DejaVu Sans); text will have no size and will not be drawn");
	}
}

FFontRasterizer::~FFontRasterizer() = default;

FFontRasterizer& FFontRasterizer::Get()
{
	// Never destroyed, so other objects may still measure text while the process exits.
	static FFontRasterizer* const Instance = new FFontRasterizer();
	return *Instance;
}

bool FFontRasterizer::HasDefaultFont() const
{
	std::lock_guard Lock(Mutex);
	return !DefaultRegularFaces.empty();
}

FFontId FFontRasterizer::GetDefaultFont(EFontWeight Weight) const
{
	return FFontId{Weight == EFontWeight::Bold ? BoldFontIndex : RegularFontIndex};
}

FFontLoadResult FFontRasterizer::LoadFont(const std::string& Path, int32_t FaceIndex)
{
	std::lock_guard Lock(Mutex);
	const std::string Key = Path + '|' + std::to_string(FaceIndex);
	if (const auto Found = LoadedFonts.find(Key); Found != LoadedFonts.end())
	{
		return {Found->second, true, {}};
	}

	FFontLoadResult Result;
	Result.Font = FFontId{RegularFontIndex};
	const int32_t Slot = Cache->OpenFace({Path, FaceIndex, ""}, Result.Error);
	if (Slot < 0)
	{
		Log(Result.Error + "; using the default font");
		return Result;
	}
	std::vector<int32_t> Faces{Slot};
	Faces.insert(Faces.end(), DefaultRegularFaces.begin(), DefaultRegularFaces.end());
	FontChains.push_back(Cache->AddChain(Faces));
	Result.Font = FFontId{static_cast<int32_t>(FontChains.size()) - 1};
	Result.bLoaded = true;
	LoadedFonts.emplace(Key, Result.Font);
	return Result;
}

FTextExtent FFontRasterizer::Measure(std::u32string_view Text, float Size, float OutlineSize, FFontId Font)
{
	return MeasureText(Text, Size, OutlineSize, Font);
}

FTextExtent FFontRasterizer::DrawText(const FPixelTarget& Target, float X, float Y, std::u32string_view Text, const FTextDrawStyle& Style, const FPixelRect& Clip)
{
	return DrawTextImpl(Target, X, Y, Text, Style, Clip);
}

void FFontRasterizer::SetLogSink(FLogSink Sink)
{
	std::lock_guard Lock(Mutex);
	LogSink = std::move(Sink);
}

void FFontRasterizer::SetCacheBudget(size_t Bytes)
{
	std::lock_guard Lock(Mutex);
	Cache->SetBitmapBudget(Bytes);
}

template <typename CharT>
FTextExtent FFontRasterizer::MeasureText(std::basic_string_view<CharT> Text, float Size, float OutlineSize, FFontId Font)
{
	static_assert(sizeof(CharT) == 4, "text must be UTF-32");
	std::lock_guard Lock(Mutex);
	Cache->TrimToBudget();
	return LayOutText(*Cache, Text, ChainOf(Font), ToFixed26(Size, MaxSizePixels), ToFixed26(OutlineSize, MaxOutlinePixels), nullptr);
}

template <typename CharT>
FTextExtent FFontRasterizer::DrawTextImpl(const FPixelTarget& Target, float X, float Y, std::basic_string_view<CharT> Text, const FTextDrawStyle& Style, const FPixelRect& Clip)
{
	static_assert(sizeof(CharT) == 4, "text must be UTF-32");
	std::lock_guard Lock(Mutex);
	Cache->TrimToBudget();
	const int32_t Size = ToFixed26(Style.Size, MaxSizePixels);
	const int32_t Outline = ToFixed26(Style.OutlineSize, MaxOutlinePixels);
	std::vector<FPlacedGlyph> Glyphs;
	const FTextExtent Extent = LayOutText(*Cache, Text, ChainOf(Style.Font), Size, Outline, &Glyphs);

	const float Opacity = std::clamp(Style.Opacity, 0.0f, 1.0f);
	const FPixelRect Area = Clip.Intersect(Target.Bounds());
	if (!Target.IsValid() || Area.IsEmpty() || Opacity <= 0.0f || Glyphs.empty())
	{
		return Extent;
	}
	const int32_t OriginX = static_cast<int32_t>(std::lround(X));
	const int32_t OriginY = static_cast<int32_t>(std::lround(Y));
	const int32_t ShadowX = static_cast<int32_t>(std::lround(Style.ShadowOffsetX));
	const int32_t ShadowY = static_cast<int32_t>(std::lround(Style.ShadowOffsetY));
	if (ShadowX != 0 || ShadowY != 0)
	{
		// The shadow is the silhouette of everything drawn above it, outline included.
		PaintLayer(*Cache, Glyphs, Size, Outline, Target, Area, OriginX + ShadowX, OriginY + ShadowY, Style.ShadowColor, Opacity);
	}
	if (Outline > 0)
	{
		PaintLayer(*Cache, Glyphs, Size, Outline, Target, Area, OriginX, OriginY, Style.OutlineColor, Opacity);
	}
	PaintLayer(*Cache, Glyphs, Size, 0, Target, Area, OriginX, OriginY, Style.Color, Opacity);
	return Extent;
}

std::vector<int32_t> FFontRasterizer::OpenFaces(const std::vector<FFontFile>& Files)
{
	std::vector<int32_t> Slots;
	for (const FFontFile& File : Files)
	{
		std::string Error;
		const int32_t Slot = Cache->OpenFace(File, Error);
		if (Slot >= 0)
		{
			Slots.push_back(Slot);
		}
		else
		{
			Log(Error);
		}
	}
	return Slots;
}

int32_t FFontRasterizer::ChainOf(FFontId Font) const
{
	const bool bKnown = Font.Index >= 0 && Font.Index < static_cast<int32_t>(FontChains.size());
	return FontChains[bKnown ? Font.Index : RegularFontIndex];
}

void FFontRasterizer::Log(const std::string& Message)
{
	if (LogSink)
	{
		LogSink(Message);
	}
}
