// The viewport's frame parts: panel bookkeeping, the one-frame geometry delay, text measuring,
// pointer routing to user widgets and common widgets, and the user widget lifecycle.

#include "WidgetViewportTestTypes.h"

#include "Blueprint/WidgetTree.h"
#include "Components/Button.h"
#include "Components/CanvasPanel.h"
#include "Components/CanvasPanelSlot.h"
#include "Components/CheckBox.h"
#include "Components/ComboBoxString.h"
#include "Components/Image.h"
#include "Components/Slider.h"
#include "Components/TextBlock.h"
#include "Slate/WidgetViewport.h"
#include "UObject/Package.h"

#include <gtest/gtest.h>

#include <ostream>

TArray<FString> UTestRecordingWidget::Journal;

// Journals print as their lines, so a failure shows what happened.
void PrintTo(const TArray<FString>& Lines, std::ostream* Stream)
{
	for (const FString& Line : Lines)
	{
		*Stream << FTCHARToUTF8(*Line).Get() << ' ';
	}
}

namespace
{
	class WidgetViewportTest : public ::testing::Test
	{
	protected:
		void SetUp() override
		{
			FWidgetViewport::Get().Reset();
			FWidgetViewport::Get().SetViewportSize(FVector2D(800.0, 600.0));
			UTestRecordingWidget::Journal.Reset();
		}

		void TearDown() override { FWidgetViewport::Get().Reset(); }

		/** A recording widget named Name whose tree is one canvas that only its children make hittable. */
		static UTestRecordingWidget* MakeRecorder(const TCHAR* Name)
		{
			UTestRecordingWidget* Widget = CreateWidget<UTestRecordingWidget>(GetTransientPackage(), UTestRecordingWidget::StaticClass(), FName(Name));
			Widget->WidgetTree->RootWidget = Widget->WidgetTree->ConstructWidget<UCanvasPanel>();
			Widget->WidgetTree->RootWidget->SetVisibility(ESlateVisibility::SelfHitTestInvisible);
			return Widget;
		}

		static UCanvasPanel* CanvasOf(UUserWidget* Widget) { return Cast<UCanvasPanel>(Widget->WidgetTree->RootWidget); }

		/** Puts Child on Widget's canvas at Position with Size. */
		static void Place(UUserWidget* Widget, UWidget* Child, FVector2D Position, FVector2D Size)
		{
			UCanvasPanelSlot* Slot = CanvasOf(Widget)->AddChildToCanvas(Child);
			Slot->SetPosition(Position);
			Slot->SetSize(Size);
		}

		static void Frame()
		{
			FWidgetViewport& Viewport = FWidgetViewport::Get();
			Viewport.ProcessInput();
			Viewport.TickWidgets(1.0f / 60.0f);
			Viewport.Layout();
			Viewport.FinishFrame();
		}

		static void Click(FVector2D At)
		{
			FWidgetViewport::Get().QueuePointerPress(At);
			FWidgetViewport::Get().QueuePointerRelease(At);
			Frame();
		}
	};
}

TEST_F(WidgetViewportTest, PanelsMoveExistingChildrenAndGeometryWaitsForTheNextLayout)
{
	UTestRecordingWidget* Screen = MakeRecorder(TEXT("Screen"));
	Screen->AddToViewport();
	UCanvasPanel* Canvas = CanvasOf(Screen);
	UWidgetTree* Tree = Screen->WidgetTree;
	UImage* A = Tree->ConstructWidget<UImage>();
	UImage* B = Tree->ConstructWidget<UImage>();
	UImage* C = Tree->ConstructWidget<UImage>();
	for (UImage* Child : { A, B, C })
	{
		Place(Screen, Child, FVector2D(10.0, 20.0), FVector2D(30.0, 40.0));
	}
	EXPECT_EQ(Canvas->GetCachedGeometry().GetLocalSize(), FVector2D::ZeroVector) << "nothing is laid out before the first pass";

	TArray<UWidget*> Copy = Canvas->GetAllChildren();
	Copy.Reset();
	EXPECT_EQ(Canvas->GetChildrenCount(), 3) << "GetAllChildren hands out a copy";
	Canvas->AddChild(A);
	EXPECT_EQ(Canvas->GetChildIndex(A), 2);
	EXPECT_EQ(Canvas->GetChildAt(0), B);
	EXPECT_EQ(Canvas->GetChildrenCount(), 3);

	UCanvasPanel* Other = Tree->ConstructWidget<UCanvasPanel>();
	Other->AddChild(B);
	EXPECT_EQ(Canvas->GetChildIndex(B), INDEX_NONE);
	EXPECT_EQ(B->GetParent(), Other);
	EXPECT_EQ(Canvas->GetChildAt(7), nullptr);

	Frame();
	EXPECT_EQ(Canvas->GetCachedGeometry().GetLocalSize(), FVector2D(800.0, 600.0));
	EXPECT_EQ(C->GetCachedGeometry().GetAbsolutePosition(), FVector2D(10.0, 20.0));
	EXPECT_EQ(C->GetCachedGeometry().GetLocalSize(), FVector2D(30.0, 40.0));

	// Out of the panel a widget has no geometry; put back, it waits for the next layout again.
	C->RemoveFromParent();
	EXPECT_EQ(C->GetCachedGeometry().GetLocalSize(), FVector2D::ZeroVector);
	Canvas->AddChild(C);
	EXPECT_EQ(C->GetCachedGeometry().GetLocalSize(), FVector2D::ZeroVector);
	Frame();
	EXPECT_EQ(C->GetCachedGeometry().GetLocalSize(), FVector2D(100.0, 30.0)) << "a new canvas slot has the engine's default size";
}

