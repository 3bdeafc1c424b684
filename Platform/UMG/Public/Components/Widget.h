#pragma once

// UWidget: the base of every UMG widget. A widget lives in a panel's slot, or is the root of a
// user widget's tree. Changes only mark layout dirty: sizes and positions are computed by the
// viewport's layout pass once a frame, so a widget added this frame has a zero cached geometry
// until the next pass (the engine's one-frame delay).

#include "CoreMinimal.h"
#include "UObject/Object.h"
#include "UObject/UObjectGlobals.h"
#include "UObject/ObjectPtr.h"
#include "Templates/Casts.h"
#include "Components/SlateWrapperTypes.h"
#include "Input/Events.h"
#include "Layout/Geometry.h"
#include "Slate/ArrangedChildWidget.h"
#include "Slate/WidgetTransform.h"
#include "Widget.generated.h"

class UPanelSlot;
class UPanelWidget;

/** The base of all widgets: visibility, enabled state, render opacity and transform, its slot. */
UCLASS(Abstract, BlueprintType)
class UMG_API UWidget : public UObject
{
	GENERATED_BODY()

public:
	UWidget() = default;
	/** For classes that pass their initializer on. */
	explicit UWidget(const FObjectInitializer& ObjectInitializer) : Super(ObjectInitializer) {}

	/** Sets whether the widget is drawn, takes room and can be hit. */
	UFUNCTION(BlueprintCallable, Category = "Widget")
	virtual void SetVisibility(ESlateVisibility InVisibility);
	/** Whether the widget is drawn, takes room and can be hit. */
	UFUNCTION(BlueprintCallable, Category = "Widget")
	ESlateVisibility GetVisibility() const { return Visibility; }
	/** True unless the widget is Collapsed or Hidden. */
	UFUNCTION(BlueprintCallable, Category = "Widget")
	bool IsVisible() const;

	/** Sets the tool tip shown when the pointer rests on the widget. */
	UFUNCTION(BlueprintCallable, Category = "Widget")
	void SetToolTipText(const FText& InToolTipText) { ToolTipText = InToolTipText; }
	/** Enables or disables the widget; a disabled widget ignores the pointer. */
	UFUNCTION(BlueprintCallable, Category = "Widget")
	virtual void SetIsEnabled(bool bInIsEnabled) { bIsEnabled = bInIsEnabled; }
	/** Whether the widget takes input. */
	UFUNCTION(BlueprintCallable, Category = "Widget")
	bool GetIsEnabled() const { return bIsEnabled; }

	/** Sets how opaque the widget and its children are drawn, 0 to 1. */
	UFUNCTION(BlueprintCallable, Category = "Widget")
	void SetRenderOpacity(float InOpacity) { RenderOpacity = InOpacity; }
	/** How opaque the widget is drawn. */
	UFUNCTION(BlueprintCallable, Category = "Widget")
	float GetRenderOpacity() const { return RenderOpacity; }
	/** Sets the whole render transform. */
	UFUNCTION(BlueprintCallable, Category = "Widget")
	void SetRenderTransform(FWidgetTransform InTransform) { RenderTransform = InTransform; }
	/** Moves the drawn widget without changing layout. */
	UFUNCTION(BlueprintCallable, Category = "Widget")
	void SetRenderTranslation(FVector2D Translation) { RenderTransform.Translation = Translation; }

	/** The panel that holds this widget, or null (also for a user widget's root). */
	UFUNCTION(BlueprintCallable, Category = "Widget")
	UPanelWidget* GetParent() const;
	/** Takes the widget out of its panel; a user widget also leaves the viewport. */
	UFUNCTION(BlueprintCallable, Category = "Widget")
	virtual void RemoveFromParent();

	/** The geometry of the last layout pass; zero size before the first pass after it went on screen. */
	const FGeometry& GetCachedGeometry() const { return CachedGeometry; }
	/** The same geometry, under the engine's other name. */
	const FGeometry& GetTickSpaceGeometry() const { return CachedGeometry; }
	/** The size the widget asked for in the last layout pass. */
	UFUNCTION(BlueprintCallable, Category = "Widget")
	FVector2D GetDesiredSize() const { return DesiredSize; }
	/** Asks for a new layout; layout runs every frame here, so this only records the wish. */
	void InvalidateLayoutAndVolatility() { bLayoutInvalidated = true; }
	/** Brings derived state in line after properties were set directly (by an asset or reflection). */
	virtual void SynchronizeProperties() {}

	/** The slot that places this widget in its parent panel. */
	UPROPERTY(Instanced, BlueprintReadOnly, Category = "Layout")
	TObjectPtr<UPanelSlot> Slot;

	/** Shown when the pointer rests on the widget. */
	UPROPERTY(EditAnywhere, Category = "Behavior")
	FText ToolTipText;

	/** Whether the widget takes input. */
	UPROPERTY(EditAnywhere, Category = "Behavior")
	bool bIsEnabled = true;

	/** Drawn, room taken, hit-testable. */
	UPROPERTY(EditAnywhere, Category = "Behavior")
	ESlateVisibility Visibility = ESlateVisibility::Visible;

	/** Opacity of the widget and its children. */
	UPROPERTY(EditAnywhere, Category = "Rendering")
	float RenderOpacity = 1.0f;

	/** Transform applied when drawing. */
	UPROPERTY(EditAnywhere, Category = "Rendering")
	FWidgetTransform RenderTransform;

protected:
	/** The size this widget asks for; its children's desired sizes are already up to date. */
	virtual FVector2D ComputeDesiredSize() const { return FVector2D::ZeroVector; }
	/** The boxes of the children that take part in layout (not Collapsed), in paint order. */
	virtual void ArrangeChildren(const FGeometry& AllottedGeometry, TArray<FArrangedChildWidget>& OutChildren) const {}
	/** All children in paint order, later ones on top. */
	virtual void GetLayoutChildren(TArray<UWidget*>& OutChildren) const {}

	/** The pointer went down on the widget; true takes the pointer until it is released. */
	virtual bool HandlePointerPressed(const FGeometry& MyGeometry, const FPointerEvent& Event) { return false; }
	/** The pointer moved while this widget held it. */
	virtual void HandlePointerDragged(const FGeometry& MyGeometry, const FPointerEvent& Event) {}
	/** The pointer this widget held came up, over the widget (bInside) or elsewhere. */
	virtual void HandlePointerReleased(const FGeometry& MyGeometry, const FPointerEvent& Event, bool bInside) {}

private:
	friend class FWidgetLayout;
	friend class FWidgetViewport;
	friend class FWidgetHierarchy;

	// Geometry from the last layout pass; reset when the widget leaves the screen.
	FGeometry CachedGeometry;
	// Desired size from the last layout pass.
	FVector2D DesiredSize = FVector2D::ZeroVector;
	// Set by InvalidateLayoutAndVolatility, cleared by the next layout pass.
	bool bLayoutInvalidated = false;
};
