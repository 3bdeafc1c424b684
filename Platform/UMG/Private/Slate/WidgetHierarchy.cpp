#include "Slate/WidgetHierarchy.h"

#include "Blueprint/UserWidget.h"
#include "Blueprint/WidgetTree.h"
#include "Components/PanelSlot.h"
#include "Components/PanelWidget.h"
#include "Slate/WidgetViewport.h"

UWidget* FWidgetHierarchy::GetParent(const UWidget* Widget)
{
	if (!Widget)
	{
		return nullptr;
	}
	if (Widget->Slot && Widget->Slot->Parent)
	{
		return Widget->Slot->Parent.Get();
	}
	// A tree's root has no slot: its parent is the user widget the tree belongs to.
	if (const UWidgetTree* Tree = Cast<UWidgetTree>(Widget->GetOuter()))
	{
		if (Tree->RootWidget.Get() == Widget)
		{
			return Cast<UUserWidget>(Tree->GetOuter());
		}
	}
	return nullptr;
}

void FWidgetHierarchy::GetChildren(const UWidget* Widget, TArray<UWidget*>& OutChildren)
{
	OutChildren.Reset();
	if (Widget)
	{
		Widget->GetLayoutChildren(OutChildren);
	}
}

bool FWidgetHierarchy::IsOnScreen(const UWidget* Widget)
{
	const UWidget* Top = Widget;
	for (const UWidget* Parent = GetParent(Widget); Parent; Parent = GetParent(Parent))
	{
		Top = Parent;
	}
	const UUserWidget* TopUserWidget = Cast<UUserWidget>(Top);
	return TopUserWidget && FWidgetViewport::Get().ContainsWidget(TopUserWidget);
}

bool FWidgetHierarchy::IsEnabledInHierarchy(const UWidget* Widget)
{
	for (const UWidget* Current = Widget; Current; Current = GetParent(Current))
	{
		if (!Current->GetIsEnabled())
		{
			return false;
		}
	}
	return true;
}

FGeometry FWidgetHierarchy::GetPaintGeometry(const UWidget* Widget)
{
	if (!Widget)
	{
		return FGeometry();
	}
	FVector2D Translation = FVector2D::ZeroVector;
	for (const UWidget* Current = Widget; Current; Current = GetParent(Current))
	{
		Translation += Current->GetRenderTransform().Translation;
	}
	const FGeometry& Cached = Widget->GetCachedGeometry();
	return FGeometry(Cached.GetAbsolutePosition() + Translation, Cached.GetLocalSize());
}

void FWidgetHierarchy::ForEachWidget(UWidget* Root, TFunctionRef<void(UWidget*)> Visitor)
{
	if (!Root)
	{
		return;
	}
	Visitor(Root);
	TArray<UWidget*> Children;
	GetChildren(Root, Children);
	for (UWidget* Child : Children)
	{
		ForEachWidget(Child, Visitor);
	}
}

void FWidgetHierarchy::CollectUserWidgets(UWidget* Root, bool bParentsFirst, TArray<UUserWidget*>& Out)
{
	if (!Root)
	{
		return;
	}
	UUserWidget* AsUserWidget = Cast<UUserWidget>(Root);
	if (AsUserWidget && bParentsFirst)
	{
		Out.Add(AsUserWidget);
	}
	TArray<UWidget*> Children;
	GetChildren(Root, Children);
	for (UWidget* Child : Children)
	{
		CollectUserWidgets(Child, bParentsFirst, Out);
	}
	if (AsUserWidget && !bParentsFirst)
	{
		Out.Add(AsUserWidget);
	}
}

void FWidgetHierarchy::ResetGeometry(UWidget* Root)
{
	ForEachWidget(Root, [](UWidget* Widget) { Widget->CachedGeometry = FGeometry(); });
}
