#pragma once

#if !PLAIN_PLATFORM_INTERNALS
#error "Blueprint/WidgetTemplateNode.h belongs to the stand-in; the engine has no such header"
#endif

// FWidgetTemplateNode (stand-in): one widget of a widget blueprint's tree as read from the asset,
// from which every instance's tree is built.

#include "CoreMinimal.h"
#include "Templates/SharedPointer.h"

class FJsonObject;
class UClass;

/** A widget of a blueprint's designed tree: name, class, property values, slot data, children. */
struct FWidgetTemplateNode
{
	/** The designer's name, which BindWidget members match. */
	FName Name;
	/** A widget class (native or another widget blueprint's generated class). */
	UClass* WidgetClass = nullptr;
	/** Property values set on the widget by reflection; may be null. */
	TSharedPtr<FJsonObject> Properties;
	/** Layout data for the slot in the parent panel; may be null. */
	TSharedPtr<FJsonObject> Slot;
	/** The children, in order. */
	TArray<FWidgetTemplateNode> Children;
};
