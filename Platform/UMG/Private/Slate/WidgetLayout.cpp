// The viewport's layout pass and paint order. Layout is two passes over the on-screen widgets, as
// Slate's: desired sizes bottom-up (each panel reads its children's), then arrangement top-down
// (each panel gives its children their boxes), storing every widget's cached geometry.

#include "Slate/WidgetViewport.h"

#include "Blueprint/UserWidget.h"
#include "Slate/ArrangedChildWidget.h"
#include "Slate/WidgetHierarchy.h"

/** Runs the two layout passes; a friend of UWidget so it can store sizes and geometry. */
class FWidgetLayout
{
public:
	static void CacheDesiredSize(UWidget* Widget)
	{
		TArray<UWidget*> Children;
		Widget->GetLayoutChildren(Children);
		for (UWidget* Child : Children)
		{
			CacheDesiredSize(Child);
		}
		// A collapsed widget takes no room; a hidden one still does.
		Widget->DesiredSize = Widget->GetVisibility() == ESlateVisibility::Collapsed ? FVector2D::ZeroVector : Widget->ComputeDesiredSize();
	}

	static void Arrange(UWidget* Widget, const FGeometry& Geometry)
	{
		Widget->CachedGeometry = Geometry;
		Widget->bLayoutInvalidated = false;
		TArray<FArrangedChildWidget> Arranged;
		Widget->ArrangeChildren(Geometry, Arranged);
		for (const FArrangedChildWidget& Child : Arranged)
		{
			Arrange(Child.Widget, Child.Geometry);
		}
	}

	static void Paint(UWidget* Widget, const FVector2D& ParentTranslation, float ParentOpacity,
		TFunctionRef<void(UWidget& Widget, const FGeometry& Geometry, float Opacity)> Visitor)
	{
		const ESlateVisibility Visibility = Widget->GetVisibility();
		if (Visibility == ESlateVisibility::Collapsed || Visibility == ESlateVisibility::Hidden)
		{
			return;
		}
		const FVector2D Translation = ParentTranslation + Widget->GetRenderTransform().Translation;
		const float Opacity = ParentOpacity * Widget->GetRenderOpacity();
		const FGeometry& Cached = Widget->CachedGeometry;
		Visitor(*Widget, FGeometry(Cached.GetAbsolutePosition() + Translation, Cached.GetLocalSize()), Opacity);
		TArray<UWidget*> Children;
		Widget->GetLayoutChildren(Children);
		for (UWidget* Child : Children)
		{
			Paint(Child, Translation, Opacity, Visitor);
		}
	}

	static void PaintSelf(const UWidget& Widget, FSlateWindowElementList& OutDrawElements, const FGeometry& Geometry, float Opacity);
};

void FWidgetLayout::PaintSelf(const UWidget& Widget, FSlateWindowElementList& OutDrawElements, const FGeometry& Geometry, float Opacity)
{
	// Nothing a widget draws at opacity 0 can show, so it is not asked.
	if (Opacity > 0.0f)
	{
		Widget.PaintSelf(OutDrawElements, Geometry, Opacity);
	}
}

void FWidgetViewport::Layout()
{
	const FGeometry ViewportGeometry(FVector2D::ZeroVector, ViewportSize);
	for (const FEntry& Entry : Entries)
	{
		UUserWidget* Widget = Entry.Widget.Get();
		FWidgetLayout::CacheDesiredSize(Widget);
		// A viewport widget fills the whole viewport; a collapsed one is not arranged.
		if (Widget->GetVisibility() != ESlateVisibility::Collapsed)
		{
			FWidgetLayout::Arrange(Widget, ViewportGeometry);
		}
	}
}

void FWidgetViewport::ForEachPaintedWidget(TFunctionRef<void(UWidget& Widget, const FGeometry& Geometry, float Opacity)> Visitor) const
{
	for (const FEntry& Entry : Entries)
	{
		FWidgetLayout::Paint(Entry.Widget.Get(), FVector2D::ZeroVector, 1.0f, Visitor);
	}
}

void FWidgetViewport::Paint(FSlateWindowElementList& OutDrawElements) const
{
	ForEachPaintedWidget([&OutDrawElements](UWidget& Widget, const FGeometry& Geometry, float Opacity) {
		FWidgetLayout::PaintSelf(Widget, OutDrawElements, Geometry, Opacity);
	});
}
