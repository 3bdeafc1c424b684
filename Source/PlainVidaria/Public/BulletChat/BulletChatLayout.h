#pragma once

#include "CoreMinimal.h"
#include "Misc/Timespan.h"
#include "Templates/Function.h"

/**
 * The numbers behind the bullet chat's motion and lanes, kept apart from the widgets so that every
 * rounding step is in one place. The precision of each step (which sums are single, which double)
 * is deliberate: lane admission compares times that can be equal, and the same inputs must give
 * the same answer on every machine. Canvas units throughout, X to the right, Y downward.
 */
struct PLAINVIDARIA_API FBulletChatLayout
{
	/** Height of one lane of the overlay. */
	static constexpr double TrackHeight = 15.12;
	/** The nearest double to 1 / TrackHeight; lengths are multiplied by it rather than divided. */
	static constexpr double TrackHeightReciprocal = 0.06613756613756615;
	/** Length of one flight step, in seconds and in the distance factor alike. */
	static constexpr double StepSeconds = 0.01;

	/** How many whole lanes fit in a canvas of this height. */
	static int32 GetTrackCount(double CanvasHeight);

	/** How many neighbouring lanes a node of this height covers; a height of 0 needs none. */
	static int32 GetTracksNeeded(double NodeHeight);

	/**
	 * The first Start, from the top, whose lanes Start to Start + Need - 1 all admit the node, or
	 * INDEX_NONE. CanAdd is asked lane by lane and no further than the first refusal.
	 */
	static int32 FindFreeBlock(int32 Count, int32 Need, TFunctionRef<bool(int32 TrackIndex)> CanAdd);

	/** The first lane of a block chosen at random from a draw of 0 to 32767; 0 when no block fits. */
	static int32 GetForcedStart(int32 RandomDraw, int32 Count, int32 Need);

	/**
	 * Whether a newcomer of NewSpeed may start at the right edge behind the lane's last node, a node
	 * LastWidth wide at LastX on a canvas LastParentWidth wide, flying at LastSpeed: only when its
	 * tail has cleared the edge and the newcomer would not catch it before it has left the canvas.
	 */
	static bool CanFollow(double LastParentWidth, double LastX, double LastWidth, float LastSpeed, float NewSpeed);

	/** A flight speed from 100 to 140 units a second, from a draw of 0 to 32767. */
	static float GetSpeedFromDraw(int32 RandomDraw);

	/** Seconds a node needs to cross from the right edge until its own right edge passes the left one. */
	static float GetFlightTime(double NodeWidth, double ParentWidth, float Speed);

	/** The flight clock after one more step. */
	static float AdvanceElapsed(float ElapsedTime);

	/** The start of the second of the day that Time falls in: the key comments are filed under. */
	static FTimespan GetSecondKey(const FTimespan& Time);
};
