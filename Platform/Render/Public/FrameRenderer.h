#pragma once

// FFrameRenderer (stand-in): draws what the engine would put on screen, on the CPU: the
// viewport's widgets in paint order (boxes, brushes, video images, text and the common input
// widgets), then the engine's on-screen debug messages at the top left. The frame loop's paint
// handler calls Render after FWidgetViewport::Layout. Game thread only: it reads widgets.

#include "CoreMinimal.h"
#include "Math/Color.h"

class FRenderFrame;
class FWidgetViewport;

/** Paints the viewport's widgets and the on-screen messages into an RGBA frame. */
class RENDER_API FFrameRenderer
{
public:
	/** Sizes Out to the viewport, clears it, and paints every drawn widget, then the on-screen messages. */
	void Render(const FWidgetViewport& Viewport, FRenderFrame& Out) const;

	/** Colour the frame is cleared to before painting (opaque black unless set). */
	void SetClearColor(FColor InColor) { ClearColor = InColor; }
	/** Whether GEngine's on-screen messages are drawn (true unless set). */
	void SetDrawOnScreenMessages(bool bInDraw) { bDrawOnScreenMessages = bInDraw; }

private:
	/** GEngine's on-screen lines, top to bottom from the top-left corner. */
	void PaintOnScreenMessages(FRenderFrame& Out) const;

	// What shows where no widget draws, as the engine's viewport clears to black.
	FColor ClearColor = FColor::Black;
	// Off for clean captures of the widgets alone.
	bool bDrawOnScreenMessages = true;
};
