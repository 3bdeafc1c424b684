#pragma once

#include "DocComments.generated.h"

/**
 * A widget that shows
 * the lesson video.
 */
UCLASS()
class UDocComments : public UObject
{
	GENERATED_BODY()

public:
	//初始化视频资源
	UFUNCTION()
	void InitMadia();

	// First line
	// second line with "quotes" and \ backslash
	UPROPERTY()
	int32 TwoLines;

	// Separated by a blank line, so not documentation

	UPROPERTY()
	int32 Undocumented;

	int32 Plain; // belongs to Plain, not to what follows
	UPROPERTY()
	int32 AfterTrailing;

	/** Written above */
	UPROPERTY(meta = (ToolTip = "Given"))
	int32 ExplicitToolTip;
};
