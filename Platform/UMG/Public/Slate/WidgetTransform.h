#pragma once

// FWidgetTransform: the render transform of a widget. It moves what is drawn (and hit) without
// changing layout, as the engine's does.

#include "CoreMinimal.h"
#include "Math/Vector2D.h"
#include "WidgetTransform.generated.h"

/** Translation, scale, shear and angle applied to a widget after layout. */
USTRUCT(BlueprintType)
struct UMG_API FWidgetTransform
{
	GENERATED_BODY()

	/** Moves the widget, in slate units. */
	UPROPERTY(EditAnywhere, Category = "Transform")
	FVector2D Translation = FVector2D::ZeroVector;

	/** Scales the widget about its pivot. */
	UPROPERTY(EditAnywhere, Category = "Transform")
	FVector2D Scale = FVector2D(1.0, 1.0);

	/** Shears the widget, in degrees. */
	UPROPERTY(EditAnywhere, Category = "Transform")
	FVector2D Shear = FVector2D::ZeroVector;

	/** Rotates the widget, in degrees. */
	UPROPERTY(EditAnywhere, Category = "Transform")
	float Angle = 0.0f;

	/** True when the transform changes nothing. */
	bool IsIdentity() const { return Translation.IsZero() && Scale == FVector2D(1.0, 1.0) && Shear.IsZero() && Angle == 0.0f; }
};
