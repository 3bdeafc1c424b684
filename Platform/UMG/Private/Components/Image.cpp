#include "Components/Image.h"
#include "Rendering/SlateDrawList.h"

#include "Materials/MaterialInterface.h"

// The image's own accessors are where its deprecated members may still be named.
PRAGMA_DISABLE_DEPRECATION_WARNINGS

UImage::UImage() = default;

UImage::~UImage() = default;

void UImage::SetColorAndOpacity(FLinearColor InColorAndOpacity)
{
	ColorAndOpacity = InColorAndOpacity;
}

const FLinearColor& UImage::GetColorAndOpacity() const
{
	return ColorAndOpacity;
}

void UImage::SetOpacity(float InOpacity)
{
	ColorAndOpacity.A = InOpacity;
}

void UImage::SetBrushTintColor(FSlateColor TintColor)
{
	Brush.TintColor = TintColor;
}

void UImage::SetBrushResourceObject(UObject* ResourceObject)
{
	Brush.SetResourceObject(ResourceObject);
}

void UImage::SetBrush(const FSlateBrush& InBrush)
{
	Brush = InBrush;
}

const FSlateBrush& UImage::GetBrush() const
{
	return Brush;
}

void UImage::SetBrushFromMaterial(UMaterialInterface* Material)
{
	Brush.SetResourceObject(Material);
}

PRAGMA_ENABLE_DEPRECATION_WARNINGS

void UImage::PaintSelf(FSlateWindowElementList& OutDrawElements, const FGeometry& Geometry, float Opacity) const
{
	FSlateDrawElement::MakeBox(OutDrawElements, FPaintRect::FromBox(Geometry.GetAbsolutePosition(), Geometry.GetLocalSize()), GetBrush(), GetColorAndOpacity(), Opacity);
}
