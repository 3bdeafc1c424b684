#pragma once

// FFontOutlineSettings: the outline drawn around a font's glyphs.

#include "CoreMinimal.h"
#include "Math/Color.h"
#include "FontOutlineSettings.generated.h"

/** How thick, and in which colour, the outline around text is. */
USTRUCT(BlueprintType)
struct SLATECORE_API FFontOutlineSettings
{
	GENERATED_BODY()

	/** Thickness of the outline in pixels; 0 draws none. The outline grows the text's measured box on every side. */
	UPROPERTY(EditAnywhere, Category = "OutlineSettings")
	int32 OutlineSize = 0;

	/** Colour of the outline. */
	UPROPERTY(EditAnywhere, Category = "OutlineSettings")
	FLinearColor OutlineColor = FLinearColor::Black;

	bool operator==(const FFontOutlineSettings& Other) const { return OutlineSize == Other.OutlineSize && OutlineColor == Other.OutlineColor; }
};
