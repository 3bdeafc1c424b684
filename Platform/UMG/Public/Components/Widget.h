#pragma once

// UWidget: the base of every UMG widget. A widget lives in a panel's slot, or is the root of a
// user widget's tree. Changes only mark layout dirty: sizes and positions are computed by the
// viewport's layout pass once a frame, so a widget added this frame has a zero cached geometry
// until the next pass (the engine's one-frame delay).

#include "CoreMinimal.h"
#include "Misc/CoreMiscDefines.h"
#include "UObject/Object.h"
#include "UObject/UObjectGlobals.h"
#include "UObject/ObjectPtr.h"
#include "Templates/Casts.h"
#include "Components/SlateWrapperTypes.h"
#include "Input/Events.h"
#include "Layout/Geometry.h"
#include "Slate/WidgetTransform.h"
#include "Widget.generated.h"

class FSlateWindowElementList;
class UPanelSlot;
class UPanelWidget;
struct FArrangedChildWidget;

/** The base of all widgets: visibility, enabled state, render opacity and transform, its slot. */
UCLASS(Abstract, BlueprintType, Blueprintable)
class UMG_API UWidget : public UObject
{
	GENERATED_BODY()

public:
	/** A visible, enabled, opaque widget with no slot yet. */
	UWidget();
	/** The same, for classes that pass their initializer on. */
	explicit UWidget(const FObjectInitializer& ObjectInitializer);
	/** Defined where the deprecated members may be named, so no class's destructor names them elsewhere. */
	~UWidget() override;

	/** Sets whether the widget is drawn, takes room and can be hit. */
	UFUNCTION(BlueprintCallable, Category = "Widget")
	virtual void SetVisibility(ESlateVisibility InVisibility);
	/** Whether the widget is drawn, takes room and can be hit. */
	UFUNCTION(BlueprintCallable, Category = "Widget")
	ESlateVisibility GetVisibility() const;
	/** True for Visible, HitTestInvisible and SelfHitTestInvisible. */
	UFUNCTION(BlueprintCallable, Category = "Widget")
	bool IsVisible() const;
	/** True while the widget stands directly in the viewport (added with AddToViewport). */
	UFUNCTION(BlueprintPure, Category = "Appearance")
	bool IsInViewport() const;

	/** The tool tip shown when the pointer rests on the widget. */
	FText GetToolTipText() const;
	/** Sets the tool tip shown when the pointer rests on the widget. */
	UFUNCTION(BlueprintCallable, Category = "Widget")
	void SetToolTipText(const FText& InToolTipText);
	/** Whether the widget takes input. */
	UFUNCTION(BlueprintCallable, Category = "Widget")
	bool GetIsEnabled() const;
	/** Enables or disables the widget; a disabled widget ignores the pointer. */
	UFUNCTION(BlueprintCallable, Category = "Widget")
	virtual void SetIsEnabled(bool bInIsEnabled);

	/** How opaque the widget is drawn. */
	UFUNCTION(BlueprintCallable, Category = "Widget")
	float GetRenderOpacity() const;
	/** Sets how opaque the widget and its children are drawn, 0 to 1. */
	UFUNCTION(BlueprintCallable, Category = "Widget")
	void SetRenderOpacity(float InOpacity);
	/** The whole render transform. */
	const FWidgetTransform& GetRenderTransform() const;
	/** Sets the whole render transform. */
	UFUNCTION(BlueprintCallable, Category = "Widget|Transform")
	void SetRenderTransform(FWidgetTransform InTransform);
	/** Moves the drawn widget without changing layout. */
	UFUNCTION(BlueprintCallable, Category = "Widget|Transform")
	void SetRenderTranslation(FVector2D Translation);

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
	UFUNCTION(BlueprintCallable, Category = "Widget")
	void InvalidateLayoutAndVolatility() { bLayoutInvalidated = true; }
	/** Brings derived state in line after properties were set directly (by an asset or reflection). */
	virtual void SynchronizeProperties() {}

	/** The slot that places this widget in its parent panel. */
	UPROPERTY(Instanced, BlueprintReadOnly, Category = "Layout")
	TObjectPtr<UPanelSlot> Slot;

	UE_DEPRECATED(5.1, "Direct access to ToolTipText is deprecated. Please use the getter or setter.")
	/** Shown when the pointer rests on the widget. */
	UPROPERTY(EditAnywhere, BlueprintReadWrite, Category = "Behavior")
	FText ToolTipText;

	UE_DEPRECATED(5.1, "Direct access to RenderTransform is deprecated. Please use the getter or setter.")
	/** Transform applied when drawing. */
	UPROPERTY(EditAnywhere, BlueprintReadWrite, Category = "Render Transform")
	FWidgetTransform RenderTransform;

	UE_DEPRECATED(5.1, "Direct access to bIsEnabled is deprecated. Please use the getter or setter.")
	/** Whether the widget takes input. */
	UPROPERTY(EditAnywhere, BlueprintReadWrite, Category = "Behavior")
	bool bIsEnabled = true;

	UE_DEPRECATED(5.1, "Direct access to Visibility is deprecated. Please use the getter or setter.")
	/** Drawn, room taken, hit-testable. */
	UPROPERTY(EditAnywhere, BlueprintReadWrite, Category = "Behavior")
	ESlateVisibility Visibility = ESlateVisibility::Visible;

	UE_DEPRECATED(5.1, "Direct access to RenderOpacity is deprecated. Please use the getter or setter.")
	/** Opacity of the widget and its children. */
	UPROPERTY(EditAnywhere, BlueprintReadWrite, Category = "Rendering")
	float RenderOpacity = 1.0f;

private:
	// The stand-in's layout, painting and pointer routing: overridden by the widget classes, called
	// by the viewport's layout and paint passes and input routing (friends below). The engine does
	// this in Slate.

	/** The size this widget asks for; its children's desired sizes are already up to date. */
	virtual FVector2D ComputeDesiredSize() const { return FVector2D::ZeroVector; }
	/** The boxes of the children that take part in layout (not Collapsed), in paint order. */
	virtual void ArrangeChildren(const FGeometry& AllottedGeometry, TArray<FArrangedChildWidget>& OutChildren) const {}
	/** All children in paint order, later ones on top. */
	virtual void GetLayoutChildren(TArray<UWidget*>& OutChildren) const {}
	/**
	 * Adds the widget's own look (not its children's, which paint themselves after it) to the
	 * frame's draw list: Geometry is its box with the render translations applied, Opacity the
	 * product of the render opacities down to it. Panels and user widgets add nothing.
	 */
	virtual void PaintSelf(FSlateWindowElementList& OutDrawElements, const FGeometry& Geometry, float Opacity) const {}

	/** The pointer went down on the widget; true takes the pointer until it is released. */
	virtual bool HandlePointerPressed(const FGeometry& MyGeometry, const FPointerEvent& Event) { return false; }
	/** The pointer moved while this widget held it. */
	virtual void HandlePointerDragged(const FGeometry& MyGeometry, const FPointerEvent& Event) {}
	/** The pointer this widget held came up, over the widget (bInside) or elsewhere. */
	virtual void HandlePointerReleased(const FGeometry& MyGeometry, const FPointerEvent& Event, bool bInside) {}

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
