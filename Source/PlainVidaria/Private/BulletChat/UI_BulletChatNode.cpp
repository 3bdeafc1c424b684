#include "BulletChat/UI_BulletChatNode.h"

#include "BulletChat/BulletChatLayout.h"
#include "Components/CanvasPanel.h"
#include "Components/CanvasPanelSlot.h"
#include "Components/TextBlock.h"
#include "Engine/World.h"

#include <cstdlib>

void UUI_BulletChatNode::Init(const FBulletChatData& InData)
{
	Data = InData;
	NodeText->SetText(FText::FromString(Data.Content));
}

void UUI_BulletChatNode::SetViewerSettings(const FBulletChatSettings& InSettings)
{
	ViewerSettings = InSettings;
}

FVector2D UUI_BulletChatNode::GetPosition() const
{
	return CanvasSlot->GetPosition();
}

void UUI_BulletChatNode::SetPosition(FVector2D InPosition)
{
	CanvasSlot->SetPosition(InPosition);
}

void UUI_BulletChatNode::NativeConstruct()
{
	Super::NativeConstruct();

	// Only the track manager adds nodes, and only to the overlay's canvas, so this cast holds.
	CanvasSlot = Cast<UCanvasPanelSlot>(Slot);
	CanvasSlot->SetAutoSize(true);

	// The designer's font is drawn for the default size; the viewer's size scales it, so that the
	// default setting leaves the blueprint untouched. The node measures itself after this.
	FSlateFontInfo Font = NodeText->GetFont();
	if (ViewerSettings.FontSize > 0 && ViewerSettings.FontSize != FBulletChatSettings::DefaultFontSize)
	{
		Font.Size = FMath::Max(1, FMath::RoundToInt(static_cast<float>(Font.Size) * ViewerSettings.FontSize / FBulletChatSettings::DefaultFontSize));
	}
	NodeText->SetFont(Font);
}

void UUI_BulletChatNode::NativeDestruct()
{
	Super::NativeDestruct();

	// The flight timer is not stopped when the flight ends; leaving the screen stops it.
	if (UWorld* World = GetWorld())
	{
		World->GetTimerManager().ClearAllTimersForObject(this);
	}
}

void UUI_BulletChatNode::NativeTick(const FGeometry& MyGeometry, float InDeltaTime)
{
	Super::NativeTick(MyGeometry, InDeltaTime);

	if (bIsPaused)
	{
		return;
	}
	// Until the first layout the canvas measures 0 by 0; one non-zero side means it has been laid out.
	const FVector2D CanvasSize = NodeCanvas->GetCachedGeometry().GetLocalSize();
	if (CanvasSize.X == 0.0 && CanvasSize.Y == 0.0)
	{
		return;
	}
	if (bIsStarted)
	{
		return;
	}
	InitData();
	GetWorld()->GetTimerManager().SetTimer(NodeTimerHandle, this, &UUI_BulletChatNode::NodeTick, 0.01f, true, -1.0f);
	// The manager places the node inside this call, so sizes and speed must be ready before it.
	OnFinishSpawnDelegate.ExecuteIfBound(this);
	bIsStarted = true;
}

void UUI_BulletChatNode::InitData()
{
	NodeSize = NodeCanvas->GetCachedGeometry().GetLocalSize();
	ParentSize = GetParent()->GetCachedGeometry().GetLocalSize();
	const int32 Draw = rand() & 0x7FFF;
	Speed = FBulletChatLayout::GetSpeedFromDraw(Draw);
	// A scale that is not a positive number would stall or reverse the flight; it counts as none.
	if (ViewerSettings.SpeedScale > 0.f && ViewerSettings.SpeedScale != 1.f)
	{
		Speed *= ViewerSettings.SpeedScale;
	}
	FlightTime = FBulletChatLayout::GetFlightTime(NodeSize.X, ParentSize.X, Speed);
}

void UUI_BulletChatNode::NodeTick()
{
	if (bIsPaused)
	{
		return;
	}
	// Fixed steps keep clock and distance in step whatever the frame rate: a late timer slows the
	// flight down, and the node still ends where it should.
	ElapsedTime = FBulletChatLayout::AdvanceElapsed(ElapsedTime);
	if (ElapsedTime >= FlightTime)
	{
		OnNodeEndDelegate.Broadcast(this);
		RemoveFromParent();
		return;
	}
	const FVector2D Position = CanvasSlot->GetPosition();
	CanvasSlot->SetPosition(FVector2D(Position.X - static_cast<double>(Speed) * FBulletChatLayout::StepSeconds, Position.Y));
}
