#pragma once

#if !PLAIN_PLATFORM_INTERNALS
#error "Fonts/SlateTextPainter.h belongs to the stand-in; the engine has no such header"
#endif

// FSlateTextPainter: draws text the way FSlateFontMeasure measures it, into an RGBA8 image that
// the caller owns. It is the one door from outside SlateCore to the FreeType drawing core, so the
// renderer draws a text block with exactly the box its layout was given. Any thread may draw;
// calls are serialised inside.

#include "CoreMinimal.h"
#include "Math/Color.h"
#include "Math/Vector2D.h"

struct FSlateFontInfo;

/** An RGBA8 image (straight alpha, rows Stride bytes apart) and the rectangle text may touch. */
struct FSlateTextCanvas
{
	/** First byte of the top row; the caller keeps it alive during the draw. */
	uint8* Pixels = nullptr;
	/** Image size in pixels. */
	int32 Width = 0;
	int32 Height = 0;
	/** Bytes from one row to the next, at least Width * 4. */
	int32 Stride = 0;
	/** Clip rectangle in pixels, right and bottom exclusive. */
	int32 ClipLeft = 0;
	int32 ClipTop = 0;
	int32 ClipRight = 0;
	int32 ClipBottom = 0;
};

/** How one run of text looks: font, colours (linear, converted to sRGB for the image), shadow and opacity. */
struct FSlateTextLook
{
	/** Typeface, size in points and outline. */
	const FSlateFontInfo* Font = nullptr;
	/** Colour of the glyphs. */
	FLinearColor Color = FLinearColor::White;
	/** Where the shadow sits from the text, in pixels; none when both are 0. */
	FVector2D ShadowOffset = FVector2D::ZeroVector;
	/** Colour of the shadow; none when its alpha is 0. */
	FLinearColor ShadowColor = FLinearColor(0.f, 0.f, 0.f, 0.f);
	/** Multiplies every layer's alpha. */
	float Opacity = 1.0f;
	/** Multiplies the font's size, as a message's text scale does. */
	float FontScale = 1.0f;
};

/** Draws text into caller-owned images with the system's default fonts. */
class SLATECORE_API FSlateTextPainter
{
public:
	/** The process-wide painter. */
	static FSlateTextPainter& Get();

	/** Draws Text with its measured box's top-left corner at Position; returns the box size. Nothing is drawn without a font. */
	FVector2D Draw(const FSlateTextCanvas& Canvas, const FVector2D& Position, const FString& Text, const FSlateTextLook& Look) const;

private:
	FSlateTextPainter() = default;
};
