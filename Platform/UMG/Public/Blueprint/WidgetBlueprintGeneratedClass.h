#pragma once

// UWidgetBlueprintGeneratedClass: the class a widget blueprint asset compiles to. It derives from
// the blueprint's parent class and carries what the designer made: the widget tree every instance
// is built from, the defaults of edit-time properties, and the animations, named
// "<DesignerName>_INST" in the asset's order.

#include "CoreMinimal.h"
#include "UObject/Class.h"
#include "UObject/UObjectGlobals.h"
#include "UObject/ObjectPtr.h"
#if PLAIN_PLATFORM_INTERNALS
// The stand-in's record of a designed tree, as its asset reader builds it.
#include "Blueprint/WidgetTemplateNode.h"
#endif
#include "WidgetBlueprintGeneratedClass.generated.h"

class FJsonObject;
struct FWidgetTemplateNode;
class UUserWidget;
class UWidgetAnimation;

/** The class of a widget blueprint. */
UCLASS()
class UMG_API UWidgetBlueprintGeneratedClass : public UClass
{
	GENERATED_BODY()

public:
#if PLAIN_PLATFORM_INTERNALS
	// Stand-in: how the asset reader fills the class and how CreateWidget builds an instance from it.

	/** The designed tree; null for a blueprint without one. */
	const FWidgetTemplateNode* GetWidgetTreeTemplate() const { return TreeTemplate.Get(); }
	/** Sets the designed tree (when the asset is read). */
	void SetWidgetTreeTemplate(TSharedPtr<FWidgetTemplateNode> InTemplate) { TreeTemplate = MoveTemp(InTemplate); }
	/** Sets the defaults applied to every new instance (when the asset is read). */
	void SetDefaults(TSharedPtr<FJsonObject> InDefaults) { Defaults = MoveTemp(InDefaults); }
	/** The asset file the class was read from, for messages. */
	const FString& GetAssetFile() const { return AssetFile; }
	/** Sets the asset file the class was read from. */
	void SetAssetFile(const FString& InAssetFile) { AssetFile = InAssetFile; }

	/**
	 * Builds Widget's tree from the template, binds its BindWidget and BindWidgetAnim members, then
	 * applies the blueprint's defaults. False (with a LogUMG error naming the blueprint, the member
	 * and the type it expects) when a required widget is missing or of the wrong class.
	 */
	bool InitializeWidget(UUserWidget* Widget) const;
#endif

	void AddReferencedObjects(FReferenceCollector& Collector) override;

	/** The blueprint's animations, in the asset's order. */
	UPROPERTY()
	TArray<TObjectPtr<UWidgetAnimation>> Animations;

private:
	// The designed tree, shared by all instances.
	TSharedPtr<FWidgetTemplateNode> TreeTemplate;
	// Edit-time property values from the asset's "Defaults".
	TSharedPtr<FJsonObject> Defaults;
	// The .uasset the class came from.
	FString AssetFile;
};
