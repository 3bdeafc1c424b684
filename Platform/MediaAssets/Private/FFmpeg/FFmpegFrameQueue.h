#pragma once

#include "FFmpegVideoFrame.h"

#include <cstdint>
#include <deque>
#include <memory>

/**
 * The decoded pictures waiting to be shown, in presentation order, at most about Capacity of
 * them. Not thread-safe by itself: the session's lock guards every call.
 */
class FFmpegFrameQueue
{
public:
	explicit FFmpegFrameQueue(int32_t InCapacity = 8);

	void SetCapacity(int32_t InCapacity);

	/** Appends a picture. The worker pushes only while !IsFull(), one or two at a time. */
	void Push(std::shared_ptr<const FFmpegVideoFrame> Frame);

	/**
	 * Removes and returns the newest picture whose time is <= Time, dropping the older ones that
	 * were never shown; null when every queued picture is still in the future.
	 */
	std::shared_ptr<const FFmpegVideoFrame> TakeDue(double Time);

	/** Drops the pictures that can no longer be shown at Time or later: the due ones but the newest. */
	void DropStale(double Time);

	/** True when a queued picture lies after Time, so the one due at Time is known. */
	bool HasFrameAfter(double Time) const;

	bool IsFull() const { return static_cast<int32_t>(Frames.size()) >= Capacity; }
	bool IsEmpty() const { return Frames.empty(); }
	int32_t Num() const { return static_cast<int32_t>(Frames.size()); }
	void Clear() { Frames.clear(); }

private:
	// Pictures in presentation order, oldest first.
	std::deque<std::shared_ptr<const FFmpegVideoFrame>> Frames;
	// Count at which the worker stops decoding pictures.
	int32_t Capacity;
};
