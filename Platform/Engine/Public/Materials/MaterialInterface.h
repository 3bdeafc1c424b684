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
#if PLAIN_PLATFORM_INTERNALS
	/** The stand-in's: the texture the material shows as its picture; null draws it as a flat colour. */
	UObject* GetPlainDisplayTexture() const { return GetDisplayTexture(); }
	/** The stand-in's: the texture the material shows for a parameter name (null if it has none by that name). */
	UObject* GetPlainTextureParameterValue(FName ParameterName) const { return GetTextureParameterValue(ParameterName); }
#endif

private:
	// The stand-in's own hooks, kept private: the engine's texture parameter query has another signature.
	/** The texture the material shows for a parameter name (null if it has none by that name). */
	virtual UObject* GetTextureParameterValue(FName ParameterName) const { return nullptr; }

	/** The texture the material shows as its picture; null draws it as a flat colour. */
	virtual UObject* GetDisplayTexture() const { return nullptr; }
};
