#pragma once

// UActorComponent: a piece of behaviour that registers with a world. The stand-in has no actors:
// a component is registered straight with a world and reaches it through GetWorld().

#include "CoreMinimal.h"
#include "UObject/Object.h"
#include "UObject/WeakObjectPtrTemplates.h"
#include "ActorComponent.generated.h"

class UWorld;
class FRegisterComponentContext;

/** A component; register it with a world before it can use the world's services. */
UCLASS(Abstract)
class ENGINE_API UActorComponent : public UObject
{
	GENERATED_BODY()

public:
	/** Registers with InWorld (null does nothing); registering again with another world moves it. */
	void RegisterComponentWithWorld(UWorld* InWorld, FRegisterComponentContext* Context = nullptr);
	/** Undoes the registration; nothing happens when not registered. */
	void UnregisterComponent();
	/** True between RegisterComponentWithWorld and UnregisterComponent. */
	bool IsRegistered() const { return bRegistered; }

	/** The world it is registered with, else the world of its outer chain, else null. */
	UWorld* GetWorld() const override;

	/** Unregisters on the way out, so OnUnregister always pairs with OnRegister. */
	void BeginDestroy() override;

protected:
	/** Called once the component is registered; always call the base. */
	virtual void OnRegister() {}
	/** Called as the component is unregistered; always call the base. */
	virtual void OnUnregister() {}

private:
	// The world registered with; weak, the world owns the component's life no more than the reverse.
	TWeakObjectPtr<UWorld> RegisteredWorld;
	// Between RegisterComponentWithWorld and UnregisterComponent.
	bool bRegistered = false;
};
