#include "EngineLoopTestWidgets.h"
#include "HeadlessApplication.h"
#include "LaunchEngineLoop.h"

#include "Containers/Ticker.h"
#include "Engine/Engine.h"
#include "Engine/World.h"
#include "Slate/WidgetViewport.h"
#include "TimerManager.h"
#include "UObject/GarbageCollection.h"
#include "UObject/WeakObjectPtrTemplates.h"

#include <gtest/gtest.h>

TEST(EngineLoop, RunsMediaThenTimersThenWidgetsThenPaintEveryFrame)
{
	FHeadlessApplication App;
	TArray<FString> Record;

	UEngineLoopProbeWidget* Widget = CreateWidget<UEngineLoopProbeWidget>(App.GetWorld());
	Widget->Record = &Record;
	Widget->AddToViewport();
	FTSTicker::FDelegateHandle Media = FTSTicker::GetCoreTicker().AddTicker(TEXT("Probe"), 0.f, [&Record](float) {
		Record.Add(TEXT("media"));
		return true;
	});
	FTimerHandle Timer;
	App.GetWorld()->GetTimerManager().SetTimer(Timer, FTimerDelegate::CreateLambda([&Record] { Record.Add(TEXT("timer")); }), App.GetFixedDeltaSeconds(), true);
	App.GetLoop().SetPaintHandler([&Record](const FWidgetViewport&) { Record.Add(TEXT("paint")); });

	App.TickFrames(2);
	FTSTicker::RemoveTicker(Media);

	EXPECT_STREQ(TCHAR_TO_UTF8(*FString::Join(Record, TEXT(" "))), "media timer widget paint media timer widget paint");
	EXPECT_EQ(App.GetLoop().GetFrameCount(), 2u);
	EXPECT_NEAR(App.GetLoop().GetLoopSeconds(), 2.0 / 60.0, 1e-6);
}

TEST(EngineLoop, AgesOnScreenMessagesAndCollectsGarbageOnItsInterval)
{
	FHeadlessApplication App;
	App.GetLoop().SetGarbageCollectionInterval(1.0);
	TWeakObjectPtr<UObject> Loose = NewObject<UEngineLoopProbeWidget>(App.GetWorld());
	GEngine->ClearOnScreenDebugMessages();
	GEngine->AddOnScreenDebugMessage(-1, 0.5f, FColor::Red, TEXT("short"));

	App.TickSeconds(0.25);
	EXPECT_EQ(GEngine->GetOnScreenMessages().Num(), 1);
	EXPECT_TRUE(Loose.IsValid()) << "collected before the interval";
	App.TickSeconds(0.5);
	EXPECT_EQ(GEngine->GetOnScreenMessages().Num(), 0);
	EXPECT_TRUE(Loose.IsValid()) << "collected before the interval";
	App.TickSeconds(0.5);
	EXPECT_FALSE(Loose.IsValid()) << "an unreferenced object outlived the interval";
}

TEST(HeadlessApplication, TicksWholeFramesAndStopsWhenTheConditionHolds)
{
	FHeadlessApplicationSettings Settings;
	Settings.FixedDeltaSeconds = 0.1f;
	FHeadlessApplication App(Settings);
	App.TickSeconds(1.0);
	EXPECT_EQ(App.GetLoop().GetFrameCount(), 10u);

	int32 Checks = 0;
	EXPECT_TRUE(App.TickUntil([&Checks] { return ++Checks == 4; }));
	EXPECT_EQ(App.GetLoop().GetFrameCount(), 13u);
	EXPECT_FALSE(App.TickUntil([] { return false; }, 5));
	EXPECT_EQ(App.GetLoop().GetFrameCount(), 18u);
}
