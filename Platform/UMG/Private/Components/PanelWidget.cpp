#include "Components/PanelWidget.h"

#include "Components/PanelSlot.h"
#include "Slate/WidgetViewport.h"

UPanelSlot* UPanelWidget::AddChild(UWidget* Content)
{
	if (!Content)
	{
		return nullptr;
	}
	// A widget has one place: out of its panel (this one included) or the viewport first.
	Content->RemoveFromParent();
	if (!CanHaveMultipleChildren() && Slots.Num() > 0)
	{
		return nullptr;
	}
	UPanelSlot* NewSlot = NewObject<UPanelSlot>(this, GetSlotClass());
	NewSlot->Parent = this;
	NewSlot->Content = Content;
	Content->Slot = NewSlot;
	Slots.Add(NewSlot);
	FWidgetViewport::Get().NotifyAttached(Content);
	return NewSlot;
}

int32 UPanelWidget::GetChildIndex(const UWidget* Content) const
{
	for (int32 Index = 0; Index < Slots.Num(); ++Index)
	{
		if (Slots[Index]->Content.Get() == Content)
		{
			return Index;
		}
	}
	return INDEX_NONE;
}

UWidget* UPanelWidget::GetChildAt(int32 Index) const
{
	return Slots.IsValidIndex(Index) ? Slots[Index]->Content.Get() : nullptr;
}

TArray<UWidget*> UPanelWidget::GetAllChildren() const
{
	TArray<UWidget*> Children;
	for (const TObjectPtr<UPanelSlot>& PanelSlot : Slots)
	{
		Children.Add(PanelSlot->Content.Get());
	}
	return Children;
}

bool UPanelWidget::RemoveChild(UWidget* Content)
{
	return RemoveChildAt(GetChildIndex(Content));
}

bool UPanelWidget::RemoveChildAt(int32 Index)
{
	if (!Slots.IsValidIndex(Index))
	{
		return false;
	}
	UPanelSlot* OldSlot = Slots[Index].Get();
	Slots.RemoveAt(Index);
	UWidget* Content = OldSlot->Content.Get();
	OldSlot->Parent = nullptr;
	OldSlot->Content = nullptr;
	if (Content)
	{
		Content->Slot = nullptr;
		FWidgetViewport::Get().NotifyDetached(Content, this);
	}
	return true;
}

void UPanelWidget::ClearChildren()
{
	while (Slots.Num() > 0)
	{
		RemoveChildAt(Slots.Num() - 1);
	}
}

UClass* UPanelWidget::GetSlotClass() const
{
	return UPanelSlot::StaticClass();
}

void UPanelWidget::GetLayoutChildren(TArray<UWidget*>& OutChildren) const
{
	for (const TObjectPtr<UPanelSlot>& PanelSlot : Slots)
	{
		if (UWidget* Child = PanelSlot->Content.Get())
		{
			OutChildren.Add(Child);
		}
	}
}
