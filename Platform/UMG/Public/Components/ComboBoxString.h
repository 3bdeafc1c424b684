#pragma once

// UComboBoxString: a drop-down list of strings. Selecting from code (SetSelectedOption) raises
// OnSelectionChanged with ESelectInfo::Direct; a choice from the open list raises it with
// OnMouseClick (the viewport's QueueComboSelection stands in for that click). Choosing the option
// that is already selected raises nothing.

#include "CoreMinimal.h"
#include "Misc/CoreMiscDefines.h"
#include "Components/Widget.h"
#include "Fonts/SlateFontInfo.h"
#include "Types/SlateEnums.h"
#include "ComboBoxString.generated.h"

/** A combo box of string options. */
UCLASS()
class UMG_API UComboBoxString : public UWidget
{
	GENERATED_BODY()

	DECLARE_DYNAMIC_MULTICAST_DELEGATE_TwoParams(FOnSelectionChangedEvent, FString, SelectedItem, ESelectInfo::Type, SelectionType);

private:
	/** The options, in order. */
	UPROPERTY(EditAnywhere, Category = "Content")
	TArray<FString> DefaultOptions;

	/** The selected option. */
	UPROPERTY(EditAnywhere, Category = "Content")
	FString SelectedOption;

public:
	/** No options, the default font at size 10. */
	UComboBoxString();
	/** Defined where the deprecated members may be named. */
	~UComboBoxString() override;

	UE_DEPRECATED(5.2, "Direct access to Font is deprecated. Please use the getter. Note that this property is only set at construction and is not modifiable at runtime.")
	/** Font of the options. */
	UPROPERTY(EditAnywhere, BlueprintReadOnly, Category = "Style")
	FSlateFontInfo Font;

	/** Raised when the selection changes, with the option and how it was chosen. */
	UPROPERTY(BlueprintAssignable, Category = "Events")
	FOnSelectionChangedEvent OnSelectionChanged;

	/** Appends an option. */
	UFUNCTION(BlueprintCallable, Category = "ComboBox")
	void AddOption(const FString& Option);
	/** Removes an option; true when it was there. The selection is cleared if it was this option. */
	UFUNCTION(BlueprintCallable, Category = "ComboBox")
	bool RemoveOption(const FString& Option);
	/** Index of the option, or -1. */
	UFUNCTION(BlueprintCallable, Category = "ComboBox")
	int32 FindOptionIndex(const FString& Option) const;
	/** The option at Index, or an empty string. */
	UFUNCTION(BlueprintCallable, Category = "ComboBox")
	FString GetOptionAtIndex(int32 Index) const;
	/** Removes every option and the selection. */
	UFUNCTION(BlueprintCallable, Category = "ComboBox")
	void ClearOptions();
	/** Clears the selection; raises no event. */
	UFUNCTION(BlueprintCallable, Category = "ComboBox")
	void ClearSelection();
	/** Selects the option and raises OnSelectionChanged (Direct) when the selection changes. */
	UFUNCTION(BlueprintCallable, Category = "ComboBox")
	void SetSelectedOption(FString Option);
	/** Selects the option at Index, as SetSelectedOption. */
	UFUNCTION(BlueprintCallable, Category = "ComboBox")
	void SetSelectedIndex(const int32 Index);
	/** The selected option, or an empty string. */
	UFUNCTION(BlueprintCallable, Category = "ComboBox")
	FString GetSelectedOption() const;
	/** Index of the selected option, or -1. */
	UFUNCTION(BlueprintCallable, Category = "ComboBox")
	int32 GetSelectedIndex() const;
	/** How many options there are. */
	UFUNCTION(BlueprintCallable, Category = "ComboBox")
	int32 GetOptionCount() const;
	/** The font of the options. */
	const FSlateFontInfo& GetFont() const;

private:
	friend class FWidgetViewport;

	FVector2D ComputeDesiredSize() const override;
	void PaintSelf(FSlateWindowElementList& OutDrawElements, const FGeometry& Geometry, float Opacity) const override;

	/** Selects Option as a choice from the open list would; false when there is no such option. */
	bool SelectOption(const FString& Option, ESelectInfo::Type SelectionType);
};
