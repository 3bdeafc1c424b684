#include "Blueprint/UserWidget.h"

#include "Animation/UMGSequencePlayer.h"
#include "Animation/WidgetAnimation.h"
#include "Animation/WidgetAnimationLog.h"
#include "Blueprint/WidgetBlueprintGeneratedClass.h"
#include "Blueprint/WidgetTree.h"
#include "Engine/World.h"
#include "Slate/ArrangedChildWidget.h"
#include "Slate/WidgetViewport.h"
#include "UMGLog.h"

// A user widget's default visibility is set on the member itself, as the engine's constructor does.
PRAGMA_DISABLE_DEPRECATION_WARNINGS

UUserWidget::UUserWidget()
{
	Visibility = ESlateVisibility::SelfHitTestInvisible;
}

UUserWidget::UUserWidget(const FObjectInitializer& ObjectInitializer)
	: Super(ObjectInitializer)
{
	Visibility = ESlateVisibility::SelfHitTestInvisible;
}

PRAGMA_ENABLE_DEPRECATION_WARNINGS

void UUserWidget::AddToViewport(int32 ZOrder)
{
	if (IsInViewport())
	{
		UE_LOG(LogUMG, Warning, TEXT("AddToViewport: %s is already in the viewport"), *GetName());
		return;
	}
	// Out of its panel first: a widget stands in one place.
	UWidget::RemoveFromParent();
	FWidgetViewport::Get().AddWidget(this, ZOrder);
}

void UUserWidget::RemoveFromParent()
{
	if (!FWidgetViewport::Get().RemoveWidget(this))
	{
		Super::RemoveFromParent();
	}
}

UUMGSequencePlayer* UUserWidget::PlayAnimation(UWidgetAnimation* InAnimation, float StartAtTime, int32 NumLoopsToPlay,
	EUMGSequencePlayMode::Type PlayMode, float PlaybackSpeed, bool bRestoreState)
{
	FWidgetAnimationPlay Play;
	Play.Widget = this;
	Play.AnimationName = InAnimation ? InAnimation->GetDisplayName() : FString();
	Play.StartAtTime = StartAtTime;
	Play.NumLoopsToPlay = NumLoopsToPlay;
	Play.PlayMode = PlayMode;
	Play.PlaybackSpeed = PlaybackSpeed;
	Play.bRestoreState = bRestoreState;
	FWidgetAnimationLog::Get().Record(Play);
	if (!InAnimation)
	{
		return nullptr;
	}
	// Playing an animation that runs already restarts it, as the engine reuses its player.
	UUMGSequencePlayer* Player = nullptr;
	for (const TObjectPtr<UUMGSequencePlayer>& Existing : ActiveSequencePlayers)
	{
		if (Existing->GetAnimation() == InAnimation)
		{
			Player = Existing.Get();
		}
	}
	if (!Player)
	{
		Player = NewObject<UUMGSequencePlayer>(this);
		ActiveSequencePlayers.Add(Player);
	}
	Player->Play(InAnimation, StartAtTime, NumLoopsToPlay, PlayMode, PlaybackSpeed, bRestoreState);
	return Player;
}

void UUserWidget::StopAnimation(const UWidgetAnimation* InAnimation)
{
	for (int32 Index = ActiveSequencePlayers.Num() - 1; Index >= 0; --Index)
	{
		UUMGSequencePlayer* Player = ActiveSequencePlayers[Index].Get();
		if (Player->GetAnimation() == InAnimation)
		{
			Player->Stop();
			ActiveSequencePlayers.RemoveAt(Index);
		}
	}
}

void UUserWidget::StopAllAnimations()
{
	TArray<TObjectPtr<UUMGSequencePlayer>> Players = MoveTemp(ActiveSequencePlayers);
	ActiveSequencePlayers.Reset();
	for (const TObjectPtr<UUMGSequencePlayer>& Player : Players)
	{
		Player->Stop();
	}
}

bool UUserWidget::IsAnimationPlaying(const UWidgetAnimation* InAnimation) const
{
	for (const TObjectPtr<UUMGSequencePlayer>& Player : ActiveSequencePlayers)
	{
		if (Player->GetAnimation() == InAnimation && Player->IsPlaying())
		{
			return true;
		}
	}
	return false;
}

bool UUserWidget::IsAnyAnimationPlaying() const
{
	for (const TObjectPtr<UUMGSequencePlayer>& Player : ActiveSequencePlayers)
	{
		if (Player->IsPlaying())
		{
			return true;
		}
	}
	return false;
}

void UUserWidget::TickAnimations(float DeltaSeconds)
{
	// Over a copy: a player's widget changes may not touch the list, but a stop from elsewhere might.
	const TArray<TObjectPtr<UUMGSequencePlayer>> Players = ActiveSequencePlayers;
	for (const TObjectPtr<UUMGSequencePlayer>& Player : Players)
	{
		Player->Tick(DeltaSeconds);
	}
	for (int32 Index = ActiveSequencePlayers.Num() - 1; Index >= 0; --Index)
	{
		if (!ActiveSequencePlayers[Index]->IsPlaying())
		{
			ActiveSequencePlayers.RemoveAt(Index);
		}
	}
}

