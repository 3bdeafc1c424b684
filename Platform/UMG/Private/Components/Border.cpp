#include "Components/Border.h"

#include "Components/BorderSlot.h"
#include "Components/SingleChildLayout.h"

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
