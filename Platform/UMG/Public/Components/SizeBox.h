#pragma once

// USizeBox: gives its content a fixed width and/or height, or its desired size where none is set.

#include "CoreMinimal.h"
#include "Components/ContentWidget.h"

#include "SizeBox.generated.h"

class USizeBoxSlot;

/** A box that overrides the desired size of its content. */
UCLASS()
class UMG_API USizeBox : public UContentWidget
{
	GENERATED_BODY()

public:
	/** Fixes the width the box asks for. */
	UFUNCTION(BlueprintCallable, Category = "Layout|Size Box")
	void SetWidthOverride(float InWidthOverride) { WidthOverride = InWidthOverride; bOverride_WidthOverride = true; }
	/** Lets the width follow the content again. */
	UFUNCTION(BlueprintCallable, Category = "Layout|Size Box")
	void ClearWidthOverride() { bOverride_WidthOverride = false; }
	/** Fixes the height the box asks for. */
	UFUNCTION(BlueprintCallable, Category = "Layout|Size Box")
	void SetHeightOverride(float InHeightOverride) { HeightOverride = InHeightOverride; bOverride_HeightOverride = true; }
	/** Lets the height follow the content again. */
	UFUNCTION(BlueprintCallable, Category = "Layout|Size Box")
	void ClearHeightOverride() { bOverride_HeightOverride = false; }

	/** The width asked for when bOverride_WidthOverride is set. */
	UPROPERTY(EditAnywhere, Category = "Child Layout")
	float WidthOverride = 0.f;

	/** The height asked for when bOverride_HeightOverride is set. */
	UPROPERTY(EditAnywhere, Category = "Child Layout")
	float HeightOverride = 0.f;

	/** Whether WidthOverride applies. */
	UPROPERTY(EditAnywhere, Category = "Child Layout")
	bool bOverride_WidthOverride = false;

	/** Whether HeightOverride applies. */
	UPROPERTY(EditAnywhere, Category = "Child Layout")
	bool bOverride_HeightOverride = false;

protected:
	UClass* GetSlotClass() const override;

private:
	FVector2D ComputeDesiredSize() const override;
	void ArrangeChildren(const FGeometry& AllottedGeometry, TArray<FArrangedChildWidget>& OutChildren) const override;
};
