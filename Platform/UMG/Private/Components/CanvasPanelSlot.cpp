#include "Components/CanvasPanelSlot.h"

void UCanvasPanelSlot::SetPosition(FVector2D InPosition)
{
	LayoutData.Offsets.Left = static_cast<float>(InPosition.X);
	LayoutData.Offsets.Top = static_cast<float>(InPosition.Y);
}

void UCanvasPanelSlot::SetSize(FVector2D InSize)
{
	LayoutData.Offsets.Right = static_cast<float>(InSize.X);
	LayoutData.Offsets.Bottom = static_cast<float>(InSize.Y);
}
