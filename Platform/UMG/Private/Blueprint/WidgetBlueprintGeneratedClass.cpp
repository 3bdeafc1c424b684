#include "Blueprint/WidgetBlueprintGeneratedClass.h"

#include "Animation/WidgetAnimation.h"
#include "Assets/AssetReaders.h"
#include "Blueprint/UserWidget.h"
#include "Blueprint/WidgetSlotReader.h"
#include "Blueprint/WidgetTree.h"
#include "Components/PanelWidget.h"
#include "Dom/JsonObject.h"
#include "UMGLog.h"
#include "UObject/GarbageCollection.h"
#include "UObject/UnrealType.h"

namespace
{
	/** A class as C++ spells it: "UButton" for a native class, the blueprint's own name otherwise. */
	FString CppClassName(const UClass* Class)
	{
		if (!Class)
		{
			return TEXT("an unknown class");
		}
		return Class->HasAnyClassFlags(CLASS_Native) ? FString(TEXT("U")) + Class->GetName() : Class->GetName();
	}

	/** Makes the widget of Node and, below it, its children; null when any widget cannot be made. */
	UWidget* BuildWidget(const UClass* Blueprint, UWidgetTree* Tree, const FWidgetTemplateNode& Node)
	{
		UWidget* Widget = Tree->ConstructWidget<UWidget>(Node.WidgetClass, Node.Name);
		if (!Widget)
		{
			UE_LOG(LogUMG, Error, TEXT("%s: could not make the widget '%s' (%s)"), *Blueprint->GetPathName(), *Node.Name.ToString(), *CppClassName(Node.WidgetClass));
			return nullptr;
		}
		if (Node.Properties)
		{
			FString Error;
			if (!UE::Assets::ApplyJsonProperties(Widget, *Node.Properties, Error))
			{
				UE_LOG(LogUMG, Warning, TEXT("%s: widget '%s': %s"), *Blueprint->GetPathName(), *Node.Name.ToString(), *Error);
			}
			Widget->SynchronizeProperties();
		}
		if (Node.Children.Num() == 0)
		{
			return Widget;
		}
		UPanelWidget* Panel = Cast<UPanelWidget>(Widget);
		if (!Panel)
		{
			UE_LOG(LogUMG, Warning, TEXT("%s: widget '%s' is no panel; its children are left out"), *Blueprint->GetPathName(), *Node.Name.ToString());
			return Widget;
		}
		for (const FWidgetTemplateNode& ChildNode : Node.Children)
		{
			UWidget* Child = BuildWidget(Blueprint, Tree, ChildNode);
			if (!Child)
			{
				return nullptr;
			}
			UPanelSlot* Slot = Panel->AddChild(Child);
			if (!Slot)
			{
				UE_LOG(LogUMG, Warning, TEXT("%s: '%s' holds one child only; '%s' is left out"), *Blueprint->GetPathName(), *Node.Name.ToString(), *ChildNode.Name.ToString());
				continue;
			}
			FString Error;
			if (ChildNode.Slot && !UE::UMG::ApplySlotJson(Slot, *ChildNode.Slot, Error))
			{
				UE_LOG(LogUMG, Warning, TEXT("%s: widget '%s': %s"), *Blueprint->GetPathName(), *ChildNode.Name.ToString(), *Error);
			}
		}
		return Widget;
	}

	/** The designer's animation called Name ("<Name>_INST" in the class), or null. */
	UWidgetAnimation* FindAnimation(const TArray<TObjectPtr<UWidgetAnimation>>& Animations, const FString& Name)
	{
		const FString Wanted = Name + TEXT("_INST");
		for (const TObjectPtr<UWidgetAnimation>& Animation : Animations)
		{
			if (Animation && Animation->GetName() == Wanted)
			{
				return Animation.Get();
			}
		}
		return nullptr;
	}
}

bool UWidgetBlueprintGeneratedClass::InitializeWidget(UUserWidget* Widget) const
{
	UWidgetTree* Tree = NewObject<UWidgetTree>(Widget, UWidgetTree::StaticClass(), FName(TEXT("WidgetTree")));
	Widget->WidgetTree = Tree;
	if (TreeTemplate)
	{
		Tree->RootWidget = BuildWidget(this, Tree, *TreeTemplate);
		if (!Tree->RootWidget)
		{
			return false;
		}
	}

	// Every required binding is checked, so one run names every problem of the blueprint.
	bool bBound = true;
	for (const FProperty* Property : GetAllProperties())
	{
		const bool bWidget = Property->HasMetaData(TEXT("BindWidget")) || Property->HasMetaData(TEXT("BindWidgetOptional"));
		const bool bAnimation = Property->HasMetaData(TEXT("BindWidgetAnim")) || Property->HasMetaData(TEXT("BindWidgetAnimOptional"));
		if (!bWidget && !bAnimation)
		{
			continue;
		}
		const bool bRequired = Property->HasMetaData(TEXT("BindWidget")) || Property->HasMetaData(TEXT("BindWidgetAnim"));
		UObject* Found = bWidget ? static_cast<UObject*>(Tree->FindWidget(Property->GetFName())) : FindAnimation(Animations, Property->GetName());
		const UClass* Expected = Property->GetPropertyClass();
		if (!Found)
		{
			if (bRequired)
			{
				UE_LOG(LogUMG, Error, TEXT("%s: the %s '%s' that %s::%s is bound to is missing (expected %s)"), *GetPathName(),
					bWidget ? TEXT("widget") : TEXT("animation"), *Property->GetName(), *CppClassName(Property->GetOwnerStruct() ? static_cast<UClass*>(Property->GetOwnerStruct()) : nullptr),
					*Property->GetName(), *CppClassName(Expected));
				bBound = false;
			}
			continue;
		}
		if (!Expected || !Found->IsA(Expected) || !Property->SetObjectValue(Property->ContainerPtrToValuePtr(Widget), Found))
		{
			UE_LOG(LogUMG, Error, TEXT("%s: '%s' is a %s, but %s::%s expects %s"), *GetPathName(), *Property->GetName(), *CppClassName(Found->GetClass()),
				*CppClassName(static_cast<UClass*>(Property->GetOwnerStruct())), *Property->GetName(), *CppClassName(Expected));
			bBound = bBound && !bRequired;
		}
	}
	if (!bBound)
	{
		return false;
	}

	if (Defaults)
	{
		FString Error;
		if (!UE::Assets::ApplyJsonProperties(Widget, *Defaults, Error))
		{
			UE_LOG(LogUMG, Warning, TEXT("%s: defaults: %s"), *GetPathName(), *Error);
		}
	}
	return true;
}

void UWidgetBlueprintGeneratedClass::AddReferencedObjects(FReferenceCollector& Collector)
{
	Super::AddReferencedObjects(Collector);
	// The template names classes (other blueprints among them) the reflection cannot see.
	TArray<const FWidgetTemplateNode*> Pending;
	if (TreeTemplate)
	{
		Pending.Add(TreeTemplate.Get());
	}
	while (Pending.Num() > 0)
	{
		const FWidgetTemplateNode* Node = Pending.Pop();
		Collector.AddReferencedObject(Node->WidgetClass);
		for (const FWidgetTemplateNode& Child : Node->Children)
		{
			Pending.Add(&Child);
		}
	}
}
