#pragma once

#if !PLAIN_PLATFORM_INTERNALS
#error "Rendering/SlateDrawList.h belongs to the stand-in; the engine has no such header"
#endif

// The stand-in's draw list, in the shape of the engine's FSlateWindowElementList and
// FSlateDrawElement: each widget adds the boxes, images, text runs and lines that make up its
// look, in paint order, and the renderer draws the list without knowing which widget added what.
// A list is filled and drawn on the game thread within one frame; it holds no widget.

#include "CoreMinimal.h"
#include "Fonts/SlateFontInfo.h"
#include "Math/Color.h"
#include "Math/Vector2D.h"

class FSlateWindowElementList;
class UObject;
struct FSlateBrush;

/** A rectangle of whole pixels, right and bottom exclusive. */
struct SLATECORE_API FPaintRect
{
	int32 Left = 0;
	int32 Top = 0;
	int32 Right = 0;
	int32 Bottom = 0;

	/** True when no pixel is inside. */
	bool IsEmpty() const { return Right <= Left || Bottom <= Top; }
	/** The pixels inside both. */
	FPaintRect Intersect(const FPaintRect& Other) const;
	/** The pixels a box at Position of Size covers, edges rounded to the nearest pixel. */
	static FPaintRect FromBox(const FVector2D& Position, const FVector2D& Size);
};

/** What one draw element is. */
enum class ESlateDrawElementKind : uint8
{
	/** A flat colour over Box. */
	Box,
	/** A brush's resource (a picture, or its tint alone) scaled into Box. */
	Image,
	/** A run of text with its top-left corner at Position. */
	Text,
	/** A line from Position to End. */
	Line,
};

/**
 * One thing to draw; only the fields its kind names are meaningful (a list reuses its elements
 * from frame to frame, so the others may hold an earlier frame's values). Colours of boxes and lines are sRGB bytes with straight alpha (the widgets'
 * style colours are given that way); text and image tints are linear, as widget properties are.
 * Opacity is the product of the render opacities above the widget and multiplies every alpha.
 */
struct SLATECORE_API FSlateDrawElement
{
	ESlateDrawElementKind Kind = ESlateDrawElementKind::Box;
	/** Box, Image: the pixels covered. */
	FPaintRect Box;
	/** Text: the top-left corner of the measured box; Line: the start. */
	FVector2D Position = FVector2D::ZeroVector;
	/** Line: the end. */
	FVector2D End = FVector2D::ZeroVector;
	/** Line: the width in pixels. */
	float Thickness = 1.0f;
	/** Box, Line: the colour. */
	FColor Color = FColor::White;
	/** Image: the brush tint times the widget's colour; Text: the glyphs' colour. */
	FLinearColor Tint = FLinearColor::White;
	/** Image: the texture or material drawn; null draws the tint alone. Valid for the frame only. */
	UObject* Resource = nullptr;
	/** Text: the characters. */
	FString Text;
	/** Text: typeface, size in points and outline. */
	FSlateFontInfo Font;
	/** Text: multiplies the font's size. */
	float FontScale = 1.0f;
	/** Text: where the shadow sits from the text, in pixels; none when both are 0. */
	FVector2D ShadowOffset = FVector2D::ZeroVector;
	/** Text: the shadow's colour; none when its alpha is 0. */
	FLinearColor ShadowColor = FLinearColor(0.f, 0.f, 0.f, 0.f);
	/** Every kind: multiplies the alpha of what is drawn. */
	float Opacity = 1.0f;

	/** Adds a flat Color over Box. */
	static void MakeBox(FSlateWindowElementList& List, const FPaintRect& Box, FColor Color, float Opacity);
	/** Adds Brush's resource scaled into Box, multiplied by Tint (the widget's colour) and Opacity. */
	static void MakeBox(FSlateWindowElementList& List, const FPaintRect& Box, const FSlateBrush& Brush, const FLinearColor& Tint, float Opacity);
	/** Adds the four edges, Thickness pixels wide, inside Box; they do not overlap, so a translucent frame has even corners. */
	static void MakeFrame(FSlateWindowElementList& List, const FPaintRect& Box, int32 Thickness, FColor Color, float Opacity);
	/** Adds Text with the top-left corner of its measured box at Position. */
	static void MakeText(FSlateWindowElementList& List, const FVector2D& Position, const FString& Text, const FSlateFontInfo& Font, const FLinearColor& Color,
	                     float Opacity, const FVector2D& ShadowOffset = FVector2D::ZeroVector, const FLinearColor& ShadowColor = FLinearColor(0.f, 0.f, 0.f, 0.f), float FontScale = 1.0f);
	/** Adds a line from A to B, Thickness pixels wide. */
	static void MakeLine(FSlateWindowElementList& List, const FVector2D& A, const FVector2D& B, float Thickness, FColor Color, float Opacity);
};

/** The elements of one frame, in paint order: later ones are drawn over earlier ones. */
class SLATECORE_API FSlateWindowElementList
{
public:
	/** Empties the list. The elements are kept for the next frame, so a text run that is added again reuses its string's storage. */
	void Reset() { Count = 0; }
	/** Appends an element for the caller to fill: Kind and the fields of that kind. */
	FSlateDrawElement& Add();
	/** Elements in the list. */
	int32 Num() const { return Count; }
	/** The element at Index, 0 drawn first. */
	const FSlateDrawElement& operator[](int32 Index) const { return Elements[Index]; }
	const FSlateDrawElement* begin() const { return Elements.GetData(); }
	const FSlateDrawElement* end() const { return Elements.GetData() + Count; }

private:
	// Every element made so far; the first Count are this frame's.
	TArray<FSlateDrawElement> Elements;
	// Elements added since the last Reset.
	int32 Count = 0;
};
