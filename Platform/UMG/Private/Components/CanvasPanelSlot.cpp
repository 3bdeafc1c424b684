#include "Components/CanvasPanelSlot.h"

// The slot's own accessors are where its deprecated members may still be named.
PRAGMA_DISABLE_DEPRECATION_WARNINGS

UCanvasPanelSlot::UCanvasPanelSlot() = default;

UCanvasPanelSlot::~UCanvasPanelSlot() = default;

void UCanvasPanelSlot::SetLayout(const FAnchorData& InLayoutData)
{
	LayoutData = InLayoutData;
}

FAnchorData UCanvasPanelSlot::GetLayout() const
{
	return LayoutData;
}

void UCanvasPanelSlot::SetPosition(FVector2D InPosition)
{
	LayoutData.Offsets.Left = static_cast<float>(InPosition.X);
	LayoutData.Offsets.Top = static_cast<float>(InPosition.Y);
}

FVector2D UCanvasPanelSlot::GetPosition() const
{
	return FVector2D(LayoutData.Offsets.Left, LayoutData.Offsets.Top);
}

void UCanvasPanelSlot::SetSize(FVector2D InSize)
{
	LayoutData.Offsets.Right = static_cast<float>(InSize.X);
	LayoutData.Offsets.Bottom = static_cast<float>(InSize.Y);
}

FVector2D UCanvasPanelSlot::GetSize() const
{
	return FVector2D(LayoutData.Offsets.Right, LayoutData.Offsets.Bottom);
}

void UCanvasPanelSlot::SetOffsets(FMargin InOffset)
{
	LayoutData.Offsets = InOffset;
}

FMargin UCanvasPanelSlot::GetOffsets() const
{
	return LayoutData.Offsets;
}

void UCanvasPanelSlot::SetAnchors(FAnchors InAnchors)
{
	LayoutData.Anchors = InAnchors;
}

FAnchors UCanvasPanelSlot::GetAnchors() const
{
	return LayoutData.Anchors;
}

void UCanvasPanelSlot::SetAlignment(FVector2D InAlignment)
{
	LayoutData.Alignment = InAlignment;
}

FVector2D UCanvasPanelSlot::GetAlignment() const
{
	return LayoutData.Alignment;
}

void UCanvasPanelSlot::SetAutoSize(bool InbAutoSize)
{
	bAutoSize = InbAutoSize;
}

bool UCanvasPanelSlot::GetAutoSize() const
{
	return bAutoSize;
}

void UCanvasPanelSlot::SetZOrder(int32 InZOrder)
{
	ZOrder = InZOrder;
}

int32 UCanvasPanelSlot::GetZOrder() const
{
	return ZOrder;
}

PRAGMA_ENABLE_DEPRECATION_WARNINGS
