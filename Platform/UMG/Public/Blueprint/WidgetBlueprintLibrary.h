#pragma once

// UWidgetBlueprintLibrary: the widget functions a blueprint graph calls.

#include "CoreMinimal.h"
#include "UObject/Object.h"
#include "Templates/SubclassOf.h"
#include "WidgetBlueprintLibrary.generated.h"

class UUserWidget;
class UWidget;

/** Static helpers for widgets. */
UCLASS()
class UMG_API UWidgetBlueprintLibrary : public UObject
{
	GENERATED_BODY()

public:
	/** Makes a user widget of WidgetType owned by WorldContextObject, as CreateWidget does. */
	UFUNCTION(BlueprintCallable, Category = "Widget")
	static UUserWidget* Create(UObject* WorldContextObject, TSubclassOf<UUserWidget> WidgetType);

	/** Every user widget of WidgetClass that is on screen now, top-level first. */
	UFUNCTION(BlueprintCallable, Category = "Widget")
	static void GetAllWidgetsOfClass(UObject* WorldContextObject, TArray<UUserWidget*>& FoundWidgets, TSubclassOf<UUserWidget> WidgetClass, bool TopLevelOnly = true);
};
