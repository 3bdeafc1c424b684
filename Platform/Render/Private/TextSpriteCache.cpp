#include "TextSpriteCache.h"

#include "Fonts/FontMeasure.h"
#include "Fonts/SlateTextPainter.h"
#include "Rendering/SlateDrawList.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <iterator>

namespace
{
	/** Rounds a shadow offset to whole pixels as the text painter does. */
	int32 ShadowPixels(double Offset)
	{
		return static_cast<int32>(std::lround(static_cast<float>(Offset)));
	}

	uint64 Mix(uint64 Hash, uint64 Value)
	{
		Hash ^= Value + 0x9E3779B97F4A7C15ull + (Hash << 6) + (Hash >> 2);
		return Hash;
	}

	uint64 Bits(float Value)
	{
		return std::bit_cast<uint32>(Value);
	}

	uint64 Bits(FColor Color)
	{
		return (uint64(Color.R) << 24) | (uint64(Color.G) << 16) | (uint64(Color.B) << 8) | Color.A;
	}

	/** Bytes an entry holds besides its sprite: its string and its share of the list and the map. */
	int64 EntryOverhead(const FString& Text)
	{
		return static_cast<int64>(Text.Len() + 1) * static_cast<int64>(sizeof(TCHAR)) + 128;
	}

	/** X / 255 rounded to nearest. */
	inline uint8 DivideBy255(uint32 X)
	{
		X += 128u;
		return static_cast<uint8>((X + (X >> 8)) >> 8);
	}
} // namespace

bool FTextSpriteCache::FLook::operator==(const FLook& Other) const
{
	const bool bSameFont = bBold == Other.bBold && Size == Other.Size && FontScale == Other.FontScale && Opacity == Other.Opacity;
	const bool bSameColours = OutlineSize == Other.OutlineSize && OutlineColor == Other.OutlineColor && Color == Other.Color;
	const bool bSameShadow = ShadowX == Other.ShadowX && ShadowY == Other.ShadowY && ShadowColor == Other.ShadowColor;
	// Case matters to pixels: FString's == ignores it, so the strict compare is spelled out.
	return bSameFont && bSameColours && bSameShadow && Text.Equals(Other.Text, ESearchCase::CaseSensitive);
}

FTextSpriteCache::FTextSpriteCache() = default;

FTextSpriteCache::~FTextSpriteCache() = default;

void FTextSpriteCache::MakeLook(const FSlateDrawElement& Text, FLook& Out)
{
	Out.Text = Text.Text;
	Out.bBold = Text.Font.IsBold();
	Out.Size = Text.Font.Size;
	Out.FontScale = Text.FontScale;
	Out.Opacity = FMath::Clamp(Text.Opacity, 0.0f, 1.0f);
	Out.Color = Text.Tint.ToFColor(true);
	Out.OutlineSize = FMath::Max(0, Text.Font.OutlineSettings.OutlineSize);
	Out.OutlineColor = Out.OutlineSize > 0 ? Text.Font.OutlineSettings.OutlineColor.ToFColor(true) : FColor(0, 0, 0, 0);
	Out.ShadowX = ShadowPixels(Text.ShadowOffset.X);
	Out.ShadowY = ShadowPixels(Text.ShadowOffset.Y);
	Out.ShadowColor = Text.ShadowColor.ToFColor(true);
	if ((Out.ShadowX == 0 && Out.ShadowY == 0) || Out.ShadowColor.A == 0)
	{
		Out.ShadowX = 0;
		Out.ShadowY = 0;
		Out.ShadowColor = FColor(0, 0, 0, 0);
	}
}

uint64 FTextSpriteCache::HashLook(const FLook& Look)
{
	// FNV-1a over the string's code units: any TCHAR width, no decoding needed to tell runs apart.
	uint64 Hash = 0xCBF29CE484222325ull;
	const TCHAR* Characters = *Look.Text;
	for (int32 Index = 0; Index < Look.Text.Len(); ++Index)
	{
		Hash = (Hash ^ static_cast<uint64>(Characters[Index])) * 0x100000001B3ull;
	}
	Hash = Mix(Hash, (Bits(Look.Size) << 32) | Bits(Look.FontScale));
	Hash = Mix(Hash, (Bits(Look.Opacity) << 32) | (uint64(Look.bBold) << 31) | uint32(Look.OutlineSize));
	Hash = Mix(Hash, (Bits(Look.Color) << 32) | Bits(Look.OutlineColor));
	Hash = Mix(Hash, (Bits(Look.ShadowColor) << 32) | (uint64(uint16(Look.ShadowX)) << 16) | uint16(Look.ShadowY));
	return Hash;
}

const FTextSprite* FTextSpriteCache::Find(const FSlateDrawElement& Text)
{
	MakeLook(Text, Probe);
	const uint64 Hash = HashLook(Probe);
	const auto Found = ByHash.find(Hash);
	if (Found != ByHash.end())
	{
		if (Found->second->Look == Probe)
		{
			++Hits;
			// Most recently drawn to the front: splicing moves no entry and invalidates nothing.
			Entries.splice(Entries.begin(), Entries, Found->second);
			Found->second->Frame = Frame;
			return Found->second->Sprite.get();
		}
		// Another look with the same hash: the newcomer takes its place.
		Erase(Found->second);
	}
	++Misses;
	std::unique_ptr<FTextSprite> Sprite = Rasterize(Text, Probe);
	if (!Sprite)
	{
		return nullptr;
	}
	Entries.push_front(FEntry{Probe, Hash, std::move(Sprite), Frame});
	ByHash.emplace(Hash, Entries.begin());
	Bytes += Entries.front().Sprite->GetMemoryBytes() + EntryOverhead(Probe.Text);
	Trim(&Entries.front());
	return Entries.front().Sprite.get();
}

