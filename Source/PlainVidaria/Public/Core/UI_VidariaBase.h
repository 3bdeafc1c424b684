#pragma once

#include "CoreMinimal.h"
#include "Blueprint/UserWidget.h"
#include "UI_VidariaBase.generated.h"

class UWidgetAnimation;

/**
 * The base of every widget of the lesson player. It adds a back reference to the widget that
 * drives this one, and finds the designer's animations by the names they have in the editor.
 */
UCLASS()
class PLAINVIDARIA_API UUI_VidariaBase : public UUserWidget
{
	GENERATED_BODY()

public:
	/** Remembers the widget this one reports to; null forgets it. */
	void SetParent(UWidget* InParentWidget);

	/** The widget this one reports to, or null when none is set or it is no T. */
	template<class T>
	T* GetParentWidget() const
	{
		return ParentWidget && ParentWidget->IsA(T::StaticClass()) ? static_cast<T*>(ParentWidget.Get()) : nullptr;
	}

protected:
	/** The animation the designer named InName in this widget's blueprint (any letter case), or null. */
	UWidgetAnimation* GetNameWidgetAnimation(const FString& InName) const;

private:
	/** The widget this one reports to; kept alive, not owned. */
	UPROPERTY(meta = (EditInline = "true"))
	TObjectPtr<UWidget> ParentWidget;
};
