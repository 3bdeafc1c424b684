#pragma once

#if !PLAIN_PLATFORM_INTERNALS
#error "Slate/WidgetViewport.h belongs to the stand-in; the engine has no such header"
#endif

// FWidgetViewport (stand-in): the game viewport's widget layer. It holds the user widgets added
// to the viewport by ZOrder and runs the widget parts of a frame, which the frame loop calls in
// this order: ProcessInput (routed with the last frame's geometry), TickWidgets, Layout, then the
// renderer's paint (Paint, where every drawn widget adds its own look to the frame's draw list),
// then FinishFrame. Game thread only.
//
// A user widget's NativeDestruct runs when the last holder of its Slate side lets go, as in the
// engine: at once when its parent (a panel or the viewport) drops it, unless Slate itself still
// holds it, which it does for the widgets on the path of the input event being routed (until the
// event is done) and for the widget being ticked and its ancestors, with their children (until
// the tick pass is done). A held widget put back on screen before then was never destructed, so
// it is not constructed again: a click that moves the player widget into the viewport keeps it.

#include "CoreMinimal.h"
#include "Math/Vector2D.h"
#include "Templates/Function.h"
#include "UObject/GarbageCollection.h"
#include "UObject/WeakObjectPtrTemplates.h"
#include "Layout/Geometry.h"

class FSlateWindowElementList;
class UComboBoxString;
class UUserWidget;
class UWidget;

/** The viewport's user widgets, pointer routing, tick, layout and the end-of-frame lifecycle. */
class UMG_API FWidgetViewport : public FGCObject
{
public:
	/** The game viewport. */
	static FWidgetViewport& Get();

	/** Sets the viewport's size in pixels (1280 x 720 until set). */
	void SetViewportSize(const FVector2D& InSize) { ViewportSize = InSize; }
	/** The viewport's size in pixels. */
	const FVector2D& GetViewportSize() const { return ViewportSize; }

	/** Adds Widget on top of the widgets of lower or equal ZOrder; constructs it if it was not on screen. */
	void AddWidget(UUserWidget* Widget, int32 ZOrder);
	/** Takes Widget out of the viewport; it is destructed at once unless Slate still holds it (see above). */
	bool RemoveWidget(UUserWidget* Widget);
	/** True when Widget stands directly in the viewport. */
	bool ContainsWidget(const UUserWidget* Widget) const;
	/** The viewport's widgets, bottom first. */
	TArray<UUserWidget*> GetWidgets() const;

	/** Queues a pointer move to the screen position. */
	void QueuePointerMove(const FVector2D& Position) { Queue.Add({ EInput::Move, Position, nullptr, FString() }); }
	/** Queues a left button press at the screen position. */
	void QueuePointerPress(const FVector2D& Position) { Queue.Add({ EInput::Press, Position, nullptr, FString() }); }
	/** Queues a left button release at the screen position. */
	void QueuePointerRelease(const FVector2D& Position) { Queue.Add({ EInput::Release, Position, nullptr, FString() }); }
	/** Queues a choice of Option from the open list of Combo, as a click on it would make. */
	void QueueComboSelection(UComboBoxString* Combo, const FString& Option);
	/** Routes every queued event in order, hit testing with the last layout's geometry. */
	void ProcessInput();

	/** NativeTick of every constructed, shown user widget on screen (parents first), then their animations. */
	void TickWidgets(float DeltaSeconds);
	/** Desired sizes bottom-up, then arrangement top-down: every on-screen widget's cached geometry. */
	void Layout();
	/** Calls Visitor for every drawn widget in paint order with its geometry and accumulated opacity. */
	void ForEachPaintedWidget(TFunctionRef<void(UWidget& Widget, const FGeometry& Geometry, float Opacity)> Visitor) const;
	/** Appends what every drawn widget shows, in paint order, to OutDrawElements. */
	void Paint(FSlateWindowElementList& OutDrawElements) const;
	/** NativeDestruct of any held widget that left the screen and is still off it (normally none by now). */
	void FinishFrame();

	/** Takes every widget off screen and destructs them, and forgets input state (between tests). */
	void Reset();

	/** Stand-in: called by panels and the viewport after Widget was put in a new place. */
	void NotifyAttached(UWidget* Widget);
	/** Stand-in: called by panels and the viewport after Widget was taken out of its place (FormerParent null: the viewport). */
	void NotifyDetached(UWidget* Widget, const UWidget* FormerParent);

	void AddReferencedObjects(FReferenceCollector& Collector) override;
	FString GetReferencerName() const override { return TEXT("FWidgetViewport"); }

private:
	enum class EInput : uint8
	{
		Move,
		Press,
		Release,
		ComboSelect
	};

	/** One queued input event. */
	struct FQueuedInput
	{
		EInput Kind;
		FVector2D Position;
		TWeakObjectPtr<UComboBoxString> Combo;
		FString Option;
	};

	/** One user widget of the viewport. */
	struct FEntry
	{
		TObjectPtr<UUserWidget> Widget;
		int32 ZOrder = 0;
	};

	/** Holds the widgets on Input's path for as long as it is routed (see the file comment). */
	void HoldEventPath(const FQueuedInput& Input);
	/** Sends enter, leave and move events for a pointer now at Position, and drags the captured widget. */
	void RoutePointerMove(const FVector2D& Position);
	void RoutePointerPress(const FVector2D& Position);
	void RoutePointerRelease(const FVector2D& Position);
	/** The widgets under Position from the viewport widget down to the deepest one hit; empty when none. */
	TArray<UWidget*> HitTest(const FVector2D& Position) const;
	/** True while Slate holds Widget, which FormerParent held until now (see the file comment). */
	bool IsHeld(const UWidget* Widget, const UWidget* FormerParent) const;
	/** Destructs, parents first, those of UserWidgets still constructed and off screen. */
	static void DestructOffScreen(const TArray<UUserWidget*>& UserWidgets);
	/** Lets go of what the routed event or the tick pass held, destructing what is still off screen. */
	void ReleaseHeld();

	// Viewport widgets, bottom first: by ZOrder, then by the order they were added.
	TArray<FEntry> Entries;
	// Size of the viewport in pixels.
	FVector2D ViewportSize = FVector2D(1280.0, 720.0);
	// Input waiting for ProcessInput.
	TArray<FQueuedInput> Queue;
	// Widgets under the pointer at the last event, viewport widget first.
	TArray<TWeakObjectPtr<UWidget>> HoveredPath;
	// The widget that took the pointer at the last press, until the release.
	TWeakObjectPtr<UWidget> CapturedWidget;
	// Where the pointer was at the last event.
	FVector2D LastPointerPosition = FVector2D::ZeroVector;
	// False until the first pointer event, whose delta is then zero.
	bool bHasPointerPosition = false;
	// The widgets on the path of the input event being routed: Slate holds them until it is done.
	TArray<TWeakObjectPtr<UWidget>> EventPath;
	// The user widget whose NativeTick runs now: it, its ancestors and their children are held.
	TWeakObjectPtr<UWidget> TickingWidget;
	// Constructed user widgets that left the screen while held, parents first; checked at release.
	TArray<TObjectPtr<UUserWidget>> HeldOffScreen;
};
