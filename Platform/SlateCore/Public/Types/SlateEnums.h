#pragma once

// Slate's small enumerations shared by widgets: how a selection was made, how text is justified,
// and how a child is aligned in its slot.

#include "CoreMinimal.h"
#include "SlateEnums.generated.h"

/** How a selection in a list or combo box came about. */
UENUM(BlueprintType)
namespace ESelectInfo
{
	enum Type
	{
		/** Chosen with the keyboard. */
		OnKeyPress,
		/** Reached by navigating. */
		OnNavigation,
		/** Clicked with the mouse. */
		OnMouseClick,
		/** Set from code. */
		Direct
	};
}

/** Where lines of text sit within their box. */
UENUM(BlueprintType)
namespace ETextJustify
{
	enum Type
	{
		/** Lines start at the left edge. */
		Left,
		/** Lines are centred. */
		Center,
		/** Lines end at the right edge. */
		Right
	};
}

/** Where a child sits horizontally in the room its slot gives it. */
UENUM(BlueprintType)
enum EHorizontalAlignment
{
	/** Takes the whole width. */
	HAlign_Fill,
	/** At its desired width, on the left. */
	HAlign_Left,
	/** At its desired width, centred. */
	HAlign_Center,
	/** At its desired width, on the right. */
	HAlign_Right,
};

/** Where a child sits vertically in the room its slot gives it. */
UENUM(BlueprintType)
enum EVerticalAlignment
{
	/** Takes the whole height. */
	VAlign_Fill,
	/** At its desired height, at the top. */
	VAlign_Top,
	/** At its desired height, centred. */
	VAlign_Center,
	/** At its desired height, at the bottom. */
	VAlign_Bottom,
};
