#include "SpriteBlend.h"

#include "TextSprite.h"

#include <pixman.h>

#include <bit>
#include <cstddef>

namespace
{
	/** X / 255 rounded to nearest, exact for X up to 255 * 255, as pixman computes it. */
	inline uint32 DivideBy255(uint32 X)
	{
		X += 128u;
		return (X + (X >> 8)) >> 8;
	}
}

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
