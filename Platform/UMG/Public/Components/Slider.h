#pragma once

// USlider: a horizontal bar whose value the pointer drags. A press begins a capture and sets the
// value at the pointer; moves while captured change it; the release ends the capture. Setting the
// value from code (SetValue) raises no event.

#include "CoreMinimal.h"
#include "Components/Widget.h"
#include "Slider.generated.h"

DECLARE_DYNAMIC_MULTICAST_DELEGATE_OneParam(FOnFloatValueChangedEvent, float, Value);
DECLARE_DYNAMIC_MULTICAST_DELEGATE(FOnMouseCaptureBeginEvent);
DECLARE_DYNAMIC_MULTICAST_DELEGATE(FOnMouseCaptureEndEvent);

/** A slider from MinValue to MaxValue (0 to 1 by default). */
UCLASS()
class UMG_API USlider : public UWidget
{
	GENERATED_BODY()

public:
	/** The value. */
	UFUNCTION(BlueprintCallable, Category = "Behavior")
	float GetValue() const { return Value; }
	/** Sets the value; raises no event. */
	UFUNCTION(BlueprintCallable, Category = "Behavior")
	void SetValue(float InValue) { Value = InValue; }
	/** The value as a fraction of the range, 0 to 1. */
	UFUNCTION(BlueprintCallable, Category = "Behavior")
	float GetNormalizedValue() const;
	/** Sets the lowest value. */
	UFUNCTION(BlueprintCallable, Category = "Behavior")
	void SetMinValue(float InValue) { MinValue = InValue; }
	/** Sets the highest value. */
	UFUNCTION(BlueprintCallable, Category = "Behavior")
	void SetMaxValue(float InValue) { MaxValue = InValue; }
	/** Sets the step a drag snaps to when bMouseUsesStep is on. */
	UFUNCTION(BlueprintCallable, Category = "Behavior")
	void SetStepSize(float InValue) { StepSize = InValue; }
	/** Locks the slider so the pointer cannot change it. */
	UFUNCTION(BlueprintCallable, Category = "Behavior")
	void SetLocked(bool InLocked) { bLocked = InLocked; }

	/** The value. */
	UPROPERTY(EditAnywhere, Category = "Appearance")
	float Value = 0.0f;

	/** The lowest value. */
	UPROPERTY(EditAnywhere, Category = "Appearance")
	float MinValue = 0.0f;

	/** The highest value. */
	UPROPERTY(EditAnywhere, Category = "Appearance")
	float MaxValue = 1.0f;

	/** The step a drag snaps to when bMouseUsesStep is on. */
	UPROPERTY(EditAnywhere, Category = "Appearance")
	float StepSize = 0.01f;

	/** Whether drags snap to StepSize. */
	UPROPERTY(EditAnywhere, Category = "Behavior")
	bool bMouseUsesStep = false;

	/** Whether the pointer is refused. */
	UPROPERTY(EditAnywhere, Category = "Behavior")
	bool bLocked = false;

	/** Raised when the pointer presses the slider and captures it. */
	UPROPERTY(BlueprintAssignable, Category = "Widget Event")
	FOnMouseCaptureBeginEvent OnMouseCaptureBegin;

	/** Raised when the capturing pointer is released. */
	UPROPERTY(BlueprintAssignable, Category = "Widget Event")
	FOnMouseCaptureEndEvent OnMouseCaptureEnd;

	/** Raised when the pointer changes the value, with the new value. */
	UPROPERTY(BlueprintAssignable, Category = "Widget Event")
	FOnFloatValueChangedEvent OnValueChanged;

protected:
	FVector2D ComputeDesiredSize() const override;
	bool HandlePointerPressed(const FGeometry& MyGeometry, const FPointerEvent& Event) override;
	void HandlePointerDragged(const FGeometry& MyGeometry, const FPointerEvent& Event) override;
	void HandlePointerReleased(const FGeometry& MyGeometry, const FPointerEvent& Event, bool bInside) override;

private:
	/** Sets the value under the pointer, raising OnValueChanged when it changes. */
	void CommitPointerValue(const FGeometry& MyGeometry, const FPointerEvent& Event);
};
