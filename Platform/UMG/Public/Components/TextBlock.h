#pragma once

// UTextBlock: one block of text. Its desired size is the text measured with FreeType in its font
// (plus the shadow offset, as the engine's text runs add it), re-measured only when the text or
// the font changes.

#include "CoreMinimal.h"
#include "Components/Widget.h"
#include "Fonts/SlateFontInfo.h"
#include "Styling/SlateColor.h"
#include "Types/SlateEnums.h"
#include "TextBlock.generated.h"

/** A block of text. */
UCLASS()
class UMG_API UTextBlock : public UWidget
{
	GENERATED_BODY()

public:
	/** Sets the text. */
	UFUNCTION(BlueprintCallable, Category = "Widget")
	virtual void SetText(FText InText);
	/** The text. */
	UFUNCTION(BlueprintCallable, Category = "Widget")
	FText GetText() const { return Text; }
	/** Sets the font. */
	UFUNCTION(BlueprintCallable, Category = "Appearance")
	void SetFont(FSlateFontInfo InFontInfo);
	/** The font. */
	UFUNCTION(BlueprintCallable, Category = "Appearance")
	FSlateFontInfo GetFont() const { return Font; }
	/** Sets the text colour. */
	UFUNCTION(BlueprintCallable, Category = "Appearance")
	void SetColorAndOpacity(FSlateColor InColorAndOpacity) { ColorAndOpacity = InColorAndOpacity; }
	/** Sets how lines sit in the box. */
	UFUNCTION(BlueprintCallable, Category = "Appearance")
	void SetJustification(ETextJustify::Type InJustification) { Justification = InJustification; }
	/** Sets the offset of the drop shadow. */
	UFUNCTION(BlueprintCallable, Category = "Appearance")
	void SetShadowOffset(FVector2D InShadowOffset);
	/** Sets the colour of the drop shadow; fully transparent draws none. */
	UFUNCTION(BlueprintCallable, Category = "Appearance")
	void SetShadowColorAndOpacity(FLinearColor InShadowColorAndOpacity);

	void SynchronizeProperties() override;

	/** The text shown. */
	UPROPERTY(EditAnywhere, Category = "Content")
	FText Text;

	/** The font. */
	UPROPERTY(EditAnywhere, Category = "Appearance")
	FSlateFontInfo Font;

	/** Text colour. */
	UPROPERTY(EditAnywhere, Category = "Appearance")
	FSlateColor ColorAndOpacity;

	/** How lines sit in the box. */
	UPROPERTY(EditAnywhere, Category = "Appearance")
	ETextJustify::Type Justification = ETextJustify::Left;

	/** Offset of the drop shadow; it widens the desired size as in the engine. */
	UPROPERTY(EditAnywhere, Category = "Appearance")
	FVector2D ShadowOffset = FVector2D(1.0, 1.0);

	/** Shadow colour; fully transparent draws none. */
	UPROPERTY(EditAnywhere, Category = "Appearance")
	FLinearColor ShadowColorAndOpacity = FLinearColor(0.f, 0.f, 0.f, 0.f);

protected:
	FVector2D ComputeDesiredSize() const override;

private:
	// The measured size of Text in Font, valid while bMeasureValid is set.
	mutable FVector2D MeasuredSize = FVector2D::ZeroVector;
	// Cleared whenever the text or the font changes.
	mutable bool bMeasureValid = false;
};
