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
			NotifyDetached(Widget);
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
	// own construct runs, as when the engine builds a widget's Slate side.
	TArray<UUserWidget*> UserWidgets;
	FWidgetHierarchy::CollectUserWidgets(Widget, false, UserWidgets);
	for (UUserWidget* UserWidget : UserWidgets)
	{
		LeftScreen.Remove(UserWidget);
		if (!UserWidget->bConstructed && FWidgetHierarchy::IsOnScreen(UserWidget))
		{
			UserWidget->bConstructed = true;
			UserWidget->NativeConstruct();
		}
	}
}

void FWidgetViewport::NotifyDetached(UWidget* Widget)
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
	TArray<UUserWidget*> UserWidgets;
	FWidgetHierarchy::CollectUserWidgets(Widget, true, UserWidgets);
	for (UUserWidget* UserWidget : UserWidgets)
	{
		if (UserWidget->bConstructed)
		{
			LeftScreen.AddUnique(UserWidget);
		}
	}
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
			Widget->NativeTick(Widget->GetCachedGeometry(), DeltaSeconds);
			Ticked.Add(Weak);
		}
	}
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
	TArray<TObjectPtr<UUserWidget>> Candidates = MoveTemp(LeftScreen);
	LeftScreen.Reset();
	for (const TObjectPtr<UUserWidget>& Candidate : Candidates)
	{
		UUserWidget* Widget = Candidate.Get();
		if (IsValid(Widget) && Widget->bConstructed && !FWidgetHierarchy::IsOnScreen(Widget))
		{
			Widget->bConstructed = false;
			Widget->NativeDestruct();
		}
	}
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
	Collector.AddReferencedObjects(LeftScreen);
}