TEST_F(WidgetViewportTest, AutoSizedTextTakesItsMeasuredSizeWhichGrowsWithTheText)
{
	UTestRecordingWidget* Screen = MakeRecorder(TEXT("Screen"));
	Screen->AddToViewport();
	UTextBlock* Text = Screen->WidgetTree->ConstructWidget<UTextBlock>();
	Text->SetText(FText::FromString(TEXT("Hi")));
	CanvasOf(Screen)->AddChildToCanvas(Text)->SetAutoSize(true);
	Frame();
	const FVector2D Short = Text->GetCachedGeometry().GetLocalSize();
	EXPECT_GT(Short.X, 1.0);
	EXPECT_GT(Short.Y, 1.0);

	Text->SetText(FText::FromString(TEXT("Hi there, a much longer comment")));
	EXPECT_EQ(Text->GetCachedGeometry().GetLocalSize(), Short) << "the new size waits for the layout";
	Frame();
	const FVector2D Long = Text->GetCachedGeometry().GetLocalSize();
	EXPECT_GT(Long.X, Short.X * 3.0);
	EXPECT_EQ(Long.Y, Short.Y);

	FSlateFontInfo Bigger = Text->GetFont();
	Bigger.Size *= 2;
	Text->SetFont(Bigger);
	Frame();
	EXPECT_GT(Text->GetCachedGeometry().GetLocalSize().Y, Long.Y * 1.5);
}

TEST_F(WidgetViewportTest, PointerEntersMovesAndLeavesUserWidgetsUnderIt)
{
	UTestRecordingWidget* Outer = MakeRecorder(TEXT("Outer"));
	UTestRecordingWidget* Inner = MakeRecorder(TEXT("Inner"));
	Place(Inner, Inner->WidgetTree->ConstructWidget<UImage>(), FVector2D::ZeroVector, FVector2D(100.0, 100.0));
	Place(Outer, Inner, FVector2D(100.0, 100.0), FVector2D(100.0, 100.0));
	Outer->AddToViewport();
	Frame();
	UTestRecordingWidget::Journal.Reset();

	FWidgetViewport::Get().QueuePointerMove(FVector2D(150.0, 150.0));
	FWidgetViewport::Get().QueuePointerMove(FVector2D(150.0, 150.0));
	FWidgetViewport::Get().QueuePointerMove(FVector2D(155.0, 148.0));
	FWidgetViewport::Get().ProcessInput();
	EXPECT_EQ(UTestRecordingWidget::Journal, (TArray<FString>{ TEXT("Outer:Enter"), TEXT("Inner:Enter"), TEXT("Inner:Move"), TEXT("Outer:Move"),
		TEXT("Inner:Move"), TEXT("Outer:Move"), TEXT("Inner:Move"), TEXT("Outer:Move") }));
	EXPECT_EQ(Inner->MoveDeltas, (TArray<FVector2D>{ FVector2D::ZeroVector, FVector2D::ZeroVector, FVector2D(5.0, -2.0) }));

	// A handled move stops bubbling; leaving goes deepest first.
	UTestRecordingWidget::Journal.Reset();
	Inner->bHandleMoves = true;
	FWidgetViewport::Get().QueuePointerMove(FVector2D(160.0, 150.0));
	FWidgetViewport::Get().QueuePointerMove(FVector2D(700.0, 500.0));
	FWidgetViewport::Get().ProcessInput();
	EXPECT_EQ(UTestRecordingWidget::Journal, (TArray<FString>{ TEXT("Inner:Move"), TEXT("Inner:Leave"), TEXT("Outer:Leave") }));

	// A widget that cannot be hit, nor its children, is passed over.
	UTestRecordingWidget::Journal.Reset();
	Inner->SetVisibility(ESlateVisibility::HitTestInvisible);
	FWidgetViewport::Get().QueuePointerMove(FVector2D(150.0, 150.0));
	FWidgetViewport::Get().ProcessInput();
	EXPECT_EQ(UTestRecordingWidget::Journal, (TArray<FString>{}));
}

