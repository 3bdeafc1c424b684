#pragma once

// USceneComponent: a component with a place in the world. The stand-in keeps no transform: the
// media and audio components derive from it only because the engine's do.

#include "CoreMinimal.h"
#include "Components/ActorComponent.h"
#include "SceneComponent.generated.h"

/** A component with a place in the world (no transform in the stand-in). */
UCLASS()
class ENGINE_API USceneComponent : public UActorComponent
{
	GENERATED_BODY()
};
