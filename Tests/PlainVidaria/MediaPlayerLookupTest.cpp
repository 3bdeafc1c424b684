// PlainVidaria::LoadMediaPlayer: the held path as the only cache, the scan in the file manager's
// order, the "/Content/" cut, and the red line when nothing of that name exists. Loaded assets
// stay in memory for the whole run, so each test uses names of its own.

#include "MediaPlayerLookup.h"

#include "Engine/Engine.h"
#include "MediaPlayer.h"
#include "../Engine/ScratchProject.h"

#include <sys/stat.h>

namespace
{
	const char* const PlayerAsset = R"({ "Class": "/Script/MediaAssets.MediaPlayer" })";
	const char* const MaterialAsset = R"({ "Class": "/Script/Engine.Material" })";

	UMediaPlayer* Lookup(const TCHAR* Name, FString& InOutPath) { return PlainVidaria::LoadMediaPlayer(Name, InOutPath); }
	int32 Lines() { return GEngine->GetOnScreenMessages().Num(); }
}

using FMediaPlayerLookupTest = FScratchProject;

TEST_F(FMediaPlayerLookupTest, HeldPathIsUsedAsIsAndAStaleOneIsRepairedInTheFileManagersOrder)
{
	GEngine->ClearOnScreenDebugMessages();
	Write("Content/Lessons/MP_Cache.uasset", PlayerAsset);
	FString Held;
	UMediaPlayer* Player = Lookup(TEXT("mp_cache"), Held);
	ASSERT_NE(Player, nullptr);
	EXPECT_TRUE(Held.Equals(TEXT("/Game/Lessons/MP_Cache"), ESearchCase::CaseSensitive)) << Held;

	// Copies that a scan would now find first (a folder's files before its subfolders): with the
	// held path no scan runs. A path that loads nothing, or another class, is repaired at once.
	Write("Content/MP_Cache.uasset", PlayerAsset);
	Write("Content/A/MP_Cache.uasset", PlayerAsset);
	EXPECT_EQ(Lookup(TEXT("MP_Cache"), Held), Player);
	Write("Content/M_NotAPlayer.uasset", MaterialAsset);
	for (const TCHAR* Stale : {TEXT("/Game/Moved/MP_Cache"), TEXT("/Game/M_NotAPlayer")})
	{
		Held = Stale;
		EXPECT_NE(Lookup(TEXT("MP_Cache"), Held), nullptr) << FString(Stale);
		EXPECT_TRUE(Held.Equals(TEXT("/Game/MP_Cache"))) << Held;
	}

	// A file of that name that is no media player: null and no message, but the path is rewritten.
	Held.Empty();
	EXPECT_EQ(Lookup(TEXT("M_NotAPlayer"), Held), nullptr);
	EXPECT_TRUE(Held.Equals(TEXT("/Game/M_NotAPlayer"))) << Held;
	EXPECT_EQ(Lines(), 0);
}

TEST_F(FMediaPlayerLookupTest, NothingOfThatNameShowsOneRedLinePerCallAndTheCutFallsAtTheFirstContent)
{
	GEngine->ClearOnScreenDebugMessages();
	Write("Content/MP_Named.uasset", PlayerAsset);
	std::filesystem::create_directories(Path("Content/MP_Folder.uasset"));
	Write("Plugins/Extra/Content/MP_Plugin.uasset", PlayerAsset);
	FString Held = TEXT("/Game/Kept");
	for (const TCHAR* Name : {TEXT("MP_Named.uasset"), TEXT("MP_Folder"), TEXT("MP_Plugin")})
	{
		EXPECT_EQ(Lookup(Name, Held), nullptr) << FString(Name);
	}
	EXPECT_TRUE(Held.Equals(TEXT("/Game/Kept")));
	ASSERT_EQ(Lines(), 3);
	const FOnScreenMessage& Newest = GEngine->GetOnScreenMessages()[0];
	EXPECT_TRUE(Newest.Text.Equals(TEXT("The instance named MP_Plugin can't be found. Please check whether the name of mediaplayer has been modified or deleted."),
		ESearchCase::CaseSensitive)) << Newest.Text;
	EXPECT_TRUE(Newest.IsKeyless() && Newest.Color == FColor::Red && Newest.TimeToDisplay == 10.0f);
	UEngine* const Engine = GEngine;
	GEngine = nullptr;
	EXPECT_EQ(Lookup(TEXT("MP_Missing"), Held), nullptr);
	GEngine = Engine;

	// A project below a folder that is itself called content: the path leads nowhere, silently.
	FPaths::SetProjectDir(FString(Path("content/Project").c_str()));
	Write("content/Project/Content/Media/MP_Nested.uasset", PlayerAsset);
	EXPECT_EQ(Lookup(TEXT("MP_Nested"), Held), nullptr);
	EXPECT_TRUE(Held.Equals(TEXT("/Game/Project/Content/Media/MP_Nested"))) << Held;
	EXPECT_EQ(Lines(), 3);
}

TEST_F(FMediaPlayerLookupTest, ScanSkipsWhatItCannotReadAndFinishesOnAHugeTree)
{
	for (int32 File = 0; File < 20000; ++File)
	{
		const std::string Dir = Path("Content/Bulk/F" + std::to_string(File / 200));
		std::filesystem::create_directories(Dir);
		std::ofstream(Dir + "/Asset" + std::to_string(File) + ".uasset");
	}
	std::string Deep = "Content/Deep";
	for (int32 Level = 0; Level < 200; ++Level)
	{
		Deep += "/d";
	}
	Write(Deep + "/MP_Bottom.uasset", PlayerAsset);
	// File modes stop no test run as root; then the locked folder is simply read.
	Write("Content/Locked/Other.uasset", PlayerAsset);
	chmod(Path("Content/Locked").c_str(), 0);
	std::filesystem::create_directory_symlink(Path("Content"), Path("Content/Bulk/Loop"));

	FString Held;
	EXPECT_NE(Lookup(TEXT("MP_Bottom"), Held), nullptr);
	EXPECT_EQ(Held.Len(), FString(TEXT("/Game/Deep/MP_Bottom")).Len() + 200 * 2);
	chmod(Path("Content/Locked").c_str(), 0755);
}
