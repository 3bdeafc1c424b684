#pragma once

// FSlateFontInfo: which font text is drawn with. The stand-in draws every typeface from the
// system's default fonts (see FSlateFontMeasure): "Bold" picks the bold face, anything else the
// regular one.

#include "CoreMinimal.h"
#include "Fonts/FontOutlineSettings.h"
#include "SlateFontInfo.generated.h"

/** A font: its typeface, size in points and outline. */
USTRUCT(BlueprintType)
struct SLATECORE_API FSlateFontInfo
{
	GENERATED_BODY()

	/** The engine's default: regular, 24 points. */
	FSlateFontInfo() = default;
#if PLAIN_PLATFORM_INTERNALS
	/** Stand-in: a font of the given typeface and size (the engine names a font object or composite font). */
	FSlateFontInfo(FName InTypefaceFontName, float InSize) : TypefaceFontName(InTypefaceFontName), Size(InSize) {}
#endif

	/** The face within the font family: "Regular" or "Bold". */
	UPROPERTY(EditAnywhere, Category = "SlateStyleRules")
	FName TypefaceFontName = FName(TEXT("Regular"));

	/** Size in points; the engine draws fonts at 96 DPI, so 24 points are 32 pixels. */
	UPROPERTY(EditAnywhere, Category = "SlateStyleRules")
	float Size = 24.0f;

	/** The outline drawn around the glyphs. */
	UPROPERTY(EditAnywhere, Category = "SlateStyleRules")
	FFontOutlineSettings OutlineSettings;

	/** True for the bold face. */
	bool IsBold() const { return TypefaceFontName == FName(TEXT("Bold")); }

	bool operator==(const FSlateFontInfo& Other) const
	{
		return TypefaceFontName == Other.TypefaceFontName && Size == Other.Size && OutlineSettings == Other.OutlineSettings;
	}
};
