#include "Materials/Material.h"

UObject* UMaterial::GetTextureParameterValue(FName ParameterName) const
{
	return !ParameterName.IsNone() && ParameterName == VideoTextureParameter ? VideoTexture.Get() : nullptr;
}
