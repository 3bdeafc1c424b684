#include "BulletChat/BulletChatSave.h"

#include "Kismet/GameplayStatics.h"
#include "Templates/Casts.h"

namespace
{
	// One slot for every local player: the settings belong to the installation.
	const TCHAR* const SlotName = TEXT("BULLETCHAT_SGSLOT");
	constexpr int32 UserIndex = 0;

	// What a new slot holds, and what the loads give when no slot can be had.
	constexpr int32 DefaultFontSize = 24;
	constexpr float DefaultSpeedScale = 1.0f;
	constexpr bool bDefaultIsOpened = true;
}

int32 UBulletChatSave::LoadFontSize()
{
	const UBulletChatSave* Settings = LoadSlot();
	return Settings ? Settings->FontSize : DefaultFontSize;
}

bool UBulletChatSave::LoadIsOpend()
{
	const UBulletChatSave* Settings = LoadSlot();
	return Settings ? Settings->bIsOpened : bDefaultIsOpened;
}

float UBulletChatSave::LoadSpeedScale()
{
	const UBulletChatSave* Settings = LoadSlot();
	return Settings ? Settings->SpeedScale : DefaultSpeedScale;
}

void UBulletChatSave::SaveFontSize(int32 InFontSize)
{
	StoreChange([InFontSize](UBulletChatSave& Settings) { Settings.FontSize = InFontSize; });
}

void UBulletChatSave::SaveIsOpend(bool bInIsOpened)
{
	StoreChange([bInIsOpened](UBulletChatSave& Settings) { Settings.bIsOpened = bInIsOpened; });
}

void UBulletChatSave::SaveSpeedScale(float InSpeedScale)
{
	StoreChange([InSpeedScale](UBulletChatSave& Settings) { Settings.SpeedScale = InSpeedScale; });
}

void UBulletChatSave::StoreChange(TFunctionRef<void(UBulletChatSave&)> Change)
{
	// A slot that could not be read back is written afresh from the defaults, so the value the
	// viewer just chose is not dropped while a write can still succeed.
	UBulletChatSave* Settings = LoadSlot();
	Settings = Settings ? Settings : CreateWithDefaults();
	if (Settings)
	{
		Change(*Settings);
		UGameplayStatics::SaveGameToSlot(Settings, SlotName, UserIndex);
	}
}

void UBulletChatSave::CreateSlotIfNotExist()
{
	// The test is on the class: a slot of this name holding another save-game class counts as
	// empty and is replaced.
	if (Cast<UBulletChatSave>(UGameplayStatics::LoadGameFromSlot(SlotName, UserIndex)))
	{
		return;
	}
	if (UBulletChatSave* Settings = CreateWithDefaults())
	{
		UGameplayStatics::SaveGameToSlot(Settings, SlotName, UserIndex);
	}
}

UBulletChatSave* UBulletChatSave::LoadSlot()
{
	CreateSlotIfNotExist();
	return Cast<UBulletChatSave>(UGameplayStatics::LoadGameFromSlot(SlotName, UserIndex));
}

UBulletChatSave* UBulletChatSave::CreateWithDefaults()
{
	UBulletChatSave* Settings = Cast<UBulletChatSave>(UGameplayStatics::CreateSaveGameObject(UBulletChatSave::StaticClass()));
	if (Settings)
	{
		Settings->FontSize = DefaultFontSize;
		Settings->SpeedScale = DefaultSpeedScale;
		Settings->bIsOpened = bDefaultIsOpened;
	}
	return Settings;
}
