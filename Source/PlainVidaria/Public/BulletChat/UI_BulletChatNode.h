#pragma once

#include "CoreMinimal.h"
#include "BulletChat/BulletChatData.h"
#include "BulletChat/BulletChatSettings.h"
#include "Core/UI_VidariaBase.h"
#include "TimerManager.h"
#include "UI_BulletChatNode.generated.h"

class UCanvasPanel;
class UCanvasPanelSlot;
class UTextBlock;
class UUI_BulletChatNode;

DECLARE_DELEGATE_OneParam(FOnBulletChatNodeEvent, UUI_BulletChatNode*);
DECLARE_MULTICAST_DELEGATE_OneParam(FOnBulletChatNodeMulticastEvent, UUI_BulletChatNode*);

/**
 * One comment on the screen. It measures itself after its first layout, draws a speed, and then
 * carries itself from the right edge of the overlay's canvas to just past the left edge on a timer
 * of its own, in fixed steps that never read the frame time. It knows nothing of lanes: it says
 * when it is ready and when its flight is over, and the track manager and tracks listen.
 * Made by the track manager only, one per comment; a node never flies twice.
 */
UCLASS()
class PLAINVIDARIA_API UUI_BulletChatNode : public UUI_VidariaBase
{
	GENERATED_BODY()

public:
	/** Fired once, when the node has measured itself and drawn its speed. */
	FOnBulletChatNodeEvent OnFinishSpawnDelegate;
	/** Fired when the flight is over, just before the node leaves the canvas. */
	FOnBulletChatNodeMulticastEvent OnNodeEndDelegate;

	/** Takes a copy of the comment and shows its text. */
	void Init(const FBulletChatData& InData);
	/** Takes the viewer's font size and speed scale; must come before the node joins the canvas. */
	void SetViewerSettings(const FBulletChatSettings& InSettings);
	/** The node's own copy of the comment. */
	const FBulletChatData& GetData() const { return Data; }
	/** Flight speed in canvas units a second; valid from the ready event on. */
	float GetSpeed() const { return Speed; }
	/** Top-left corner on the overlay's canvas. */
	FVector2D GetPosition() const;
	/** Moves the node's top-left corner on the overlay's canvas. */
	void SetPosition(FVector2D InPosition);
	/** Measured size of the node; valid from the ready event on. */
	FVector2D GetNodeSize() const { return NodeSize; }
	/** Size of the overlay's canvas when the node measured itself. */
	FVector2D GetParentSize() const { return ParentSize; }
	/** Stops the node where it is; its flight clock stands still too. */
	void Pause() { bIsPaused = true; }
	/** Lets the node fly on from where it stood. */
	void Resume() { bIsPaused = false; }

protected:
	virtual void NativeConstruct() override;
	virtual void NativeDestruct() override;
	virtual void NativeTick(const FGeometry& MyGeometry, float InDeltaTime) override;

private:
	/** Measures the node and its canvas and draws the flight speed. */
	void InitData();

	/** One fixed step of the flight; the flight timer's target. */
	UFUNCTION()
	void NodeTick();

	/** The node's inner canvas; its measured size is the node's size. */
	UPROPERTY(meta = (BindWidget, EditInline = "true"))
	TObjectPtr<UCanvasPanel> NodeCanvas;

	/** Shows the comment's text. */
	UPROPERTY(meta = (BindWidget, EditInline = "true"))
	TObjectPtr<UTextBlock> NodeText;

	/** This node's slot on the overlay's canvas; every position goes through it. */
	UPROPERTY(meta = (EditInline = "true"))
	TObjectPtr<UCanvasPanelSlot> CanvasSlot;

	// The looping flight timer.
	FTimerHandle NodeTimerHandle;
	// The node's copy of its comment.
	FBulletChatData Data;
	// The viewer's font size and speed scale, applied once.
	FBulletChatSettings ViewerSettings;
	// Size of NodeCanvas when measured; never measured again.
	FVector2D NodeSize = FVector2D::ZeroVector;
	// Size of the overlay's canvas at the same moment.
	FVector2D ParentSize = FVector2D::ZeroVector;
	// Canvas units a second.
	float Speed = 0.f;
	// Seconds the whole flight takes.
	float FlightTime = 0.f;
	// Seconds flown so far, in fixed steps.
	float ElapsedTime = 0.f;
	// Measuring, timer start and the ready event are done.
	bool bIsStarted = false;
	// Neither flight nor measuring advance while set.
	bool bIsPaused = false;
};
