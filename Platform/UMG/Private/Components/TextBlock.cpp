#include "Components/TextBlock.h"

#include "Fonts/FontMeasure.h"

void UTextBlock::SetText(FText InText)
{
	Text = InText;
	bMeasureValid = false;
}

void UTextBlock::SetFont(FSlateFontInfo InFontInfo)
{
	Font = InFontInfo;
	bMeasureValid = false;
}

void UTextBlock::SetShadowOffset(FVector2D InShadowOffset)
{
	ShadowOffset = InShadowOffset;
}

void UTextBlock::SetShadowColorAndOpacity(FLinearColor InShadowColorAndOpacity)
{
	ShadowColorAndOpacity = InShadowColorAndOpacity;
}

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
		MeasuredSize = FSlateFontMeasure::Get().Measure(Text.ToString(), Font);
		bMeasureValid = true;
	}
	return MeasuredSize + FVector2D(FMath::Abs(ShadowOffset.X), FMath::Abs(ShadowOffset.Y));
}
