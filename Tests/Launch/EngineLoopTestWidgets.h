#pragma once

#include "Blueprint/UserWidget.h"
#include "EngineLoopTestWidgets.generated.h"

/** Writes "widget" into the frame's record at each NativeTick, and can add a child while ticking. */
UCLASS()
class UEngineLoopProbeWidget : public UUserWidget
{
	GENERATED_BODY()

public:
	/** Where each step of a frame writes its name, shared with the test. */
	TArray<FString>* Record = nullptr;

protected:
	void NativeTick(const FGeometry& MyGeometry, float InDeltaTime) override
	{
		Super::NativeTick(MyGeometry, InDeltaTime);
		if (Record)
		{
			Record->Add(TEXT("widget"));
		}
	}
};
