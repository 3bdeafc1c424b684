#include "Recording/RecordingQueue.h"

#include <algorithm>
#include <chrono>
#include <cstring>

FRecordingQueue::FRecordingQueue(int InCapacity)
	: Capacity(static_cast<size_t>(std::max(1, InCapacity)))
{
}

bool FRecordingQueue::PushPicture(const uint8_t* Rgba, int Width, int Height, double& OutSecondsWaited)
{
	FRecordingPicture Picture;
	{
		std::unique_lock Lock(Mutex);
		if (Waiting.size() >= Capacity && Failure.empty() && !bClosed)
		{
			const auto Start = std::chrono::steady_clock::now();
			RoomMade.wait(Lock, [this] { return Waiting.size() < Capacity || !Failure.empty() || bClosed; });
			OutSecondsWaited += std::chrono::duration<double>(std::chrono::steady_clock::now() - Start).count();
		}
		if (!Failure.empty() || bClosed)
		{
			return false;
		}
		if (!Spare.empty())
		{
			Picture.Rgba = std::move(Spare.back());
			Spare.pop_back();
		}
	}
	// The copy happens outside the lock, so the consumer can take the previous picture meanwhile.
	const bool bHasPixels = Rgba && Width > 0 && Height > 0;
	Picture.Width = bHasPixels ? Width : 0;
	Picture.Height = bHasPixels ? Height : 0;
	Picture.Rgba.resize(bHasPixels ? static_cast<size_t>(Width) * static_cast<size_t>(Height) * 4 : 0);
	if (bHasPixels)
	{
		std::memcpy(Picture.Rgba.data(), Rgba, Picture.Rgba.size());
	}
	{
		std::lock_guard Lock(Mutex);
		if (!Failure.empty() || bClosed)
		{
			return false;
		}
		Waiting.push_back(std::move(Picture));
	}
	WorkArrived.notify_one();
	return true;
}

bool FRecordingQueue::PushSound(const float* Interleaved, int Frames)
{
	{
		std::lock_guard Lock(Mutex);
		if (!Failure.empty() || bClosed)
		{
			return false;
		}
		Sound.insert(Sound.end(), Interleaved, Interleaved + static_cast<size_t>(Frames) * 2);
	}
	WorkArrived.notify_one();
	return true;
}

void FRecordingQueue::Close()
{
	{
		std::lock_guard Lock(Mutex);
		bClosed = true;
	}
	WorkArrived.notify_one();
	RoomMade.notify_one();
}

std::string FRecordingQueue::GetFailure() const
{
	std::lock_guard Lock(Mutex);
	return Failure;
}

bool FRecordingQueue::Take(FRecordingPicture& InOutPicture, bool& bOutHasPicture, std::vector<float>& OutSound)
{
	std::unique_lock Lock(Mutex);
	if (InOutPicture.Rgba.capacity() > 0)
	{
		Spare.push_back(std::move(InOutPicture.Rgba));
		InOutPicture.Rgba = {};
	}
	WorkArrived.wait(Lock, [this] { return !Waiting.empty() || !Sound.empty() || bClosed || !Failure.empty(); });
	bOutHasPicture = !Waiting.empty();
	if (bOutHasPicture)
	{
		InOutPicture = std::move(Waiting.front());
		Waiting.pop_front();
	}
	// Swapping keeps both buffers' capacity: the producer appends into the consumer's old one.
	OutSound.clear();
	OutSound.swap(Sound);
	const bool bDone = !bOutHasPicture && OutSound.empty() && (bClosed || !Failure.empty());
	Lock.unlock();
	if (bOutHasPicture)
	{
		RoomMade.notify_one();
	}
	return !bDone;
}

void FRecordingQueue::Fail(const std::string& Message)
{
	{
		std::lock_guard Lock(Mutex);
		Failure = Message.empty() ? std::string("unknown failure") : Message;
		Waiting.clear();
		Sound.clear();
	}
	RoomMade.notify_one();
	WorkArrived.notify_one();
}
