#include "FramePainter.h"

#include "MediaTextureSample.h"
#include "RenderFrame.h"
#include "SpriteBlend.h"
#include "TextSprite.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <vector>

namespace
{
	/**
	 * Source-over of a straight-alpha source onto a straight-alpha pixel. Alpha is in 0..255; the
	 * frame is usually opaque, so the common case keeps the destination alpha at 255.
	 */
	inline void BlendTexel(uint8* Dest, uint32 R, uint32 G, uint32 B, uint32 Alpha)
	{
		if (Alpha == 0)
		{
			return;
		}
		if (Alpha >= 255)
		{
			Dest[0] = static_cast<uint8>(R);
			Dest[1] = static_cast<uint8>(G);
			Dest[2] = static_cast<uint8>(B);
			Dest[3] = 255;
			return;
		}
		const uint32 DestAlpha = Dest[3];
		const uint32 Rest = DestAlpha * (255u - Alpha);
		const uint32 OutAlpha255 = Alpha * 255u + Rest;
		if (OutAlpha255 == 0)
		{
			return;
		}
		auto Mix = [&](uint32 Source, uint32 Target) { return static_cast<uint8>((Source * Alpha * 255u + Target * Rest + OutAlpha255 / 2u) / OutAlpha255); };
		Dest[0] = Mix(R, Dest[0]);
		Dest[1] = Mix(G, Dest[1]);
		Dest[2] = Mix(B, Dest[2]);
		Dest[3] = static_cast<uint8>((OutAlpha255 + 127u) / 255u);
	}

	/** X / 255 rounded to nearest, exact for X up to 255 * 255. */
	inline uint8 DivideBy255(uint32 X)
	{
		X += 128u;
		return static_cast<uint8>((X + (X >> 8)) >> 8);
	}

	/** True when every pixel of the row is opaque. */
	bool IsOpaqueRow(const uint8* Pixels, int32 Count)
	{
		uint8 All = 255;
		for (int32 Index = 0; Index < Count; ++Index)
		{
			All &= Pixels[Index * 4 + 3];
		}
		return All == 255;
	}

	/** Colour alpha times opacity, as a byte. */
	inline uint32 EffectiveAlpha(uint8 Alpha, float Opacity)
	{
		const float Value = static_cast<float>(Alpha) * FMath::Clamp(Opacity, 0.0f, 1.0f);
		return static_cast<uint32>(Value + 0.5f);
	}
}

FFramePainter::FFramePainter(FRenderFrame& InFrame, bool bInOpaqueFrame, ESpriteBlender InBlender)
	: Frame(InFrame), Clip{0, 0, InFrame.GetWidth(), InFrame.GetHeight()}, bOpaqueFrame(bInOpaqueFrame), Blender(InBlender)
{
}

FFramePainter::~FFramePainter()
{
	RenderSprite::ReleaseImage(FrameImage);
}

void FFramePainter::DrawSprite(int32 X, int32 Y, const FTextSprite& Sprite) const
{
	const FPaintRect Area = FPaintRect{X, Y, X + Sprite.Width, Y + Sprite.Height}.Intersect(Clip);
	if (Area.IsEmpty())
	{
		return;
	}
	if (!bOpaqueFrame)
	{
		RenderSprite::BlendOverStraight(Frame.GetData(), Frame.GetStride(), Area, X, Y, Sprite);
	}
	else if (Blender == ESpriteBlender::Pixman)
	{
		if (!FrameImage)
		{
			FrameImage = RenderSprite::WrapImage(Frame.GetData(), Frame.GetWidth(), Frame.GetHeight(), Frame.GetStride());
		}
		RenderSprite::BlendOverOpaquePixman(FrameImage, Area, X, Y, Sprite);
	}
	else if (Blender == ESpriteBlender::Avx2)
	{
		RenderSprite::BlendOverOpaqueAvx2(Frame.GetData(), Frame.GetStride(), Area, X, Y, Sprite);
	}
	else
	{
		RenderSprite::BlendOverOpaqueLoop(Frame.GetData(), Frame.GetStride(), Area, X, Y, Sprite);
	}
}

void FFramePainter::SetClip(const FPaintRect& Rect)
{
	Clip = Rect.Intersect({0, 0, Frame.GetWidth(), Frame.GetHeight()});
}

