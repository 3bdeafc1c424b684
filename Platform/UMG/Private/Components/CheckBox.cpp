#include "Components/CheckBox.h"
#include "Components/DefaultWidgetStyle.h"
#include "Rendering/SlateDrawList.h"

#include "Components/PanelSlot.h"
#include "Components/SlotArrangement.h"
#include "Slate/ArrangedChildWidget.h"

namespace
{
	/** Side of the square box the check mark is drawn in, as the default style's image. */
	constexpr double CheckBoxImageSize = 16.0;
}

// The check box's own accessors are where its deprecated member may still be named.
PRAGMA_DISABLE_DEPRECATION_WARNINGS

UCheckBox::UCheckBox() = default;

UCheckBox::~UCheckBox() = default;

bool UCheckBox::IsChecked() const
{
	return CheckedState == ECheckBoxState::Checked;
}

ECheckBoxState UCheckBox::GetCheckedState() const
{
	return CheckedState;
}

void UCheckBox::SetIsChecked(bool InIsChecked)
{
	CheckedState = InIsChecked ? ECheckBoxState::Checked : ECheckBoxState::Unchecked;
}

void UCheckBox::SetCheckedState(ECheckBoxState InCheckedState)
{
	CheckedState = InCheckedState;
}

PRAGMA_ENABLE_DEPRECATION_WARNINGS

FVector2D UCheckBox::ComputeDesiredSize() const
{
	const UWidget* Content = GetContent();
	if (!UE::UMG::TakesRoom(Content))
	{
		return FVector2D(CheckBoxImageSize, CheckBoxImageSize);
	}
	const FVector2D ContentSize = Content->GetDesiredSize();
	return FVector2D(CheckBoxImageSize + ContentSize.X, FMath::Max(CheckBoxImageSize, ContentSize.Y));
}

void UCheckBox::ArrangeChildren(const FGeometry& AllottedGeometry, TArray<FArrangedChildWidget>& OutChildren) const
{
	UWidget* Content = GetContent();
	if (UE::UMG::TakesRoom(Content))
	{
		const FVector2D Size = AllottedGeometry.GetLocalSize();
		OutChildren.Add({ Content, AllottedGeometry.MakeChild(FVector2D(CheckBoxImageSize, 0.0), FVector2D(FMath::Max(0.0, Size.X - CheckBoxImageSize), Size.Y)) });
	}
}

bool UCheckBox::HandlePointerPressed(const FGeometry& MyGeometry, const FPointerEvent& Event)
{
	bPressed = true;
	return true;
}

void UCheckBox::HandlePointerReleased(const FGeometry& MyGeometry, const FPointerEvent& Event, bool bInside)
{
	bPressed = false;
	if (!bInside)
	{
		return;
	}
	// A click toggles; an undetermined box becomes checked.
	SetIsChecked(!IsChecked());
	OnCheckStateChanged.Broadcast(IsChecked());
}

void UCheckBox::PaintSelf(FSlateWindowElementList& OutDrawElements, const FGeometry& Geometry, float Opacity) const
{
	// The 16 x 16 box sits at the left, centred vertically; any content is laid out beside it.
	const FPaintRect Box = FPaintRect::FromBox(Geometry.GetAbsolutePosition(), Geometry.GetLocalSize());
	const int32 Top = (Box.Top + Box.Bottom) / 2 - 8;
	const FPaintRect Square{Box.Left, Top, Box.Left + 16, Top + 16};
	FSlateDrawElement::MakeBox(OutDrawElements, Square, DefaultWidgetStyle::BoxInside, Opacity);
	FSlateDrawElement::MakeFrame(OutDrawElements, Square, 1, DefaultWidgetStyle::BoxEdge, Opacity);
	const FVector2D Origin(Square.Left, Square.Top);
	switch (GetCheckedState())
	{
	case ECheckBoxState::Checked:
		FSlateDrawElement::MakeLine(OutDrawElements, Origin + FVector2D(3.5, 8.5), Origin + FVector2D(6.5, 11.5), 2.0f, DefaultWidgetStyle::Tick, Opacity);
		FSlateDrawElement::MakeLine(OutDrawElements, Origin + FVector2D(6.5, 11.5), Origin + FVector2D(12.5, 4.5), 2.0f, DefaultWidgetStyle::Tick, Opacity);
		break;
	case ECheckBoxState::Undetermined:
		FSlateDrawElement::MakeBox(OutDrawElements, {Square.Left + 4, Square.Top + 7, Square.Right - 4, Square.Top + 9}, DefaultWidgetStyle::Tick, Opacity);
		break;
	default:
		break;
	}
}
