#include "UI_MarquelBar.h"

#include "Components/Button.h"
#include "Components/TextBlock.h"

void UUI_MarquelBar::SetMarquelText(const FString& InText)
{
	MarquelText = InText;
	if (MarquelTextBlock)
	{
		MarquelTextBlock->SetText(FText::FromString(MarquelText));
	}
}

void UUI_MarquelBar::SendMarquel()
{
	if (!MarquelText.IsEmpty())
	{
		OnSendMarquel.Broadcast(MarquelText);
	}
}

void UUI_MarquelBar::NativeConstruct()
{
	Super::NativeConstruct();
	SetMarquelText(MarquelText);
	SendButton->OnClicked.AddUniqueDynamic(this, &UUI_MarquelBar::OnSendClicked);
}

void UUI_MarquelBar::OnSendClicked()
{
	SendMarquel();
}
