#pragma once

// UCheckBox: a box that a click toggles. Only a click raises OnCheckStateChanged: setting the
// state from code (SetIsChecked, SetCheckedState) raises nothing, so a handler may set the box
// without coming back into itself.

#include "CoreMinimal.h"
#include "Misc/CoreMiscDefines.h"
#include "Components/ContentWidget.h"
#include "Styling/SlateTypes.h"
#include "CheckBox.generated.h"

DECLARE_DYNAMIC_MULTICAST_DELEGATE_OneParam(FOnCheckBoxComponentStateChanged, bool, bIsChecked);

/** A toggle with an optional child beside its box. */
UCLASS()
class UMG_API UCheckBox : public UContentWidget
{
	GENERATED_BODY()

public:
	/** An unchecked box. */
	UCheckBox();
	/** Defined where the deprecated members may be named. */
	~UCheckBox() override;

	/** True when the state is Checked. */
	UFUNCTION(BlueprintCallable, Category = "Widget")
	bool IsChecked() const;
	/** The state: checked, unchecked or undetermined. */
	UFUNCTION(BlueprintCallable, Category = "Widget")
	ECheckBoxState GetCheckedState() const;
	/** Checks or unchecks the box; raises no event. */
	UFUNCTION(BlueprintCallable, Category = "Widget")
	void SetIsChecked(bool InIsChecked);
	/** Sets the state; raises no event. */
	UFUNCTION(BlueprintCallable, Category = "Widget")
	void SetCheckedState(ECheckBoxState InCheckedState);
	/** True while the pointer holds the box down. */
	UFUNCTION(BlueprintCallable, Category = "Widget")
	bool IsPressed() const { return bPressed; }

	UE_DEPRECATED(5.1, "Direct access to CheckedState is deprecated. Please use the getter or setter.")
	/** The state. */
	UPROPERTY(EditAnywhere, BlueprintReadWrite, Category = "Appearance")
	ECheckBoxState CheckedState = ECheckBoxState::Unchecked;

	/** Raised when a click changes the state, with true for checked. */
	UPROPERTY(BlueprintAssignable, Category = "CheckBox|Event")
	FOnCheckBoxComponentStateChanged OnCheckStateChanged;

private:
	FVector2D ComputeDesiredSize() const override;
	void PaintSelf(FSlateWindowElementList& OutDrawElements, const FGeometry& Geometry, float Opacity) const override;
	void ArrangeChildren(const FGeometry& AllottedGeometry, TArray<FArrangedChildWidget>& OutChildren) const override;
	bool HandlePointerPressed(const FGeometry& MyGeometry, const FPointerEvent& Event) override;
	void HandlePointerReleased(const FGeometry& MyGeometry, const FPointerEvent& Event, bool bInside) override;

	// True between a press on the box and its release.
	bool bPressed = false;
};
