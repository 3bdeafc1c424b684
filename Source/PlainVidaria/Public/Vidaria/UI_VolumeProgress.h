#pragma once

#include "CoreMinimal.h"
#include "Core/UI_VidariaBase.h"
#include "UI_VolumeProgress.generated.h"

class USlider;
class UTextBlock;

/**
 * The player's volume board: a slider with a number beside it. It changes the sound only through
 * the lesson player that made itself its parent.
 */
UCLASS()
class PLAINVIDARIA_API UUI_VolumeProgress : public UUI_VidariaBase
{
	GENERATED_BODY()

public:
	/** Binds the slider's event. */
	virtual void NativeConstruct() override;

	/** Shows Value (0 to 1) on the slider and as a number of ten steps, without changing the sound. */
	void SetChangedVolumeValue(float Value);

protected:
	/** The pointer came onto the board. */
	virtual void NativeOnMouseEnter(const FGeometry& InGeometry, const FPointerEvent& InMouseEvent) override;
	/** The pointer left the board. */
	virtual void NativeOnMouseLeave(const FPointerEvent& InMouseEvent) override;

	/** The viewer moved the slider to InValue. */
	UFUNCTION()
	void ChangedVolumeValue(float InValue);

private:
	/** The number beside the slider. */
	UPROPERTY(meta = (BindWidget))
	TObjectPtr<UTextBlock> VolumeValue;

	/** The volume slider, 0 to 1. */
	UPROPERTY(meta = (BindWidget))
	TObjectPtr<USlider> VolumeProgress;
};
