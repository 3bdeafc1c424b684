#include "Components/SizeBox.h"

#include "Components/SingleChildLayout.h"
#include "Components/SizeBoxSlot.h"

UClass* USizeBox::GetSlotClass() const
{
	return USizeBoxSlot::StaticClass();
}

FVector2D USizeBox::ComputeDesiredSize() const
{
	FVector2D Desired = UE::UMG::PaddedContentSize<USizeBoxSlot>(Slots);
	if (bOverride_WidthOverride)
	{
		Desired.X = WidthOverride;
	}
	if (bOverride_HeightOverride)
	{
		Desired.Y = HeightOverride;
	}
	return Desired;
}

void USizeBox::ArrangeChildren(const FGeometry& AllottedGeometry, TArray<FArrangedChildWidget>& OutChildren) const
{
	UE::UMG::ArrangeContent<USizeBoxSlot>(Slots, AllottedGeometry, OutChildren);
}
