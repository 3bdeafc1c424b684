#include "Blueprint/WidgetBlueprintLibrary.h"

#include "Blueprint/UserWidget.h"
#include "Slate/WidgetHierarchy.h"
#include "Slate/WidgetViewport.h"

UUserWidget* UWidgetBlueprintLibrary::Create(UObject* WorldContextObject, TSubclassOf<UUserWidget> WidgetType)
{
	return WorldContextObject ? UUserWidget::CreateWidgetInstance(*WorldContextObject, WidgetType, NAME_None) : nullptr;
}

void UWidgetBlueprintLibrary::GetAllWidgetsOfClass(UObject* WorldContextObject, TArray<UUserWidget*>& FoundWidgets, TSubclassOf<UUserWidget> WidgetClass, bool TopLevelOnly)
{
	FoundWidgets.Reset();
	UClass* Class = WidgetClass.Get();
	if (!Class)
	{
		return;
	}
	for (UUserWidget* TopLevel : FWidgetViewport::Get().GetWidgets())
	{
		TArray<UUserWidget*> Candidates;
		if (TopLevelOnly)
		{
			Candidates.Add(TopLevel);
		}
		else
		{
			FWidgetHierarchy::CollectUserWidgets(TopLevel, true, Candidates);
		}
		for (UUserWidget* Candidate : Candidates)
		{
			if (Candidate->IsA(Class))
			{
				FoundWidgets.Add(Candidate);
			}
		}
	}
}
