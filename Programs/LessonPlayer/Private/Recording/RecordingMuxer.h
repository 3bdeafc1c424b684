#pragma once

// The MP4 file a recording goes into. Plain C++ on libavformat, no engine types, so the encoders
// and the muxer can run on the recorder's worker thread. One thread at a time uses an instance.

#include <string>

struct AVCodecContext;
struct AVFormatContext;
struct AVFrame;
struct AVPacket;
struct AVStream;

/** libavutil's message for an AVERROR code, e.g. "No such file or directory". */
std::string RecordingErrorText(int ErrorCode);

/** libavformat's MP4 muxer and its output file: streams are added, then Begin, packets, End. */
class FRecordingMuxer
{
public:
	FRecordingMuxer() = default;
	FRecordingMuxer(const FRecordingMuxer&) = delete;
	FRecordingMuxer& operator=(const FRecordingMuxer&) = delete;
	/** Closes the file if End was not reached (the file is then left without its index). */
	~FRecordingMuxer();

	/** Makes the MP4 muxer; nothing touches the disk yet. False and the reason in OutError on failure. */
	bool Create(std::string& OutError);
	/** Whether encoders must put their headers out of band (AV_CODEC_FLAG_GLOBAL_HEADER) for this container. */
	bool WantsGlobalHeader() const;
	/** Adds a stream carrying the opened encoder Codec's output; null and OutError on failure. */
	AVStream* AddStream(const AVCodecContext* Codec, std::string& OutError);
	/** Opens (replacing) the file at the UTF-8 Path and writes the header; false and the reason on failure. */
	bool Begin(const std::string& Path, std::string& OutError);
	/** Sends Frame to Codec (null drains it) and writes every packet it gives into Stream. */
	bool Encode(AVCodecContext* Codec, AVStream* Stream, const AVFrame* Frame, std::string& OutError);
	/** Writes the trailer, which moves the index to the front of the file, and closes it. */
	bool End(std::string& OutError);

private:
	// Closes the output file if it is open; frees the muxer.
	void Release();

	// The muxer; null before Create.
	AVFormatContext* Format = nullptr;
	// Reused for every packet an encoder gives.
	AVPacket* Packet = nullptr;
	// Whether the header is written, so End may write the trailer.
	bool bHeaderWritten = false;
};
