#include "UI_MarquelNodeSetting.h"

#include "Components/CheckBox.h"

void UUI_MarquelNodeSetting::SetMarquelShown(bool bInShow)
{
	bShowMarquel = bInShow;
	if (ShowMarquelCheckBox)
	{
		ShowMarquelCheckBox->SetIsChecked(bShowMarquel);
	}
}

void UUI_MarquelNodeSetting::NativeConstruct()
{
	Super::NativeConstruct();
	ShowMarquelCheckBox->SetIsChecked(bShowMarquel);
	ShowMarquelCheckBox->OnCheckStateChanged.AddUniqueDynamic(this, &UUI_MarquelNodeSetting::OnShowMarquelChanged);
}

void UUI_MarquelNodeSetting::OnShowMarquelChanged(bool bIsChecked)
{
	bShowMarquel = bIsChecked;
}
