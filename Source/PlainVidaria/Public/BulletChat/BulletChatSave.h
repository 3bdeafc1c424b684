#pragma once

#include "CoreMinimal.h"
#include "GameFramework/SaveGame.h"
#include "Templates/Function.h"
#include "BulletChatSave.generated.h"

/**
 * The viewer's bullet chat settings, kept between runs in the save slot "BULLETCHAT_SGSLOT" of
 * user 0: one set per installation. Use only the static functions; no caller holds the object.
 * Each call reads the slot afresh (and a save writes it), so call them from a settings screen or
 * at start-up, never from a tick. The first call makes the slot with font size 24, speed scale
 * 1.0 and comments on.
 */
UCLASS()
class PLAINVIDARIA_API UBulletChatSave : public USaveGame
{
	GENERATED_BODY()

public:
	/** The stored font size for comments; 24 when nothing else was saved or the slot is out of reach. */
	static int32 LoadFontSize();
	/** Whether comments are switched on; true when nothing else was saved or the slot is out of reach. */
	static bool LoadIsOpend();
	/** The stored multiplier for the speed of comments; 1.0 when nothing else was saved or the slot is out of reach. */
	static float LoadSpeedScale();

	/** Stores the font size as given, keeping the other two settings. */
	static void SaveFontSize(int32 InFontSize);
	/** Stores whether comments are switched on, keeping the other two settings. */
	static void SaveIsOpend(bool bInIsOpened);
	/** Stores the speed multiplier as given, keeping the other two settings. */
	static void SaveSpeedScale(float InSpeedScale);

private:
	/** Writes a slot with the three defaults unless the slot already holds settings of this class. */
	static void CreateSlotIfNotExist();
	/** The settings now in the slot, after making sure there are some; null if the slot cannot be read. */
	static UBulletChatSave* LoadSlot();
	/** Settings holding the three defaults, not yet stored anywhere; null if none can be made. */
	static UBulletChatSave* CreateWithDefaults();
	/** Applies Change to the stored settings (or to fresh defaults when none can be read) and stores them. */
	static void StoreChange(TFunctionRef<void(UBulletChatSave&)> Change);

	/** Font size for comments. */
	UPROPERTY()
	int32 FontSize;

	/** Multiplier for the speed of comments. */
	UPROPERTY()
	float SpeedScale;

	/** Whether comments are switched on. */
	UPROPERTY()
	bool bIsOpened;
};
