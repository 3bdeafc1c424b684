#include "Blueprint/WidgetTree.h"

#include "Blueprint/UserWidget.h"
#include "Components/PanelWidget.h"
#include "UMGLog.h"

namespace
{
	/** Widget and the widgets of its panels, parents first; user widgets are not entered. */
	void VisitTree(UWidget* Widget, TFunctionRef<void(UWidget*)> Predicate)
	{
		if (!Widget)
		{
			return;
		}
		Predicate(Widget);
		if (const UPanelWidget* Panel = Cast<UPanelWidget>(Widget))
		{
			for (UWidget* Child : Panel->GetAllChildren())
			{
				VisitTree(Child, Predicate);
			}
		}
	}
}

UWidget* UWidgetTree::FindWidget(const FName& Name) const
{
	UWidget* Found = nullptr;
	ForEachWidget([&Found, &Name](UWidget* Widget)
	{
		if (!Found && Widget->GetFName() == Name)
		{
			Found = Widget;
		}
	});
	return Found;
}

void UWidgetTree::ForEachWidget(TFunctionRef<void(UWidget*)> Predicate) const
{
	VisitTree(RootWidget.Get(), Predicate);
}

void UWidgetTree::GetAllWidgets(TArray<UWidget*>& Widgets) const
{
	ForEachWidget([&Widgets](UWidget* Widget) { Widgets.Add(Widget); });
}

UWidget* UWidgetTree::ConstructWidgetOfClass(UClass* WidgetClass, FName WidgetName)
{
	if (!WidgetClass || !WidgetClass->IsChildOf(UWidget::StaticClass()))
	{
		UE_LOG(LogUMG, Error, TEXT("ConstructWidget: %s is not a widget class"), WidgetClass ? *WidgetClass->GetPathName() : TEXT("a null class"));
		return nullptr;
	}
	if (WidgetClass->IsChildOf(UUserWidget::StaticClass()))
	{
		return UUserWidget::CreateWidgetInstance(*this, WidgetClass, WidgetName);
	}
	if (WidgetClass->HasAnyClassFlags(CLASS_Abstract))
	{
		UE_LOG(LogUMG, Error, TEXT("ConstructWidget: %s is abstract"), *WidgetClass->GetPathName());
		return nullptr;
	}
	return NewObject<UWidget>(this, WidgetClass, WidgetName);
}
