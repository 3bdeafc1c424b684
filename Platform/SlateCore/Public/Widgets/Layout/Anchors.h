#pragma once

// FAnchors: where a canvas child is pinned, as fractions of the canvas (0,0 top-left, 1,1
// bottom-right). Equal minimum and maximum pin a point; different ones stretch the child.

#include "CoreMinimal.h"
#include "Math/Vector2D.h"
#include "Anchors.generated.h"

/** The anchor box of a canvas slot, in fractions of the canvas size. */
USTRUCT(BlueprintType)
struct SLATECORE_API FAnchors
{
	GENERATED_BODY()

	/** Pinned at the top-left corner. */
	FAnchors() = default;
	/** Pinned at one point. */
	FAnchors(float UniformAnchors) : Minimum(UniformAnchors, UniformAnchors), Maximum(UniformAnchors, UniformAnchors) {}
	/** Pinned at (Horizontal, Vertical). */
	FAnchors(float Horizontal, float Vertical) : Minimum(Horizontal, Vertical), Maximum(Horizontal, Vertical) {}
	/** Stretched between two points. */
	FAnchors(float MinX, float MinY, float MaxX, float MaxY) : Minimum(MinX, MinY), Maximum(MaxX, MaxY) {}

	/** True when the anchors stretch the child horizontally. */
	bool IsStretchedHorizontal() const { return Minimum.X != Maximum.X; }
	/** True when the anchors stretch the child vertically. */
	bool IsStretchedVertical() const { return Minimum.Y != Maximum.Y; }

	bool operator==(const FAnchors& Other) const { return Minimum == Other.Minimum && Maximum == Other.Maximum; }

	/** The top-left anchor. */
	UPROPERTY(EditAnywhere, Category = "Anchor")
	FVector2D Minimum = FVector2D::ZeroVector;

	/** The bottom-right anchor. */
	UPROPERTY(EditAnywhere, Category = "Anchor")
	FVector2D Maximum = FVector2D::ZeroVector;
};
