#include "BulletChat/BulletChatTrackManager.h"

#include "Blueprint/UserWidget.h"
#include "BulletChat/BulletChatLayout.h"
#include "BulletChat/BulletChatTrack.h"
#include "BulletChat/UI_BulletChatNode.h"
#include "Components/CanvasPanel.h"

#include <cstdlib>

void UBulletChatTrackManager::Init(TObjectPtr<UCanvasPanel> InRootCanvas, TSubclassOf<UUI_BulletChatNode> InBulletChatNodeClass)
{
	RootCanvas = InRootCanvas;
	BulletChatNodeClass = InBulletChatNodeClass;

	// The height is read this once: a later resize moves no lane and adds none.
	TrackNum = FBulletChatLayout::GetTrackCount(RootCanvas->GetCachedGeometry().GetLocalSize().Y);
	if (TrackNum < 1)
	{
		return;
	}
	for (int32 Index = 0; Index < TrackNum; ++Index)
	{
		Tracks.Add(NewObject<UBulletChatTrack>(this));
	}
}

void UBulletChatTrackManager::SpawnBulletChatNode(const FBulletChatData& Data)
{
	if (!BulletChatNodeClass || !BulletChatNodeClass->IsChildOf(UUI_BulletChatNode::StaticClass()))
	{
		return;
	}
	// The overlay offers a second's comments on every frame of that second; this refusal is what
	// keeps each on screen once, so it must stay cheap and make nothing before the search.
	if (ShowingNodeIDs.Contains(Data.ID))
	{
		return;
	}
	UUI_BulletChatNode* Node = Cast<UUI_BulletChatNode>(UUserWidget::CreateWidgetInstance(*RootCanvas, BulletChatNodeClass, NAME_None));
	if (!Node)
	{
		return;
	}
	Node->Init(Data);
	Node->SetViewerSettings(ViewerSettings);
	RootCanvas->AddChild(Node);
	// Parked outside the picture at the right edge until it has measured itself and has a lane.
	Node->SetPosition(FVector2D(RootCanvas->GetCachedGeometry().GetLocalSize().X, 0.0));
	ShowingNodeIDs.Add(Node->GetData().ID);
	Node->OnFinishSpawnDelegate.BindUObject(this, &UBulletChatTrackManager::OnFinishSpawnNode);
	Node->OnNodeEndDelegate.AddUObject(this, &UBulletChatTrackManager::OnNodeEnd);
}

void UBulletChatTrackManager::Empty()
{
	for (UBulletChatTrack* Track : Tracks)
	{
		Track->Empty();
	}
	ShowingNodeIDs.Empty();
}

void UBulletChatTrackManager::Pause()
{
	for (UBulletChatTrack* Track : Tracks)
	{
		Track->Pause();
	}
	bIsPaused = true;
}

void UBulletChatTrackManager::Resume()
{
	for (UBulletChatTrack* Track : Tracks)
	{
		Track->Resume();
	}
	bIsPaused = false;
}

void UBulletChatTrackManager::BeginDestroy()
{
	// Flying nodes are left alone: each ends by its own timer, and its bindings to us go quiet.
	for (UBulletChatTrack* Track : Tracks)
	{
		Track->ConditionalBeginDestroy();
	}
	Tracks.Empty();
	Super::BeginDestroy();
}

void UBulletChatTrackManager::OnFinishSpawnNode(UUI_BulletChatNode* BulletChatNode)
{
	const int32 Need = FBulletChatLayout::GetTracksNeeded(BulletChatNode->GetNodeSize().Y);
	const int32 Count = Tracks.Num();
	if (Count < 1)
	{
		return;
	}
	const int32 Start = FBulletChatLayout::FindFreeBlock(Count, Need, [this, BulletChatNode](int32 TrackIndex)
	{
		return Tracks[TrackIndex]->CanAddNode(BulletChatNode);
	});
	if (Start != INDEX_NONE)
	{
		AddNodeToTracks(BulletChatNode, Start, Need);
		return;
	}
	// No block is free: the node goes on at once over whatever is there, rather than wait in a
	// queue that would let comments drift away from their moment in the video. A one-lane node is
	// forced too, so that every node on screen is listed by a lane and obeys Pause and Empty.
	const int32 Range = Count - Need + 1;
	const int32 ForcedStart = Range < 1 ? 0 : FBulletChatLayout::GetForcedStart(rand() & 0x7FFF, Count, Need);
	AddNodeToTracks(BulletChatNode, ForcedStart, Need);
}

void UBulletChatTrackManager::OnNodeEnd(UUI_BulletChatNode* BulletChatNode)
{
	ShowingNodeIDs.Remove(BulletChatNode->GetData().ID);
}

bool UBulletChatTrackManager::AddNodeToTracks(UUI_BulletChatNode* Node, int32 First, int32 Num)
{
	if (First + Num > Tracks.Num())
	{
		return false;
	}
	for (int32 Index = First; Index < First + Num; ++Index)
	{
		Tracks[Index]->AddNode(Node);
	}
	Node->SetPosition(FVector2D(Node->GetParentSize().X, static_cast<double>(First) * FBulletChatLayout::TrackHeight));
	if (bIsPaused)
	{
		Node->Pause();
	}
	return true;
}