void FFramePainter::FillRect(const FPaintRect& Rect, FColor Color, float Opacity) const
{
	const FPaintRect Area = Rect.Intersect(Clip);
	const uint32 Alpha = EffectiveAlpha(Color.A, Opacity);
	if (Area.IsEmpty() || Alpha == 0)
	{
		return;
	}
	uint8* Data = Frame.GetData();
	const int32 Stride = Frame.GetStride();
	if (Alpha >= 255)
	{
		// Opaque: the colour replaces the pixels, one 32-bit store each.
		const uint8 Texel[4] = {Color.R, Color.G, Color.B, 255};
		uint32 Word;
		std::memcpy(&Word, Texel, 4);
		for (int32 Y = Area.Top; Y < Area.Bottom; ++Y)
		{
			uint32* Row = reinterpret_cast<uint32*>(Data + static_cast<size_t>(Y) * static_cast<size_t>(Stride)) + Area.Left;
			std::fill(Row, Row + (Area.Right - Area.Left), Word);
		}
		return;
	}
	// Over an opaque pixel the straight-alpha blend is (source x alpha + pixel x (255 - alpha)) / 255
	// rounded, the same bytes BlendTexel gives, without its division per channel.
	const uint32 Rest = 255u - Alpha;
	const uint32 WeightedR = Color.R * Alpha;
	const uint32 WeightedG = Color.G * Alpha;
	const uint32 WeightedB = Color.B * Alpha;
	for (int32 Y = Area.Top; Y < Area.Bottom; ++Y)
	{
		uint8* Row = Data + static_cast<size_t>(Y) * static_cast<size_t>(Stride);
		for (int32 X = Area.Left; X < Area.Right; ++X)
		{
			uint8* Pixel = Row + X * 4;
			if (Pixel[3] == 255)
			{
				Pixel[0] = DivideBy255(WeightedR + Pixel[0] * Rest);
				Pixel[1] = DivideBy255(WeightedG + Pixel[1] * Rest);
				Pixel[2] = DivideBy255(WeightedB + Pixel[2] * Rest);
			}
			else
			{
				BlendTexel(Pixel, Color.R, Color.G, Color.B, Alpha);
			}
		}
	}
}

void FFramePainter::DrawLine(const FVector2D& A, const FVector2D& B, float Thickness, FColor Color, float Opacity) const
{
	// Only ticks and arrows use lines, a few pixels long: stamping opaque squares is enough and
	// stays exact for opaque colours. Translucent lines would double-blend where stamps overlap.
	const FVector2D Delta = B - A;
	const int32 Steps = std::max(1, static_cast<int32>(std::ceil(std::max(std::abs(Delta.X), std::abs(Delta.Y)))));
	const double Half = Thickness * 0.5;
	for (int32 Step = 0; Step <= Steps; ++Step)
	{
		const FVector2D Point = A + Delta * (static_cast<double>(Step) / Steps);
		FillRect(FPaintRect::FromBox(FVector2D(Point.X - Half, Point.Y - Half), FVector2D(Thickness, Thickness)), Color, Opacity);
	}
}

