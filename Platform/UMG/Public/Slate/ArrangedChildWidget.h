#pragma once

#if !PLAIN_PLATFORM_INTERNALS
#error "Slate/ArrangedChildWidget.h belongs to the stand-in; the engine has no such header"
#endif

// FArrangedChildWidget: one child and the box its panel gives it in a layout pass.

#include "CoreMinimal.h"
#include "Layout/Geometry.h"

class UWidget;

/** A child widget with the geometry its parent arranged it at. */
struct FArrangedChildWidget
{
	/** The child. */
	UWidget* Widget = nullptr;
	/** Its box on screen. */
	FGeometry Geometry;
};
