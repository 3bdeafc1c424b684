#pragma once

// What the game thread hands the recorder's worker: copies of the pictures, in a small bounded
// queue, and the sound, appended to one buffer. The game thread waits only when the worker is a
// whole queue of pictures behind. Plain C++: no engine types, so the worker never touches any.

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <mutex>
#include <string>
#include <vector>

/** One RGBA8 picture waiting to be encoded (rows top-down, no padding). */
struct FRecordingPicture
{
	/** Width * Height * 4 bytes; empty for a black picture. */
	std::vector<uint8_t> Rgba;
	/** Size in pixels. */
	int Width = 0;
	/** Size in pixels. */
	int Height = 0;
};

/** The hand-over between one producer (the game thread) and one consumer (the worker). Thread-safe. */
class FRecordingQueue
{
public:
	/** A queue that holds at most Capacity pictures (at least 1). */
	explicit FRecordingQueue(int Capacity);

	/** Producer: copies the picture in, first waiting while the queue is full; false (nothing queued) once closed or failed. Adds the wait to OutSecondsWaited. */
	bool PushPicture(const uint8_t* Rgba, int Width, int Height, double& OutSecondsWaited);
	/** Producer: appends Frames frames of interleaved stereo; false once closed or failed. */
	bool PushSound(const float* Interleaved, int Frames);
	/** Producer: nothing more will come; the consumer takes what is queued and then stops. */
	void Close();
	/** The consumer's failure message, or empty while all is well. */
	std::string GetFailure() const;

	/**
	 * Consumer: waits for work, then takes the oldest picture (into InOutPicture, whose old buffer
	 * is kept for reuse; bOutHasPicture says whether one came) and all the sound (into OutSound,
	 * replacing its contents). False when the queue is closed and empty: the consumer is done.
	 */
	bool Take(FRecordingPicture& InOutPicture, bool& bOutHasPicture, std::vector<float>& OutSound);
	/** Consumer: records why it stopped, drops what is queued and wakes the producer. */
	void Fail(const std::string& Message);

private:
	// Guards every field below.
	mutable std::mutex Mutex;
	// Signalled when a picture is taken or the consumer fails (the producer may be waiting for room).
	std::condition_variable RoomMade;
	// Signalled when work arrives or the queue closes (the consumer may be waiting).
	std::condition_variable WorkArrived;
	// The most pictures Waiting may hold.
	const size_t Capacity;
	// Pictures not yet taken, oldest first.
	std::deque<FRecordingPicture> Waiting;
	// Picture buffers handed back by the consumer, reused so a recording allocates no pictures once running.
	std::vector<std::vector<uint8_t>> Spare;
	// Sound not yet taken, interleaved stereo.
	std::vector<float> Sound;
	// Set by Close.
	bool bClosed = false;
	// Set by Fail: why the consumer stopped.
	std::string Failure;
};
