#pragma once

// UGameplayStatics: the save-slot functions. A slot is <ProjectSavedDir>/SaveGames/<SlotName>.sav,
// a JSON document with the object's class path and its non-transient reflected properties. A save
// replaces the slot atomically; a slot that cannot be read loads as null with one LogSaveGame
// warning. UserIndex is accepted and ignored, as on desktop platforms.

#include "CoreMinimal.h"
#include "Templates/SubclassOf.h"
#include "UObject/Object.h"
#include "GameplayStatics.generated.h"

class USaveGame;

/** Static gameplay helpers; only the save-game ones exist in the stand-in. */
UCLASS()
class ENGINE_API UGameplayStatics : public UObject
{
	GENERATED_BODY()

public:
	/** A new, empty save-game object of that class; null for no class or an abstract one. */
	UFUNCTION(BlueprintCallable, Category = "Game")
	static USaveGame* CreateSaveGameObject(TSubclassOf<USaveGame> SaveGameClass);

	/** Writes every non-transient property of the object to the slot; false (and a warning) on failure. */
	UFUNCTION(BlueprintCallable, Category = "Game")
	static bool SaveGameToSlot(USaveGame* SaveGameObject, const FString& SlotName, const int32 UserIndex);

	/** The object stored in the slot, or null when there is none or it cannot be read. */
	UFUNCTION(BlueprintCallable, Category = "Game")
	static USaveGame* LoadGameFromSlot(const FString& SlotName, const int32 UserIndex);

	/** True when the slot's file exists. */
	UFUNCTION(BlueprintCallable, Category = "Game")
	static bool DoesSaveGameExist(const FString& SlotName, const int32 UserIndex);

	/** Deletes the slot's file; true when it existed and is gone. */
	UFUNCTION(BlueprintCallable, Category = "Game")
	static bool DeleteGameInSlot(const FString& SlotName, const int32 UserIndex);

#if PLAIN_PLATFORM_INTERNALS
	/** The stand-in's: the file a slot lives in, or empty for a slot name that is refused. */
	static FString GetSaveGamePath(const FString& SlotName);
#endif
};
