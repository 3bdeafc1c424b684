#pragma once

// FGeometry: where a widget was laid out. The stand-in has no render transforms in its layout, so
// a geometry is an axis-aligned box in screen pixels with a layout scale of 1.

#include "CoreMinimal.h"
#include "Math/Vector2D.h"

/** A widget's laid-out box: its size in local space and its top-left corner on screen. */
struct FGeometry
{
	/** An empty geometry: zero size at the origin, what a widget has before its first layout. */
	FGeometry() = default;

#if PLAIN_PLATFORM_INTERNALS
	/** Stand-in: a box of InLocalSize whose top-left corner is at InAbsolutePosition on screen. */
	FGeometry(const FVector2D& InAbsolutePosition, const FVector2D& InLocalSize)
		: AbsolutePosition(InAbsolutePosition), LocalSize(InLocalSize)
	{
	}

	/** Stand-in: a child box at Offset (local) of the given size, as the panels arrange children. */
	FGeometry MakeChild(const FVector2D& LocalOffset, const FVector2D& ChildSize) const
	{
		return FGeometry(LocalToAbsolute(LocalOffset), ChildSize);
	}
#endif

	/** The size of the box in its own space. */
	FVector2D GetLocalSize() const { return LocalSize; }
	/** The size of the box on screen (the same, as the layout scale is 1). */
	FVector2D GetAbsoluteSize() const { return LocalSize * Scale; }
	/** The top-left corner on screen. */
	FVector2D GetAbsolutePosition() const { return AbsolutePosition; }
	/** The layout scale from local to screen space; always 1 here. */
	float GetAccumulatedLayoutTransformScale() const { return Scale; }

	/** A screen position in the box's local space. */
	FVector2D AbsoluteToLocal(const FVector2D& AbsoluteCoordinate) const { return (AbsoluteCoordinate - AbsolutePosition) / double(Scale); }
	/** A local position on screen. */
	FVector2D LocalToAbsolute(const FVector2D& LocalCoordinate) const { return AbsolutePosition + LocalCoordinate * double(Scale); }

	/** True when the screen position lies inside the box (right and bottom edges excluded). */
	bool IsUnderLocation(const FVector2D& AbsoluteCoordinate) const
	{
		const FVector2D Local = AbsoluteToLocal(AbsoluteCoordinate);
		return Local.X >= 0.0 && Local.Y >= 0.0 && Local.X < LocalSize.X && Local.Y < LocalSize.Y;
	}


	bool operator==(const FGeometry& Other) const { return AbsolutePosition == Other.AbsolutePosition && LocalSize == Other.LocalSize; }

private:
	/** Top-left corner in screen pixels. */
	FVector2D AbsolutePosition = FVector2D::ZeroVector;
	/** Size in local units. */
	FVector2D LocalSize = FVector2D::ZeroVector;
	/** Local-to-screen scale; kept so the API reads as the engine's. */
	float Scale = 1.0f;
};
