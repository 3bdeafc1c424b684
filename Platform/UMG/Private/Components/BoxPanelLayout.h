#pragma once

// The layout shared by horizontal and vertical boxes, written once along a main axis (0 for X,
// 1 for Y): automatic slots take their desired length, fill slots share what is left by value.

#include "CoreMinimal.h"
#include "Components/PanelSlot.h"
#include "Components/SlateWrapperTypes.h"
#include "Components/SlotArrangement.h"
#include "Slate/ArrangedChildWidget.h"

namespace UE::UMG
{
	/** Desired size of a box: lengths add up along the axis, the largest counts across it. */
	template<class SlotType>
	FVector2D ComputeBoxDesiredSize(const TArray<TObjectPtr<UPanelSlot>>& Slots, int32 Axis)
	{
		FVector2D Desired = FVector2D::ZeroVector;
		for (const TObjectPtr<UPanelSlot>& PanelSlot : Slots)
		{
			const SlotType* BoxSlot = static_cast<const SlotType*>(PanelSlot.Get());
			if (!TakesRoom(BoxSlot->Content.Get()))
			{
				continue;
			}
			const FVector2D ChildSize = BoxSlot->Content->GetDesiredSize() + BoxSlot->Padding.GetDesiredSize();
			Desired[Axis] += ChildSize[Axis];
			Desired[1 - Axis] = FMath::Max(Desired[1 - Axis], ChildSize[1 - Axis]);
		}
		return Desired;
	}

	/** Gives each child of a box its stretch of the main axis and aligns it inside. */
	template<class SlotType>
	void ArrangeBoxChildren(const TArray<TObjectPtr<UPanelSlot>>& Slots, int32 Axis, const FGeometry& Allotted, TArray<FArrangedChildWidget>& Out)
	{
		const FVector2D Room = Allotted.GetLocalSize();
		double FixedLength = 0.0;
		double FillTotal = 0.0;
		for (const TObjectPtr<UPanelSlot>& PanelSlot : Slots)
		{
			const SlotType* BoxSlot = static_cast<const SlotType*>(PanelSlot.Get());
			if (!TakesRoom(BoxSlot->Content.Get()))
			{
				continue;
			}
			FixedLength += BoxSlot->Padding.GetDesiredSize()[Axis];
			if (BoxSlot->Size.SizeRule == ESlateSizeRule::Fill)
			{
				FillTotal += BoxSlot->Size.Value;
			}
			else
			{
				FixedLength += BoxSlot->Content->GetDesiredSize()[Axis];
			}
		}
		const double FreeLength = FMath::Max(0.0, Room[Axis] - FixedLength);
		double Cursor = 0.0;
		for (const TObjectPtr<UPanelSlot>& PanelSlot : Slots)
		{
			const SlotType* BoxSlot = static_cast<const SlotType*>(PanelSlot.Get());
			UWidget* Child = BoxSlot->Content.Get();
			if (!TakesRoom(Child))
			{
				continue;
			}
			const FVector2D Desired = Child->GetDesiredSize();
			const double Content = BoxSlot->Size.SizeRule == ESlateSizeRule::Fill
				? (FillTotal > 0.0 ? FreeLength * BoxSlot->Size.Value / FillTotal : 0.0)
				: Desired[Axis];
			FVector2D SlotOffset = FVector2D::ZeroVector;
			FVector2D SlotSize = Room;
			SlotOffset[Axis] = Cursor;
			SlotSize[Axis] = Content + BoxSlot->Padding.GetDesiredSize()[Axis];
			Cursor += SlotSize[Axis];
			Out.Add({ Child, AlignChild(Allotted, SlotOffset, SlotSize, Desired, BoxSlot->Padding, BoxSlot->HorizontalAlignment, BoxSlot->VerticalAlignment) });
		}
	}
}
