#pragma once

#include "CoreMinimal.h"
#include "Blueprint/UserWidget.h"
#include "UI_MarquelNodeSetting.generated.h"

class UCheckBox;

/**
 * The viewer's comment settings: whether comments show, their font size and their speed. The
 * overlay reads them each frame, so a change takes effect at once.
 */
UCLASS()
class PLAINMARQUEL_API UUI_MarquelNodeSetting : public UUserWidget
{
	GENERATED_BODY()

public:
	/** True while comments are shown. */
	bool IsMarquelShown() const { return bShowMarquel; }
	/** Shows or hides the comments, and the check box with them. */
	void SetMarquelShown(bool bInShow);
	/** Font size of new comments. */
	int32 GetFontSize() const { return FontSize; }
	/** Factor on the comments' speed. */
	float GetSpeedScale() const { return SpeedScale; }

protected:
	/** Binds the check box and shows the current state on it. */
	virtual void NativeConstruct() override;

	/** The viewer switched comments on or off. */
	UFUNCTION()
	void OnShowMarquelChanged(bool bIsChecked);

private:
	/** Checked while comments are shown. */
	UPROPERTY(meta = (BindWidget))
	TObjectPtr<UCheckBox> ShowMarquelCheckBox;

	/** Whether comments are shown. */
	UPROPERTY(EditAnywhere, Category = "UI")
	bool bShowMarquel = true;

	/** Font size of new comments. */
	UPROPERTY(EditAnywhere, Category = "UI")
	int32 FontSize = 20;

	/** Factor on the comments' speed. */
	UPROPERTY(EditAnywhere, Category = "UI")
	float SpeedScale = 1.0f;
};
