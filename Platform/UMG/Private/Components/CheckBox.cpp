#include "Components/CheckBox.h"

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
