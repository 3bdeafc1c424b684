#pragma once

// FTestApp: the test kit's headless application. A test makes one, creates widgets from blueprint
// paths, ticks frames at a fixed step, drives the pointer the way a viewer would (by widget name,
// through the same hit testing and routing as the host's mouse) and reads back what happened: log
// lines, on-screen messages, animations played. See docs/testing.md.

#include "CoreMinimal.h"
#include "HeadlessApplication.h"
#include "Math/Vector2D.h"
#include "Templates/SubclassOf.h"

class UUserWidget;
class UWidget;
struct FOnScreenMessage;

/** A fixed-step headless app with the viewer's hands and eyes. One per test. */
class FTestApp : public FHeadlessApplication
{
public:
	explicit FTestApp(const FHeadlessApplicationSettings& InSettings = FHeadlessApplicationSettings());
	~FTestApp();

	/** Loads the widget blueprint at BlueprintPath ("/Game/UI/WBP_X") and creates an instance; null on failure. */
	UUserWidget* CreateWidgetFromBlueprint(const FString& BlueprintPath);
	template<class WidgetT>
	WidgetT* CreateWidgetFromBlueprint(const FString& BlueprintPath) { return Cast<WidgetT>(CreateWidgetFromBlueprint(BlueprintPath)); }
	/** As CreateWidgetFromBlueprint, then adds it to the viewport and runs one frame so it is laid out. */
	UUserWidget* ShowWidgetFromBlueprint(const FString& BlueprintPath, int32 ZOrder = 0);
	template<class WidgetT>
	WidgetT* ShowWidgetFromBlueprint(const FString& BlueprintPath, int32 ZOrder = 0) { return Cast<WidgetT>(ShowWidgetFromBlueprint(BlueprintPath, ZOrder)); }

	/**
	 * Runs frames until Condition holds, pausing a millisecond of real time after each, for work
	 * done on other threads (a real media file opening); false after TimeoutSeconds of wall time.
	 */
	bool WaitUntil(TFunctionRef<bool()> Condition, double TimeoutSeconds = 10.0);

	/** The widget named Name in Owner's widget tree; fails the test when there is none. */
	UWidget* FindWidget(const UUserWidget* Owner, const FName& Name) const;

	/** The centre of Widget's last laid-out geometry, in viewport pixels. */
	static FVector2D CenterOf(const UWidget* Widget);

	/** Moves the pointer to Position and runs a frame, so the move is routed. */
	void MovePointerTo(const FVector2D& Position);
	/** Moves the pointer to the centre of Widget and runs a frame. */
	void MovePointerOver(const UWidget* Widget);
	/** Presses and releases the left button at the pointer's position, running a frame for each. */
	void Click();
	/** Moves over the widget named Name in Owner and clicks it (buttons, check boxes). */
	void ClickWidget(const UUserWidget* Owner, const FName& Name);
	/** Takes the slider named Name by its thumb at From, drags it to To (values 0..1) and lets go. */
	void DragSlider(const UUserWidget* Owner, const FName& Name, float From, float To);
	/** As DragSlider, but keeps holding at To; ReleasePointer lets go. */
	void HoldSliderAt(const UUserWidget* Owner, const FName& Name, float From, float To);
	/** Lets go of the left button at the pointer's position and runs a frame. */
	void ReleasePointer();
	/** Chooses Option from the combo box named Name, as a click in its list would, and runs a frame. */
	void SelectComboOption(const UUserWidget* Owner, const FName& Name, const FString& Option);

	/** Messages of log Category (e.g. "LogTemp") logged since the app was made, oldest first. */
	TArray<FString> GetLogMessages(const FString& Category) const;
	/** The on-screen debug messages now shown. */
	const TArray<FOnScreenMessage>& GetOnScreenMessages() const;
	/** How often PlayAnimation played the animation named AnimationName ("OpenBar") on Widget. */
	int32 CountAnimationPlays(const UUserWidget* Widget, const FString& AnimationName) const;

private:
	/** The viewport position of Value (0..1) along the slider's track. */
	static FVector2D SliderPoint(const UWidget* Slider, float Value);

	// Where the pointer is now, in viewport pixels.
	FVector2D PointerPosition = FVector2D::ZeroVector;
};
