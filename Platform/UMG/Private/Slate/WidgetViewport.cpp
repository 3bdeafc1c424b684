#include "Slate/WidgetViewport.h"

#include "Blueprint/UserWidget.h"
#include "Components/ComboBoxString.h"
#include "Slate/WidgetHierarchy.h"

namespace
{
	/** False for widgets that are not drawn, so neither they nor their children tick. */
	bool IsShown(const UWidget* Widget)
	{
		const ESlateVisibility Visibility = Widget->GetVisibility();
		return Visibility != ESlateVisibility::Collapsed && Visibility != ESlateVisibility::Hidden;
	}

	/** The user widgets that tick this frame: constructed, shown, parents before children. */
	void CollectTickable(UWidget* Widget, TArray<TWeakObjectPtr<UUserWidget>>& Out)
	{
		if (!Widget || !IsShown(Widget))
		{
			return;
		}
		if (UUserWidget* AsUserWidget = Cast<UUserWidget>(Widget))
		{
			Out.Add(AsUserWidget);
		}
		TArray<UWidget*> Children;
		FWidgetHierarchy::GetChildren(Widget, Children);
		for (UWidget* Child : Children)
		{
			CollectTickable(Child, Out);
		}
	}
}

FWidgetViewport& FWidgetViewport::Get()
{
	// Never destroyed: widgets may still ask for it while the process shuts down.
	static FWidgetViewport* Instance = new FWidgetViewport();
	return *Instance;
}

void FWidgetViewport::AddWidget(UUserWidget* Widget, int32 ZOrder)
{
	if (!Widget || ContainsWidget(Widget))
	{
		return;
	}
	// Above every widget of a lower or equal ZOrder, below the higher ones.
	int32 InsertAt = Entries.Num();
	while (InsertAt > 0 && Entries[InsertAt - 1].ZOrder > ZOrder)
	{
		--InsertAt;
	}
	Entries.Insert(FEntry{ Widget, ZOrder }, InsertAt);
	NotifyAttached(Widget);
}

bool FWidgetViewport::RemoveWidget(UUserWidget* Widget)
{
	for (int32 Index = 0; Index < Entries.Num(); ++Index)
	{
		if (Entries[Index].Widget.Get() == Widget)
		{
			Entries.RemoveAt(Index);
			NotifyDetached(Widget, nullptr);
			return true;
		}
	}
	return false;
}

bool FWidgetViewport::ContainsWidget(const UUserWidget* Widget) const
{
	for (const FEntry& Entry : Entries)
	{
		if (Entry.Widget.Get() == Widget)
		{
			return true;
		}
	}
	return false;
}

TArray<UUserWidget*> FWidgetViewport::GetWidgets() const
{
	TArray<UUserWidget*> Result;
	for (const FEntry& Entry : Entries)
	{
		Result.Add(Entry.Widget.Get());
	}
	return Result;
}

void FWidgetViewport::QueueComboSelection(UComboBoxString* Combo, const FString& Option)
{
	Queue.Add({ EInput::ComboSelect, FVector2D::ZeroVector, Combo, Option });
}

void FWidgetViewport::NotifyAttached(UWidget* Widget)
{
	if (!Widget || !FWidgetHierarchy::IsOnScreen(Widget))
	{
		return;
	}
	// Children first: a user widget's tree is built (and its children constructed) before its
	// own construct runs, as when the engine builds a widget's Slate side. A widget still held
	// since it left is still constructed, and is only taken off the list of those to destruct.
	TArray<UUserWidget*> UserWidgets;
	FWidgetHierarchy::CollectUserWidgets(Widget, false, UserWidgets);
	for (UUserWidget* UserWidget : UserWidgets)
	{
		HeldOffScreen.Remove(UserWidget);
		if (!UserWidget->bConstructed && FWidgetHierarchy::IsOnScreen(UserWidget))
		{
			UserWidget->bConstructed = true;
			UserWidget->NativeConstruct();
		}
	}
}

