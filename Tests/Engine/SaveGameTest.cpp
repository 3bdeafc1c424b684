// Save slots: what a slot keeps, how it is replaced, and what a bad slot gives.

#include "SaveGameTestTypes.h"

#include "Kismet/GameplayStatics.h"
#include "Templates/Casts.h"
#include "ScratchProject.h"

#include <sys/stat.h>

namespace
{
	USaveTestSettings* MakeSettings()
	{
		return Cast<USaveTestSettings>(UGameplayStatics::CreateSaveGameObject(USaveTestSettings::StaticClass()));
	}
}

using FSaveSlots = FScratchProject;

TEST_F(FSaveSlots, RoundTripKeepsEveryNonTransientPropertyKind)
{
	EXPECT_EQ(UGameplayStatics::CreateSaveGameObject(USaveGame::StaticClass()), nullptr) << "abstract base";
	EXPECT_EQ(UGameplayStatics::LoadGameFromSlot(TEXT("Missing"), 0), nullptr);
	EXPECT_FALSE(UGameplayStatics::DoesSaveGameExist(TEXT("Missing"), 0));

	USaveTestSettings* Saved = MakeSettings();
	ASSERT_NE(Saved, nullptr);
	Saved->FontSize = 0.1f;
	Saved->SpeedScale = 1.0 / 3.0;
	Saved->bIsOpened = false;
	Saved->Big = -9007199254740993LL; // not representable as a JSON double
	// Characters beyond U+FFFF are surrogate pairs in an FString and must come back whole.
	Saved->Title = TEXT("Lesson \"1\" \u5f39\u5e55 😂 𠀀\n");
	Saved->Tag = FName(TEXT("Chapter"));
	Saved->Speed = ESaveTestSpeed::Fast;
	Saved->Numbers = {3, -1, 4};
	Saved->Points.Add({5, TEXT("five")});
	Saved->Tint = FLinearColor(0.25f, 0.5f, 0.75f, 0.1f);
	Saved->NotSaved = 99;
	ASSERT_TRUE(UGameplayStatics::SaveGameToSlot(Saved, TEXT("BULLETCHAT_SGSLOT"), 0));
	EXPECT_TRUE(UGameplayStatics::DoesSaveGameExist(TEXT("BULLETCHAT_SGSLOT"), 0));
	EXPECT_FALSE(std::filesystem::exists(Path("Saved/SaveGames/BULLETCHAT_SGSLOT.sav.tmp")));

	USaveTestSettings* Loaded = Cast<USaveTestSettings>(UGameplayStatics::LoadGameFromSlot(TEXT("BULLETCHAT_SGSLOT"), 0));
	ASSERT_NE(Loaded, nullptr);
	EXPECT_NE(Loaded, Saved);
	EXPECT_EQ(Loaded->FontSize, 0.1f);
	EXPECT_EQ(Loaded->SpeedScale, 1.0 / 3.0);
	EXPECT_FALSE(Loaded->bIsOpened);
	EXPECT_EQ(Loaded->Big, -9007199254740993LL);
	EXPECT_TRUE(Loaded->Title.Equals(Saved->Title));
	EXPECT_EQ(Loaded->Tag, FName(TEXT("Chapter")));
	EXPECT_EQ(Loaded->Speed, ESaveTestSpeed::Fast);
	EXPECT_EQ(Loaded->Numbers, (TArray<int32>{3, -1, 4}));
	ASSERT_EQ(Loaded->Points.Num(), 1);
	EXPECT_EQ(Loaded->Points[0].X, 5);
	EXPECT_TRUE(Loaded->Points[0].Label.Equals(TEXT("five")));
	EXPECT_EQ(Loaded->Tint, FLinearColor(0.25f, 0.5f, 0.75f, 0.1f));
	EXPECT_EQ(Loaded->NotSaved, 7) << "transient properties are not written";
	EXPECT_EQ(CountAllWarnings(), 0);

	// A slot named in Chinese (with an emoji) is a file named in UTF-8.
	ASSERT_TRUE(UGameplayStatics::SaveGameToSlot(Saved, TEXT("弹幕设置😂"), 0));
	EXPECT_TRUE(std::filesystem::exists(Path("Saved/SaveGames/弹幕设置😂.sav")));
	const USaveTestSettings* Named = Cast<USaveTestSettings>(UGameplayStatics::LoadGameFromSlot(TEXT("弹幕设置😂"), 0));
	ASSERT_NE(Named, nullptr);
	EXPECT_TRUE(Named->Title.Equals(Saved->Title));

	EXPECT_TRUE(UGameplayStatics::DeleteGameInSlot(TEXT("BULLETCHAT_SGSLOT"), 0));
	EXPECT_FALSE(UGameplayStatics::DoesSaveGameExist(TEXT("BULLETCHAT_SGSLOT"), 0));
	EXPECT_FALSE(UGameplayStatics::DeleteGameInSlot(TEXT("BULLETCHAT_SGSLOT"), 0));
}

