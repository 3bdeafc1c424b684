#pragma once

// USlider: a horizontal bar whose value the pointer drags. A press begins a capture and sets the
// value at the pointer; moves while captured change it; the release ends the capture. Setting the
// value from code (SetValue) raises no event.

#include "CoreMinimal.h"
#include "Misc/CoreMiscDefines.h"
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
	/** A slider at 0 in the range 0 to 1. */
	USlider();
	/** Defined where the deprecated members may be named. */
	~USlider() override;

	/** The value. */
	UFUNCTION(BlueprintCallable, Category = "Behavior")
	float GetValue() const;
	/** The value as a fraction of the range, 0 to 1. */
	UFUNCTION(BlueprintCallable, Category = "Behavior")
	float GetNormalizedValue() const;
	/** Sets the value; raises no event. */
	UFUNCTION(BlueprintCallable, Category = "Behavior")
	void SetValue(float InValue);
	/** The lowest value. */
	float GetMinValue() const;
	/** Sets the lowest value. */
	UFUNCTION(BlueprintCallable, Category = "Behavior")
	void SetMinValue(float InValue);
	/** The highest value. */
	float GetMaxValue() const;
	/** Sets the highest value. */
	UFUNCTION(BlueprintCallable, Category = "Behavior")
	void SetMaxValue(float InValue);
	/** True while the slider refuses the pointer. */
	bool IsLocked() const;
	/** Locks the slider so the pointer cannot change it. */
	UFUNCTION(BlueprintCallable, Category = "Behavior")
	void SetLocked(bool InValue);
	/** The step a drag snaps to when MouseUsesStep is on. */
	float GetStepSize() const;
	/** Sets the step a drag snaps to when MouseUsesStep is on. */
	UFUNCTION(BlueprintCallable, Category = "Behavior")
	void SetStepSize(float InValue);

	UE_DEPRECATED(5.1, "Direct access to Value is deprecated. Please use the getter or setter.")
	/** The value. */
	UPROPERTY(EditAnywhere, BlueprintReadWrite, Category = "Appearance")
	float Value = 0.0f;

	UE_DEPRECATED(5.1, "Direct access to MinValue is deprecated. Please use the getter or setter.")
	/** The lowest value. */
	UPROPERTY(EditAnywhere, BlueprintReadWrite, Category = "Appearance")
	float MinValue = 0.0f;

	UE_DEPRECATED(5.1, "Direct access to MaxValue is deprecated. Please use the getter or setter.")
	/** The highest value. */
	UPROPERTY(EditAnywhere, BlueprintReadWrite, Category = "Appearance")
	float MaxValue = 1.0f;

	UE_DEPRECATED(5.1, "Direct access to Locked is deprecated. Please use the getter or setter.")
	/** Whether the pointer is refused. */
	UPROPERTY(EditAnywhere, BlueprintReadWrite, Category = "Appearance", AdvancedDisplay)
	bool Locked = false;

	/** Whether drags snap to StepSize. */
	UPROPERTY(EditAnywhere, BlueprintReadOnly, Category = "Appearance", AdvancedDisplay)
	bool MouseUsesStep = false;

	UE_DEPRECATED(5.1, "Direct access to StepSize is deprecated. Please use the getter or setter.")
	/** The step a drag snaps to when MouseUsesStep is on. */
	UPROPERTY(EditAnywhere, BlueprintReadWrite, Category = "Appearance")
	float StepSize = 0.01f;

	/** Raised when the pointer presses the slider and captures it. */
	UPROPERTY(BlueprintAssignable, Category = "Widget Event")
	FOnMouseCaptureBeginEvent OnMouseCaptureBegin;

	/** Raised when the capturing pointer is released. */
	UPROPERTY(BlueprintAssignable, Category = "Widget Event")
	FOnMouseCaptureEndEvent OnMouseCaptureEnd;

	/** Raised when the pointer changes the value, with the new value. */
	UPROPERTY(BlueprintAssignable, Category = "Widget Event")
	FOnFloatValueChangedEvent OnValueChanged;

private:
	FVector2D ComputeDesiredSize() const override;
	void PaintSelf(FSlateWindowElementList& OutDrawElements, const FGeometry& Geometry, float Opacity) const override;
	bool HandlePointerPressed(const FGeometry& MyGeometry, const FPointerEvent& Event) override;
	void HandlePointerDragged(const FGeometry& MyGeometry, const FPointerEvent& Event) override;
	void HandlePointerReleased(const FGeometry& MyGeometry, const FPointerEvent& Event, bool bInside) override;

	/** Sets the value under the pointer, raising OnValueChanged when it changes. */
	void CommitPointerValue(const FGeometry& MyGeometry, const FPointerEvent& Event);
};