void FFramePainter::DrawPicture(const FPaintRect& Rect, const FMediaTextureSample& Sample, const FLinearColor& Tint, float Opacity) const
{
	const FPaintRect Area = Rect.Intersect(Clip);
	if (Area.IsEmpty() || !Sample.Pixels || Sample.Width <= 0 || Sample.Height <= 0 || Sample.Stride < Sample.Width * 4)
	{
		return;
	}
	// Tint multiplies the picture as the material's base colour does; it is linear, the bytes
	// are sRGB, so it is applied as the engine would after decoding: close enough per channel
	// for tints of 0 or 1, which is what widgets use.
	const FColor TintBytes = Tint.ToFColor(true);
	const uint32 TintR = TintBytes.R + (TintBytes.R >> 7);
	const uint32 TintG = TintBytes.G + (TintBytes.G >> 7);
	const uint32 TintB = TintBytes.B + (TintBytes.B >> 7);
	const float AlphaScale = FMath::Clamp(Tint.A, 0.0f, 1.0f) * FMath::Clamp(Opacity, 0.0f, 1.0f);
	const uint32 AlphaMul = static_cast<uint32>(AlphaScale * 256.0f + 0.5f);
	if (AlphaMul == 0)
	{
		return;
	}

	uint8* Data = Frame.GetData();
	const int32 Stride = Frame.GetStride();
	// A video shown at its own size with no tint, as a full-screen lesson is, needs no filtering:
	// its opaque texels are copied as they are, which is most of a frame's drawing otherwise.
	const bool bOneToOne = Sample.Width == Rect.Right - Rect.Left && Sample.Height == Rect.Bottom - Rect.Top;
	if (bOneToOne && AlphaMul == 256 && TintBytes.R == 255 && TintBytes.G == 255 && TintBytes.B == 255)
	{
		for (int32 Y = Area.Top; Y < Area.Bottom; ++Y)
		{
			const uint8* In = Sample.Pixels + static_cast<size_t>(Y - Rect.Top) * static_cast<size_t>(Sample.Stride) + static_cast<size_t>(Area.Left - Rect.Left) * 4u;
			uint8* Out = Data + static_cast<size_t>(Y) * static_cast<size_t>(Stride) + static_cast<size_t>(Area.Left) * 4u;
			// A decoded video is opaque: such a row is one copy.
			if (IsOpaqueRow(In, Area.Right - Area.Left))
			{
				std::memcpy(Out, In, static_cast<size_t>(Area.Right - Area.Left) * 4u);
				continue;
			}
			for (int32 X = Area.Left; X < Area.Right; ++X, In += 4, Out += 4)
			{
				if (In[3] == 255)
				{
					std::memcpy(Out, In, 4);
				}
				else
				{
					BlendTexel(Out, In[0], In[1], In[2], In[3]);
				}
			}
		}
		return;
	}

	// Pixel centres map to texel centres; weights are 8-bit fixed point. Columns are computed
	// once per draw, not per pixel.
	const double ScaleX = static_cast<double>(Sample.Width) / std::max(1, Rect.Right - Rect.Left);
	const double ScaleY = static_cast<double>(Sample.Height) / std::max(1, Rect.Bottom - Rect.Top);
	struct FTap
	{
		int32 First;
		int32 Second;
		uint32 Weight;
	};
	auto MakeTap = [](double Source, int32 Size) {
		const double Clamped = std::clamp(Source, 0.0, static_cast<double>(Size - 1));
		const int32 First = static_cast<int32>(Clamped);
		const int32 Second = std::min(First + 1, Size - 1);
		return FTap{First, Second, static_cast<uint32>((Clamped - First) * 256.0)};
	};
	std::vector<FTap> Columns(static_cast<size_t>(Area.Right - Area.Left));
	for (int32 X = Area.Left; X < Area.Right; ++X)
	{
		Columns[static_cast<size_t>(X - Area.Left)] = MakeTap((X - Rect.Left + 0.5) * ScaleX - 0.5, Sample.Width);
	}
	for (int32 Y = Area.Top; Y < Area.Bottom; ++Y)
	{
		const FTap Row = MakeTap((Y - Rect.Top + 0.5) * ScaleY - 0.5, Sample.Height);
		const uint8* Upper = Sample.Pixels + static_cast<size_t>(Row.First) * static_cast<size_t>(Sample.Stride);
		const uint8* Lower = Sample.Pixels + static_cast<size_t>(Row.Second) * static_cast<size_t>(Sample.Stride);
		uint8* Out = Data + static_cast<size_t>(Y) * static_cast<size_t>(Stride) + static_cast<size_t>(Area.Left) * 4u;
		for (const FTap& Column : Columns)
		{
			uint32 Channel[4];
			for (int32 C = 0; C < 4; ++C)
			{
				const uint32 Top = Upper[Column.First * 4 + C] * (256u - Column.Weight) + Upper[Column.Second * 4 + C] * Column.Weight;
				const uint32 Bottom = Lower[Column.First * 4 + C] * (256u - Column.Weight) + Lower[Column.Second * 4 + C] * Column.Weight;
				Channel[C] = (Top * (256u - Row.Weight) + Bottom * Row.Weight + 32768u) >> 16;
			}
			BlendTexel(Out, (Channel[0] * TintR) >> 8, (Channel[1] * TintG) >> 8, (Channel[2] * TintB) >> 8, (Channel[3] * AlphaMul) >> 8);
			Out += 4;
		}
	}
}
