#include "Fonts/FontGlyphCache.h"

#include FT_GLYPH_H
#include FT_SIZES_H

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace
{
	// Light hinting snaps glyphs vertically only, so shapes stay true to the design at any size
	// while stems stay sharp. Embedded bitmaps are skipped so every glyph can be outlined.
	constexpr FT_Int32 GlyphLoadFlags = FT_LOAD_DEFAULT | FT_LOAD_NO_BITMAP | FT_LOAD_TARGET_LIGHT;

	// Past these counts a cache is emptied rather than grown: text animating through many sizes
	// must not hold on to every size it passed through.
	constexpr size_t MaxMetricsEntries = 65536;
	constexpr size_t MaxSizesPerFace = 32;
	constexpr size_t MaxKerningPairsPerFace = 65536;

	struct FFaceDeleter
	{
		void operator()(FT_Face Face) const { FT_Done_Face(Face); }
	};
	using FFacePtr = std::unique_ptr<FT_FaceRec_, FFaceDeleter>;

	FFacePtr OpenFaceAt(FT_Library Library, const std::string& Path, FT_Long Index, FT_Error& OutError)
	{
		FT_Face Face = nullptr;
		OutError = FT_New_Face(Library, Path.c_str(), Index, &Face);
		return FFacePtr(OutError == 0 ? Face : nullptr);
	}

	bool HasFamily(const FFacePtr& Face, const std::string& Family)
	{
		return Face && Face->family_name && Family == Face->family_name;
	}

	std::string DescribeError(FT_Error Error)
	{
		const char* Text = FT_Error_String(Error);
		return Text ? std::string(Text) : "FreeType error " + std::to_string(Error);
	}

	int32_t CeilPixels(FT_Pos Value) { return static_cast<int32_t>((Value + 63) >> 6); }
	int32_t FloorPixels(FT_Pos Value) { return static_cast<int32_t>(Value >> 6); }

	void CopyCoverage(const FT_Bitmap& Source, FGlyphBitmap& Out)
	{
		Out.Width = static_cast<int32_t>(Source.width);
		Out.Height = static_cast<int32_t>(Source.rows);
		Out.Coverage.assign(static_cast<size_t>(Out.Width) * Out.Height, 0);
		const int32_t Pitch = Source.pitch;
		for (int32_t Y = 0; Y < Out.Height; ++Y)
		{
			// A negative pitch means the rows are stored bottom-up from the buffer's start.
			const int32_t StoredRow = Pitch >= 0 ? Y : Out.Height - 1 - Y;
			const uint8_t* Row = Source.buffer + static_cast<std::ptrdiff_t>(StoredRow) * std::abs(Pitch);
			uint8_t* Dest = Out.Coverage.data() + static_cast<size_t>(Y) * Out.Width;
			if (Source.pixel_mode == FT_PIXEL_MODE_GRAY)
			{
				std::memcpy(Dest, Row, static_cast<size_t>(Out.Width));
			}
			else if (Source.pixel_mode == FT_PIXEL_MODE_MONO)
			{
				for (int32_t X = 0; X < Out.Width; ++X)
				{
					Dest[X] = ((Row[X >> 3] >> (7 - (X & 7))) & 1) ? 255 : 0;
				}
			}
		}
	}
}

struct FFontGlyphCache::FSizeEntry
{
	/** FreeType's size object, owned by the face. */
	FT_Size Handle = nullptr;
	/** Font units to 26.6 pixels, horizontally; scales unscaled kerning. */
	FT_Fixed XScale = 0;
	FFaceLineMetrics Line;
};

struct FFontGlyphCache::FFace
{
	FFacePtr Handle;
	bool bHasKerning = false;
	/** One size object per size in use, so switching sizes costs no re-scaling. */
	std::unordered_map<int32_t, FSizeEntry> Sizes;
	/** Kerning in font units by (left glyph << 32 | right glyph); size-independent. */
	std::unordered_map<uint64_t, FT_Pos> Kerning;
};

