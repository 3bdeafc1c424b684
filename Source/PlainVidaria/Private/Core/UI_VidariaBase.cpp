#include "Core/UI_VidariaBase.h"

#include "Animation/WidgetAnimation.h"
#include "Blueprint/WidgetBlueprintGeneratedClass.h"

void UUI_VidariaBase::SetParent(UWidget* InParentWidget)
{
	ParentWidget = InParentWidget;
}

UWidgetAnimation* UUI_VidariaBase::GetNameWidgetAnimation(const FString& InName) const
{
	UClass* WidgetClass = GetClass();
	if (!WidgetClass)
	{
		return nullptr;
	}
	// Only a widget made from a blueprint has animations; a native widget class has none to offer.
	UWidgetBlueprintGeneratedClass* BlueprintClass = Cast<UWidgetBlueprintGeneratedClass>(WidgetClass);
	if (!BlueprintClass)
	{
		return nullptr;
	}
	// The blueprint names its animation objects after the designer's name plus this suffix.
	const FString ObjectName = InName + TEXT("_INST");
	const TArray<TObjectPtr<UWidgetAnimation>> Animations = BlueprintClass->Animations;
	for (UWidgetAnimation* Animation : Animations)
	{
		if (Animation && Animation->GetFName().ToString() == ObjectName)
		{
			return Animation;
		}
	}
	return nullptr;
}
