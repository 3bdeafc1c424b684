#pragma once

// UTextBlock: one block of text. Its desired size is the text measured with FreeType in its font
// (plus the shadow offset, as the engine's text runs add it), re-measured only when the text or
// the font changes.

#include "CoreMinimal.h"
#include "Misc/CoreMiscDefines.h"
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
	/** White text in the default font, with a transparent shadow one unit down and right. */
	UTextBlock();
	/** Defined where the deprecated members may be named. */
	~UTextBlock() override;

	/** The text. */
	UFUNCTION(BlueprintCallable, Category = "Widget")
	FText GetText() const;
	/** Sets the text. */
	UFUNCTION(BlueprintCallable, Category = "Widget")
	virtual void SetText(FText InText);
	/** The text colour. */
	FSlateColor GetColorAndOpacity() const;
	/** Sets the text colour. */
	UFUNCTION(BlueprintCallable, Category = "Appearance")
	void SetColorAndOpacity(FSlateColor InColorAndOpacity);
	/** Sets the opacity of the text colour, keeping its hue. */
	UFUNCTION(BlueprintCallable, Category = "Appearance")
	void SetOpacity(float InOpacity);
	/** The colour of the drop shadow; a zero alpha draws none. */
	FLinearColor GetShadowColorAndOpacity() const;
	/** Sets the colour of the drop shadow; a zero alpha draws none. */
	UFUNCTION(BlueprintCallable, Category = "Appearance")
	void SetShadowColorAndOpacity(FLinearColor InShadowColorAndOpacity);
	/** Where the drop shadow sits from the text. */
	FVector2D GetShadowOffset() const;
	/** Sets where the drop shadow sits from the text. */
	UFUNCTION(BlueprintCallable, Category = "Appearance")
	void SetShadowOffset(FVector2D InShadowOffset);
	/** The font. */
	const FSlateFontInfo& GetFont() const;
	/** Sets the font. */
	UFUNCTION(BlueprintCallable, Category = "Appearance")
	void SetFont(FSlateFontInfo InFontInfo);
	/** Sets how lines sit in the box. */
	UFUNCTION(BlueprintCallable, Category = "Appearance")
	void SetJustification(ETextJustify::Type InJustification) { Justification = InJustification; }

	void SynchronizeProperties() override;

	UE_DEPRECATED(5.1, "Direct access to Text is deprecated. Please use the getter or setter.")
	/** The text shown. */
	UPROPERTY(EditAnywhere, BlueprintReadWrite, Category = "Content")
	FText Text;

	UE_DEPRECATED(5.1, "Direct access to ColorAndOpacity is deprecated. Please use the getter or setter.")
	/** Text colour. */
	UPROPERTY(EditAnywhere, BlueprintReadWrite, Category = "Appearance")
	FSlateColor ColorAndOpacity;

	UE_DEPRECATED(5.1, "Direct access to Font is deprecated. Please use the getter or setter.")
	/** The font. */
	UPROPERTY(EditAnywhere, BlueprintReadWrite, Category = "Appearance")
	FSlateFontInfo Font;

	UE_DEPRECATED(5.1, "Direct access to ShadowOffset is deprecated. Please use the getter or setter.")
	/** Offset of the drop shadow; it widens the desired size as in the engine. */
	UPROPERTY(EditAnywhere, BlueprintReadWrite, Category = "Appearance")
	FVector2D ShadowOffset = FVector2D(1.0, 1.0);

	UE_DEPRECATED(5.1, "Direct access to ShadowColorAndOpacity is deprecated. Please use the getter or setter.")
	/** Shadow colour; fully transparent draws none. */
	UPROPERTY(EditAnywhere, BlueprintReadWrite, Category = "Appearance")
	FLinearColor ShadowColorAndOpacity = FLinearColor(0.f, 0.f, 0.f, 0.f);

	/** How lines sit in the box. */
	UPROPERTY(EditAnywhere, Category = "Appearance")
	ETextJustify::Type Justification = ETextJustify::Left;

private:
	FVector2D ComputeDesiredSize() const override;
	void PaintSelf(FSlateWindowElementList& OutDrawElements, const FGeometry& Geometry, float Opacity) const override;

	// The measured size of Text in Font, valid while bMeasureValid is set.
	mutable FVector2D MeasuredSize = FVector2D::ZeroVector;
	// Cleared whenever the text or the font changes.
	mutable bool bMeasureValid = false;
};
