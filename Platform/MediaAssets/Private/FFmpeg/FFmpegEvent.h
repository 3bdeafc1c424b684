#pragma once

#include <cstdint>
#include <string>

/** What happened to an FFmpegSession's media; see FFmpegEvent. */
enum class EFFmpegEventType : uint8_t
{
	/** The media is open and its first picture is decoded; the info fields are set. */
	Opened,
	/** The media could not be opened; Message names the media and the cause. */
	OpenFailed,
	/** The latest Seek has its picture decoded. A seek replaced by a newer one reports nothing. */
	SeekCompleted,
	/** The last picture was handed out and the clock passed the end of both picture and sound. */
	EndReached,
	/** Something went wrong while playing (a read or seek failure); playback goes on if it can. */
	Error,
};

/** What an opened media is like, as the Opened event reports it. */
struct FFmpegMediaInfo
{
	/** Length in seconds; 0 when the container does not say (a live stream). */
	double Duration = 0.0;
	/** Size of the delivered RGBA pictures, after any size limit of the open options. */
	int32_t Width = 0;
	int32_t Height = 0;
	/** Nominal frames per second of the picture. */
	double FrameRate = 0.0;
	bool bHasAudio = false;
	bool bSeekable = false;
};

/** One notice from an FFmpegSession, handed to the owner's thread by PollEvents. */
struct FFmpegEvent
{
	EFFmpegEventType Type = EFFmpegEventType::Error;
	/** For OpenFailed and Error: one line naming the media and the cause. */
	std::string Message;
	/** Set by Opened only. */
	FFmpegMediaInfo Info;
	/** The seek generation the event belongs to (SeekCompleted: the seek it completes). */
	uint32_t Generation = 0;
};
