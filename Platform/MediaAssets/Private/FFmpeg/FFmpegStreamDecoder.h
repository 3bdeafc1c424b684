#pragma once

#include <cstddef>
#include <deque>
#include <string>

struct AVCodecContext;
struct AVFrame;
struct AVPacket;
struct AVStream;

/**
 * One stream's decoder with its backlog of demuxed packets, so that the worker can keep
 * demuxing for one stream while the other's decoded queue is full. Worker thread only.
 */
class FFmpegStreamDecoder
{
public:
	/** What one Step did. */
	enum class EStep
	{
		/** A frame came out into the caller's AVFrame. */
		Frame,
		/** A packet went in (or a broken one was skipped): call again. */
		Progress,
		/** The backlog is empty: demux more for this stream. */
		NeedInput,
		/** The stream is over: its last frame came out. */
		Finished,
	};

	FFmpegStreamDecoder() = default;
	~FFmpegStreamDecoder();
	FFmpegStreamDecoder(const FFmpegStreamDecoder&) = delete;
	FFmpegStreamDecoder& operator=(const FFmpegStreamDecoder&) = delete;

	/**
	 * Opens the stream's decoder; Threads 0 lets libavcodec choose. With bInFreshAfterFlush, Flush
	 * builds a new decoder rather than resetting this one: some decoders (AAC's noise
	 * substitution) carry state through a reset, and the sound after a seek would then depend on
	 * how far the worker had decoded. False with the cause in OutError.
	 */
	bool Open(AVStream* InStream, int InThreads, bool bInFreshAfterFlush, std::string& OutError);

	/** Takes the packet's data (the packet is left blank) into the backlog. */
	void QueuePacket(AVPacket* Packet);

	/** No packet will follow: once the backlog is decoded the decoder is drained. */
	void QueueEnd() { bEndQueued = true; }

	/** Does one piece of work: hands out a frame, feeds a packet, or says what it waits for. */
	EStep Step(AVFrame* OutFrame);

	/** Forgets the backlog and the decoder's pending frames, as after a seek. */
	void Flush();

	bool IsOpen() const { return Codec != nullptr; }
	bool IsFinished() const { return bFinished; }
	/** The last Step asked for input and nothing was queued since. */
	bool NeedsInput() const { return bNeedsInput; }
	size_t GetBacklogBytes() const { return BacklogBytes; }
	AVStream* GetStream() const { return Stream; }
	AVCodecContext* GetCodec() const { return Codec; }
	/** Packets the decoder refused as broken, and frames it could not decode. */
	int GetSkippedCount() const { return Skipped; }

private:
	void ClearBacklog();

	// The stream decoded; owned by the input.
	AVStream* Stream = nullptr;
	// The decoder; owned here.
	AVCodecContext* Codec = nullptr;
	// Packets demuxed but not yet sent to the decoder, oldest first; owned here.
	std::deque<AVPacket*> Backlog;
	// Payload bytes in Backlog, to cap how far demuxing runs ahead.
	size_t BacklogBytes = 0;
	// Decoder threads asked for, and whether Flush builds a new decoder.
	int Threads = 0;
	bool bFreshAfterFlush = false;
	// Input ended; once the backlog is sent, the decoder is drained.
	bool bEndQueued = false;
	// The drain request has been sent.
	bool bEndSent = false;
	// The decoder gave its last frame.
	bool bFinished = false;
	// The last Step returned NeedInput.
	bool bNeedsInput = false;
	// Decode failures in a row: a decoder that only fails is given up on.
	int FailuresInARow = 0;
	// Broken packets and frames skipped since opening.
	int Skipped = 0;
};
