#include "DrawListPainter.h"

#include "BrushPainter.h"
#include "Fonts/SlateTextPainter.h"
#include "FramePainter.h"
#include "Rendering/SlateDrawList.h"
#include "RenderFrame.h"
#include "TextSpriteCache.h"

#include <cmath>

namespace
{
	/** A run too large for the cache, drawn straight into the frame as it always could be. */
	void DrawTextDirectly(const FFramePainter& Painter, const FSlateDrawElement& Text)
	{
		FRenderFrame& Frame = Painter.GetFrame();
		const FPaintRect& Clip = Painter.GetClip();
		const FSlateTextCanvas Canvas{Frame.GetData(), Frame.GetWidth(), Frame.GetHeight(), Frame.GetStride(), Clip.Left, Clip.Top, Clip.Right, Clip.Bottom};
		FSlateTextLook Look;
		Look.Font = &Text.Font;
		Look.Color = Text.Tint;
		Look.ShadowOffset = Text.ShadowOffset;
		Look.ShadowColor = Text.ShadowColor;
		Look.Opacity = Text.Opacity;
		Look.FontScale = Text.FontScale;
		FSlateTextPainter::Get().Draw(Canvas, Text.Position, Text.Text, Look);
	}

	void DrawText(const FFramePainter& Painter, FTextSpriteCache& Sprites, const FSlateDrawElement& Text)
	{
		if (Text.Text.IsEmpty())
		{
			return;
		}
		const FTextSprite* Sprite = Sprites.Find(Text);
		if (!Sprite)
		{
			DrawTextDirectly(Painter, Text);
			return;
		}
		if (Sprite->Width > 0)
		{
			// The text's box starts on the pixel nearest its position, as the text painter places it.
			const int32 X = static_cast<int32>(std::lround(static_cast<float>(Text.Position.X)));
			const int32 Y = static_cast<int32>(std::lround(static_cast<float>(Text.Position.Y)));
			Painter.DrawSprite(X + Sprite->OffsetX, Y + Sprite->OffsetY, *Sprite);
		}
	}
} // namespace

void RenderDrawList::Draw(const FFramePainter& Painter, FTextSpriteCache& Sprites, const FSlateWindowElementList& List)
{
	for (const FSlateDrawElement& Element : List)
	{
		if (Element.Opacity <= 0.0f)
		{
			continue;
		}
		switch (Element.Kind)
		{
		case ESlateDrawElementKind::Box:
			Painter.FillRect(Element.Box, Element.Color, Element.Opacity);
			break;
		case ESlateDrawElementKind::Image:
			RenderBrush::Paint(Painter, Element.Box, Element.Resource, Element.Tint, Element.Opacity);
			break;
		case ESlateDrawElementKind::Text:
			DrawText(Painter, Sprites, Element);
			break;
		case ESlateDrawElementKind::Line:
			Painter.DrawLine(Element.Position, Element.End, Element.Thickness, Element.Color, Element.Opacity);
			break;
		}
	}
}
