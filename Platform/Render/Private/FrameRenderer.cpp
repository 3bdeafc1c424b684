#include "FrameRenderer.h"

#include "Engine/Engine.h"
#include "Fonts/SlateFontInfo.h"
#include "FramePainter.h"
#include "RenderFrame.h"
#include "Slate/WidgetViewport.h"
#include "TextPainter.h"
#include "WidgetPainter.h"

namespace
{
	// Where the first on-screen line starts, and how far apart lines are, in pixels.
	constexpr double MessageMargin = 8.0;
	constexpr double MessageLineGap = 2.0;
	// The engine's small debug font is about this size in points at a text scale of 1.
	constexpr int32 MessageFontSize = 12;
}

void FFrameRenderer::Render(const FWidgetViewport& Viewport, FRenderFrame& Out) const
{
	const FVector2D Size = Viewport.GetViewportSize();
	Out.Resize(FMath::Max(0, FMath::RoundToInt32(static_cast<float>(Size.X))), FMath::Max(0, FMath::RoundToInt32(static_cast<float>(Size.Y))));
	Out.Clear(ClearColor);
	if (Out.GetWidth() == 0)
	{
		return;
	}
	// Everything is clipped to the viewport: widgets may be laid out, or translated, past it.
	const FFramePainter Painter(Out);
	Viewport.ForEachPaintedWidget([&Painter](UWidget& Widget, const FGeometry& Geometry, float Opacity) {
		RenderWidgets::Paint(Painter, Widget, Geometry, Opacity);
	});
	if (bDrawOnScreenMessages)
	{
		PaintOnScreenMessages(Out);
	}
}

void FFrameRenderer::PaintOnScreenMessages(FRenderFrame& Out) const
{
	if (!GEngine)
	{
		return;
	}
	const FFramePainter Painter(Out);
	const FSlateFontInfo Font(FName(TEXT("Regular")), MessageFontSize);
	double Y = MessageMargin;
	for (const FOnScreenMessage& Message : GEngine->GetOnScreenMessages())
	{
		// FColor is already sRGB; the painter takes linear colours and encodes them again.
		const FLinearColor Color(Message.Color);
		const float Scale = FMath::Max(0.0f, static_cast<float>(Message.TextScale.X));
		const FVector2D Drawn = RenderText::PaintLine(Painter, FVector2D(MessageMargin, Y), Message.Text, Font, Color, 1.0f, true, Scale);
		Y += Drawn.Y + MessageLineGap;
		if (Y >= Out.GetHeight())
		{
			break;
		}
	}
}
