#pragma once

#include "CoreMinimal.h"
#include "Blueprint/UserWidget.h"
#include "UI_MarquelBar.generated.h"

class UButton;
class UTextBlock;

/** Raised with the text of a comment the viewer sends. */
DECLARE_MULTICAST_DELEGATE_OneParam(FOnSendMarquelSignature, const FString&);

/**
 * The bar through which the viewer sends a comment. The text to send is set by the host (there is
 * no text entry in the bar); a click on the send button raises OnSendMarquel with it.
 */
UCLASS()
class PLAINMARQUEL_API UUI_MarquelBar : public UUserWidget
{
	GENERATED_BODY()

public:
	/** Raised when the viewer sends a comment; the overlay and the host listen. */
	FOnSendMarquelSignature OnSendMarquel;

	/** Sets the text the next send carries, and shows it on the bar. */
	void SetMarquelText(const FString& InText);
	/** The text the next send carries. */
	const FString& GetMarquelText() const { return MarquelText; }
	/** Sends the current text, as a click on the send button does; an empty text sends nothing. */
	void SendMarquel();

protected:
	/** Binds the send button. */
	virtual void NativeConstruct() override;

	/** The send button was clicked. */
	UFUNCTION()
	void OnSendClicked();

private:
	/** The button that sends the comment. */
	UPROPERTY(meta = (BindWidget))
	TObjectPtr<UButton> SendButton;

	/** Shows the text the next send carries. */
	UPROPERTY(meta = (BindWidget))
	TObjectPtr<UTextBlock> MarquelTextBlock;

	/** The text the next send carries; the designer may give a default. */
	UPROPERTY(EditAnywhere, Category = "UI")
	FString MarquelText;
};
