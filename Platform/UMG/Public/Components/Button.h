#pragma once

// UButton: a clickable box around one child. A press and a release over the button make a click.

#include "CoreMinimal.h"
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
	/** True while the pointer holds the button down. */
	UFUNCTION(BlueprintCallable, Category = "Button")
	bool IsPressed() const { return bPressed; }
	/** Sets the tint of the button's background. */
	UFUNCTION(BlueprintCallable, Category = "Button|Appearance")
	void SetBackgroundColor(FLinearColor InBackgroundColor) { BackgroundColor = InBackgroundColor; }

	/** Tint of the button's background. */
	UPROPERTY(EditAnywhere, Category = "Appearance")
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
	FVector2D ComputeDesiredSize() const override;
	void ArrangeChildren(const FGeometry& AllottedGeometry, TArray<FArrangedChildWidget>& OutChildren) const override;
	bool HandlePointerPressed(const FGeometry& MyGeometry, const FPointerEvent& Event) override;
	void HandlePointerReleased(const FGeometry& MyGeometry, const FPointerEvent& Event, bool bInside) override;

private:
	// True between a press on the button and its release.
	bool bPressed = false;
};
