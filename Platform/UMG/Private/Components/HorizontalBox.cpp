#include "Components/HorizontalBox.h"

#include "Components/HorizontalBoxSlot.h"
#include "Components/BoxPanelLayout.h"

UHorizontalBoxSlot* UHorizontalBox::AddChildToHorizontalBox(UWidget* Content)
{
	return Cast<UHorizontalBoxSlot>(AddChild(Content));
}

UClass* UHorizontalBox::GetSlotClass() const
{
	return UHorizontalBoxSlot::StaticClass();
}

FVector2D UHorizontalBox::ComputeDesiredSize() const
{
	return UE::UMG::ComputeBoxDesiredSize<UHorizontalBoxSlot>(Slots, 0);
}

void UHorizontalBox::ArrangeChildren(const FGeometry& AllottedGeometry, TArray<FArrangedChildWidget>& OutChildren) const
{
	UE::UMG::ArrangeBoxChildren<UHorizontalBoxSlot>(Slots, 0, AllottedGeometry, OutChildren);
}
