#include "WavFileAudioSink.h"

#include <cstring>

namespace
{
	void PutU32(uint8* Out, uint32 Value)
	{
		for (int32 Byte = 0; Byte < 4; ++Byte)
		{
			Out[Byte] = static_cast<uint8>(Value >> (8 * Byte));
		}
	}

	void PutU16(uint8* Out, uint16 Value)
	{
		Out[0] = static_cast<uint8>(Value);
		Out[1] = static_cast<uint8>(Value >> 8);
	}
}

namespace UE::Audio
{
	FWavFileAudioSink::FWavFileAudioSink(const FString& InPath)
	{
		File = std::fopen(TCHAR_TO_UTF8(*InPath), "wb");
		if (File)
		{
			WriteHeader();
		}
	}

	FWavFileAudioSink::~FWavFileAudioSink()
	{
		if (File)
		{
			std::fclose(File);
		}
	}

	void FWavFileAudioSink::Write(const float* Interleaved, int32 Frames)
	{
		if (!File || Frames <= 0)
		{
			return;
		}
		// Little-endian floats, as the WAV format wants and this machine has.
		std::fseek(File, 0, SEEK_END);
		std::fwrite(Interleaved, sizeof(float) * MixerChannels, static_cast<size_t>(Frames), File);
		FramesWritten += Frames;
		WriteHeader();
		std::fflush(File);
	}

	void FWavFileAudioSink::WriteHeader()
	{
		const uint32 BlockAlign = sizeof(float) * MixerChannels;
		const uint32 DataBytes = static_cast<uint32>(FramesWritten * BlockAlign);
		uint8 Header[44];
		std::memcpy(Header, "RIFF", 4);
		PutU32(Header + 4, 36 + DataBytes);
		std::memcpy(Header + 8, "WAVEfmt ", 8);
		PutU32(Header + 16, 16);
		PutU16(Header + 20, 3); // IEEE float
		PutU16(Header + 22, MixerChannels);
		PutU32(Header + 24, MixerSampleRate);
		PutU32(Header + 28, MixerSampleRate * BlockAlign);
		PutU16(Header + 32, static_cast<uint16>(BlockAlign));
		PutU16(Header + 34, 32);
		std::memcpy(Header + 36, "data", 4);
		PutU32(Header + 40, DataBytes);
		std::fseek(File, 0, SEEK_SET);
		std::fwrite(Header, 1, sizeof(Header), File);
	}
}
