#include "Components/ActorComponent.h"

#include "Engine/World.h"

void UActorComponent::RegisterComponentWithWorld(UWorld* InWorld, FRegisterComponentContext* Context)
{
	if (!InWorld || HasBegunDestroy())
	{
		return;
	}
	if (bRegistered)
	{
		if (RegisteredWorld.Get() == InWorld)
		{
			return;
		}
		UnregisterComponent();
	}
	RegisteredWorld = InWorld;
	bRegistered = true;
	OnRegister();
}

void UActorComponent::UnregisterComponent()
{
	if (!bRegistered)
	{
		return;
	}
	// OnUnregister still sees the world, as the engine's does.
	OnUnregister();
	bRegistered = false;
	RegisteredWorld.Reset();
}

UWorld* UActorComponent::GetWorld() const
{
	if (UWorld* World = RegisteredWorld.Get())
	{
		return World;
	}
	return Super::GetWorld();
}

void UActorComponent::BeginDestroy()
{
	UnregisterComponent();
	Super::BeginDestroy();
}
