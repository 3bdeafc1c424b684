#pragma once

// A save game of another class that a slot named like the bullet chat settings might hold. It has
// a FontSize of its own, so code that read the slot by property name would be fooled.

#include "CoreMinimal.h"
#include "GameFramework/SaveGame.h"
#include "BulletChatSaveTestTypes.generated.h"

UCLASS()
class UForeignSettingsSave : public USaveGame
{
	GENERATED_BODY()

public:
	UPROPERTY()
	int32 FontSize = 99;
};
