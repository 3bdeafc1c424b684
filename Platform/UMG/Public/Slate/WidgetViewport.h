#pragma once

#if !PLAIN_PLATFORM_INTERNALS
#error "Slate/WidgetViewport.h belongs to the stand-in; the engine has no such header"
#endif

// FWidgetViewport (stand-in): the game viewport's widget layer. It holds the user widgets added
// to the viewport by ZOrder and runs the widget parts of a frame, which the frame loop calls in
// this order: ProcessInput (routed with the last frame's geometry), TickWidgets, Layout, then the
// renderer's paint (ForEachPaintedWidget), then FinishFrame (NativeDestruct of widgets that left
// the screen this frame). Game thread only.

#include "CoreMinimal.h"
#include "Math/Vector2D.h"
#include "Templates/Function.h"
#include "UObject/GarbageCollection.h"
#include "UObject/WeakObjectPtrTemplates.h"
#include "Layout/Geometry.h"

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
	/** Takes Widget out of the viewport; it is destructed at FinishFrame unless it is back on screen by then. */
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
	/** NativeDestruct of the user widgets that left the screen this frame and did not come back. */
	void FinishFrame();

	/** Takes every widget off screen and destructs them, and forgets input state (between tests). */
	void Reset();

	/** Stand-in: called by panels and the viewport after Widget was put in a new place. */
	void NotifyAttached(UWidget* Widget);
	/** Stand-in: called by panels and the viewport after Widget was taken out of its place. */
	void NotifyDetached(UWidget* Widget);

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

	/** Sends enter, leave and move events for a pointer now at Position, and drags the captured widget. */
	void RoutePointerMove(const FVector2D& Position);
	void RoutePointerPress(const FVector2D& Position);
	void RoutePointerRelease(const FVector2D& Position);
	/** The widgets under Position from the viewport widget down to the deepest one hit; empty when none. */
	TArray<UWidget*> HitTest(const FVector2D& Position) const;

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
	// Constructed user widgets that left the screen this frame, checked at FinishFrame.
	TArray<TObjectPtr<UUserWidget>> LeftScreen;
};
