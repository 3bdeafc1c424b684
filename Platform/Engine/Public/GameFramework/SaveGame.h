#pragma once

// USaveGame: the base of objects stored in save slots. Derive from it and add UPROPERTYs: every
// reflected property that is not Transient is written, as in the engine.

#include "CoreMinimal.h"
#include "UObject/Object.h"
#include "SaveGame.generated.h"

/** Base of save-game objects; see UGameplayStatics for slots. */
UCLASS(Abstract, Blueprintable, BlueprintType)
class ENGINE_API USaveGame : public UObject
{
	GENERATED_BODY()
};
