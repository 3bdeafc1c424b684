#pragma once

// UEngine: the one engine object, reached through GEngine. Here it only keeps the on-screen debug
// messages, which the frame loop expires and the renderer draws.

#include "CoreMinimal.h"
#include "Engine/OnScreenMessage.h"
#include "UObject/Object.h"
#include "Engine.generated.h"

/** The engine object. GEngine is made (and rooted) when the Engine module loads. */
UCLASS()
class ENGINE_API UEngine : public UObject
{
	GENERATED_BODY()

public:
	/**
	 * Shows DebugMessage on screen for TimeToDisplay seconds. Key -1 (INDEX_NONE) always adds a
	 * line, on top when bNewerOnTop; any other key replaces the line shown under that key.
	 */
	void AddOnScreenDebugMessage(int32 Key, float TimeToDisplay, FColor DisplayColor, const FString& DebugMessage, bool bNewerOnTop = true,
		const FVector2D& TextScale = FVector2D::UnitVector);
	/** As above with a 64-bit key; (uint64)-1 adds a line like INDEX_NONE. */
	void AddOnScreenDebugMessage(uint64 Key, float TimeToDisplay, FColor DisplayColor, const FString& DebugMessage, bool bNewerOnTop = true,
		const FVector2D& TextScale = FVector2D::UnitVector);

	/** True when a line with that key is on screen. */
	bool OnScreenDebugMessageExists(uint64 Key) const;
	/** Removes the line shown under Key, if any. */
	void RemoveOnScreenDebugMessage(uint64 Key);

	/** Removes every line. */
	void ClearOnScreenDebugMessages() { OnScreenMessages.Empty(); }

#if PLAIN_PLATFORM_INTERNALS
	/** The stand-in's: the lines on screen, top to bottom, for the renderer and tests. */
	const TArray<FOnScreenMessage>& GetOnScreenMessages() const { return OnScreenMessages; }
	/** The stand-in's: counts down every line and removes those whose time is up; the frame loop calls it each frame. */
	void TickOnScreenMessages(float DeltaSeconds);
#endif

private:
	// The lines on screen, in drawing order (top first).
	TArray<FOnScreenMessage> OnScreenMessages;
};

/** The engine object; made when the Engine module loads, so it is set before any plug-in code runs. */
extern ENGINE_API UEngine* GEngine;
