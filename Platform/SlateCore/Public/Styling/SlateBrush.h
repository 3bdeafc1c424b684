#pragma once

// FSlateBrush: what an image or a border draws: a resource (a texture or a material), its size,
// and a tint.

#include "CoreMinimal.h"
#include "Math/Vector2D.h"
#include "Styling/SlateColor.h"
#include "UObject/ObjectPtr.h"
#include "SlateBrush.generated.h"

class UObject;

/** An image to draw: the resource behind it, the size it wants, and its tint. */
USTRUCT(BlueprintType)
struct SLATECORE_API FSlateBrush
{
	GENERATED_BODY()

	/** The size an image widget asks for when it lays out. */
	UPROPERTY(EditAnywhere, Category = "Brush")
	FVector2D ImageSize = FVector2D(32.0, 32.0);

	/** Multiplies the resource's colour. */
	UPROPERTY(EditAnywhere, Category = "Brush")
	FSlateColor TintColor;

	/** The texture or material drawn. */
	UObject* GetResourceObject() const { return ResourceObject.Get(); }
	/** Sets the texture or material drawn. */
	void SetResourceObject(UObject* InResourceObject) { ResourceObject = InResourceObject; }
	/** The size the image asks for. */
	FVector2D GetImageSize() const { return ImageSize; }
	/** Sets the size the image asks for. */
	void SetImageSize(const FVector2D& InImageSize) { ImageSize = InImageSize; }

	bool operator==(const FSlateBrush& Other) const
	{
		return ImageSize == Other.ImageSize && TintColor == Other.TintColor && ResourceObject.Get() == Other.ResourceObject.Get();
	}

private:
	/** The texture or material drawn; none draws the tint alone. */
	UPROPERTY(EditAnywhere, BlueprintReadWrite, Category = "Brush")
	TObjectPtr<UObject> ResourceObject;
};
