#pragma once

// UWorld: the place timers and registered components live. The stand-in has no levels or actors;
// a world is a clock and a timer manager that the frame loop ticks.

#include "CoreMinimal.h"
#include "UObject/Object.h"
#include "Templates/UniquePtr.h"
#include "World.generated.h"

class FTimerManager;

/** One world: its time and its timers. Made by CreateWorld, which roots it until DestroyWorld. */
UCLASS()
class ENGINE_API UWorld : public UObject
{
	GENERATED_BODY()

public:
	/** Worlds come from CreateWorld; the constructor only makes the timer manager. */
	UWorld();
	~UWorld() override;

#if PLAIN_PLATFORM_INTERNALS
	// The stand-in's world life cycle; the engine's CreateWorld and DestroyWorld take world types
	// and engine state this tree does not have.
	/** Makes a rooted world in its own package (/Temp/<WorldName>); a taken name gets a number. */
	static UWorld* CreateWorld(FName WorldName = NAME_None);

	/** Clears the world's timers and un-roots it, so the next collection frees it. */
	void DestroyWorld();
#endif

	/** The world's timers. */
	FTimerManager& GetTimerManager() const;

	/** A world is its own world. */
	UWorld* GetWorld() const override { return const_cast<UWorld*>(this); }

	/** Seconds the world has ticked since it was made. */
	float GetTimeSeconds() const { return static_cast<float>(TimeSeconds); }
	/** The length of the last Tick. */
	float GetDeltaSeconds() const { return DeltaTimeSeconds; }

#if PLAIN_PLATFORM_INTERNALS
	/** The stand-in's: the world time without losing precision on long runs. */
	double GetTimeSecondsDouble() const { return TimeSeconds; }
	/** The stand-in's: advances the world time and ticks the timer manager, at the frame loop's timer step. */
	void Tick(float DeltaSeconds);
#endif

	/** Clears the timers first: none may call into objects of a world on its way out. */
	void BeginDestroy() override;

private:
	// Owned here; the mutable getter matches the engine's const GetTimerManager.
	TUniquePtr<FTimerManager> TimerManager;
	// Ticked time in seconds, kept in double so long runs stay exact enough.
	double TimeSeconds = 0.0;
	// Length of the last Tick.
	float DeltaTimeSeconds = 0.f;
};
