#pragma once

// The sound track of a recording: the mixer's 48 kHz interleaved float stereo, made planar with
// libswresample, kept in a FIFO and encoded as AAC in the encoder's own block size. The track is
// held to the picture's length: a block is encoded only once the picture reaches its end, and
// Finish pads or trims the sound to the picture. One thread at a time.

#include <cstdint>
#include <string>
#include <vector>

class FRecordingMuxer;
struct AVAudioFifo;
struct AVCodecContext;
struct AVFrame;
struct AVStream;
struct SwrContext;

/** One AAC encoder feeding one stream of a FRecordingMuxer. */
class FRecordingAudioStream
{
public:
	/** The rate of the sound taken and written. */
	static constexpr int SampleRate = 48000;

	FRecordingAudioStream() = default;
	FRecordingAudioStream(const FRecordingAudioStream&) = delete;
	FRecordingAudioStream& operator=(const FRecordingAudioStream&) = delete;
	~FRecordingAudioStream();

	/** Opens libavcodec's AAC encoder and adds its stream to Muxer, which must outlive this; false and OutError on failure. */
	bool Open(FRecordingMuxer& Muxer, std::string& OutError);
	/** Queues Frames frames of interleaved stereo at SampleRate. */
	bool Push(const float* Interleaved, int Frames, std::string& OutError);
	/** Encodes every whole block of queued sound that ends at or before sample LimitSamples. */
	bool EncodeUpTo(int64_t LimitSamples, std::string& OutError);
	/** Makes the track exactly TotalSamples long (silence added or queued sound dropped), encodes it all and drains the encoder. */
	bool Finish(int64_t TotalSamples, std::string& OutError);
	/** Samples encoded so far (the track's length). */
	int64_t GetSamplesEncoded() const { return SamplesEncoded; }

private:
	// Encodes Count samples from the front of the FIFO (Count <= the block size) as one frame.
	bool EncodeBlock(int Count, std::string& OutError);

	// Where the packets go; not owned.
	FRecordingMuxer* Muxer = nullptr;
	// The opened AAC encoder; time base 1/SampleRate.
	AVCodecContext* Codec = nullptr;
	// The muxer's stream for this track.
	AVStream* Stream = nullptr;
	// One block of planar sound handed to the encoder.
	AVFrame* Block = nullptr;
	// Interleaved float -> planar float, same rate.
	SwrContext* Converter = nullptr;
	// Planar sound waiting to be encoded.
	AVAudioFifo* Fifo = nullptr;
	// Converted sound on its way into the FIFO, one vector per side, reused.
	std::vector<float> Planes[2];
	// Samples encoded so far; the next block's timestamp.
	int64_t SamplesEncoded = 0;
	// Whether the encoder takes a shorter last block (else it is padded with silence).
	bool bSmallLastBlock = false;
};
