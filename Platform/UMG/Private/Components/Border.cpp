#include "Components/Border.h"
#include "Rendering/SlateDrawList.h"

#include "Components/BorderSlot.h"
#include "Components/SingleChildLayout.h"

// The border's own accessors are where its deprecated member may still be named.
PRAGMA_DISABLE_DEPRECATION_WARNINGS

UBorder::UBorder() = default;

UBorder::~UBorder() = default;

FLinearColor UBorder::GetBrushColor() const
{
	return BrushColor;
}

void UBorder::SetBrushColor(FLinearColor InBrushColor)
{
	BrushColor = InBrushColor;
}

PRAGMA_ENABLE_DEPRECATION_WARNINGS

void UBorder::SetBrush(const FSlateBrush& InBrush)
{
	Background = InBrush;
}

FMargin UBorder::GetPadding() const
{
	const UBorderSlot* ContentSlot = Cast<UBorderSlot>(GetContentSlot());
	return ContentSlot ? ContentSlot->Padding : FMargin();
}

void UBorder::SetPadding(FMargin InPadding)
{
	if (UBorderSlot* ContentSlot = Cast<UBorderSlot>(GetContentSlot()))
	{
		ContentSlot->SetPadding(InPadding);
	}
}

UClass* UBorder::GetSlotClass() const
{
	return UBorderSlot::StaticClass();
}

FVector2D UBorder::ComputeDesiredSize() const
{
	return UE::UMG::PaddedContentSize<UBorderSlot>(Slots);
}

void UBorder::ArrangeChildren(const FGeometry& AllottedGeometry, TArray<FArrangedChildWidget>& OutChildren) const
{
	UE::UMG::ArrangeContent<UBorderSlot>(Slots, AllottedGeometry, OutChildren);
}

void UBorder::PaintSelf(FSlateWindowElementList& OutDrawElements, const FGeometry& Geometry, float Opacity) const
{
	FSlateDrawElement::MakeBox(OutDrawElements, FPaintRect::FromBox(Geometry.GetAbsolutePosition(), Geometry.GetLocalSize()), Background, GetBrushColor(), Opacity);
}
