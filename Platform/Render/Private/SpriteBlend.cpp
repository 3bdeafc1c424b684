#include "SpriteBlend.h"

#include "TextSprite.h"

#include <pixman.h>

#include <bit>
#include <cstddef>

#if defined(__x86_64__)
#include <immintrin.h>
#endif

namespace
{
	/** X / 255 rounded to nearest, exact for X up to 255 * 255, as pixman computes it. */
	inline uint32 DivideBy255(uint32 X)
	{
		X += 128u;
		return (X + (X >> 8)) >> 8;
	}
} // namespace

FTextSprite::~FTextSprite()
{
	RenderSprite::ReleaseImage(Image);
}

pixman_image_t* RenderSprite::WrapImage(uint8* Pixels, int32 Width, int32 Height, int32 Stride)
{
	// a8b8g8r8 is a 32-bit word with R in the low byte: the bytes R, G, B, A on a little-endian
	// machine, which is the frame's layout. (A big-endian build would need r8g8b8a8.)
	static_assert(std::endian::native == std::endian::little, "frames are R, G, B, A bytes; pixman's a8b8g8r8 names them on little-endian machines");
	if (!Pixels || Width <= 0 || Height <= 0)
	{
		return nullptr;
	}
	return pixman_image_create_bits_no_clear(PIXMAN_a8b8g8r8, Width, Height, reinterpret_cast<uint32_t*>(Pixels), Stride);
}

void RenderSprite::ReleaseImage(pixman_image_t* Image)
{
	if (Image)
	{
		pixman_image_unref(Image);
	}
}

void RenderSprite::BlendOverOpaquePixman(pixman_image_t* Frame, const FPaintRect& Area, int32 X, int32 Y, const FTextSprite& Sprite)
{
	if (!Sprite.Image)
	{
		Sprite.Image = WrapImage(const_cast<uint8*>(Sprite.Pixels.data()), Sprite.Width, Sprite.Height, Sprite.Width * 4);
	}
	if (!Frame || !Sprite.Image)
	{
		return;
	}
	pixman_image_composite32(PIXMAN_OP_OVER, Sprite.Image, nullptr, Frame, Area.Left - X, Area.Top - Y, 0, 0, Area.Left, Area.Top, Area.Right - Area.Left,
	                         Area.Bottom - Area.Top);
}

void RenderSprite::BlendOverOpaqueLoop(uint8* Frame, int32 Stride, const FPaintRect& Area, int32 X, int32 Y, const FTextSprite& Sprite)
{
	const int32 Width = Area.Right - Area.Left;
	for (int32 Row = Area.Top; Row < Area.Bottom; ++Row)
	{
		const uint8* In = Sprite.Pixels.data() + (static_cast<size_t>(Row - Y) * Sprite.Width + (Area.Left - X)) * 4u;
		uint8* Out = Frame + static_cast<ptrdiff_t>(Row) * Stride + static_cast<ptrdiff_t>(Area.Left) * 4;
		for (int32 Column = 0; Column < Width; ++Column, In += 4, Out += 4)
		{
			const uint32 Rest = 255u - In[3];
			Out[0] = static_cast<uint8>(In[0] + DivideBy255(Out[0] * Rest));
			Out[1] = static_cast<uint8>(In[1] + DivideBy255(Out[1] * Rest));
			Out[2] = static_cast<uint8>(In[2] + DivideBy255(Out[2] * Rest));
			Out[3] = static_cast<uint8>(In[3] + DivideBy255(Out[3] * Rest));
		}
	}
}

#if defined(__x86_64__)
namespace
{
	/** D x R / 255 rounded to nearest, in sixteen 16-bit lanes: (X + (X >> 8)) >> 8 is (X x 257) >> 16 for 16-bit X. */
	__attribute__((target("avx2"))) inline __m256i ScaleAvx2(__m256i D, __m256i R)
	{
		const __m256i X = _mm256_add_epi16(_mm256_mullo_epi16(D, R), _mm256_set1_epi16(128));
		return _mm256_mulhi_epu16(X, _mm256_set1_epi16(257));
	}

