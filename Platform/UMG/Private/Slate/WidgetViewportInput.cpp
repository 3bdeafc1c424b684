// Pointer routing of the viewport: hit testing with the last layout's geometry, enter/leave/move
// for user widgets, and the press-capture-release cycle of buttons, check boxes and sliders.

#include "Slate/WidgetViewport.h"

#include "Blueprint/UserWidget.h"
#include "Components/ComboBoxString.h"
#include "Slate/WidgetHierarchy.h"

namespace
{
	/**
	 * Appends to OutPath the widgets from Widget down to the deepest hit one. Children are tried
	 * first, topmost first, whether or not the parent's own box contains the point, as Slate hit
	 * tests every widget by its own geometry.
	 */
	bool HitTestWidget(UWidget* Widget, const FVector2D& Position, TArray<UWidget*>& OutPath)
	{
		const ESlateVisibility Visibility = Widget->GetVisibility();
		if (Visibility == ESlateVisibility::Collapsed || Visibility == ESlateVisibility::Hidden || Visibility == ESlateVisibility::HitTestInvisible)
		{
			return false;
		}
		TArray<UWidget*> Children;
		FWidgetHierarchy::GetChildren(Widget, Children);
		for (int32 Index = Children.Num() - 1; Index >= 0; --Index)
		{
			if (HitTestWidget(Children[Index], Position, OutPath))
			{
				OutPath.Insert(Widget, 0);
				return true;
			}
		}
		if (Visibility == ESlateVisibility::SelfHitTestInvisible)
		{
			return false;
		}
		if (FWidgetHierarchy::GetPaintGeometry(Widget).IsUnderLocation(Position))
		{
			OutPath.Reset();
			OutPath.Add(Widget);
			return true;
		}
		return false;
	}

	bool PathContains(const TArray<TWeakObjectPtr<UWidget>>& Path, const UWidget* Widget)
	{
		for (const TWeakObjectPtr<UWidget>& Entry : Path)
		{
			if (Entry.Get() == Widget)
			{
				return true;
			}
		}
		return false;
	}
}

TArray<UWidget*> FWidgetViewport::HitTest(const FVector2D& Position) const
{
	TArray<UWidget*> Path;
	for (int32 Index = Entries.Num() - 1; Index >= 0; --Index)
	{
		if (HitTestWidget(Entries[Index].Widget.Get(), Position, Path))
		{
			return Path;
		}
	}
	return TArray<UWidget*>();
}

void FWidgetViewport::ProcessInput()
{
	// Handlers may queue more input; it is routed in this same pass, after what came before it.
	for (int32 Index = 0; Index < Queue.Num(); ++Index)
	{
		const FQueuedInput Input = Queue[Index];
		HoldEventPath(Input);
		switch (Input.Kind)
		{
		case EInput::Move:
			RoutePointerMove(Input.Position);
			break;
		case EInput::Press:
			RoutePointerPress(Input.Position);
			break;
		case EInput::Release:
			RoutePointerRelease(Input.Position);
			break;
		case EInput::ComboSelect:
			if (UComboBoxString* Combo = Input.Combo.Get())
			{
				Combo->SelectOption(Input.Option, ESelectInfo::OnMouseClick);
			}
			break;
		}
		ReleaseHeld();
	}
	Queue.Reset();
}

void FWidgetViewport::HoldEventPath(const FQueuedInput& Input)
{
	// Slate routes an event along a path of shared references to the widgets it concerns: those
	// under the pointer, those it was over before (for the leave events) and the one holding the
	// capture, each with its ancestors. Whatever a handler takes off screen lives on until the
	// event is done; put back in that time, it was never destructed.
	TArray<UWidget*> Roots;
	if (Input.Kind == EInput::ComboSelect)
	{
		Roots.Add(Input.Combo.Get());
	}
	else
	{
		Roots.Append(HitTest(Input.Position));
		for (const TWeakObjectPtr<UWidget>& Hovered : HoveredPath)
		{
			Roots.Add(Hovered.Get());
		}
		Roots.Add(CapturedWidget.Get());
	}
	EventPath.Reset();
	for (UWidget* Root : Roots)
	{
		for (UWidget* Current = Root; Current; Current = FWidgetHierarchy::GetParent(Current))
		{
			EventPath.AddUnique(Current);
		}
	}
}

void FWidgetViewport::RoutePointerMove(const FVector2D& Position)
{
	const FVector2D Last = bHasPointerPosition ? LastPointerPosition : Position;
	const FPointerEvent Event(Position, Last, CapturedWidget.IsValid());
	LastPointerPosition = Position;
	bHasPointerPosition = true;

	const TArray<UWidget*> NewPath = HitTest(Position);
	// Leaves first, deepest first; then enters, outermost first. A widget destructed since the
	// last event has lost its Slate side, and with it the leave.
	for (int32 Index = HoveredPath.Num() - 1; Index >= 0; --Index)
	{
		UUserWidget* Left = Cast<UUserWidget>(HoveredPath[Index].Get());
		if (Left && Left->bConstructed && !NewPath.Contains(Left))
		{
			Left->NativeOnMouseLeave(Event);
		}
	}
	const TArray<TWeakObjectPtr<UWidget>> OldPath = MoveTemp(HoveredPath);
	HoveredPath.Reset();
	for (UWidget* Widget : NewPath)
	{
		HoveredPath.Add(Widget);
		UUserWidget* Entered = Cast<UUserWidget>(Widget);
		if (Entered && !PathContains(OldPath, Entered))
		{
			Entered->NativeOnMouseEnter(Entered->GetCachedGeometry(), Event);
		}
	}
	// The move bubbles from the deepest user widget up until one handles it.
	for (int32 Index = NewPath.Num() - 1; Index >= 0; --Index)
	{
		UUserWidget* UserWidget = Cast<UUserWidget>(NewPath[Index]);
		if (UserWidget && IsValid(UserWidget) && UserWidget->NativeOnMouseMove(UserWidget->GetCachedGeometry(), Event).IsEventHandled())
		{
			break;
		}
	}
	if (UWidget* Captured = CapturedWidget.Get())
	{
		Captured->HandlePointerDragged(FWidgetHierarchy::GetPaintGeometry(Captured), Event);
	}
}

void FWidgetViewport::RoutePointerPress(const FVector2D& Position)
{
	// A press somewhere new is a move there first, so hover state matches the press.
	if (!bHasPointerPosition || !(Position == LastPointerPosition))
	{
		RoutePointerMove(Position);
	}
	const FPointerEvent Event(Position, Position, true);
	const TArray<UWidget*> Path = HitTest(Position);
	for (int32 Index = Path.Num() - 1; Index >= 0; --Index)
	{
		UWidget* Widget = Path[Index];
		if (FWidgetHierarchy::IsEnabledInHierarchy(Widget) && Widget->HandlePointerPressed(FWidgetHierarchy::GetPaintGeometry(Widget), Event))
		{
			CapturedWidget = Widget;
			break;
		}
	}
}

void FWidgetViewport::RoutePointerRelease(const FVector2D& Position)
{
	if (!bHasPointerPosition || !(Position == LastPointerPosition))
	{
		RoutePointerMove(Position);
	}
	UWidget* Captured = CapturedWidget.Get();
	CapturedWidget.Reset();
	if (!Captured)
	{
		return;
	}
	const FPointerEvent Event(Position, Position, false);
	const FGeometry Geometry = FWidgetHierarchy::GetPaintGeometry(Captured);
	const bool bInside = FWidgetHierarchy::IsOnScreen(Captured) && HitTest(Position).Contains(Captured);
	Captured->HandlePointerReleased(Geometry, Event, bInside);
}
