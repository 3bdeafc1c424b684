#include "TestApp.h"

#include "Animation/WidgetAnimationLog.h"
#include "Blueprint/UserWidget.h"
#include "Blueprint/WidgetTree.h"
#include "Components/Widget.h"
#include "Components/ComboBoxString.h"
#include "Engine/Engine.h"
#include "Engine/OnScreenMessage.h"
#include "Logging/LogCapture.h"
#include "Slate/WidgetViewport.h"
#include "UObject/UObjectGlobals.h"

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

FTestApp::FTestApp(const FHeadlessApplicationSettings& InSettings)
	: FHeadlessApplication(InSettings)
{
	// Each test reads only what happened in its own app.
	UE::Log::ClearCapturedLines();
	FWidgetAnimationLog::Get().Clear();
	if (GEngine)
	{
		GEngine->ClearOnScreenDebugMessages();
	}
}

FTestApp::~FTestApp() = default;

UUserWidget* FTestApp::CreateWidgetFromBlueprint(const FString& BlueprintPath)
{
	FString ObjectPath = BlueprintPath;
	if (!ObjectPath.Contains(TEXT(".")))
	{
		// "/Game/UI/WBP_Player" names the package; its generated class is "WBP_Player_C" inside.
		FString Package;
		FString AssetName;
		ObjectPath.Split(TEXT("/"), &Package, &AssetName, ESearchCase::CaseSensitive, ESearchDir::FromEnd);
		ObjectPath = FString::Printf(TEXT("%s.%s_C"), *BlueprintPath, *AssetName);
	}
	UClass* WidgetClass = LoadObject<UClass>(nullptr, *ObjectPath);
	if (!WidgetClass)
	{
		ADD_FAILURE() << "No widget blueprint at " << TCHAR_TO_UTF8(*ObjectPath);
		return nullptr;
	}
	return CreateWidget<UUserWidget>(GetWorld(), WidgetClass);
}

UUserWidget* FTestApp::ShowWidgetFromBlueprint(const FString& BlueprintPath, int32 ZOrder)
{
	UUserWidget* Widget = CreateWidgetFromBlueprint(BlueprintPath);
	if (Widget)
	{
		Widget->AddToViewport(ZOrder);
		TickFrame();
	}
	return Widget;
}

bool FTestApp::WaitUntil(TFunctionRef<bool()> Condition, double TimeoutSeconds)
{
	const auto Deadline = std::chrono::steady_clock::now() + std::chrono::duration<double>(TimeoutSeconds);
	while (!Condition())
	{
		if (std::chrono::steady_clock::now() > Deadline)
		{
			return false;
		}
		TickFrame();
		std::this_thread::sleep_for(std::chrono::milliseconds(1));
	}
	return true;
}

UWidget* FTestApp::FindWidget(const UUserWidget* Owner, const FName& Name) const
{
	UWidget* Found = (Owner && Owner->WidgetTree) ? Owner->WidgetTree->FindWidget(Name) : nullptr;
	if (!Found)
	{
		ADD_FAILURE() << "No widget named " << TCHAR_TO_UTF8(*Name.ToString());
	}
	return Found;
}

FVector2D FTestApp::CenterOf(const UWidget* Widget)
{
	const FGeometry& Geometry = Widget->GetCachedGeometry();
	return Geometry.LocalToAbsolute(Geometry.GetLocalSize() * 0.5);
}

void FTestApp::MovePointerTo(const FVector2D& Position)
{
	PointerPosition = Position;
	GetViewport().QueuePointerMove(Position);
	TickFrame();
}

void FTestApp::MovePointerOver(const UWidget* Widget)
{
	if (Widget)
	{
		MovePointerTo(CenterOf(Widget));
	}
}

void FTestApp::Click()
{
	GetViewport().QueuePointerPress(PointerPosition);
	TickFrame();
	ReleasePointer();
}

void FTestApp::ClickWidget(const UUserWidget* Owner, const FName& Name)
{
	if (UWidget* Widget = FindWidget(Owner, Name))
	{
		MovePointerOver(Widget);
		Click();
	}
}

FVector2D FTestApp::SliderPoint(const UWidget* Slider, float Value)
{
	const FGeometry& Geometry = Slider->GetCachedGeometry();
	const FVector2D Size = Geometry.GetLocalSize();
	return Geometry.LocalToAbsolute(FVector2D(Size.X * double(Value), Size.Y * 0.5));
}

void FTestApp::HoldSliderAt(const UUserWidget* Owner, const FName& Name, float From, float To)
{
	UWidget* Slider = FindWidget(Owner, Name);
	if (!Slider)
	{
		return;
	}
	MovePointerTo(SliderPoint(Slider, From));
	GetViewport().QueuePointerPress(PointerPosition);
	TickFrame();
	MovePointerTo(SliderPoint(Slider, To));
}

void FTestApp::DragSlider(const UUserWidget* Owner, const FName& Name, float From, float To)
{
	HoldSliderAt(Owner, Name, From, To);
	ReleasePointer();
}

void FTestApp::ReleasePointer()
{
	GetViewport().QueuePointerRelease(PointerPosition);
	TickFrame();
}

void FTestApp::SelectComboOption(const UUserWidget* Owner, const FName& Name, const FString& Option)
{
	if (UComboBoxString* Combo = Cast<UComboBoxString>(FindWidget(Owner, Name)))
	{
		GetViewport().QueueComboSelection(Combo, Option);
		TickFrame();
	}
}

TArray<FString> FTestApp::GetLogMessages(const FString& Category) const
{
	TArray<FString> Messages;
	for (const UE::Log::FCapturedLine& Line : UE::Log::GetCapturedLines())
	{
		if (Line.Category == Category)
		{
			Messages.Add(Line.Message);
		}
	}
	return Messages;
}

const TArray<FOnScreenMessage>& FTestApp::GetOnScreenMessages() const
{
	return GEngine->GetOnScreenMessages();
}

int32 FTestApp::CountAnimationPlays(const UUserWidget* Widget, const FString& AnimationName) const
{
	return FWidgetAnimationLog::Get().CountPlays(Widget, AnimationName);
}