void FWidgetViewport::NotifyDetached(UWidget* Widget, const UWidget* FormerParent)
{
	if (!Widget)
	{
		return;
	}
	// A widget off screen has no Slate side and so no geometry; back on screen, it waits for the
	// next layout like a new widget.
	FWidgetHierarchy::ResetGeometry(Widget);
	if (FWidgetHierarchy::IsOnScreen(Widget))
	{
		return;
	}
	// Parents first: a widget's destruct runs as its Slate side goes, and that releases its tree.
	TArray<UUserWidget*> UserWidgets;
	FWidgetHierarchy::CollectUserWidgets(Widget, true, UserWidgets);
	if (!IsHeld(Widget, FormerParent))
	{
		DestructOffScreen(UserWidgets);
		return;
	}
	for (UUserWidget* UserWidget : UserWidgets)
	{
		if (UserWidget->bConstructed)
		{
			HeldOffScreen.AddUnique(UserWidget);
		}
	}
}

bool FWidgetViewport::IsHeld(const UWidget* Widget, const UWidget* FormerParent) const
{
	for (const TWeakObjectPtr<UWidget>& OnPath : EventPath)
	{
		if (OnPath.Get() == Widget)
		{
			return true;
		}
	}
	const UWidget* Ticking = TickingWidget.Get();
	if (!Ticking)
	{
		return false;
	}
	// The tick runs inside the paint of the ticking widget, whose ancestors are painting their
	// arranged children: those hold the widget itself, its ancestors and their other children
	// (the viewport's widgets among them), but not yet the ticking widget's own children.
	if (!FormerParent)
	{
		return true;
	}
	for (const UWidget* Current = Ticking; Current; Current = FWidgetHierarchy::GetParent(Current))
	{
		if (Current == Widget || (Current != Ticking && Current == FormerParent))
		{
			return true;
		}
	}
	return false;
}

void FWidgetViewport::DestructOffScreen(const TArray<UUserWidget*>& UserWidgets)
{
	// A destruct may take further widgets off; those left constructed are checked again here.
	for (UUserWidget* UserWidget : UserWidgets)
	{
		if (IsValid(UserWidget) && UserWidget->bConstructed && !FWidgetHierarchy::IsOnScreen(UserWidget))
		{
			UserWidget->bConstructed = false;
			UserWidget->NativeDestruct();
		}
	}
}

void FWidgetViewport::ReleaseHeld()
{
	EventPath.Reset();
	TickingWidget.Reset();
	TArray<UUserWidget*> Released;
	for (const TObjectPtr<UUserWidget>& Held : HeldOffScreen)
	{
		Released.Add(Held.Get());
	}
	HeldOffScreen.Reset();
	DestructOffScreen(Released);
}

void FWidgetViewport::TickWidgets(float DeltaSeconds)
{
	TArray<TWeakObjectPtr<UUserWidget>> Tickable;
	for (const FEntry& Entry : Entries)
	{
		CollectTickable(Entry.Widget.Get(), Tickable);
	}
	// A tick may add or remove widgets: those added are ticked from the next frame, those gone
	// (or off screen now) are skipped.
	TArray<TWeakObjectPtr<UUserWidget>> Ticked;
	for (const TWeakObjectPtr<UUserWidget>& Weak : Tickable)
	{
		UUserWidget* Widget = Weak.Get();
		if (Widget && Widget->bConstructed && FWidgetHierarchy::IsOnScreen(Widget))
		{
			TickingWidget = Widget;
			Widget->NativeTick(Widget->GetCachedGeometry(), DeltaSeconds);
			Ticked.Add(Weak);
		}
	}
	// The paint pass the ticks belong to is over: what it held and is off screen now goes.
	ReleaseHeld();
	for (const TWeakObjectPtr<UUserWidget>& Weak : Ticked)
	{
		if (UUserWidget* Widget = Weak.Get())
		{
			Widget->TickAnimations(DeltaSeconds);
		}
	}
}

void FWidgetViewport::FinishFrame()
{
	ReleaseHeld();
}

void FWidgetViewport::Reset()
{
	while (Entries.Num() > 0)
	{
		RemoveWidget(Entries.Last().Widget.Get());
	}
	FinishFrame();
	Queue.Reset();
	HoveredPath.Reset();
	CapturedWidget.Reset();
	bHasPointerPosition = false;
	LastPointerPosition = FVector2D::ZeroVector;
}

void FWidgetViewport::AddReferencedObjects(FReferenceCollector& Collector)
{
	for (const FEntry& Entry : Entries)
	{
		Collector.AddReferencedObject(Entry.Widget);
	}
	Collector.AddReferencedObjects(HeldOffScreen);
}
