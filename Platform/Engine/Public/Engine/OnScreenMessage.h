#pragma once

// One line of GEngine's on-screen debug text, as the renderer draws it.

#include "CoreMinimal.h"

/** A debug line on screen: text, colour, scale, how long it has left, and its key. */
struct FOnScreenMessage
{
	/** INDEX_NONE (-1) for a line that was added; any other key names the line it replaces. */
	uint64 Key = static_cast<uint64>(-1);
	/** What is shown. */
	FString Text;
	/** The colour the text is drawn in. */
	FColor Color = FColor::White;
	/** How long the line was asked to stay. */
	float TimeToDisplay = 0.f;
	/** Seconds left before it disappears. */
	float TimeLeft = 0.f;
	/** Scale of the text relative to the default font size. */
	FVector2D TextScale = FVector2D::UnitVector;

	/** True for a line added without a key. */
	bool IsKeyless() const { return Key == static_cast<uint64>(-1); }
};