size_t FFontGlyphCache::FKeyHash::operator()(const FKey& Key) const
{
	const uint64_t A = (uint64_t(Key.Owner) << 32) ^ uint32_t(Key.Size);
	const uint64_t B = (uint64_t(Key.Glyph) << 32) ^ uint32_t(Key.Outline);
	uint64_t Hash = A * 0x9E3779B97F4A7C15ull ^ B;
	Hash ^= Hash >> 31;
	Hash *= 0xD6E8FEB86659FD93ull;
	Hash ^= Hash >> 32;
	return static_cast<size_t>(Hash);
}

FFontGlyphCache::FFontGlyphCache()
{
	if (FT_Init_FreeType(&Library) != 0)
	{
		Library = nullptr;
		return;
	}
	if (FT_Stroker_New(Library, &Stroker) != 0)
	{
		Stroker = nullptr;
	}
}

FFontGlyphCache::~FFontGlyphCache()
{
	// Faces (and the sizes they own) must go before the library that made them.
	Faces.clear();
	if (Stroker)
	{
		FT_Stroker_Done(Stroker);
	}
	if (Library)
	{
		FT_Done_FreeType(Library);
	}
}

int32_t FFontGlyphCache::OpenFace(const FFontFile& File, std::string& OutError)
{
	const std::string Request = File.Path + '|' + std::to_string(File.FaceIndex) + '|' + File.Family;
	if (const auto Found = FaceSlotsByRequest.find(Request); Found != FaceSlotsByRequest.end())
	{
		return Found->second;
	}
	if (!Library)
	{
		OutError = "FreeType could not be initialised";
		return -1;
	}
	if (File.FaceIndex < 0)
	{
		// FreeType reads a negative index as "only count the faces", which gives a face with no glyphs.
		OutError = "font '" + File.Path + "': face index " + std::to_string(File.FaceIndex) + " is negative";
		return -1;
	}

	FT_Error Error = 0;
	FFacePtr Face = OpenFaceAt(Library, File.Path, File.FaceIndex, Error);
	if (!File.Family.empty() && !HasFamily(Face, File.Family))
	{
		// Collections order their faces differently between builds; look for the family by name.
		FT_Error ProbeError = 0;
		const FFacePtr Probe = Face ? nullptr : OpenFaceAt(Library, File.Path, 0, ProbeError);
		const FT_Long FaceCount = Face ? Face->num_faces : (Probe ? Probe->num_faces : 0);
		for (FT_Long Index = 0; Index < FaceCount; ++Index)
		{
			FT_Error CandidateError = 0;
			FFacePtr Candidate = OpenFaceAt(Library, File.Path, Index, CandidateError);
			if (HasFamily(Candidate, File.Family))
			{
				Face = std::move(Candidate);
				Error = 0;
				break;
			}
		}
	}
	if (!Face)
	{
		OutError = "cannot open font '" + File.Path + "' (face " + std::to_string(File.FaceIndex) + "): " + DescribeError(Error);
		return -1;
	}
	if (!FT_IS_SCALABLE(Face.get()))
	{
		OutError = "font '" + File.Path + "' has no outlines (bitmap-only fonts are not supported)";
		return -1;
	}
	if (!Face->charmap)
	{
		// Without a Unicode map every lookup misses and the fallback fonts draw everything.
		FT_Select_Charmap(Face.get(), FT_ENCODING_UNICODE);
	}

	auto Entry = std::make_unique<FFace>();
	Entry->bHasKerning = FT_HAS_KERNING(Face.get());
	Entry->Handle = std::move(Face);
	Faces.push_back(std::move(Entry));
	const int32_t Slot = static_cast<int32_t>(Faces.size()) - 1;
	FaceSlotsByRequest.emplace(Request, Slot);
	return Slot;
}

int32_t FFontGlyphCache::AddChain(const std::vector<int32_t>& FaceSlots)
{
	std::vector<int32_t> Chain;
	for (const int32_t Slot : FaceSlots)
	{
		if (Slot >= 0 && Slot < static_cast<int32_t>(Faces.size()) && std::find(Chain.begin(), Chain.end(), Slot) == Chain.end())
		{
			Chain.push_back(Slot);
		}
	}
	const auto Existing = std::find(Chains.begin(), Chains.end(), Chain);
	if (Existing != Chains.end())
	{
		return static_cast<int32_t>(Existing - Chains.begin());
	}
	Chains.push_back(std::move(Chain));
	return static_cast<int32_t>(Chains.size()) - 1;
}

