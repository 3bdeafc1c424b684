#include "Components/Widget.h"

#include "Components/PanelSlot.h"
#include "Components/PanelWidget.h"

void UWidget::SetVisibility(ESlateVisibility InVisibility)
{
	Visibility = InVisibility;
}

bool UWidget::IsVisible() const
{
	return Visibility != ESlateVisibility::Collapsed && Visibility != ESlateVisibility::Hidden;
}

UPanelWidget* UWidget::GetParent() const
{
	return Slot ? Slot->Parent.Get() : nullptr;
}

void UWidget::RemoveFromParent()
{
	if (UPanelWidget* Parent = GetParent())
	{
		Parent->RemoveChild(this);
	}
}
