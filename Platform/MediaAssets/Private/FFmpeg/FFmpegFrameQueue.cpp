#include "FFmpegFrameQueue.h"

#include <algorithm>

namespace
{
	// A clock summed from steps of 1/30 s lands a hair off the picture's exact time; a picture
	// this close is due, or a run at the frame rate would show some pictures a step late.
	constexpr double DueSlack = 1e-6;
}

FFmpegFrameQueue::FFmpegFrameQueue(int32_t InCapacity)
	: Capacity(std::max(InCapacity, 2))
{
}

void FFmpegFrameQueue::SetCapacity(int32_t InCapacity)
{
	// Two is the least that lets the worker hold the due picture and the one after it.
	Capacity = std::max(InCapacity, 2);
}

void FFmpegFrameQueue::Push(std::shared_ptr<const FFmpegVideoFrame> Frame)
{
	Frames.push_back(std::move(Frame));
}

std::shared_ptr<const FFmpegVideoFrame> FFmpegFrameQueue::TakeDue(double Time)
{
	std::shared_ptr<const FFmpegVideoFrame> Due;
	while (!Frames.empty() && Frames.front()->Time <= Time + DueSlack)
	{
		Due = std::move(Frames.front());
		Frames.pop_front();
	}
	return Due;
}

void FFmpegFrameQueue::DropStale(double Time)
{
	while (Frames.size() >= 2 && Frames[1]->Time <= Time + DueSlack)
	{
		Frames.pop_front();
	}
}

bool FFmpegFrameQueue::HasFrameAfter(double Time) const
{
	return !Frames.empty() && Frames.back()->Time > Time + DueSlack;
}
