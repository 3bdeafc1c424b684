#include "SoakMedia.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

bool SoakMedia::MakeLesson(const std::string& Path, int Seconds)
{
	if (std::filesystem::exists(Path))
	{
		return true;
	}
	std::filesystem::create_directories(std::filesystem::path(Path).parent_path());
	const std::string Partial = Path + ".part.mp4";
	const std::string Length = std::to_string(Seconds);
	// A keyframe every 10 s keeps seeks cheap; the sound is a soft tone, so the audio path runs.
	const std::string Command = "ffmpeg -hide_banner -loglevel error -y -f lavfi -i testsrc2=size=64x36:rate=5 -f lavfi -i "
								"\"sine=frequency=440:sample_rate=8000\" -t " + Length + " -c:v libx264 -preset ultrafast -g 50 -pix_fmt yuv420p "
								"-c:a aac -b:a 16k -ac 1 '" + Partial + "'";
	if (std::system(Command.c_str()) != 0)
	{
		return false;
	}
	std::filesystem::rename(Partial, Path);
	return true;
}

bool SoakMedia::MakeComments(const std::string& Path, int Count, int Seconds, int Period, int ActiveSeconds)
{
	FILE* File = std::fopen(Path.c_str(), "w");
	if (!File)
	{
		return false;
	}
	static const char* const Texts[] = {"Great lesson", "加油", "谢谢老师", "Could you repeat that part?", "666", "This is the key step",
		"Where is the handout?", "明白了"};
	std::fputs("{\"datas\":[", File);
	for (int Index = 0; Index < Count; ++Index)
	{
		// Evenly spread over the active time, so the comments in flight stay steady and any
		// growth is a leak's.
		const long long Active = Period > 0 ? static_cast<long long>(Seconds) / Period * ActiveSeconds : Seconds;
		const long long Offset = static_cast<long long>(Index) * Active / Count;
		const long long Second = Period > 0 ? Offset / ActiveSeconds * Period + Offset % ActiveSeconds : Offset;
		std::fprintf(File,
			"%s{\"id\":%d,\"post_id\":1,\"bullet_chat_author_id\":%d,\"bullet_chat_author\":\"Viewer%d\",\"bullet_chat_date\":"
			"\"2026.11.23-10.00.00\",\"time\":\"%02lld:%02lld:%02lld\",\"bullet_chat_content\":\"%s\",\"fabulous\":%d}",
			Index == 0 ? "" : ",", Index + 1, 100 + Index % 50, Index % 97, Second / 3600, Second / 60 % 60, Second % 60,
			Texts[Index % (sizeof(Texts) / sizeof(Texts[0]))], Index % 7);
	}
	std::fputs("]}\n", File);
	return std::fclose(File) == 0;
}
