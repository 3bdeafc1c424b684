#pragma once

// The picture track of a recording: RGBA8 frames converted to YUV 4:2:0 with libswscale and
// encoded as H.264 (libx264) or, when that encoder is missing, MPEG-4 Visual. One thread at a time.

#include <cstdint>
#include <string>

class FRecordingMuxer;
struct AVCodecContext;
struct AVFrame;
struct AVStream;
struct SwsContext;

/** One video encoder feeding one stream of a FRecordingMuxer, at a constant frame rate. */
class FRecordingVideoStream
{
public:
	FRecordingVideoStream() = default;
	FRecordingVideoStream(const FRecordingVideoStream&) = delete;
	FRecordingVideoStream& operator=(const FRecordingVideoStream&) = delete;
	~FRecordingVideoStream();

	/**
	 * Opens EncoderName (empty: libx264, else mpeg4) for Width x Height (even) at Fps and adds its
	 * stream to Muxer, which must outlive this. Preset is libx264's (empty: veryfast); other
	 * encoders ignore it. False and the reason in OutError on failure.
	 */
	bool Open(FRecordingMuxer& Muxer, const std::string& EncoderName, const std::string& Preset, int Width, int Height, int Fps, std::string& OutError);
	/** The encoder in use, e.g. "libx264"; empty before Open. */
	std::string GetEncoderName() const;
	/** Encodes an RGBA8 picture (rows top-down, no padding; scaled if its size differs) as the next frame; null or empty is black. */
	bool Encode(const uint8_t* Rgba, int SourceWidth, int SourceHeight, std::string& OutError);
	/** Writes the frames the encoder still holds (its lookahead); call once, after the last Encode. */
	bool Flush(std::string& OutError);
	/** Frames given to Encode so far. */
	int64_t GetFramesEncoded() const { return FramesEncoded; }

private:
	// Makes sure the scaler reads SourceWidth x SourceHeight RGBA; false when libswscale cannot.
	bool PrepareScaler(int SourceWidth, int SourceHeight, std::string& OutError);

	// Where the packets go; not owned.
	FRecordingMuxer* Muxer = nullptr;
	// The opened encoder; time base 1/Fps.
	AVCodecContext* Codec = nullptr;
	// The muxer's stream for this track.
	AVStream* Stream = nullptr;
	// The YUV picture handed to the encoder, reused when the encoder holds no reference to it.
	AVFrame* Picture = nullptr;
	// RGBA -> YUV (and scale) for the last source size seen.
	SwsContext* Scaler = nullptr;
	// The source size Scaler was made for.
	int ScalerWidth = 0;
	// The source size Scaler was made for.
	int ScalerHeight = 0;
	// Frames encoded so far; the next frame's timestamp in 1/Fps units.
	int64_t FramesEncoded = 0;
};
