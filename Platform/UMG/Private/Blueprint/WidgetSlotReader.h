#pragma once

// Reads the "Slot" object of a widget blueprint's tree node into the slot its panel made.

#include "CoreMinimal.h"

class FJsonObject;
class UPanelSlot;

namespace UE::UMG
{
	/** Sets Slot's layout from Json; false with the problems in OutError (the rest is still applied). */
	bool ApplySlotJson(UPanelSlot* Slot, const FJsonObject& Json, FString& OutError);
}
