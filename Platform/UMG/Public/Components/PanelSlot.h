#pragma once

// UPanelSlot: the layout data that places one child in its panel (position, padding,
// alignment...). Each panel type has its own slot class; the panel makes it in AddChild.

#include "CoreMinimal.h"
#include "UObject/Object.h"
#include "UObject/ObjectPtr.h"
#include "Templates/Casts.h"
#include "PanelSlot.generated.h"

class UPanelWidget;
class UWidget;

/** The link between a panel and one of its children, with the child's layout data. */
UCLASS(BlueprintType)
class UMG_API UPanelSlot : public UObject
{
	GENERATED_BODY()

public:
	/** The panel the slot belongs to. */
	UPROPERTY()
	TObjectPtr<UPanelWidget> Parent;

	/** The child the slot places. */
	UPROPERTY()
	TObjectPtr<UWidget> Content;
};
