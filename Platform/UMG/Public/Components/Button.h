#pragma once

// UButton: a clickable box around one child. A press and a release over the button make a click.

#include "CoreMinimal.h"
#include "Misc/CoreMiscDefines.h"
#include "Components/ContentWidget.h"
#include "Math/Color.h"
#include "Button.generated.h"

DECLARE_DYNAMIC_MULTICAST_DELEGATE(FOnButtonClickedEvent);
DECLARE_DYNAMIC_MULTICAST_DELEGATE(FOnButtonPressedEvent);
DECLARE_DYNAMIC_MULTICAST_DELEGATE(FOnButtonReleasedEvent);

/** A button with one child as its face. */
UCLASS()
class UMG_API UButton : public UContentWidget
{
	GENERATED_BODY()

public:
	/** A button with a white background tint. */
	UButton();
	/** Defined where the deprecated members may be named. */
	~UButton() override;

	/** True while the pointer holds the button down. */
	UFUNCTION(BlueprintCallable, Category = "Button")
	bool IsPressed() const { return bPressed; }
	/** The tint of the button's background. */
	FLinearColor GetBackgroundColor() const;
	/** Sets the tint of the button's background. */
	UFUNCTION(BlueprintCallable, Category = "Button|Appearance")
	void SetBackgroundColor(FLinearColor InBackgroundColor);

	UE_DEPRECATED(5.2, "Direct access to BackgroundColor is deprecated. Please use the getter and setter.")
	/** Tint of the button's background. */
	UPROPERTY(EditAnywhere, BlueprintReadWrite, Category = "Appearance")
	FLinearColor BackgroundColor = FLinearColor::White;

	/** Raised when the button is clicked: pressed and released over it. */
	UPROPERTY(BlueprintAssignable, Category = "Button|Event")
	FOnButtonClickedEvent OnClicked;

	/** Raised when the pointer goes down on the button. */
	UPROPERTY(BlueprintAssignable, Category = "Button|Event")
	FOnButtonPressedEvent OnPressed;

	/** Raised when the pointer that pressed the button comes up, wherever it is. */
	UPROPERTY(BlueprintAssignable, Category = "Button|Event")
	FOnButtonReleasedEvent OnReleased;

protected:
	UClass* GetSlotClass() const override;

private:
	FVector2D ComputeDesiredSize() const override;
	void PaintSelf(FSlateWindowElementList& OutDrawElements, const FGeometry& Geometry, float Opacity) const override;
	void ArrangeChildren(const FGeometry& AllottedGeometry, TArray<FArrangedChildWidget>& OutChildren) const override;
	bool HandlePointerPressed(const FGeometry& MyGeometry, const FPointerEvent& Event) override;
	void HandlePointerReleased(const FGeometry& MyGeometry, const FPointerEvent& Event, bool bInside) override;

	// True between a press on the button and its release.
	bool bPressed = false;
};