int32_t FFontGlyphCache::GetPrimaryFace(int32_t Chain) const
{
	if (Chain < 0 || Chain >= static_cast<int32_t>(Chains.size()) || Chains[Chain].empty())
	{
		return -1;
	}
	return Chains[Chain].front();
}

FGlyphMetrics FFontGlyphCache::GetGlyph(int32_t Chain, int32_t Size, char32_t Codepoint)
{
	const FKey Key{uint32_t(Chain), Size, uint32_t(Codepoint), 0};
	if (const auto Found = Metrics.find(Key); Found != Metrics.end())
	{
		return Found->second;
	}

	FGlyphMetrics Result;
	if (GetPrimaryFace(Chain) < 0)
	{
		return Result;
	}
	for (const int32_t Slot : Chains[Chain])
	{
		if (const FT_UInt Glyph = FT_Get_Char_Index(Faces[Slot]->Handle.get(), Codepoint))
		{
			Result.FaceSlot = Slot;
			Result.GlyphIndex = Glyph;
			break;
		}
	}
	if (Result.FaceSlot < 0)
	{
		Result.FaceSlot = Chains[Chain].front();
	}

	FFace& Face = *Faces[Result.FaceSlot];
	Result.bFaceHasKerning = Face.bHasKerning;
	if (const FSizeEntry* SizeEntry = FindOrAddSize(Face, Size))
	{
		FT_Activate_Size(SizeEntry->Handle);
		if (FT_Load_Glyph(Face.Handle.get(), Result.GlyphIndex, GlyphLoadFlags) == 0)
		{
			Result.Advance = static_cast<int32_t>(Face.Handle->glyph->advance.x);
		}
	}
	Metrics.emplace(Key, Result);
	return Result;
}

FFaceLineMetrics FFontGlyphCache::GetLineMetrics(int32_t FaceSlot, int32_t Size)
{
	if (FaceSlot < 0 || FaceSlot >= static_cast<int32_t>(Faces.size()))
	{
		return {};
	}
	const FSizeEntry* SizeEntry = FindOrAddSize(*Faces[FaceSlot], Size);
	return SizeEntry ? SizeEntry->Line : FFaceLineMetrics{};
}

int32_t FFontGlyphCache::GetKerning(int32_t FaceSlot, int32_t Size, uint32_t LeftGlyph, uint32_t RightGlyph)
{
	if (FaceSlot < 0 || FaceSlot >= static_cast<int32_t>(Faces.size()) || !Faces[FaceSlot]->bHasKerning)
	{
		return 0;
	}
	FFace& Face = *Faces[FaceSlot];
	const uint64_t Pair = (uint64_t(LeftGlyph) << 32) | RightGlyph;
	auto Found = Face.Kerning.find(Pair);
	if (Found == Face.Kerning.end())
	{
		FT_Vector Delta{0, 0};
		if (FT_Get_Kerning(Face.Handle.get(), LeftGlyph, RightGlyph, FT_KERNING_UNSCALED, &Delta) != 0)
		{
			Delta.x = 0;
		}
		Found = Face.Kerning.emplace(Pair, Delta.x).first;
	}
	const FSizeEntry* SizeEntry = Found->second != 0 ? FindOrAddSize(Face, Size) : nullptr;
	return SizeEntry ? static_cast<int32_t>(FT_MulFix(Found->second, SizeEntry->XScale)) : 0;
}

