#include "FrameRenderer.h"

#include "DrawListPainter.h"
#include "Engine/Engine.h"
#include "Fonts/FontMeasure.h"
#include "Fonts/SlateFontInfo.h"
#include "FramePainter.h"
#include "RenderFrame.h"
#include "Slate/WidgetViewport.h"
#include "TextSpriteCache.h"

namespace
{
	// Where the first on-screen line starts, and how far apart lines are, in pixels.
	constexpr double MessageMargin = 8.0;
	constexpr double MessageLineGap = 2.0;
	// The engine's small debug font is about this size in points at a text scale of 1.
	constexpr int32 MessageFontSize = 12;
}

FFrameRenderer::FFrameRenderer()
	: TextSprites(std::make_unique<FTextSpriteCache>())
{
}

FFrameRenderer::~FFrameRenderer() = default;
FFrameRenderer::FFrameRenderer(FFrameRenderer&&) noexcept = default;
FFrameRenderer& FFrameRenderer::operator=(FFrameRenderer&&) noexcept = default;

void FFrameRenderer::Render(const FWidgetViewport& Viewport, FRenderFrame& Out) const
{
	const FVector2D Size = Viewport.GetViewportSize();
	Out.Resize(FMath::Max(0, FMath::RoundToInt32(static_cast<float>(Size.X))), FMath::Max(0, FMath::RoundToInt32(static_cast<float>(Size.Y))));
	Elements.Reset();
	Viewport.Paint(Elements);
	if (bDrawOnScreenMessages)
	{
		AddOnScreenMessages(Elements, Out.GetHeight());
	}
	DrawList(Elements, Out);
}

void FFrameRenderer::DrawList(const FSlateWindowElementList& List, FRenderFrame& Out) const
{
	Out.Clear(ClearColor);
	if (Out.GetWidth() == 0)
	{
		return;
	}
	// Everything is clipped to the viewport: widgets may be laid out, or translated, past it.
	// Over an opaque clear every pixel stays opaque, which is what lets text blend as premultiplied colour.
	const FFramePainter Painter(Out, ClearColor.A == 255, Blender);
	TextSprites->BeginFrame();
	RenderDrawList::Draw(Painter, *TextSprites, List);
}

void FFrameRenderer::AddOnScreenMessages(FSlateWindowElementList& List, int32 FrameHeight) const
{
	if (!GEngine)
	{
		return;
	}
	const FSlateFontInfo Font(FName(TEXT("Regular")), MessageFontSize);
	double Y = MessageMargin;
	for (const FOnScreenMessage& Message : GEngine->GetOnScreenMessages())
	{
		// FColor is already sRGB; the text is drawn from linear colours, encoded again on the way.
		const FLinearColor Color(Message.Color);
		const float Scale = FMath::Max(0.0f, static_cast<float>(Message.TextScale.X));
		FSlateDrawElement::MakeText(List, FVector2D(MessageMargin, Y), Message.Text, Font, Color, 1.0f, FVector2D(1.0, 1.0), FLinearColor::Black, Scale);
		Y += FSlateFontMeasure::Get().Measure(Message.Text, Font, Scale).Y + MessageLineGap;
		if (Y >= FrameHeight)
		{
			break;
		}
	}
}

void FFrameRenderer::SetTextCacheBudget(int64 Bytes)
{
	TextSprites->SetBudgetBytes(Bytes);
}

FTextSpriteCacheStats FFrameRenderer::GetTextCacheStats() const
{
	return TextSprites->GetStats();
}
