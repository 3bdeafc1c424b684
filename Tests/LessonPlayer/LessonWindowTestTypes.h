#pragma once

// A user widget that shows where the window's pointer events land in the viewport: the positions
// of the moves routed to it, and the events of a button it holds.

#include "CoreMinimal.h"
#include "Blueprint/UserWidget.h"
#include "LessonWindowTestTypes.generated.h"

/** Records routed pointer moves and its button's events. */
UCLASS()
class UTestPointerProbe : public UUserWidget
{
	GENERATED_BODY()

public:
	/** Viewport positions of the moves routed to this widget, oldest first. */
	TArray<FVector2D> Moves;
	/** "Pressed", "Released", "Clicked" as the button raised them. */
	TArray<FString> ButtonEvents;

	UFUNCTION()
	void OnPressed() { ButtonEvents.Add(TEXT("Pressed")); }

	UFUNCTION()
	void OnReleased() { ButtonEvents.Add(TEXT("Released")); }

	UFUNCTION()
	void OnClicked() { ButtonEvents.Add(TEXT("Clicked")); }

protected:
	FReply NativeOnMouseMove(const FGeometry& InGeometry, const FPointerEvent& InMouseEvent) override
	{
		Moves.Add(InMouseEvent.GetScreenSpacePosition());
		return FReply::Unhandled();
	}
};