TEST_F(WidgetViewportTest, ClicksAndDragsRaiseEventsButCodeDoesNot)
{
	UTestRecordingWidget* Screen = MakeRecorder(TEXT("Screen"));
	UWidgetTree* Tree = Screen->WidgetTree;
	UButton* Button = Tree->ConstructWidget<UButton>();
	UCheckBox* CheckBox = Tree->ConstructWidget<UCheckBox>();
	USlider* Slider = Tree->ConstructWidget<USlider>();
	UComboBoxString* Combo = Tree->ConstructWidget<UComboBoxString>();
	Place(Screen, Button, FVector2D(0.0, 0.0), FVector2D(50.0, 50.0));
	Place(Screen, CheckBox, FVector2D(100.0, 0.0), FVector2D(50.0, 50.0));
	Place(Screen, Slider, FVector2D(200.0, 0.0), FVector2D(100.0, 20.0));
	Place(Screen, Combo, FVector2D(400.0, 0.0), FVector2D(100.0, 20.0));
	UTestWidgetListener* Listener = NewObject<UTestWidgetListener>();
	Button->OnClicked.AddDynamic(Listener, &UTestWidgetListener::OnClicked);
	CheckBox->OnCheckStateChanged.AddDynamic(Listener, &UTestWidgetListener::OnCheckStateChanged);
	Slider->OnMouseCaptureBegin.AddDynamic(Listener, &UTestWidgetListener::OnCaptureBegin);
	Slider->OnMouseCaptureEnd.AddDynamic(Listener, &UTestWidgetListener::OnCaptureEnd);
	Slider->OnValueChanged.AddDynamic(Listener, &UTestWidgetListener::OnValueChanged);
	Combo->OnSelectionChanged.AddDynamic(Listener, &UTestWidgetListener::OnSelectionChanged);
	Screen->AddToViewport();
	Frame();

	CheckBox->SetCheckedState(ECheckBoxState::Checked);
	CheckBox->SetIsChecked(false);
	Slider->SetValue(0.5f);
	EXPECT_EQ(Listener->Events, (TArray<FString>{})) << "state set from code raises nothing";
	EXPECT_EQ(Slider->GetValue(), 0.5f);

	Click(FVector2D(10.0, 10.0));
	Click(FVector2D(110.0, 10.0));
	Click(FVector2D(110.0, 10.0));
	FWidgetViewport::Get().QueuePointerPress(FVector2D(10.0, 10.0));
	FWidgetViewport::Get().QueuePointerRelease(FVector2D(300.0, 300.0));
	FWidgetViewport::Get().QueuePointerPress(FVector2D(225.0, 10.0));
	FWidgetViewport::Get().QueuePointerMove(FVector2D(275.0, 10.0));
	FWidgetViewport::Get().QueuePointerMove(FVector2D(900.0, 10.0));
	FWidgetViewport::Get().QueuePointerRelease(FVector2D(900.0, 10.0));
	Frame();
	EXPECT_EQ(Listener->Events, (TArray<FString>{ TEXT("Clicked"), TEXT("Checked"), TEXT("Unchecked"), TEXT("CaptureBegin"), TEXT("Value 0.25"),
		TEXT("Value 0.75"), TEXT("Value 1.00"), TEXT("CaptureEnd") })) << "a press released off the button is no click";

	Listener->Events.Reset();
	Combo->AddOption(TEXT("1.0x"));
	Combo->AddOption(TEXT("1.5x"));
	Combo->SetSelectedOption(TEXT("1.5x"));
	Combo->SetSelectedOption(TEXT("1.5x"));
	Combo->SetSelectedOption(TEXT("9x"));
	FWidgetViewport::Get().QueueComboSelection(Combo, TEXT("1.0x"));
	Frame();
	EXPECT_EQ(Listener->Events, (TArray<FString>{ TEXT("Selected 1.5x 3"), TEXT("Selected 1.0x 2") }));
	EXPECT_EQ(Combo->GetSelectedOption(), TEXT("1.0x"));

	Listener->Events.Reset();
	Button->SetIsEnabled(false);
	Click(FVector2D(10.0, 10.0));
	EXPECT_EQ(Listener->Events, (TArray<FString>{})) << "a disabled button takes no click";
}

