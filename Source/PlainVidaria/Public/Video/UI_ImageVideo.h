#pragma once

#include "CoreMinimal.h"
#include "Core/UI_VidariaBase.h"
#include "UI_ImageVideo.generated.h"

class UMediaPlayer;

/**
 * The bottom layer of the video widgets: holds one media player asset and opens a path or URL on
 * it. The player is the designer's asset and outlives the widget; the widget only closes it and
 * forgets it when it leaves the screen, and nothing gives it back afterwards.
 */
UCLASS()
class PLAINVIDARIA_API UUI_ImageVideo : public UUI_VidariaBase
{
	GENERATED_BODY()

public:
	/** Makes the widget with no player until the blueprint's defaults assign one. */
	UUI_ImageVideo(const FObjectInitializer& ObjectInitializer);

	//初始化视频资源
	UFUNCTION()
	virtual void InitMadia();

	/** Opens InURL as a URL when the player can play it as one, else as a file; false without a player or when the open is refused. */
	UFUNCTION()
	virtual bool Play(const FString& InURL);

protected:
	/** Runs the widget's construction, then InitMadia. */
	virtual void NativeConstruct() override;
	/** Runs the widget's destruction, closes the player and forgets it. */
	virtual void NativeDestruct() override;

	/** The media player asset this widget drives; assigned by the designer. */
	UPROPERTY(EditAnywhere, Category = "UI")
	TObjectPtr<UMediaPlayer> MediaPlayer;
};
