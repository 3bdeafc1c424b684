#pragma once

// UWidgetTree: the widgets a user widget is made of, under one root. Widgets of the tree have the
// tree as their outer, so their names are unique within it and FindWidget finds them by name.

#include "CoreMinimal.h"
#include "UObject/Object.h"
#include "UObject/UObjectGlobals.h"
#include "UObject/ObjectPtr.h"
#include "Templates/Casts.h"
#include "Templates/Function.h"
#include "Templates/SubclassOf.h"
#include "Components/Widget.h"
#include "WidgetTree.generated.h"

/** The widget hierarchy of one user widget. */
UCLASS()
class UMG_API UWidgetTree : public UObject
{
	GENERATED_BODY()

public:
	/** The widget named Name (case ignored), or null. Child user widgets' own trees are not searched. */
	UWidget* FindWidget(const FName& Name) const;
	/** The widget named Name if it is a WidgetT. */
	template<class WidgetT>
	WidgetT* FindWidget(const FName& Name) const { return Cast<WidgetT>(FindWidget(Name)); }

	/** Calls Predicate for every widget from the root down, parents before children. */
	void ForEachWidget(TFunctionRef<void(UWidget*)> Predicate) const;
	/** Every widget of the tree, parents before children. */
	void GetAllWidgets(TArray<UWidget*>& Widgets) const;

	/** Makes a WidgetT (or a class derived from it) inside this tree. */
	template<class WidgetT>
	WidgetT* ConstructWidget(TSubclassOf<UWidget> WidgetClass = WidgetT::StaticClass(), FName WidgetName = NAME_None)
	{
		return Cast<WidgetT>(ConstructWidgetOfClass(WidgetClass, WidgetName));
	}

	/** The top widget; a user widget lays it out over its whole box. */
	UPROPERTY()
	TObjectPtr<UWidget> RootWidget;

private:
	/** Makes a widget inside this tree; a user widget class is created (and initialized) as CreateWidget does. */
	UWidget* ConstructWidgetOfClass(UClass* WidgetClass, FName WidgetName = NAME_None);
};
