#include "Components/VerticalBox.h"

#include "Components/VerticalBoxSlot.h"
#include "Components/BoxPanelLayout.h"

UVerticalBoxSlot* UVerticalBox::AddChildToVerticalBox(UWidget* Content)
{
	return Cast<UVerticalBoxSlot>(AddChild(Content));
}

UClass* UVerticalBox::GetSlotClass() const
{
	return UVerticalBoxSlot::StaticClass();
}

FVector2D UVerticalBox::ComputeDesiredSize() const
{
	return UE::UMG::ComputeBoxDesiredSize<UVerticalBoxSlot>(Slots, 1);
}

void UVerticalBox::ArrangeChildren(const FGeometry& AllottedGeometry, TArray<FArrangedChildWidget>& OutChildren) const
{
	UE::UMG::ArrangeBoxChildren<UVerticalBoxSlot>(Slots, 1, AllottedGeometry, OutChildren);
}
