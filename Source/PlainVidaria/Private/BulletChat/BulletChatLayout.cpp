#include "BulletChat/BulletChatLayout.h"

#include <cmath>

int32 FBulletChatLayout::GetTrackCount(double CanvasHeight)
{
	return static_cast<int32>(CanvasHeight * TrackHeightReciprocal);
}

int32 FBulletChatLayout::GetTracksNeeded(double NodeHeight)
{
	return static_cast<int32>(std::ceil(NodeHeight * TrackHeightReciprocal));
}

int32 FBulletChatLayout::FindFreeBlock(int32 Count, int32 Need, TFunctionRef<bool(int32 TrackIndex)> CanAdd)
{
	// First fit from the top, moving one lane at a time: lanes asked on one pass are asked again on
	// the next, because what they answer depends only on their last node, not on the block.
	for (int32 Start = 0; Start + Need <= Count && Start < Count; ++Start)
	{
		bool bAllAdmit = true;
		for (int32 Offset = 0; Offset < Need; ++Offset)
		{
			if (!CanAdd(Start + Offset))
			{
				bAllAdmit = false;
				break;
			}
		}
		if (bAllAdmit)
		{
			return Start;
		}
	}
	return INDEX_NONE;
}

int32 FBulletChatLayout::GetForcedStart(int32 RandomDraw, int32 Count, int32 Need)
{
	const int32 Range = Count - Need + 1;
	if (Range < 1)
	{
		return 0;
	}
	const int32 Start = static_cast<int32>(static_cast<float>(RandomDraw) * 0.000030518509f * static_cast<float>(Range));
	return FMath::Min(Start, Count - Need);
}

bool FBulletChatLayout::CanFollow(double LastParentWidth, double LastX, double LastWidth, float LastSpeed, float NewSpeed)
{
	// Kept in single precision on purpose: every later step reads this narrowed value.
	const float Travelled = static_cast<float>(LastParentWidth - LastX);
	if (!(static_cast<double>(Travelled) > LastWidth))
	{
		// The tail of the last node is still on or beyond the right edge.
		return false;
	}
	if (LastSpeed >= NewSpeed)
	{
		// The newcomer can never close the gap.
		return true;
	}
	const float CatchUpTime = static_cast<float>((static_cast<double>(Travelled) - LastWidth) / static_cast<double>(NewSpeed - LastSpeed));
	const float RemainTime = static_cast<float>((LastParentWidth + LastWidth - static_cast<double>(Travelled)) / static_cast<double>(LastSpeed));
	return CatchUpTime > RemainTime;
}

float FBulletChatLayout::GetSpeedFromDraw(int32 RandomDraw)
{
	// 0.0012207404 is 40 / 32767 in single precision, so both ends of the draw are reached.
	return static_cast<float>(RandomDraw) * 0.0012207404f + 100.0f;
}

float FBulletChatLayout::GetFlightTime(double NodeWidth, double ParentWidth, float Speed)
{
	return static_cast<float>((NodeWidth + ParentWidth) / static_cast<double>(Speed));
}

float FBulletChatLayout::AdvanceElapsed(float ElapsedTime)
{
	return static_cast<float>(static_cast<double>(ElapsedTime) + StepSeconds);
}

FTimespan FBulletChatLayout::GetSecondKey(const FTimespan& Time)
{
	// Days fall away, so a clock past 24 hours selects the first day's comments again.
	return FTimespan(0, Time.GetHours(), Time.GetMinutes(), Time.GetSeconds(), 0);
}
