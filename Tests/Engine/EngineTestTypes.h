#pragma once

// A component that counts its registration callbacks, for the component tests.

#include "CoreMinimal.h"
#include "Components/SceneComponent.h"
#include "EngineTestTypes.generated.h"

UCLASS()
class UCountingComponent : public USceneComponent
{
	GENERATED_BODY()

public:
	int32 Registers = 0;
	int32 Unregisters = 0;
	// The world seen from inside OnUnregister.
	UWorld* WorldAtUnregister = nullptr;

protected:
	void OnRegister() override
	{
		Super::OnRegister();
		++Registers;
	}

	void OnUnregister() override
	{
		WorldAtUnregister = GetWorld();
		++Unregisters;
		Super::OnUnregister();
	}
};