const FGlyphBitmap* FFontGlyphCache::GetBitmap(int32_t FaceSlot, int32_t Size, uint32_t GlyphIndex, int32_t Outline)
{
	const FKey Key{uint32_t(FaceSlot), Size, GlyphIndex, Outline};
	if (const auto Found = Bitmaps.find(Key); Found != Bitmaps.end())
	{
		return &Found->second;
	}
	FGlyphBitmap Bitmap;
	if (FaceSlot >= 0 && FaceSlot < static_cast<int32_t>(Faces.size()))
	{
		Bitmap = RenderBitmap(*Faces[FaceSlot], Size, GlyphIndex, Outline);
	}
	BitmapBytes += Bitmap.Coverage.size();
	return &Bitmaps.emplace(Key, std::move(Bitmap)).first->second;
}

void FFontGlyphCache::TrimToBudget()
{
	if (BitmapBytes > BitmapBudget)
	{
		Bitmaps.clear();
		BitmapBytes = 0;
	}
	if (Metrics.size() > MaxMetricsEntries)
	{
		Metrics.clear();
	}
	for (const std::unique_ptr<FFace>& Face : Faces)
	{
		if (Face->Sizes.size() > MaxSizesPerFace)
		{
			for (const auto& [Size, Entry] : Face->Sizes)
			{
				FT_Done_Size(Entry.Handle);
			}
			Face->Sizes.clear();
		}
		if (Face->Kerning.size() > MaxKerningPairsPerFace)
		{
			Face->Kerning.clear();
		}
	}
}

const FFontGlyphCache::FSizeEntry* FFontGlyphCache::FindOrAddSize(FFace& Face, int32_t Size)
{
	if (const auto Found = Face.Sizes.find(Size); Found != Face.Sizes.end())
	{
		return &Found->second;
	}
	FT_Face Handle = Face.Handle.get();
	FT_Size NewSize = nullptr;
	if (Size <= 0 || FT_New_Size(Handle, &NewSize) != 0)
	{
		return nullptr;
	}
	// At 72 DPI a point is a pixel, so the 26.6 size is the pixel size, fractions included.
	if (FT_Activate_Size(NewSize) != 0 || FT_Set_Char_Size(Handle, 0, Size, 72, 72) != 0)
	{
		FT_Done_Size(NewSize);
		return nullptr;
	}
	FSizeEntry Entry;
	Entry.Handle = NewSize;
	Entry.XScale = NewSize->metrics.x_scale;
	Entry.Line.Ascender = CeilPixels(FT_MulFix(Handle->ascender, NewSize->metrics.y_scale));
	Entry.Line.Descender = FloorPixels(FT_MulFix(Handle->descender, NewSize->metrics.y_scale));
	return &Face.Sizes.emplace(Size, Entry).first->second;
}

FGlyphBitmap FFontGlyphCache::RenderBitmap(FFace& Face, int32_t Size, uint32_t GlyphIndex, int32_t Outline)
{
	FGlyphBitmap Result;
	const FSizeEntry* SizeEntry = FindOrAddSize(Face, Size);
	FT_Face Handle = Face.Handle.get();
	if (!SizeEntry || FT_Activate_Size(SizeEntry->Handle) != 0 || FT_Load_Glyph(Handle, GlyphIndex, GlyphLoadFlags) != 0)
	{
		return Result;
	}
	FT_Glyph Glyph = nullptr;
	if (FT_Get_Glyph(Handle->glyph, &Glyph) != 0)
	{
		return Result;
	}
	if (Outline > 0 && Stroker && Glyph->format == FT_GLYPH_FORMAT_OUTLINE)
	{
		// The outer border alone is the glyph grown by the outline width, interior included, so
		// the outline layer has no seam where it meets the fill drawn over it.
		FT_Stroker_Set(Stroker, Outline, FT_STROKER_LINECAP_ROUND, FT_STROKER_LINEJOIN_ROUND, 0);
		FT_Glyph_StrokeBorder(&Glyph, Stroker, 0, 1);
	}
	if (FT_Glyph_To_Bitmap(&Glyph, FT_RENDER_MODE_NORMAL, nullptr, 1) == 0)
	{
		const auto* Rendered = reinterpret_cast<FT_BitmapGlyph>(Glyph);
		CopyCoverage(Rendered->bitmap, Result);
		Result.Left = Rendered->left;
		Result.Top = Rendered->top;
	}
	FT_Done_Glyph(Glyph);
	return Result;
}
