// Writes the seed corpus of every fuzz target into OUT/<Target>/: the project's comment documents
// and assets, a comment settings slot as the plug-in saves it, command lines, time texts, and the
// small lesson clip the build made with ffmpeg (passed as LESSON), whole and cut short.
//
// Usage: PlainFuzzSeeds OUT CONTENT_DIR LESSON

#include "FuzzKit.h"

#include "BulletChat/BulletChatSave.h"
#include "Kismet/GameplayStatics.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace fs = std::filesystem;

namespace
{
	fs::path Out;

	void Write(const std::string& Target, const std::string& Name, const std::string& Bytes)
	{
		PlainFuzz::WriteFile((Out / Target / Name).string(), reinterpret_cast<const uint8_t*>(Bytes.data()), Bytes.size());
	}

	void Copy(const std::string& Target, const fs::path& From)
	{
		fs::create_directories(Out / Target);
		fs::copy_file(From, Out / Target / From.filename(), fs::copy_options::overwrite_existing);
	}

	std::string ReadAll(const fs::path& Path)
	{
		std::ifstream In(Path, std::ios::binary);
		return std::string(std::istreambuf_iterator<char>(In), std::istreambuf_iterator<char>());
	}

	// A command line as the fuzz target reads one: arguments separated by NUL bytes.
	std::string Arguments(const std::vector<std::string>& Parts)
	{
		std::string Joined;
		for (const std::string& Part : Parts)
		{
			Joined += Part;
			Joined += '\0';
		}
		return Joined;
	}
}

int main(int Argc, char** Argv)
{
	if (Argc != 4)
	{
		std::fprintf(stderr, "usage: PlainFuzzSeeds OUT CONTENT_DIR LESSON\n");
		return 2;
	}
	Out = Argv[1];
	const fs::path Content = Argv[2];
	const fs::path Lesson = Argv[3];
	PlainFuzz::Start(false);

	// Comment documents: the project's two, one comment alone, and entries of every kind.
	for (const fs::directory_entry& Entry : fs::directory_iterator(Content / "BulletChat"))
	{
		if (Entry.path().extension() == ".json")
		{
			Copy("BulletChatDocument", Entry.path());
			Copy("JsonReader", Entry.path());
		}
	}
	Write("BulletChatDocument", "single.json",
		R"({ "id": 7, "post_id": 2, "bullet_chat_author_id": 9, "bullet_chat_author": "Ann", "bullet_chat_date": "2024.03.01-10.20.30", "time": "00:01:05.250", "bullet_chat_content": "nice", "fabulous": 3 })");
	Write("BulletChatDocument", "mixed.json",
		R"({ "datas": [ 1, null, "x", [], { "id": 1e12, "time": "-00:00:01" }, { "id": "2", "time": 5, "bullet_chat_content": "\u00e9\ud83d\ude00\t" } ] })");

	// Assets: every .uasset of the project (text documents), also fed to the JSON reader.
	for (const fs::directory_entry& Entry : fs::recursive_directory_iterator(Content))
	{
		if (Entry.path().extension() == ".uasset")
		{
			Copy("AssetReader", Entry.path());
			Copy("JsonReader", Entry.path());
		}
	}
	Write("JsonReader", "values.json", R"([0, -0.5e-3, 1E+2, true, false, null, "a\"\\\/\b\f\n\r\t\u0041", {}, [[]], {"k": {"k": [1]}}])");

	// Times and dates in the forms the documents use, and near misses.
	const char* const Times[] = { "00:00:01", "00:01:05.250", "1.02:03:04.005", "-00:00:30", "+10675199.02:48:05.477", "59", "12:60:00",
		"2024.03.01-10.20.30", "2024-03-01T10:20:30.123Z", "2024-03-01T10:20:30+05:30", "9999.12.31-23.59.59:999", "0001.01.01" };
	int32 Index = 0;
	for (const char* Time : Times)
	{
		Write("TimeParse", "time" + std::to_string(Index++), Time);
	}

	// The comment settings slot, saved by the plug-in, and its defaults.
	UBulletChatSave::LoadFontSize();
	Copy("SaveSlot", fs::path(TCHAR_TO_UTF8(*UGameplayStatics::GetSaveGamePath(TEXT("BULLETCHAT_SGSLOT")))));
	fs::rename(Out / "SaveSlot" / "BULLETCHAT_SGSLOT.sav", Out / "SaveSlot" / "defaults.sav");
	UBulletChatSave::SaveFontSize(30);
	UBulletChatSave::SaveSpeedScale(1.5f);
	UBulletChatSave::SaveIsOpend(false);
	Copy("SaveSlot", fs::path(TCHAR_TO_UTF8(*UGameplayStatics::GetSaveGamePath(TEXT("BULLETCHAT_SGSLOT")))));

	// Command lines: what the README and --help show, and the mistakes they answer.
	const std::vector<std::vector<std::string>> CommandLines = {
		{},
		{ "--help" },
		{ "lesson.mp4", "--comments", "comments.json" },
		{ "a.mp4", "b.mp4", "--headless", "--seconds", "12", "--screenshots", "shots", "--every", "3" },
		{ "--headless", "--record", "out.mp4", "--step", "1/60", "--size", "640x360", "--stats" },
		{ "https://example.org/lesson.m3u8", "--seconds", "2.5" },
		{ "--size", "12x12" },
		{ "--step", "0" },
		{ "--comments" },
		{ "--bogus" },
	};
	Index = 0;
	for (const std::vector<std::string>& CommandLine : CommandLines)
	{
		Write("CommandLine", "args" + std::to_string(Index++), Arguments(CommandLine));
	}

	// Media: the small lesson clip, whole and cut in half.
	const std::string Clip = ReadAll(Lesson);
	if (Clip.empty())
	{
		std::fprintf(stderr, "PlainFuzzSeeds: cannot read %s\n", Lesson.string().c_str());
		return 1;
	}
	Write("MediaOpen", "lesson.mp4", Clip);
	Write("MediaOpen", "lesson-half.mp4", Clip.substr(0, Clip.size() / 2));
	return 0;
}
