#pragma once

// FSlateFontMeasure: the size text takes on screen, measured with FreeType over the system's
// default fonts (Noto Sans CJK, then DejaVu Sans). The fonts are opened once per process, on the
// first measure. Any thread may measure; calls are serialised inside.

#include "CoreMinimal.h"
#include "Math/Vector2D.h"

struct FSlateFontInfo;

/** Measures text as the text widgets lay it out. */
class SLATECORE_API FSlateFontMeasure
{
public:
#if PLAIN_PLATFORM_INTERNALS
	/** Stand-in: the process-wide measuring service (the engine hands it out through its Slate renderer). */
	static FSlateFontMeasure& Get();
#endif

	/**
	 * Size of Text drawn in InFontInfo, in slate units: the widest line by all lines stacked, the
	 * outline included on every side. Empty text is zero wide and one line tall.
	 */
	FVector2D Measure(const FString& Text, const FSlateFontInfo& InFontInfo, float FontScale = 1.0f) const;

	/** Height of one line of text in InFontInfo. */
	float GetMaxCharacterHeight(const FSlateFontInfo& InFontInfo, float FontScale = 1.0f) const;

private:
	FSlateFontMeasure() = default;
};