std::unique_ptr<FTextSprite> FTextSpriteCache::Rasterize(const FSlateDrawElement& Text, const FLook& Look)
{
	auto Sprite = std::make_unique<FTextSprite>();
	const FVector2D Box = FSlateFontMeasure::Get().Measure(Text.Text, Text.Font, Text.FontScale);
	if (Box.X <= 0.0 || Look.Opacity <= 0.0f)
	{
		return Sprite;
	}
	// Glyphs may reach past the measured box (accents, swashes, the outline's round caps): the
	// canvas leaves half a line on every side, and the sprite is trimmed to what was drawn.
	const int32 Margin = static_cast<int32>(std::ceil(Box.Y * 0.5)) + 2;
	const int64 CanvasWidth = static_cast<int64>(std::ceil(Box.X)) + 2 * Margin + std::abs(Look.ShadowX);
	const int64 CanvasHeight = static_cast<int64>(std::ceil(Box.Y)) + 2 * Margin + std::abs(Look.ShadowY);
	if (CanvasWidth * CanvasHeight > MaxSpritePixels)
	{
		return nullptr;
	}
	const int32 OriginX = Margin + std::max(0, -Look.ShadowX);
	const int32 OriginY = Margin + std::max(0, -Look.ShadowY);
	std::vector<uint8> Canvas(static_cast<size_t>(CanvasWidth * CanvasHeight * 4), 0);

	FSlateTextLook TextLook;
	TextLook.Font = &Text.Font;
	TextLook.Color = Text.Tint;
	TextLook.ShadowOffset = Look.ShadowColor.A > 0 ? FVector2D(Look.ShadowX, Look.ShadowY) : FVector2D::ZeroVector;
	TextLook.ShadowColor = Text.ShadowColor;
	TextLook.Opacity = Look.Opacity;
	TextLook.FontScale = Text.FontScale;
	const int32 Width = static_cast<int32>(CanvasWidth);
	const int32 Height = static_cast<int32>(CanvasHeight);
	const FSlateTextCanvas Target{Canvas.data(), Width, Height, Width * 4, 0, 0, Width, Height};
	// Layers blended over transparent black, then the sprite over the frame, equal layers blended
	// over the frame one by one: source-over is associative (up to rounding).
	FSlateTextPainter::Get().Draw(Target, FVector2D(OriginX, OriginY), Text.Text, TextLook);

	int32 Left = Width;
	int32 Right = 0;
	int32 Top = Height;
	int32 Bottom = 0;
	for (int32 Y = 0; Y < Height; ++Y)
	{
		const uint8* Row = Canvas.data() + static_cast<size_t>(Y) * Width * 4;
		for (int32 X = 0; X < Width; ++X)
		{
			if (Row[X * 4 + 3] != 0)
			{
				Left = std::min(Left, X);
				Right = std::max(Right, X + 1);
				Top = std::min(Top, Y);
				Bottom = std::max(Bottom, Y + 1);
			}
		}
	}
	if (Right <= Left)
	{
		return Sprite;
	}
	Sprite->OffsetX = Left - OriginX;
	Sprite->OffsetY = Top - OriginY;
	Sprite->Width = Right - Left;
	Sprite->Height = Bottom - Top;
	Sprite->Pixels.resize(static_cast<size_t>(Sprite->Width) * Sprite->Height * 4);
	for (int32 Y = 0; Y < Sprite->Height; ++Y)
	{
		const uint8* In = Canvas.data() + (static_cast<size_t>(Top + Y) * Width + Left) * 4;
		uint8* Out = Sprite->Pixels.data() + static_cast<size_t>(Y) * Sprite->Width * 4;
		for (int32 X = 0; X < Sprite->Width; ++X, In += 4, Out += 4)
		{
			const uint32 Alpha = In[3];
			Out[0] = DivideBy255(In[0] * Alpha);
			Out[1] = DivideBy255(In[1] * Alpha);
			Out[2] = DivideBy255(In[2] * Alpha);
			Out[3] = static_cast<uint8>(Alpha);
		}
	}
	return Sprite;
}

void FTextSpriteCache::Trim(const FEntry* Keep)
{
	// The list is in drawing order, so once the oldest entry is of the last frame or this one, all
	// are. The last frame's are kept too: what was on screen then mostly is now, and dropping it at
	// the start of a frame would rasterise it again before the frame ends.
	while (Bytes > BudgetBytes && !Entries.empty() && &Entries.back() != Keep && Entries.back().Frame + 1 < Frame)
	{
		++Evictions;
		Erase(std::prev(Entries.end()));
	}
}

void FTextSpriteCache::Erase(FEntryList::iterator Entry)
{
	Bytes -= Entry->Sprite->GetMemoryBytes() + EntryOverhead(Entry->Look.Text);
	ByHash.erase(Entry->Hash);
	Entries.erase(Entry);
}

void FTextSpriteCache::SetBudgetBytes(int64 InBytes)
{
	BudgetBytes = FMath::Max<int64>(0, InBytes);
	Trim(nullptr);
}

FTextSpriteCacheStats FTextSpriteCache::GetStats() const
{
	FTextSpriteCacheStats Stats;
	Stats.Hits = Hits;
	Stats.Misses = Misses;
	Stats.Evictions = Evictions;
	Stats.Entries = static_cast<int32>(Entries.size());
	Stats.Bytes = Bytes;
	return Stats;
}

void FTextSpriteCache::Empty()
{
	Entries.clear();
	ByHash.clear();
	Bytes = 0;
}
