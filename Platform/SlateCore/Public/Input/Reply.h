#pragma once

// FReply: what a widget's input handler answers. A handled event stops bubbling to the parents.

#include "CoreMinimal.h"

/** The answer of an input handler: handled (stop here) or unhandled (ask the parent). */
class FReply
{
public:
	/** The event was consumed. */
	static FReply Handled() { return FReply(true); }
	/** The event goes on to the widget's parents. */
	static FReply Unhandled() { return FReply(false); }

	/** True when a handler consumed the event. */
	bool IsEventHandled() const { return bHandled; }

private:
	explicit FReply(bool bInHandled) : bHandled(bInHandled) {}

	/** Whether bubbling stops here. */
	bool bHandled = false;
};
