// The save-slot reader on any file: the bytes become the comment settings' slot, which
// UGameplayStatics::LoadGameFromSlot reads, and which the plug-in's settings loads read (and
// replace with defaults when they cannot use it).

#include "FuzzKit.h"

#include "BulletChat/BulletChatSave.h"
#include "GameFramework/SaveGame.h"
#include "Kismet/GameplayStatics.h"
#include "UObject/GarbageCollection.h"


namespace
{
	// The slot the plug-in keeps its comment settings in.
	const TCHAR* const SlotName = TEXT("BULLETCHAT_SGSLOT");
}

extern "C" int LLVMFuzzerInitialize(int* Argc, char*** Argv)
{
	PlainFuzz::Start(false);
	return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* Data, size_t Size)
{
	const FString SlotPath = UGameplayStatics::GetSaveGamePath(SlotName);
	PlainFuzz::WriteFile(TCHAR_TO_UTF8(*SlotPath), Data, Size);
	UGameplayStatics::LoadGameFromSlot(SlotName, 0);

	PlainFuzz::WriteFile(TCHAR_TO_UTF8(*SlotPath), Data, Size);
	UBulletChatSave::LoadFontSize();
	PlainFuzz::WriteFile(TCHAR_TO_UTF8(*SlotPath), Data, Size);
	UBulletChatSave::LoadIsOpend();
	PlainFuzz::WriteFile(TCHAR_TO_UTF8(*SlotPath), Data, Size);
	UBulletChatSave::LoadSpeedScale();

	// Each load makes an object that nothing holds; what an input leaves behind costs libFuzzer a
	// leak check.
	CollectGarbage();
	PlainFuzz::ForgetLog();
	return 0;
}
