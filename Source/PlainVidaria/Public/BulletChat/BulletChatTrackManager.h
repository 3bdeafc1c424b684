#pragma once

#include "CoreMinimal.h"
#include "UObject/Object.h"
#include "UObject/ObjectPtr.h"
#include "Templates/SubclassOf.h"
#include "BulletChat/BulletChatData.h"
#include "BulletChat/BulletChatSettings.h"
#include "BulletChatTrackManager.generated.h"

class UBulletChatTrack;
class UCanvasPanel;
class UUI_BulletChatNode;

/**
 * Turns comment records into flying nodes on the overlay's canvas. It cuts the canvas into lanes
 * of FBulletChatLayout::TrackHeight, makes one node per comment, keeps a comment from flying twice
 * at once, and when a node has measured itself puts it on the topmost block of lanes that admit
 * it, or forces it onto a random block when none does. Made and driven by the overlay only.
 */
UCLASS()
class PLAINVIDARIA_API UBulletChatTrackManager : public UObject
{
	GENERATED_BODY()

public:
	/** Takes the canvas and node class and makes the lanes from the canvas height, once. */
	void Init(TObjectPtr<UCanvasPanel> InRootCanvas, TSubclassOf<UUI_BulletChatNode> InBulletChatNodeClass);
	/** Takes the viewer's settings for the nodes spawned from now on. */
	void SetViewerSettings(const FBulletChatSettings& InSettings) { ViewerSettings = InSettings; }
	/** How many lanes the canvas was cut into. */
	int32 GetTrackNum() const { return Tracks.Num(); }
	/** Makes a node for the comment and parks it at the right edge, unless its ID is already on screen. */
	void SpawnBulletChatNode(const FBulletChatData& Data);
	/** Takes every node that a lane lists off the canvas and frees all IDs. */
	void Empty();
	/** Stops every placed node, and those placed from now on, until Resume. */
	void Pause();
	/** Lets every placed node fly on. */
	void Resume();

protected:
	virtual void BeginDestroy() override;

private:
	/** Places a node that has just measured itself. */
	UFUNCTION()
	void OnFinishSpawnNode(UUI_BulletChatNode* BulletChatNode);

	/** Frees the ID of a node whose flight has ended. */
	UFUNCTION()
	void OnNodeEnd(UUI_BulletChatNode* BulletChatNode);

	/** Lists the node on Num lanes from First down and moves it to the right edge at the first lane's top. */
	bool AddNodeToTracks(UUI_BulletChatNode* Node, int32 First, int32 Num);

	// The overlay's canvas: parent of every node.
	TObjectPtr<UCanvasPanel> RootCanvas;
	// The widget class made for each comment.
	TSubclassOf<UUI_BulletChatNode> BulletChatNodeClass;
	// The viewer's font size and speed scale, handed to each new node.
	FBulletChatSettings ViewerSettings;
	// Lanes worked out from the canvas height at Init.
	int32 TrackNum = 0;
	// Set between Pause and Resume, so that nodes placed meanwhile start paused.
	bool bIsPaused = false;

	/** The lanes from the top of the canvas down. */
	UPROPERTY()
	TArray<TObjectPtr<UBulletChatTrack>> Tracks;

	/** The ID of every comment whose node exists and has not ended, in spawning order. */
	UPROPERTY()
	TArray<int32> ShowingNodeIDs;
};
