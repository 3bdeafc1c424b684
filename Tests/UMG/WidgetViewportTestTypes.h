#pragma once

// Reflected helpers for the viewport tests: a user widget that records its lifecycle and pointer
// events, and a listener for the common widgets' dynamic events.

#include "CoreMinimal.h"
#include "Blueprint/UserWidget.h"
#include "Templates/Function.h"
#include "Types/SlateEnums.h"
#include "WidgetViewportTestTypes.generated.h"

/** Records what the viewport calls on it, in order, into a shared journal. */
UCLASS()
class UTestRecordingWidget : public UUserWidget
{
	GENERATED_BODY()

public:
	/** Every call on every recording widget: "<Name>:<Event>". */
	static TArray<FString> Journal;
	/** Cursor deltas of the moves received. */
	TArray<FVector2D> MoveDeltas;
	/** Whether moves stop here. */
	bool bHandleMoves = false;
	/** Run at the end of each NativeTick, when set. */
	TFunction<void()> TickAction;

protected:
	void NativeConstruct() override { Journal.Add(GetName() + TEXT(":Construct")); }
	void NativeDestruct() override { Journal.Add(GetName() + TEXT(":Destruct")); }
	void NativeTick(const FGeometry& MyGeometry, float InDeltaTime) override
	{
		Journal.Add(GetName() + TEXT(":Tick"));
		if (TickAction)
		{
			TickAction();
		}
	}
	void NativeOnMouseEnter(const FGeometry& InGeometry, const FPointerEvent& InMouseEvent) override { Journal.Add(GetName() + TEXT(":Enter")); }
	void NativeOnMouseLeave(const FPointerEvent& InMouseEvent) override { Journal.Add(GetName() + TEXT(":Leave")); }
	FReply NativeOnMouseMove(const FGeometry& InGeometry, const FPointerEvent& InMouseEvent) override
	{
		Journal.Add(GetName() + TEXT(":Move"));
		MoveDeltas.Add(InMouseEvent.GetCursorDelta());
		return bHandleMoves ? FReply::Handled() : FReply::Unhandled();
	}
};

/** Counts the events of buttons, check boxes, sliders and combo boxes. */
UCLASS()
class UTestWidgetListener : public UObject
{
	GENERATED_BODY()

public:
	/** Event names with their values, in order. */
	TArray<FString> Events;
	/** Run after a click is recorded, when set. */
	TFunction<void()> ClickAction;

	UFUNCTION()
	void OnClicked()
	{
		Events.Add(TEXT("Clicked"));
		if (ClickAction)
		{
			ClickAction();
		}
	}

	UFUNCTION()
	void OnCheckStateChanged(bool bIsChecked) { Events.Add(bIsChecked ? TEXT("Checked") : TEXT("Unchecked")); }

	UFUNCTION()
	void OnCaptureBegin() { Events.Add(TEXT("CaptureBegin")); }

	UFUNCTION()
	void OnCaptureEnd() { Events.Add(TEXT("CaptureEnd")); }

	UFUNCTION()
	void OnValueChanged(float Value) { Events.Add(FString::Printf(TEXT("Value %.2f"), Value)); }

	UFUNCTION()
	void OnSelectionChanged(FString SelectedItem, ESelectInfo::Type SelectionType)
	{
		Events.Add(FString::Printf(TEXT("Selected %s %d"), *SelectedItem, int32(SelectionType)));
	}
};
