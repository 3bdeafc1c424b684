#pragma once

// UMaterial: a material asset. The stand-in's materials are unlit pictures: a texture (usually a
// media texture the video plays into), sampled under a named parameter, tinted by a colour.

#include "CoreMinimal.h"
#include "Materials/MaterialInterface.h"
#include "UObject/ObjectPtr.h"
#include "Material.generated.h"

/** A material asset loaded from a .uasset; shows VideoTexture tinted by BaseColor. */
UCLASS()
class ENGINE_API UMaterial : public UMaterialInterface
{
	GENERATED_BODY()

public:
#if PLAIN_PLATFORM_INTERNALS
	// The stand-in's view of the asset, for the renderer and tests; the engine's material has a graph instead.
	/** The texture parameter the video is bound to. */
	FName GetVideoTextureParameter() const { return VideoTextureParameter; }
	/** The texture sampled under that parameter. */
	UObject* GetVideoTexture() const { return VideoTexture; }
	/** Binds the texture sampled under the video parameter. */
	void SetVideoTexture(UObject* InTexture) { VideoTexture = InTexture; }
	/** The colour multiplied with the texture. */
	const FLinearColor& GetBaseColor() const { return BaseColor; }
#endif

private:
	/** Name of the texture parameter the video is bound to. */
	UPROPERTY(EditAnywhere, Category = "Material")
	FName VideoTextureParameter;

	/** The texture sampled under VideoTextureParameter (a media texture for a video material). */
	UPROPERTY(EditAnywhere, Category = "Material")
	TObjectPtr<UObject> VideoTexture;

	/** Colour multiplied with the texture, or drawn alone when there is none. */
	UPROPERTY(EditAnywhere, Category = "Material")
	FLinearColor BaseColor = FLinearColor::White;

	/** VideoTexture when asked for VideoTextureParameter, else null. */
	UObject* GetTextureParameterValue(FName ParameterName) const override;
	/** VideoTexture. */
	UObject* GetDisplayTexture() const override { return VideoTexture; }
};