TEST_F(FSaveSlots, ReplacementIsAtomicAndAFailedWriteKeepsTheOldSlot)
{
	USaveTestSettings* Settings = MakeSettings();
	Settings->FontSize = 30.f;
	ASSERT_TRUE(UGameplayStatics::SaveGameToSlot(Settings, TEXT("Slot"), 0));

	// A temp file left by a crash is simply overwritten by the next save.
	Write("Saved/SaveGames/Slot.sav.tmp", "{ half a fi");
	Settings->FontSize = 31.f;
	ASSERT_TRUE(UGameplayStatics::SaveGameToSlot(Settings, TEXT("Slot"), 0));
	EXPECT_EQ(Cast<USaveTestSettings>(UGameplayStatics::LoadGameFromSlot(TEXT("Slot"), 0))->FontSize, 31.f);

	// The temp file cannot be written (a folder is in its way): false, a warning, the old slot intact.
	std::filesystem::create_directories(Path("Saved/SaveGames/Slot.sav.tmp/blocker"));
	const std::string Before = Read("Saved/SaveGames/Slot.sav");
	Settings->FontSize = 99.f;
	EXPECT_FALSE(UGameplayStatics::SaveGameToSlot(Settings, TEXT("Slot"), 0));
	EXPECT_EQ(Read("Saved/SaveGames/Slot.sav"), Before);
	EXPECT_EQ(CountWarnings(TEXT("LogSaveGame"), TEXT("Slot.sav")), 1);
	EXPECT_EQ(Cast<USaveTestSettings>(UGameplayStatics::LoadGameFromSlot(TEXT("Slot"), 0))->FontSize, 31.f);

	// Names that would leave the SaveGames folder are refused.
	UE::Log::ClearCapturedLines();
	for (const TCHAR* Bad : {TEXT("../Escape"), TEXT("a/b"), TEXT("a\\b"), TEXT("..")})
	{
		EXPECT_FALSE(UGameplayStatics::SaveGameToSlot(Settings, Bad, 0)) << FTCHARToUTF8(Bad).Get();
	}
	EXPECT_EQ(CountWarnings(TEXT("LogSaveGame"), TEXT("refused slot name")), 4);
	EXPECT_FALSE(std::filesystem::exists(Path("Saved/Escape.sav")));
	EXPECT_FALSE(UGameplayStatics::SaveGameToSlot(nullptr, TEXT("Slot"), 0));
}

TEST_F(FSaveSlots, BadSlotsLoadAsNullWithOneWarningAndOldDataKeepsDefaults)
{
	USaveTestSettings* Settings = MakeSettings();
	Settings->Title = TEXT("kept");
	ASSERT_TRUE(UGameplayStatics::SaveGameToSlot(Settings, TEXT("Good"), 0));
	const std::string Good = Read("Saved/SaveGames/Good.sav");

	const std::pair<const char*, std::string> Cases[] = {
		{"Truncated", Good.substr(0, Good.size() / 2)},
		{"Damaged", std::string("\x00\xff garbage", 10)},
		{"Empty", ""},
		{"Foreign", "{\"datas\": []}"},
		{"NotSaveGame", std::string("{\"Format\":\"PlainVidaria.SaveGame\",\"Class\":\"/Script/Engine.Material\",\"Properties\":[]}")},
	};
	for (const auto& [Name, Bytes] : Cases)
	{
		Write(std::string("Saved/SaveGames/") + Name + ".sav", Bytes);
		UE::Log::ClearCapturedLines();
		EXPECT_EQ(UGameplayStatics::LoadGameFromSlot(FString(Name), 0), nullptr) << Name;
		EXPECT_EQ(CountWarnings(TEXT("LogSaveGame"), TEXT("")), 1) << Name;
		EXPECT_EQ(CountWarnings(TEXT("LogSaveGame"), *(FString(Name) + TEXT(".sav"))), 1) << Name;
	}

	// Another save-game class loads as that class.
	USaveTestOther* Other = Cast<USaveTestOther>(UGameplayStatics::CreateSaveGameObject(USaveTestOther::StaticClass()));
	Other->Level = 12;
	ASSERT_TRUE(UGameplayStatics::SaveGameToSlot(Other, TEXT("Good"), 0));
	USaveGame* Loaded = UGameplayStatics::LoadGameFromSlot(TEXT("Good"), 0);
	ASSERT_NE(Cast<USaveTestOther>(Loaded), nullptr);
	EXPECT_EQ(Cast<USaveTestOther>(Loaded)->Level, 12);

	// A slot from another version: unknown entries skipped, a missing one and a bad value keep their defaults.
	Write("Saved/SaveGames/Old.sav",
		"{\"Format\":\"PlainVidaria.SaveGame\",\"Version\":1,\"Class\":\"/Script/Engine_SaveGameTest.SaveTestSettings\",\"Properties\":["
		"{\"Name\":\"Removed\",\"Type\":\"int32\",\"Value\":\"5\"},"
		"{\"Name\":\"FontSize\",\"Type\":\"float\",\"Value\":\"not a number\"},"
		"{\"Name\":\"Title\",\"Type\":\"FString\",\"Value\":\"from disk\"}]}");
	UE::Log::ClearCapturedLines();
	USaveTestSettings* Old = Cast<USaveTestSettings>(UGameplayStatics::LoadGameFromSlot(TEXT("Old"), 0));
	ASSERT_NE(Old, nullptr);
	EXPECT_TRUE(Old->Title.Equals(TEXT("from disk")));
	EXPECT_EQ(Old->FontSize, 20.f);
	EXPECT_EQ(Old->SpeedScale, 1.0);
	EXPECT_EQ(CountWarnings(TEXT("LogSaveGame"), TEXT("FontSize")), 1);
}
