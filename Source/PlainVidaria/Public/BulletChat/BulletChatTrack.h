#pragma once

#include "CoreMinimal.h"
#include "UObject/Object.h"
#include "UObject/ObjectPtr.h"
#include "TimerManager.h"
#include "BulletChatTrack.generated.h"

class UUI_BulletChatNode;

/**
 * One horizontal lane of the bullet chat overlay. It lists the nodes flying on it, oldest first,
 * and answers whether a newcomer may start at the right edge now without running into the last of
 * them before that one has left the canvas. A lane has no geometry of its own: the track manager
 * knows where it lies, and a node taller than one lane is listed by each lane it covers.
 */
UCLASS()
class PLAINVIDARIA_API UBulletChatTrack : public UObject
{
	GENERATED_BODY()

public:
	/** Lists the node as the newest on this lane and drops it again when its flight ends. */
	void AddNode(UUI_BulletChatNode* Node);
	/** Whether the newcomer may start now behind the newest node of this lane; changes nothing. */
	bool CanAddNode(UUI_BulletChatNode* Node) const;
	/** Takes every listed node off the canvas at once, without an end event, and forgets them. */
	void Empty();
	/** Stops every listed node where it is. */
	void Pause();
	/** Lets every listed node fly on. */
	void Resume();

protected:
	/** Starts the lane's heartbeat when the lane lives in a world. */
	UBulletChatTrack();

	virtual void BeginDestroy() override;

private:
	/** Drops a node whose flight has ended. */
	UFUNCTION()
	void OnNodeEnd(UUI_BulletChatNode* Node);

	/** The lane's heartbeat; it has nothing to do yet. */
	UFUNCTION()
	void OnTick();

	/** The nodes on this lane in order of arrival; the last is the newest. */
	UPROPERTY()
	TArray<TObjectPtr<UUI_BulletChatNode>> Nodes;

	// The lane's looping heartbeat timer.
	FTimerHandle TrackTimerHandle;
};
