#include "BulletChat/BulletChatTrack.h"

#include "BulletChat/BulletChatLayout.h"
#include "BulletChat/UI_BulletChatNode.h"
#include "Engine/World.h"

UBulletChatTrack::UBulletChatTrack()
{
	// The class default object has no world and so no heartbeat.
	if (UWorld* World = GetWorld())
	{
		World->GetTimerManager().SetTimer(TrackTimerHandle, this, &UBulletChatTrack::OnTick, 0.5f, true, -1.0f);
	}
}

void UBulletChatTrack::AddNode(UUI_BulletChatNode* Node)
{
	Nodes.Add(Node);
	Node->OnNodeEndDelegate.AddUObject(this, &UBulletChatTrack::OnNodeEnd);
}

bool UBulletChatTrack::CanAddNode(UUI_BulletChatNode* Node) const
{
	if (Nodes.IsEmpty())
	{
		return true;
	}
	// Only the newest node matters: every newcomer starts at the right edge, behind it.
	const UUI_BulletChatNode* Last = Nodes.Last();
	return FBulletChatLayout::CanFollow(Last->GetParentSize().X, Last->GetPosition().X, Last->GetNodeSize().X, Last->GetSpeed(), Node->GetSpeed());
}

void UBulletChatTrack::Empty()
{
	for (UUI_BulletChatNode* Node : Nodes)
	{
		Node->RemoveFromParent();
	}
	Nodes.Empty();
}

void UBulletChatTrack::Pause()
{
	for (UUI_BulletChatNode* Node : Nodes)
	{
		Node->Pause();
	}
}

void UBulletChatTrack::Resume()
{
	for (UUI_BulletChatNode* Node : Nodes)
	{
		Node->Resume();
	}
}

void UBulletChatTrack::BeginDestroy()
{
	// The nodes fly on by their own timers; the weak end binding left on them then does nothing.
	Nodes.Empty();
	if (UWorld* World = GetWorld())
	{
		World->GetTimerManager().ClearAllTimersForObject(this);
	}
	Super::BeginDestroy();
}

void UBulletChatTrack::OnNodeEnd(UUI_BulletChatNode* Node)
{
	Nodes.Remove(Node);
}

void UBulletChatTrack::OnTick()
{
}
