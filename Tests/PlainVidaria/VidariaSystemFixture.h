#pragma once

// The lesson player as a viewer meets it: the default blueprint on a headless app, with a fresh
// media player per test whose media is scripted ("scripted://<name>"), so each test decides when
// an open finishes, how long the video is and whether it can seek.

#include "Blueprint/UserWidget.h"
#include "Components/TextBlock.h"
#include "Components/Widget.h"
#include "MediaPlayer.h"
#include "ScriptedMedia.h"
#include "TestApp.h"
#include "UI_VidariaSystem.h"
#include "UObject/Class.h"
#include "UObject/UnrealType.h"

#include <gtest/gtest.h>

class FVidariaSystemFixture : public ::testing::Test
{
protected:
	~FVidariaSystemFixture() override
	{
		if (Player)
		{
			Player->Close();
			Player->RemoveFromRoot();
		}
	}

	/** The default blueprint with a fresh player (or none), not yet on screen. */
	UUI_VidariaSystem* Create(bool bWithPlayer = true)
	{
		Widget = App.CreateWidgetFromBlueprint<UUI_VidariaSystem>(TEXT("/Game/UI/WBP_VidariaSystem"));
		if (!Widget)
		{
			return nullptr;
		}
		if (bWithPlayer)
		{
			Player = NewObject<UMediaPlayer>();
			Player->AddToRoot();
		}
		SetObjectMember(Widget, TEXT("MediaPlayer"), Player);
		return Widget;
	}

	/** Creates the widget and puts it on screen, laid out. */
	UUI_VidariaSystem* Show(bool bWithPlayer = true)
	{
		if (Create(bWithPlayer))
		{
			Widget->AddToViewport();
			App.TickFrame();
		}
		return Widget;
	}

	/** Opens scripted media through the widget and leaves it preparing. */
	FScriptedMedia& StartOpen(const FString& Name, double DurationSeconds = 60.0)
	{
		FScriptedMedia& Media = Scripted.Media(Name);
		Media.Duration = FTimespan::FromSeconds(DurationSeconds);
		Widget->PlayMediaByNet(FScriptedMediaScope::Url(Name));
		return Media;
	}

	/** Opens scripted media and runs frames until it plays. */
	FScriptedMedia& OpenAndPlay(const FString& Name, double DurationSeconds = 60.0)
	{
		FScriptedMedia& Media = StartOpen(Name, DurationSeconds);
		Media.FinishOpen();
		EXPECT_TRUE(App.TickUntil([this] { return Player->IsPlaying(); }, 30));
		App.TickFrame();
		return Media;
	}

	/** Runs frames until the player stands paused (or gives up). */
	bool TickUntilPaused() { return App.TickUntil([this] { return Player->IsPaused(); }, 30); }

	/** The child widget named Name in the player's tree. */
	template<class T>
	T* Child(const TCHAR* Name)
	{
		return Cast<T>(App.FindWidget(Widget, FName(Name)));
	}

	/** The number the volume board shows. */
	FString VolumeBoardText()
	{
		const UTextBlock* Value = Cast<UTextBlock>(App.FindWidget(Child<UUserWidget>(TEXT("VolumeProgress")), TEXT("VolumeValue")));
		return Value ? Value->GetText().ToString() : FString();
	}

	/** A reflected object member read by name, as the collector and the asset loader see it. */
	static UObject* GetObjectMember(UObject* Object, const TCHAR* Name)
	{
		const FProperty* Property = Object->GetClass()->FindPropertyByName(FName(Name));
		return Property ? Property->GetObjectValue(Property->ContainerPtrToValuePtr(Object)) : nullptr;
	}

	/** A reflected object member set by name, as a blueprint's defaults are. */
	static void SetObjectMember(UObject* Object, const TCHAR* Name, UObject* Value)
	{
		const FProperty* Property = Object->GetClass()->FindPropertyByName(FName(Name));
		ASSERT_NE(Property, nullptr);
		EXPECT_TRUE(Property->SetObjectValue(Property->ContainerPtrToValuePtr(Object), Value));
	}

	FTestApp App;
	FScriptedMediaScope Scripted;
	UMediaPlayer* Player = nullptr;
	UUI_VidariaSystem* Widget = nullptr;
};
