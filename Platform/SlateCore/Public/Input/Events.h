#pragma once

// FPointerEvent: one mouse event as Slate hands it to widgets. The stand-in has one pointer and
// no keyboard modifiers; the cursor delta is the distance moved since the previous event.

#include "CoreMinimal.h"
#include "Math/Vector2D.h"

/** A pointer event: where the pointer is, where it was at the previous event, and the button. */
class FPointerEvent
{
public:
	FPointerEvent() = default;

#if PLAIN_PLATFORM_INTERNALS
	/** Stand-in: an event at InScreenSpacePosition; the delta is measured from InLastScreenSpacePosition. */
	FPointerEvent(const FVector2D& InScreenSpacePosition, const FVector2D& InLastScreenSpacePosition, bool bInLeftButtonDown = false)
		: ScreenSpacePosition(InScreenSpacePosition), LastScreenSpacePosition(InLastScreenSpacePosition), bLeftButtonDown(bInLeftButtonDown)
	{
	}

	/** Stand-in: true while the left button is held (the engine asks IsMouseButtonDown with a key). */
	bool IsLeftButtonDown() const { return bLeftButtonDown; }
#endif

	/** Where the pointer is, in screen pixels. */
	FVector2D GetScreenSpacePosition() const { return ScreenSpacePosition; }
	/** Where the pointer was at the previous event. */
	FVector2D GetLastScreenSpacePosition() const { return LastScreenSpacePosition; }
	/** How far the pointer moved since the previous event; zero for an event that did not move it. */
	FVector2D GetCursorDelta() const { return ScreenSpacePosition - LastScreenSpacePosition; }

private:
	/** Current position in screen pixels. */
	FVector2D ScreenSpacePosition = FVector2D::ZeroVector;
	/** Position at the previous pointer event. */
	FVector2D LastScreenSpacePosition = FVector2D::ZeroVector;
	/** Whether the left button is held during this event. */
	// Read only through the stand-in's accessor, which code built without the stand-in's
	// declarations does not see; clang would call the field unused there.
	[[maybe_unused]] bool bLeftButtonDown = false;
};
