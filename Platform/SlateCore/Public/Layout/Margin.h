#pragma once

// FMargin: space around a box, as padding in slots and borders.

#include "CoreMinimal.h"
#include "Math/Vector2D.h"
#include "Margin.generated.h"

/** Space on each side of a box, in slate units. */
USTRUCT(BlueprintType)
struct SLATECORE_API FMargin
{
	GENERATED_BODY()

	/** No space on any side. */
	FMargin() = default;
	/** The same space on all four sides. */
	FMargin(float Uniform) : Left(Uniform), Top(Uniform), Right(Uniform), Bottom(Uniform) {}
	/** Horizontal space left and right, vertical space top and bottom. */
	FMargin(float Horizontal, float Vertical) : Left(Horizontal), Top(Vertical), Right(Horizontal), Bottom(Vertical) {}
	/** Each side given. */
	FMargin(float InLeft, float InTop, float InRight, float InBottom) : Left(InLeft), Top(InTop), Right(InRight), Bottom(InBottom) {}

	/** Total space taken: left plus right, top plus bottom. */
	FVector2D GetDesiredSize() const { return FVector2D(double(Left) + Right, double(Top) + Bottom); }
	/** The top-left offset a box inside these margins starts at. */
	FVector2D GetTopLeft() const { return FVector2D(Left, Top); }

	bool operator==(const FMargin& Other) const { return Left == Other.Left && Top == Other.Top && Right == Other.Right && Bottom == Other.Bottom; }

	/** Space on the left. */
	UPROPERTY(EditAnywhere, Category = "Appearance")
	float Left = 0.f;

	/** Space on the top. */
	UPROPERTY(EditAnywhere, Category = "Appearance")
	float Top = 0.f;

	/** Space on the right. */
	UPROPERTY(EditAnywhere, Category = "Appearance")
	float Right = 0.f;

	/** Space on the bottom. */
	UPROPERTY(EditAnywhere, Category = "Appearance")
	float Bottom = 0.f;
};
