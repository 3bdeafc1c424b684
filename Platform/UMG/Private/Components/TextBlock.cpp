#include "Components/TextBlock.h"
#include "Rendering/SlateDrawList.h"

#include "Fonts/FontMeasure.h"

// The text block's own accessors are where its deprecated members may still be named.
PRAGMA_DISABLE_DEPRECATION_WARNINGS

UTextBlock::UTextBlock() = default;

UTextBlock::~UTextBlock() = default;

FText UTextBlock::GetText() const
{
	return Text;
}

void UTextBlock::SetText(FText InText)
{
	Text = InText;
	bMeasureValid = false;
}

FSlateColor UTextBlock::GetColorAndOpacity() const
{
	return ColorAndOpacity;
}

void UTextBlock::SetColorAndOpacity(FSlateColor InColorAndOpacity)
{
	ColorAndOpacity = InColorAndOpacity;
}

void UTextBlock::SetOpacity(float InOpacity)
{
	FLinearColor Color = ColorAndOpacity.GetSpecifiedColor();
	Color.A = InOpacity;
	ColorAndOpacity = FSlateColor(Color);
}

FLinearColor UTextBlock::GetShadowColorAndOpacity() const
{
	return ShadowColorAndOpacity;
}

void UTextBlock::SetShadowColorAndOpacity(FLinearColor InShadowColorAndOpacity)
{
	ShadowColorAndOpacity = InShadowColorAndOpacity;
}

FVector2D UTextBlock::GetShadowOffset() const
{
	return ShadowOffset;
}

void UTextBlock::SetShadowOffset(FVector2D InShadowOffset)
{
	ShadowOffset = InShadowOffset;
}

const FSlateFontInfo& UTextBlock::GetFont() const
{
	return Font;
}

void UTextBlock::SetFont(FSlateFontInfo InFontInfo)
{
	Font = InFontInfo;
	bMeasureValid = false;
}

PRAGMA_ENABLE_DEPRECATION_WARNINGS

void UTextBlock::SynchronizeProperties()
{
	Super::SynchronizeProperties();
	bMeasureValid = false;
}

FVector2D UTextBlock::ComputeDesiredSize() const
{
	// Measuring is the costly part of layout, so it runs only after the text or font changed.
	if (!bMeasureValid)
	{
		MeasuredSize = FSlateFontMeasure::Get().Measure(GetText().ToString(), GetFont());
		bMeasureValid = true;
	}
	const FVector2D Shadow = GetShadowOffset();
	return MeasuredSize + FVector2D(FMath::Abs(Shadow.X), FMath::Abs(Shadow.Y));
}

void UTextBlock::PaintSelf(FSlateWindowElementList& OutDrawElements, const FGeometry& Geometry, float Opacity) const
{
	const FString String = GetText().ToString();
	if (String.IsEmpty())
	{
		return;
	}
	FVector2D Position = Geometry.GetAbsolutePosition();
	if (Justification != ETextJustify::Left)
	{
		// The slot may give more room than the text needs; justification places the text (its
		// measured box, the shadow left out) in it. Asking for the desired size brings the
		// measurement up to date.
		ComputeDesiredSize();
		const double Spare = Geometry.GetLocalSize().X - MeasuredSize.X;
		Position.X += Justification == ETextJustify::Center ? Spare * 0.5 : Spare;
	}
	FSlateDrawElement::MakeText(OutDrawElements, Position, String, GetFont(), GetColorAndOpacity().GetSpecifiedColor(), Opacity, GetShadowOffset(), GetShadowColorAndOpacity());
}