	/** Eight pixels at a time with AVX2: the plain loop's arithmetic, lane by lane. */
	__attribute__((target("avx2"))) void BlendRowAvx2(const uint8* In, uint8* Out, int32 Width)
	{
		const __m256i AlphaBytes = _mm256_set1_epi32(static_cast<int32>(0xFF000000u));
		// Copies each pixel's alpha byte into its four bytes.
		const __m256i SpreadAlpha = _mm256_setr_epi8(3, 3, 3, 3, 7, 7, 7, 7, 11, 11, 11, 11, 15, 15, 15, 15, 3, 3, 3, 3, 7, 7, 7, 7, 11, 11, 11, 11, 15, 15, 15, 15);
		const __m256i AllOnes = _mm256_set1_epi8(static_cast<char>(0xFF));
		const __m256i Zero = _mm256_setzero_si256();
		int32 Column = 0;
		for (; Column + 8 <= Width; Column += 8, In += 32, Out += 32)
		{
			const __m256i Source = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(In));
			// Clear pixels (premultiplied, so all zero) leave the frame alone; opaque ones replace it.
			if (_mm256_testz_si256(Source, AlphaBytes))
			{
				continue;
			}
			if (_mm256_movemask_epi8(_mm256_cmpeq_epi32(_mm256_and_si256(Source, AlphaBytes), AlphaBytes)) == -1)
			{
				_mm256_storeu_si256(reinterpret_cast<__m256i*>(Out), Source);
				continue;
			}
			const __m256i Dest = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(Out));
			const __m256i Rest = _mm256_xor_si256(_mm256_shuffle_epi8(Source, SpreadAlpha), AllOnes);
			const __m256i Low = ScaleAvx2(_mm256_unpacklo_epi8(Dest, Zero), _mm256_unpacklo_epi8(Rest, Zero));
			const __m256i High = ScaleAvx2(_mm256_unpackhi_epi8(Dest, Zero), _mm256_unpackhi_epi8(Rest, Zero));
			_mm256_storeu_si256(reinterpret_cast<__m256i*>(Out), _mm256_adds_epu8(Source, _mm256_packus_epi16(Low, High)));
		}
		for (; Column < Width; ++Column, In += 4, Out += 4)
		{
			const uint32 Rest = 255u - In[3];
			for (int32 Channel = 0; Channel < 4; ++Channel)
			{
				Out[Channel] = static_cast<uint8>(In[Channel] + DivideBy255(Out[Channel] * Rest));
			}
		}
	}
} // namespace
#endif

bool RenderSprite::HasAvx2()
{
#if defined(__x86_64__)
	static const bool bHas = __builtin_cpu_supports("avx2");
	return bHas;
#else
	return false;
#endif
}

void RenderSprite::BlendOverOpaqueAvx2(uint8* Frame, int32 Stride, const FPaintRect& Area, int32 X, int32 Y, const FTextSprite& Sprite)
{
#if defined(__x86_64__)
	if (HasAvx2())
	{
		for (int32 Row = Area.Top; Row < Area.Bottom; ++Row)
		{
			const uint8* In = Sprite.Pixels.data() + (static_cast<size_t>(Row - Y) * Sprite.Width + (Area.Left - X)) * 4u;
			BlendRowAvx2(In, Frame + static_cast<ptrdiff_t>(Row) * Stride + static_cast<ptrdiff_t>(Area.Left) * 4, Area.Right - Area.Left);
		}
		return;
	}
#endif
	BlendOverOpaqueLoop(Frame, Stride, Area, X, Y, Sprite);
}

void RenderSprite::BlendOverStraight(uint8* Frame, int32 Stride, const FPaintRect& Area, int32 X, int32 Y, const FTextSprite& Sprite)
{
	for (int32 Row = Area.Top; Row < Area.Bottom; ++Row)
	{
		const uint8* In = Sprite.Pixels.data() + (static_cast<size_t>(Row - Y) * Sprite.Width + (Area.Left - X)) * 4u;
		uint8* Out = Frame + static_cast<ptrdiff_t>(Row) * Stride + static_cast<ptrdiff_t>(Area.Left) * 4;
		for (int32 Column = Area.Left; Column < Area.Right; ++Column, In += 4, Out += 4)
		{
			const uint32 SourceAlpha = In[3];
			if (SourceAlpha == 0)
			{
				continue;
			}
			// The destination's straight colour weighs DestAlpha x (1 - SourceAlpha); the
			// source's is already weighed by its alpha. Dividing by the result's alpha gives
			// straight colour back, so text over a transparent pixel keeps its own colour.
			const uint32 DestWeight = DivideBy255(Out[3] * (255u - SourceAlpha));
			const uint32 OutAlpha = SourceAlpha + DestWeight;
			for (int32 Channel = 0; Channel < 3; ++Channel)
			{
				const uint32 Premultiplied = In[Channel] * 255u + Out[Channel] * DestWeight;
				Out[Channel] = static_cast<uint8>(FMath::Min<uint32>(255u, (Premultiplied + OutAlpha / 2u) / OutAlpha));
			}
			Out[3] = static_cast<uint8>(OutAlpha);
		}
	}
}
