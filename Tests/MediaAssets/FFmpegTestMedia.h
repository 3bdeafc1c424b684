#pragma once

// Media files made with the ffmpeg program for the FFmpeg playback tests, and the network
// stand-ins those tests open. Everything lives in one temporary folder per test process.

#include "../../Platform/MediaAssets/Private/FFmpeg/FFmpegSession.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

namespace FFmpegTestMedia
{
	/** The test files; Error says why they could not be made (no ffmpeg program). */
	struct FFiles
	{
		std::string Dir;
		// 3 s, 320x240 at 30 fps, keyframe every 1.5 s, stereo 440 Hz sine at -6 dBFS.
		std::string Clip;
		std::string AudioOnly;
		// One picture held over 2 s of the tone, as a slide while the teacher speaks.
		std::string Slide;
		// The first half of Clip: its index sits at the end, so it is gone.
		std::string Truncated;
		// Plain text under a video name.
		std::string TextAsVideo;
		// Clip with a stretch of its picture data overwritten.
		std::string Corrupt;
		std::string Error;

		~FFiles()
		{
			if (!Dir.empty())
			{
				std::error_code Ignored;
				std::filesystem::remove_all(Dir, Ignored);
			}
		}
	};

	inline bool Run(const std::string& Command)
	{
		return std::system((Command + " >/dev/null 2>&1").c_str()) == 0;
	}

	inline std::vector<char> ReadAll(const std::string& Path)
	{
		std::ifstream In(Path, std::ios::binary);
		return std::vector<char>(std::istreambuf_iterator<char>(In), std::istreambuf_iterator<char>());
	}

	inline void WriteAll(const std::string& Path, const char* Data, size_t Size)
	{
		std::ofstream(Path, std::ios::binary).write(Data, static_cast<std::streamsize>(Size));
	}

	/** Makes the files once per process. */
	inline const FFiles& Get()
	{
		static FFiles Files = [] {
			FFiles Made;
			std::string Pattern = (std::filesystem::temp_directory_path() / "ffmpeg-test-XXXXXX").string();
			if (!mkdtemp(Pattern.data()))
			{
				Made.Error = "cannot make a temporary folder";
				return Made;
			}
			Made.Dir = Pattern;
			Made.Clip = Made.Dir + "/clip.mp4";
			Made.AudioOnly = Made.Dir + "/tone.m4a";
			Made.Slide = Made.Dir + "/slide.mp4";
			Made.Truncated = Made.Dir + "/truncated.mp4";
			Made.TextAsVideo = Made.Dir + "/notes.mp4";
			Made.Corrupt = Made.Dir + "/corrupt.mp4";
			const std::string Video = Run("ffmpeg -hide_banner -encoders | grep -q libx264") ? "-c:v libx264 -preset veryfast -pix_fmt yuv420p" : "-c:v mpeg4 -q:v 5";
			const std::string Tone = "-f lavfi -i \"aevalsrc=0.5*sin(2*PI*440*t)|0.5*sin(2*PI*440*t):s=48000\"";
			if (!Run("ffmpeg -y -f lavfi -i testsrc2=size=320x240:rate=30 " + Tone + " -t 3 " + Video + " -g 45 -c:a aac -b:a 96k '" + Made.Clip + "'")
				|| !Run("ffmpeg -y " + Tone + " -t 1 -c:a aac '" + Made.AudioOnly + "'")
				|| !Run("ffmpeg -y -f lavfi -i color=c=navy:s=320x240:r=30:d=0.0333 " + Tone + " -t 2 " + Video + " -c:a aac '" + Made.Slide + "'"))
			{
				Made.Error = "the ffmpeg program could not make the test clip";
				return Made;
			}
			const std::vector<char> Bytes = ReadAll(Made.Clip);
			WriteAll(Made.Truncated, Bytes.data(), Bytes.size() / 2);
			std::vector<char> Damaged = Bytes;
			for (size_t Index = Damaged.size() * 2 / 5; Index < Damaged.size() * 2 / 5 + 4096 && Index < Damaged.size(); ++Index)
			{
				Damaged[Index] = static_cast<char>(Index * 131 + 7);
			}
			WriteAll(Made.Corrupt, Damaged.data(), Damaged.size());
			const std::string Text = "Lesson notes: this is not a video.\n";
			WriteAll(Made.TextAsVideo, Text.data(), Text.size());
			return Made;
		}();
		return Files;
	}

	/** A local TCP port that accepts connections (the kernel completes them) and never answers. */
	class FSilentServer
	{
	public:
		FSilentServer()
		{
			Socket = socket(AF_INET, SOCK_STREAM, 0);
			sockaddr_in Address{};
			Address.sin_family = AF_INET;
			Address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
			socklen_t Length = sizeof(Address);
			if (Socket >= 0 && bind(Socket, reinterpret_cast<sockaddr*>(&Address), sizeof(Address)) == 0 && listen(Socket, 8) == 0
				&& getsockname(Socket, reinterpret_cast<sockaddr*>(&Address), &Length) == 0)
			{
				Port = ntohs(Address.sin_port);
			}
		}
		~FSilentServer()
		{
			if (Socket >= 0)
			{
				close(Socket);
			}
		}
		FSilentServer(const FSilentServer&) = delete;
		FSilentServer& operator=(const FSilentServer&) = delete;

		int Port = 0;

	private:
		int Socket = -1;
	};

	/** A local port nobody listens on: connecting is refused at once. */
	inline int FindClosedPort()
	{
		FSilentServer Probe;
		return Probe.Port;
	}

	/** Polls the session until an event of one of the two types arrives; returns every event seen. */
	inline std::vector<FFmpegEvent> PollUntil(FFmpegSession& Session, EFFmpegEventType Type, EFFmpegEventType OrType, double TimeoutSeconds = 20.0)
	{
		std::vector<FFmpegEvent> Seen;
		const auto Deadline = std::chrono::steady_clock::now() + std::chrono::duration<double>(TimeoutSeconds);
		while (std::chrono::steady_clock::now() < Deadline)
		{
			const size_t Before = Seen.size();
			Session.PollEvents(Seen);
			for (size_t Index = Before; Index < Seen.size(); ++Index)
			{
				if (Seen[Index].Type == Type || Seen[Index].Type == OrType)
				{
					return Seen;
				}
			}
			std::this_thread::sleep_for(std::chrono::milliseconds(5));
		}
		return Seen;
	}
}
