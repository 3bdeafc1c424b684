#include "BrushPainter.h"

#include "FramePainter.h"
#include "Materials/Material.h"
#include "MediaTexture.h"
#include "Templates/Casts.h"

namespace
{
	/** The media texture a brush resource shows, if any, and the material colour over it. */
	const UMediaTexture* FindVideo(UObject* Resource, FLinearColor& InOutTint)
	{
		if (const UMediaTexture* Texture = Cast<UMediaTexture>(Resource))
		{
			return Texture;
		}
		if (const UMaterialInterface* Material = Cast<UMaterialInterface>(Resource))
		{
			if (const UMaterial* Plain = Cast<UMaterial>(Resource))
			{
				InOutTint = InOutTint * Plain->GetBaseColor();
			}
			return Cast<UMediaTexture>(Material->GetPlainDisplayTexture());
		}
		return nullptr;
	}
}

void RenderBrush::Paint(const FFramePainter& Painter, const FPaintRect& Box, UObject* Resource, const FLinearColor& BrushTint, float Opacity)
{
	FLinearColor Tint = BrushTint;
	const UMediaTexture* Video = FindVideo(Resource, Tint);
	if (Video)
	{
		if (const TSharedPtr<const FMediaTextureSample> Sample = Video->GetSample())
		{
			Painter.DrawPicture(Box, *Sample, Tint, Opacity);
			return;
		}
		// No picture yet (not opened, or closed): a media texture shows its clear colour, black.
		Painter.FillRect(Box, FColor(0, 0, 0, static_cast<uint8>(FMath::Clamp(Tint.A, 0.0f, 1.0f) * 255.0f + 0.5f)), Opacity);
		return;
	}
	// A plain brush, or a material without video (its base colour is already in the tint).
	Painter.FillRect(Box, Tint.ToFColor(true), Opacity);
}
