#pragma once

// FSlateColor: a colour a style gives a widget. The stand-in has no style sheets, so a slate
// colour is always the colour it was made from.

#include "CoreMinimal.h"
#include "Math/Color.h"
#include "SlateColor.generated.h"

/** A colour used by widget styles. */
USTRUCT(BlueprintType)
struct SLATECORE_API FSlateColor
{
	GENERATED_BODY()

	/** Opaque white. */
	FSlateColor() = default;
	/** The given colour. */
	FSlateColor(const FLinearColor& InColor) : SpecifiedColor(InColor) {}

	/** The colour itself. */
	const FLinearColor& GetSpecifiedColor() const { return SpecifiedColor; }

	bool operator==(const FSlateColor& Other) const { return SpecifiedColor == Other.SpecifiedColor; }

protected:
	/** The colour, in linear space. */
	UPROPERTY(EditAnywhere, Category = "Color")
	FLinearColor SpecifiedColor = FLinearColor::White;
};
