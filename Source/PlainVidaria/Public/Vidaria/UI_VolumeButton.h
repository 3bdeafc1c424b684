#pragma once

#include "CoreMinimal.h"
#include "Core/UI_VidariaBase.h"
#include "UI_VolumeButton.generated.h"

class UCheckBox;

/**
 * The player's mute button. It touches no sound itself: it calls the lesson player that made
 * itself its parent, and does nothing until that parent is set.
 */
UCLASS()
class PLAINVIDARIA_API UUI_VolumeButton : public UUI_VidariaBase
{
	GENERATED_BODY()

public:
	/** Binds the check box's event. */
	virtual void NativeConstruct() override;

protected:
	/** The pointer came onto the button. */
	virtual void NativeOnMouseEnter(const FGeometry& InGeometry, const FPointerEvent& InMouseEvent) override;
	/** The pointer left the button. */
	virtual void NativeOnMouseLeave(const FPointerEvent& InMouseEvent) override;

	/** The mute box was clicked; ClickedWidget is its new state, true for muted. */
	UFUNCTION()
	void ClickedCheckBoxVolume(bool ClickedWidget);

private:
	/** The mute check box of the design; checked means muted. */
	UPROPERTY(meta = (BindWidget))
	TObjectPtr<UCheckBox> VolumeButton;

	// The multiplier a mute took away, given back when the box is cleared.
	float SavedVolumeMultiplier = 0.0f;
};
