#pragma once

// Native parents for the widget blueprint fixtures: one binding every kind of widget, one with a
// single required binding, and a child user widget that another blueprint nests.

#include "CoreMinimal.h"
#include "Blueprint/UserWidget.h"
#include "WidgetBlueprintTestTypes.generated.h"

class UBorder;
class UButton;
class UCanvasPanel;
class UCheckBox;
class UComboBoxString;
class UHorizontalBox;
class UImage;
class UOverlay;
class UProgressBar;
class USizeBox;
class USlider;
class UTextBlock;
class UVerticalBox;
class UWidgetAnimation;

/** A user widget nested in the player blueprint, with a binding of its own. */
UCLASS()
class UTestVolumeWidget : public UUserWidget
{
	GENERATED_BODY()

public:
	/** The label of the nested blueprint. */
	UPROPERTY(meta = (BindWidget))
	TObjectPtr<UTextBlock> VolumeValue;
};

/** A player binding one widget of every kind, a nested user widget and an animation. */
UCLASS()
class UTestBoundPlayer : public UUserWidget
{
	GENERATED_BODY()

public:
	UPROPERTY(meta = (BindWidget))
	TObjectPtr<UCanvasPanel> RootCanvas;

	UPROPERTY(meta = (BindWidget))
	TObjectPtr<UOverlay> Stack;

	UPROPERTY(meta = (BindWidget))
	TObjectPtr<UBorder> MediaBarBorder;

	UPROPERTY(meta = (BindWidget))
	TObjectPtr<UHorizontalBox> ControlBar;

	UPROPERTY(meta = (BindWidget))
	TObjectPtr<UVerticalBox> Column;

	UPROPERTY(meta = (BindWidget))
	TObjectPtr<USizeBox> ButtonBox;

	UPROPERTY(meta = (BindWidget))
	TObjectPtr<UButton> ReplayButton;

	UPROPERTY(meta = (BindWidget))
	TObjectPtr<UCheckBox> SuspendButton;

	UPROPERTY(meta = (BindWidget))
	TObjectPtr<USlider> MovieProgress;

	UPROPERTY(meta = (BindWidget))
	TObjectPtr<UProgressBar> VideoCacheLoading;

	UPROPERTY(meta = (BindWidget))
	TObjectPtr<UTextBlock> PlayTimeText;

	UPROPERTY(meta = (BindWidget))
	TObjectPtr<UImage> ImageVideo;

	UPROPERTY(meta = (BindWidget))
	TObjectPtr<UComboBoxString> ComboPlaySpeed;

	UPROPERTY(meta = (BindWidget))
	TObjectPtr<UTestVolumeWidget> VolumeButton;

	UPROPERTY(meta = (BindWidgetOptional))
	TObjectPtr<UTextBlock> OptionalCaption;

	UPROPERTY(Transient, meta = (BindWidgetAnim))
	TObjectPtr<UWidgetAnimation> OpenBar;

	/** An edit-time setting the blueprint's defaults fill. */
	UPROPERTY(EditAnywhere, Category = "UI")
	FString Title;

	/** Another edit-time setting. */
	UPROPERTY(EditAnywhere, Category = "UI")
	float Speed = 1.0f;
};

/** A widget that requires one button named PlayButton. */
UCLASS()
class UTestNeedsButton : public UUserWidget
{
	GENERATED_BODY()

public:
	UPROPERTY(meta = (BindWidget))
	TObjectPtr<UButton> PlayButton;
};
