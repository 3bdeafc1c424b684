#include "Components/Widget.h"

#include "Blueprint/UserWidget.h"
#include "Components/PanelSlot.h"
#include "Components/PanelWidget.h"
#include "Slate/WidgetViewport.h"

// The widget's own accessors are where its deprecated members may still be named.
PRAGMA_DISABLE_DEPRECATION_WARNINGS

UWidget::UWidget() = default;

UWidget::UWidget(const FObjectInitializer& ObjectInitializer)
	: Super(ObjectInitializer)
{
}

UWidget::~UWidget() = default;

void UWidget::SetVisibility(ESlateVisibility InVisibility)
{
	Visibility = InVisibility;
}

ESlateVisibility UWidget::GetVisibility() const
{
	return Visibility;
}

bool UWidget::IsVisible() const
{
	return Visibility != ESlateVisibility::Collapsed && Visibility != ESlateVisibility::Hidden;
}

FText UWidget::GetToolTipText() const
{
	return ToolTipText;
}

void UWidget::SetToolTipText(const FText& InToolTipText)
{
	ToolTipText = InToolTipText;
}

bool UWidget::GetIsEnabled() const
{
	return bIsEnabled;
}

void UWidget::SetIsEnabled(bool bInIsEnabled)
{
	bIsEnabled = bInIsEnabled;
}

float UWidget::GetRenderOpacity() const
{
	return RenderOpacity;
}

void UWidget::SetRenderOpacity(float InOpacity)
{
	RenderOpacity = InOpacity;
}

const FWidgetTransform& UWidget::GetRenderTransform() const
{
	return RenderTransform;
}

void UWidget::SetRenderTransform(FWidgetTransform InTransform)
{
	RenderTransform = InTransform;
}

void UWidget::SetRenderTranslation(FVector2D Translation)
{
	RenderTransform.Translation = Translation;
}

PRAGMA_ENABLE_DEPRECATION_WARNINGS

bool UWidget::IsInViewport() const
{
	// Only a user widget can stand in the viewport here, as AddToViewport is a user widget's.
	const UUserWidget* UserWidget = Cast<UUserWidget>(this);
	return UserWidget && FWidgetViewport::Get().ContainsWidget(UserWidget);
}

UPanelWidget* UWidget::GetParent() const
{
	return Slot ? Slot->Parent.Get() : nullptr;
}

void UWidget::RemoveFromParent()
{
	if (UPanelWidget* Parent = GetParent())
	{
		Parent->RemoveChild(this);
	}
}