UWorld* UUserWidget::GetWorld() const
{
	// The outer chain leads to the owner given to CreateWidget: a world, or a widget in one.
	return HasAnyFlags(RF_ClassDefaultObject) ? nullptr : Super::GetWorld();
}

bool UUserWidget::Initialize()
{
	if (bInitialized)
	{
		return true;
	}
	bInitialized = true;
	if (const UWidgetBlueprintGeneratedClass* BlueprintClass = Cast<UWidgetBlueprintGeneratedClass>(GetClass()))
	{
		if (!BlueprintClass->InitializeWidget(this))
		{
			return false;
		}
	}
	if (!WidgetTree)
	{
		WidgetTree = NewObject<UWidgetTree>(this, UWidgetTree::StaticClass(), FName(TEXT("WidgetTree")));
	}
	NativeOnInitialized();
	return true;
}

FVector2D UUserWidget::ComputeDesiredSize() const
{
	const UWidget* Root = WidgetTree ? WidgetTree->RootWidget.Get() : nullptr;
	return Root && Root->GetVisibility() != ESlateVisibility::Collapsed ? Root->GetDesiredSize() : FVector2D::ZeroVector;
}

void UUserWidget::ArrangeChildren(const FGeometry& AllottedGeometry, TArray<FArrangedChildWidget>& OutChildren) const
{
	UWidget* Root = WidgetTree ? WidgetTree->RootWidget.Get() : nullptr;
	if (Root && Root->GetVisibility() != ESlateVisibility::Collapsed)
	{
		OutChildren.Add({ Root, AllottedGeometry });
	}
}

void UUserWidget::GetLayoutChildren(TArray<UWidget*>& OutChildren) const
{
	if (WidgetTree && WidgetTree->RootWidget)
	{
		OutChildren.Add(WidgetTree->RootWidget.Get());
	}
}

UUserWidget* UUserWidget::CreateWidgetInstance(UWidget& OwningWidget, TSubclassOf<UUserWidget> UserWidgetClass, FName WidgetName)
{
	// A widget owns what it makes through its tree, as a designer's child widgets are owned.
	UObject* Outer = &OwningWidget;
	if (const UUserWidget* OwningUserWidget = Cast<UUserWidget>(&OwningWidget); OwningUserWidget && OwningUserWidget->WidgetTree)
	{
		Outer = OwningUserWidget->WidgetTree.Get();
	}
	else if (UWidgetTree* OwningTree = Cast<UWidgetTree>(OwningWidget.GetOuter()))
	{
		Outer = OwningTree;
	}
	return CreateInstanceInternal(Outer, UserWidgetClass, WidgetName);
}

UUserWidget* UUserWidget::CreateWidgetInstance(UWidgetTree& OwningWidgetTree, TSubclassOf<UUserWidget> UserWidgetClass, FName WidgetName)
{
	return CreateInstanceInternal(&OwningWidgetTree, UserWidgetClass, WidgetName);
}

UUserWidget* UUserWidget::CreateWidgetInstance(UWorld& World, TSubclassOf<UUserWidget> UserWidgetClass, FName WidgetName)
{
	return CreateInstanceInternal(&World, UserWidgetClass, WidgetName);
}

UUserWidget* UUserWidget::CreateWidgetInstance(UObject& OwningObject, TSubclassOf<UUserWidget> UserWidgetClass, FName WidgetName)
{
	return CreateInstanceInternal(&OwningObject, UserWidgetClass, WidgetName);
}

UUserWidget* UUserWidget::CreateInstanceInternal(UObject* Outer, TSubclassOf<UUserWidget> UserWidgetClass, FName WidgetName)
{
	UClass* Class = UserWidgetClass.Get();
	if (!Class)
	{
		const UClass* Raw = UserWidgetClass.GetRawClass();
		UE_LOG(LogUMG, Error, TEXT("CreateWidget: %s is not a user widget class"), Raw ? *Raw->GetPathName() : TEXT("a null class"));
		return nullptr;
	}
	if (Class->HasAnyClassFlags(CLASS_Abstract))
	{
		UE_LOG(LogUMG, Error, TEXT("CreateWidget: %s is abstract; create a blueprint or a class derived from it"), *Class->GetPathName());
		return nullptr;
	}
	UUserWidget* Widget = NewObject<UUserWidget>(Outer, Class, WidgetName);
	if (!Widget)
	{
		return nullptr;
	}
	if (!Widget->Initialize())
	{
		// Never handed out: the collector frees it and the part of its tree that was built.
		Widget->ConditionalBeginDestroy();
		return nullptr;
	}
	return Widget;
}

UWidget* UUserWidget::GetWidgetFromName(const FName& Name) const
{
	return WidgetTree ? WidgetTree->FindWidget(Name) : nullptr;
}
