#include "FFmpegAudioQueue.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace
{
	// Container timestamps are rounded to their own time base (often milliseconds); anything
	// closer than this to the previous end is the same instant.
	constexpr int64_t SnapFrames = FFmpegAudioRate / 100;
}

void FFmpegAudioQueue::Push(int64_t StartFrame, const float* Interleaved, int32_t Frames)
{
	if (Frames <= 0)
	{
		return;
	}
	if (LastEnd >= 0 && std::llabs(StartFrame - LastEnd) <= SnapFrames)
	{
		StartFrame = LastEnd;
	}
	FChunk Chunk;
	Chunk.Start = StartFrame;
	Chunk.Samples.assign(Interleaved, Interleaved + static_cast<size_t>(Frames) * FFmpegAudioChannels);
	Chunks.push_back(std::move(Chunk));
	Queued += Frames;
	LastEnd = StartFrame + Frames;
}

int32_t FFmpegAudioQueue::Read(int64_t FirstFrame, float* OutInterleaved, int32_t Frames)
{
	if (Frames <= 0)
	{
		return 0;
	}
	std::memset(OutInterleaved, 0, static_cast<size_t>(Frames) * FFmpegAudioChannels * sizeof(float));
	const int64_t WindowEnd = FirstFrame + Frames;
	int32_t Filled = 0;
	for (const FChunk& Chunk : Chunks)
	{
		const int64_t From = std::max(Chunk.Start + Chunk.Consumed, FirstFrame);
		const int64_t To = std::min(Chunk.Start + Chunk.Frames(), WindowEnd);
		if (From >= To)
		{
			continue;
		}
		std::memcpy(OutInterleaved + (From - FirstFrame) * FFmpegAudioChannels, Chunk.Samples.data() + (From - Chunk.Start) * FFmpegAudioChannels,
			static_cast<size_t>(To - From) * FFmpegAudioChannels * sizeof(float));
		Filled += static_cast<int32_t>(To - From);
	}
	DropBefore(WindowEnd);
	return std::min(Filled, Frames);
}

void FFmpegAudioQueue::DropBefore(int64_t Frame)
{
	while (!Chunks.empty())
	{
		FChunk& Front = Chunks.front();
		const int64_t Begin = Front.Start + Front.Consumed;
		const int64_t End = Front.Start + Front.Frames();
		if (End <= Frame)
		{
			Queued -= End - Begin;
			Chunks.pop_front();
			continue;
		}
		if (Begin < Frame)
		{
			Queued -= Frame - Begin;
			Front.Consumed = static_cast<int32_t>(Frame - Front.Start);
		}
		break;
	}
}

void FFmpegAudioQueue::Clear()
{
	Chunks.clear();
	Queued = 0;
	LastEnd = -1;
}