TEST_F(WidgetViewportTest, UserWidgetsDestructAsSoonAsNothingHoldsThem)
{
	UTestRecordingWidget* Panel = MakeRecorder(TEXT("Panel"));
	UTestRecordingWidget* Player = MakeRecorder(TEXT("Player"));
	UTestRecordingWidget* Volume = MakeRecorder(TEXT("Volume"));
	UButton* ScreenButton = Player->WidgetTree->ConstructWidget<UButton>();
	Place(Player, Volume, FVector2D::ZeroVector, FVector2D(10.0, 10.0));
	Place(Player, ScreenButton, FVector2D(20.0, 20.0), FVector2D(30.0, 30.0));
	Place(Panel, Player, FVector2D::ZeroVector, FVector2D(100.0, 100.0));
	UTestWidgetListener* Listener = NewObject<UTestWidgetListener>();
	ScreenButton->OnClicked.AddDynamic(Listener, &UTestWidgetListener::OnClicked);
	EXPECT_EQ(UTestRecordingWidget::Journal, (TArray<FString>{})) << "nothing is constructed off screen";

	Panel->AddToViewport();
	EXPECT_EQ(UTestRecordingWidget::Journal, (TArray<FString>{ TEXT("Volume:Construct"), TEXT("Player:Construct"), TEXT("Panel:Construct") }));
	UTestRecordingWidget::Journal.Reset();
	FWidgetViewport::Get().TickWidgets(0.1f);
	EXPECT_EQ(UTestRecordingWidget::Journal, (TArray<FString>{ TEXT("Panel:Tick"), TEXT("Player:Tick"), TEXT("Volume:Tick") }));

	// Outside any event, leaving the screen destructs at once, parents first; back, it constructs again.
	UTestRecordingWidget::Journal.Reset();
	Player->RemoveFromParent();
	EXPECT_EQ(UTestRecordingWidget::Journal, (TArray<FString>{ TEXT("Player:Destruct"), TEXT("Volume:Destruct") }));
	CanvasOf(Panel)->AddChild(Player);
	Cast<UCanvasPanelSlot>(Player->Slot)->SetSize(FVector2D(100.0, 100.0));
	Frame();
	FWidgetViewport::Get().QueuePointerMove(FVector2D(30.0, 30.0));
	Frame();

	// A click on a widget inside the player: the routed event holds the player, so moving it into
	// the viewport within the handler neither destructs nor constructs it (full screen).
	Listener->ClickAction = [Player] {
		Player->RemoveFromParent();
		Player->AddToViewport(99);
	};
	UTestRecordingWidget::Journal.Reset();
	Click(FVector2D(30.0, 30.0));
	EXPECT_TRUE(Player->IsInViewport());
	EXPECT_EQ(UTestRecordingWidget::Journal, (TArray<FString>{ TEXT("Panel:Tick"), TEXT("Player:Tick"), TEXT("Volume:Tick") }));

	// Taken off in a handler and left off, it goes once the event is done, before the next one.
	Listener->ClickAction = [Player] {
		Player->RemoveFromParent();
		UTestRecordingWidget::Journal.Add(TEXT("Handler:Done"));
	};
	UTestRecordingWidget::Journal.Reset();
	FWidgetViewport::Get().QueuePointerPress(FVector2D(30.0, 30.0));
	FWidgetViewport::Get().QueuePointerRelease(FVector2D(30.0, 30.0));
	FWidgetViewport::Get().QueuePointerMove(FVector2D(700.0, 500.0));
	Frame();
	EXPECT_EQ(UTestRecordingWidget::Journal, (TArray<FString>{ TEXT("Handler:Done"), TEXT("Player:Destruct"), TEXT("Volume:Destruct"),
		TEXT("Panel:Leave"), TEXT("Panel:Tick") })) << "a destructed widget hears no more of the pointer";
	Listener->ClickAction = nullptr;

	// A widget taken off during its own tick is destructed after the tick pass, not inside its tick.
	CanvasOf(Panel)->AddChild(Player);
	Player->TickAction = [Player] {
		Player->RemoveFromParent();
		UTestRecordingWidget::Journal.Add(TEXT("Player:TickDone"));
	};
	UTestRecordingWidget::Journal.Reset();
	FWidgetViewport::Get().TickWidgets(0.1f);
	EXPECT_EQ(UTestRecordingWidget::Journal, (TArray<FString>{ TEXT("Panel:Tick"), TEXT("Player:Tick"), TEXT("Player:TickDone"),
		TEXT("Player:Destruct"), TEXT("Volume:Destruct") }));
}
