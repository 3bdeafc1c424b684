#pragma once

// Alignment and padding arithmetic shared by the panels: where a child of a given desired size
// lands in the room its slot gives it.

#include "CoreMinimal.h"
#include "Components/Widget.h"
#include "Layout/Margin.h"
#include "Types/SlateEnums.h"

namespace UE::UMG
{
	/** Offset and size along one axis of a child in Room, after the padding on both sides. */
	inline void AlignAxis(double Room, double Desired, double PadStart, double PadEnd, bool bFill, double Fraction, double& OutOffset, double& OutSize)
	{
		const double Inner = FMath::Max(0.0, Room - PadStart - PadEnd);
		OutSize = bFill ? Inner : FMath::Min(Desired, Inner);
		OutOffset = PadStart + (Inner - OutSize) * Fraction;
	}

	/** A child's box inside a slot box at SlotOffset of SlotSize, by padding and alignment. */
	inline FGeometry AlignChild(const FGeometry& Parent, const FVector2D& SlotOffset, const FVector2D& SlotSize, const FVector2D& ChildDesired,
		const FMargin& Padding, EHorizontalAlignment HAlign, EVerticalAlignment VAlign)
	{
		const double HFraction = HAlign == HAlign_Center ? 0.5 : (HAlign == HAlign_Right ? 1.0 : 0.0);
		const double VFraction = VAlign == VAlign_Center ? 0.5 : (VAlign == VAlign_Bottom ? 1.0 : 0.0);
		double X = 0.0, Width = 0.0, Y = 0.0, Height = 0.0;
		AlignAxis(SlotSize.X, ChildDesired.X, Padding.Left, Padding.Right, HAlign == HAlign_Fill, HFraction, X, Width);
		AlignAxis(SlotSize.Y, ChildDesired.Y, Padding.Top, Padding.Bottom, VAlign == VAlign_Fill, VFraction, Y, Height);
		return Parent.MakeChild(SlotOffset + FVector2D(X, Y), FVector2D(Width, Height));
	}

	/** True for children that take part in layout. */
	inline bool TakesRoom(const UWidget* Child)
	{
		return Child && Child->GetVisibility() != ESlateVisibility::Collapsed;
	}
}
