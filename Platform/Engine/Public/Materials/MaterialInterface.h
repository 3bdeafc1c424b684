#pragma once

// UMaterialInterface: what a brush or a mesh draws with. The stand-in's renderer only needs to
// know which texture a material shows.

#include "CoreMinimal.h"
#include "UObject/Object.h"
#include "MaterialInterface.generated.h"

/** Anything that can be drawn with: a material or (in the engine) an instance of one. */
UCLASS(Abstract)
class ENGINE_API UMaterialInterface : public UObject
{
	GENERATED_BODY()

public:
	/** The texture the material shows for a parameter name (null if it has none by that name). */
	virtual UObject* GetTextureParameterValue(FName ParameterName) const { return nullptr; }

	/** The texture the material shows as its picture; null draws it as a flat colour. */
	virtual UObject* GetDisplayTexture() const { return nullptr; }
};
