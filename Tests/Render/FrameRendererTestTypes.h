#pragma once

// A widget the renderer has never heard of, for the test that a new widget draws by painting
// itself: it adds a flat box and a line of text to the draw list.

#include "CoreMinimal.h"
#include "Components/Widget.h"
#include "Rendering/SlateDrawList.h"
#include "FrameRendererTestTypes.generated.h"

/** A swatch: its colour over its whole box, with its label at the top left. */
UCLASS()
class UTestSwatch : public UWidget
{
	GENERATED_BODY()

public:
	/** The colour of the box. */
	FColor Color = FColor::Green;
	/** The text drawn over it. */
	FString Label;

private:
	void PaintSelf(FSlateWindowElementList& OutDrawElements, const FGeometry& Geometry, float Opacity) const override
	{
		FSlateDrawElement::MakeBox(OutDrawElements, FPaintRect::FromBox(Geometry.GetAbsolutePosition(), Geometry.GetLocalSize()), Color, Opacity);
		FSlateDrawElement::MakeText(OutDrawElements, Geometry.GetAbsolutePosition(), Label, FSlateFontInfo(FName(TEXT("Regular")), 12), FLinearColor::White, Opacity);
	}
};
