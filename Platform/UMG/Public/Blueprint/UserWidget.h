#pragma once

// UUserWidget: a widget made of a tree of widgets, usually from a widget blueprint. Lifecycle:
// CreateWidget builds the tree and binds the BindWidget members before the widget is on screen;
// NativeConstruct runs when it goes on screen (the viewport, or a panel that is on screen);
// NativeDestruct runs when it leaves it, at once (inside RemoveFromParent), except while Slate
// still holds it: during the input event whose path it is on, or the tick pass it is part of.
// Put back before that is over, it stays constructed; later, it is constructed again.

#include "CoreMinimal.h"
#include "Components/Widget.h"
#include "Input/Reply.h"
#include "Templates/Casts.h"
#include "Templates/SubclassOf.h"
#include "UserWidget.generated.h"

class UWidgetTree;
class UWidgetAnimation;
class UUMGSequencePlayer;
class UWorld;

/** Which way a widget animation runs. */
UENUM(BlueprintType)
namespace EUMGSequencePlayMode
{
	enum Type : int
	{
		/** From the start to the end, each loop. */
		Forward,
		/** From the end to the start, each loop. */
		Reverse,
		/** Forward, then back, each pass counting as a loop. */
		PingPong
	};
}

/** A widget built from a tree of widgets, with its own lifecycle, tick and animations. */
UCLASS(Abstract, Blueprintable, BlueprintType)
class UMG_API UUserWidget : public UWidget
{
	GENERATED_BODY()

public:
	/** A user widget itself is not hit by the pointer, only the widgets of its tree are. */
	UUserWidget();
	/** The same, for classes that pass their initializer on. */
	explicit UUserWidget(const FObjectInitializer& ObjectInitializer);

	/** Puts the widget on screen, filling the viewport; a higher ZOrder is drawn on top. */
	UFUNCTION(BlueprintCallable, Category = "User Interface|Viewport")
	void AddToViewport(int32 ZOrder = 0);
	/** Takes the widget out of the viewport or out of its panel. */
	void RemoveFromParent() override;

	/** Plays an animation of this widget's blueprint; a running play of the same animation restarts. */
	UFUNCTION(BlueprintCallable, Category = "User Interface|Animation")
	UUMGSequencePlayer* PlayAnimation(UWidgetAnimation* InAnimation, float StartAtTime = 0.0f, int32 NumLoopsToPlay = 1,
		EUMGSequencePlayMode::Type PlayMode = EUMGSequencePlayMode::Forward, float PlaybackSpeed = 1.0f, bool bRestoreState = false);
	/** Stops the animation where it is. */
	UFUNCTION(BlueprintCallable, Category = "User Interface|Animation")
	void StopAnimation(const UWidgetAnimation* InAnimation);
	/** Stops every animation of this widget. */
	UFUNCTION(BlueprintCallable, Category = "User Interface|Animation")
	void StopAllAnimations();
	/** True while the animation runs on this widget. */
	UFUNCTION(BlueprintCallable, Category = "User Interface|Animation")
	bool IsAnimationPlaying(const UWidgetAnimation* InAnimation) const;
	/** True when any animation runs on this widget. */
	UFUNCTION(BlueprintCallable, Category = "User Interface|Animation")
	bool IsAnyAnimationPlaying() const;

	/** The world of the owning object (outer chain). */
	UWorld* GetWorld() const override;

	/** Builds the tree and binds the members of a blueprint class; false when a required binding is missing. Runs once. */
	virtual bool Initialize();

	/** Makes a user widget of UserWidgetClass owned by a widget (inside its tree). */
	static UUserWidget* CreateWidgetInstance(UWidget& OwningWidget, TSubclassOf<UUserWidget> UserWidgetClass, FName WidgetName);
	/** Makes a user widget of UserWidgetClass inside a widget tree. */
	static UUserWidget* CreateWidgetInstance(UWidgetTree& OwningWidgetTree, TSubclassOf<UUserWidget> UserWidgetClass, FName WidgetName);
	/** Makes a user widget of UserWidgetClass in a world. */
	static UUserWidget* CreateWidgetInstance(UWorld& World, TSubclassOf<UUserWidget> UserWidgetClass, FName WidgetName);
#if PLAIN_PLATFORM_INTERNALS
	/** Stand-in: makes a user widget of UserWidgetClass owned by any object (tests and tools own widgets so). */
	static UUserWidget* CreateWidgetInstance(UObject& OwningObject, TSubclassOf<UUserWidget> UserWidgetClass, FName WidgetName);
#endif

	/** The widget of this widget's tree named Name, or null. */
	UWidget* GetWidgetFromName(const FName& Name) const;

	/** The running animation players, in the order they started. */
	UPROPERTY(Transient)
	TArray<TObjectPtr<UUMGSequencePlayer>> ActiveSequencePlayers;

	/** The widgets this user widget is made of. */
	UPROPERTY(Transient)
	TObjectPtr<UWidgetTree> WidgetTree;

protected:
	/** Once, after the tree is built and bound (at CreateWidget). */
	virtual void NativeOnInitialized() {}
	/** Each time the widget goes on screen. */
	virtual void NativeConstruct() {}
	/** Each time the widget has left the screen: at once, or once Slate lets go of it. */
	virtual void NativeDestruct() {}
	/** Every frame while constructed and shown; MyGeometry is the last layout's. */
	virtual void NativeTick(const FGeometry& MyGeometry, float InDeltaTime) {}
	/** The pointer moved over the widget; Handled stops the event reaching the parents. */
	virtual FReply NativeOnMouseMove(const FGeometry& InGeometry, const FPointerEvent& InMouseEvent) { return FReply::Unhandled(); }
	/** The pointer came over the widget (or one of its children). */
	virtual void NativeOnMouseEnter(const FGeometry& InGeometry, const FPointerEvent& InMouseEvent) {}
	/** The pointer left the widget and its children. */
	virtual void NativeOnMouseLeave(const FPointerEvent& InMouseEvent) {}

private:
	FVector2D ComputeDesiredSize() const override;
	void ArrangeChildren(const FGeometry& AllottedGeometry, TArray<FArrangedChildWidget>& OutChildren) const override;
	void GetLayoutChildren(TArray<UWidget*>& OutChildren) const override;

	friend class FWidgetViewport;
	friend class UWidgetBlueprintGeneratedClass;

	/** Makes the widget and initializes it; null (with a LogUMG error) when that fails. */
	static UUserWidget* CreateInstanceInternal(UObject* Outer, TSubclassOf<UUserWidget> UserWidgetClass, FName WidgetName);
	/** Advances the running animations and drops the finished ones. */
	void TickAnimations(float DeltaSeconds);

	// Set by Initialize, so it runs once.
	bool bInitialized = false;
	// Between NativeConstruct and NativeDestruct.
	bool bConstructed = false;
};

/** Makes a user widget of UserWidgetClass; OwningObject is a widget, a widget tree or a world. */
template<typename WidgetT = UUserWidget, typename OwnerType = UObject>
WidgetT* CreateWidget(OwnerType OwningObject, TSubclassOf<UUserWidget> UserWidgetClass = WidgetT::StaticClass(), FName WidgetName = NAME_None)
{
	static_assert(std::is_base_of_v<UUserWidget, WidgetT>, "CreateWidget can only be used to create UserWidget instances.");
	if (!OwningObject)
	{
		return nullptr;
	}
	return Cast<WidgetT>(UUserWidget::CreateWidgetInstance(*OwningObject, UserWidgetClass, WidgetName));
}
