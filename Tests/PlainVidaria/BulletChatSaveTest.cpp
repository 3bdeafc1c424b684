// UBulletChatSave: the slot's first defaults, saves that keep the other settings, and what a slot
// that holds something else, is damaged or cannot be written gives.

#include "BulletChatSaveTestTypes.h"

#include "BulletChat/BulletChatSave.h"
#include "Kismet/GameplayStatics.h"
#include "UObject/UObjectGlobals.h"
#include "Templates/Casts.h"
#include "../Engine/ScratchProject.h"

namespace
{
	const TCHAR* const Slot = TEXT("BULLETCHAT_SGSLOT");
	const char* const SlotFile = "Saved/SaveGames/BULLETCHAT_SGSLOT.sav";

	void ExpectSettings(int32 FontSize, float SpeedScale, bool bIsOpened)
	{
		EXPECT_EQ(UBulletChatSave::LoadFontSize(), FontSize);
		EXPECT_EQ(UBulletChatSave::LoadSpeedScale(), SpeedScale);
		EXPECT_EQ(UBulletChatSave::LoadIsOpend(), bIsOpened);
	}
}

using FBulletChatSaveTest = FScratchProject;

TEST_F(FBulletChatSaveTest, FirstCallMakesTheDefaultsAndEachSaveKeepsTheOtherTwo)
{
	ExpectSettings(24, 1.0f, true);
	EXPECT_NE(Cast<UBulletChatSave>(UGameplayStatics::LoadGameFromSlot(Slot, 0)), nullptr);
	UBulletChatSave::SaveFontSize(30);
	UBulletChatSave::SaveIsOpend(false);
	UBulletChatSave::SaveSpeedScale(-1.5f);
	ExpectSettings(30, -1.5f, false);

	// A save as the very first call starts from the defaults too; values are not limited.
	ASSERT_TRUE(UGameplayStatics::DeleteGameInSlot(Slot, 0));
	UBulletChatSave::SaveFontSize(0);
	ExpectSettings(0, 1.0f, true);
}

TEST_F(FBulletChatSaveTest, ASlotOfAnotherClassOrADamagedSlotIsReplacedByTheDefaults)
{
	ASSERT_TRUE(UGameplayStatics::SaveGameToSlot(NewObject<UForeignSettingsSave>(), Slot, 0));
	EXPECT_EQ(UBulletChatSave::LoadFontSize(), 24) << "not the foreign FontSize of 99";
	EXPECT_NE(Cast<UBulletChatSave>(UGameplayStatics::LoadGameFromSlot(Slot, 0)), nullptr);

	Write(SlotFile, "{ \"Format\": \"PlainVidaria.SaveGame\", \"Vers");
	UBulletChatSave::SaveFontSize(31);
	ExpectSettings(31, 1.0f, true);
}

TEST_F(FBulletChatSaveTest, AnUnwritableSlotGivesTheDefaultsAndLosesNothingStored)
{
	// No slot, and its folder cannot be made: loads give the defaults, saves fail quietly.
	Write("Saved/SaveGames", "a file where the folder would go");
	UBulletChatSave::SaveFontSize(40);
	ExpectSettings(24, 1.0f, true);

	// A slot that cannot be replaced (its temporary file is blocked; file modes would not stop a
	// run as root) keeps what it held.
	std::filesystem::remove(Path("Saved/SaveGames"));
	UBulletChatSave::SaveFontSize(40);
	const std::string Stored = Read(SlotFile);
	std::filesystem::create_directories(Path(std::string(SlotFile) + ".tmp/blocker"));
	UBulletChatSave::SaveFontSize(50);
	UBulletChatSave::SaveIsOpend(false);
	ExpectSettings(40, 1.0f, true);
	EXPECT_EQ(Read(SlotFile), Stored);
}
