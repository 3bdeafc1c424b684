#pragma once

// Layout of panels with one child in a padded, aligned slot (border, button, size box).

#include "CoreMinimal.h"
#include "Components/PanelSlot.h"
#include "Components/SlotArrangement.h"
#include "Slate/ArrangedChildWidget.h"

namespace UE::UMG
{
	/** The child's desired size plus its slot's padding; zero without a child. */
	template<class SlotType>
	FVector2D PaddedContentSize(const TArray<TObjectPtr<UPanelSlot>>& Slots)
	{
		if (Slots.Num() == 0 || !TakesRoom(Slots[0]->Content.Get()))
		{
			return FVector2D::ZeroVector;
		}
		const SlotType* ContentSlot = static_cast<const SlotType*>(Slots[0].Get());
		return ContentSlot->Content->GetDesiredSize() + ContentSlot->Padding.GetDesiredSize();
	}

	/** Places the child over the whole allotted box, by its slot's padding and alignment. */
	template<class SlotType>
	void ArrangeContent(const TArray<TObjectPtr<UPanelSlot>>& Slots, const FGeometry& Allotted, TArray<FArrangedChildWidget>& Out)
	{
		if (Slots.Num() == 0 || !TakesRoom(Slots[0]->Content.Get()))
		{
			return;
		}
		const SlotType* ContentSlot = static_cast<const SlotType*>(Slots[0].Get());
		UWidget* Child = ContentSlot->Content.Get();
		Out.Add({ Child, AlignChild(Allotted, FVector2D::ZeroVector, Allotted.GetLocalSize(), Child->GetDesiredSize(),
			ContentSlot->Padding, ContentSlot->HorizontalAlignment, ContentSlot->VerticalAlignment) });
	}
}
