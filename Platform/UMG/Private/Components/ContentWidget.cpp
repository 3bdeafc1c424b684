#include "Components/ContentWidget.h"

UContentWidget::UContentWidget()
{
	bCanHaveMultipleChildren = false;
}

UPanelSlot* UContentWidget::SetContent(UWidget* Content)
{
	ClearChildren();
	return AddChild(Content);
}
