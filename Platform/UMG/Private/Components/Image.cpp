#include "Components/Image.h"

#include "Materials/MaterialInterface.h"

void UImage::SetBrushFromMaterial(UMaterialInterface* Material)
{
	Brush.SetResourceObject(Material);
}
