// Widget blueprint assets: the tree, bindings of every widget kind (and their failures), defaults,
// nested blueprints, and animations found by "<Name>_INST" and played by the viewport's tick.

#include "WidgetBlueprintTestTypes.h"

#include "Animation/WidgetAnimation.h"
#include "Animation/WidgetAnimationLog.h"
#include "Blueprint/WidgetBlueprintGeneratedClass.h"
#include "Blueprint/WidgetTree.h"
#include "Components/Border.h"
#include "Components/Button.h"
#include "Components/CanvasPanel.h"
#include "Components/CheckBox.h"
#include "Components/ComboBoxString.h"
#include "Components/HorizontalBox.h"
#include "Components/Image.h"
#include "Components/Overlay.h"
#include "Components/ProgressBar.h"
#include "Components/SizeBox.h"
#include "Components/Slider.h"
#include "Components/TextBlock.h"
#include "Components/VerticalBox.h"
#include "Engine/World.h"
#include "Logging/LogCapture.h"
#include "Misc/Paths.h"
#include "Slate/WidgetViewport.h"
#include "UObject/Package.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace
{
	const char* VolumeAsset = R"({ "Class": "WidgetBlueprint", "ParentClass": "TestVolumeWidget",
		"Tree": { "Name": "Root", "Class": "CanvasPanel", "Children": [ { "Name": "VolumeValue", "Class": "TextBlock" } ] } })";

	const char* PlayerAsset = R"({ "Class": "WidgetBlueprint", "ParentClass": "/Script/UMG_WidgetBlueprintTest.TestBoundPlayer",
		"Defaults": { "Title": "Lesson", "Speed": 1.5 },
		"Tree": { "Name": "RootCanvas", "Class": "CanvasPanel", "Children": [
			{ "Name": "Stack", "Class": "Overlay", "Slot": { "Anchors": [0, 0, 1, 1], "Offsets": [0, 0, 0, 0] },
			  "Children": [ { "Name": "ImageVideo", "Class": "Image", "Slot": { "HAlign": "Fill", "VAlign": "Fill" } } ] },
			{ "Name": "MediaBarBorder", "Class": "Border", "Slot": { "Anchors": [0, 1, 1, 1], "Offsets": [0, 0, 0, 60], "Alignment": [0, 1] },
			  "Children": [ { "Name": "Column", "Class": "VerticalBox", "Slot": { "Padding": 0 }, "Children": [
				{ "Name": "ControlBar", "Class": "HorizontalBox", "Children": [
					{ "Name": "ButtonBox", "Class": "SizeBox", "Properties": { "WidthOverride": 40, "bOverride_WidthOverride": true },
					  "Children": [ { "Name": "ReplayButton", "Class": "Button" } ] },
					{ "Name": "SuspendButton", "Class": "CheckBox" },
					{ "Name": "MovieProgress", "Class": "Slider", "Slot": { "Size": 1, "VAlign": "Center" } },
					{ "Name": "VideoCacheLoading", "Class": "ProgressBar" },
					{ "Name": "PlayTimeText", "Class": "UTextBlock", "Properties": { "Text": "00:00" } },
					{ "Name": "ComboPlaySpeed", "Class": "ComboBoxString", "Properties": { "DefaultOptions": ["1.0x", "2.0x"] } },
					{ "Name": "VolumeButton", "Class": "/Game/UI/WBP_Volume.WBP_Volume_C" } ] } ] } ] } ] },
		"Animations": [
			{ "Name": "OpenBar", "Length": 0.3, "Tracks": [
				{ "Widget": "ControlBar", "Property": "RenderOpacity", "Keys": [[0, 0], [0.3, 1]] },
				{ "Widget": "ControlBar", "Property": "RenderTranslation", "Keys": [[0, [0, 40]], [0.3, [0, 0]]] } ] },
			{ "Name": "CloseBar", "Length": 0.3, "Tracks": [
				{ "Widget": "ControlBar", "Property": "Visibility", "Keys": [[0, "Visible"], [0.3, "Collapsed"]] } ] } ] })";

	const char* MissingAsset = R"({ "Class": "WidgetBlueprint", "ParentClass": "TestNeedsButton",
		"Tree": { "Name": "Root", "Class": "CanvasPanel" } })";

	const char* MistypedAsset = R"({ "Class": "WidgetBlueprint", "ParentClass": "TestNeedsButton",
		"Tree": { "Name": "Root", "Class": "CanvasPanel", "Children": [ { "Name": "PlayButton", "Class": "TextBlock" } ] } })";

	class WidgetBlueprintTest : public ::testing::Test
	{
	protected:
		void SetUp() override
		{
			std::string Template = (std::filesystem::temp_directory_path() / "WidgetBlueprintTest_XXXXXX").string();
			ASSERT_NE(mkdtemp(Template.data()), nullptr);
			Root = Template;
			Write("WBP_Volume", VolumeAsset);
			Write("WBP_Player", PlayerAsset);
			Write("WBP_Missing", MissingAsset);
			Write("WBP_Mistyped", MistypedAsset);
			FPaths::SetProjectDir(FString(Root.c_str()) + TEXT("/"));
			FWidgetViewport::Get().Reset();
			UE::Log::ClearCapturedLines();
		}

		void TearDown() override
		{
			FWidgetViewport::Get().Reset();
			std::error_code Error;
			std::filesystem::remove_all(Root, Error);
		}

		void Write(const char* Name, const char* Text) const
		{
			std::filesystem::create_directories(Root + "/Content/UI");
			std::ofstream(Root + "/Content/UI/" + Name + ".uasset", std::ios::binary) << Text;
		}

		static UClass* Load(const TCHAR* Path) { return LoadClass<UUserWidget>(nullptr, Path); }

		/** The captured LogUMG errors, joined. */
		static FString UmgErrors()
		{
			FString Joined;
			for (const UE::Log::FCapturedLine& Line : UE::Log::GetCapturedLines())
			{
				if (Line.Category == TEXT("LogUMG") && Line.Verbosity == ELogVerbosity::Error)
				{
					Joined += Line.Message + TEXT("\n");
				}
			}
			return Joined;
		}

		/** How the plug-in's base class looks an animation up: "<Name>_INST", case ignored, first wins. */
		static UWidgetAnimation* FindAnimation(const UUserWidget* Widget, const FString& Name)
		{
			const UWidgetBlueprintGeneratedClass* Class = Cast<UWidgetBlueprintGeneratedClass>(Widget->GetClass());
			for (UWidgetAnimation* Animation : Class ? Class->Animations : TArray<TObjectPtr<UWidgetAnimation>>())
			{
				if (Animation->GetFName().ToString() == Name + TEXT("_INST"))
				{
					return Animation;
				}
			}
			return nullptr;
		}

		std::string Root;
	};
}

TEST_F(WidgetBlueprintTest, BlueprintBuildsItsTreeBindsEveryKindOfWidgetAndAppliesDefaults)
{
	UClass* Class = Load(TEXT("/Game/UI/WBP_Player.WBP_Player_C"));
	ASSERT_NE(Class, nullptr) << FTCHARToUTF8(*UmgErrors()).Get();
	EXPECT_EQ(Load(TEXT("/Game/UI/WBP_Player.WBP_Player")), Class) << "both path forms name one class";

	UWorld* World = UWorld::CreateWorld();
	UTestBoundPlayer* Player = CreateWidget<UTestBoundPlayer>(World, Class);
	ASSERT_NE(Player, nullptr) << FTCHARToUTF8(*UmgErrors()).Get();
	EXPECT_EQ(Player->GetWorld(), World);
	EXPECT_EQ(Player->WidgetTree->RootWidget, Player->RootCanvas);
	const UObject* Bound[] = { Player->Stack, Player->MediaBarBorder, Player->ControlBar, Player->Column, Player->ButtonBox, Player->ReplayButton,
		Player->SuspendButton, Player->MovieProgress, Player->VideoCacheLoading, Player->PlayTimeText, Player->ImageVideo, Player->ComboPlaySpeed,
		Player->VolumeButton };
	for (const UObject* Widget : Bound)
	{
		EXPECT_NE(Widget, nullptr);
	}
	EXPECT_EQ(Player->OptionalCaption, nullptr) << "an optional binding may be absent";
	ASSERT_NE(Player->VolumeButton, nullptr);
	EXPECT_NE(Player->VolumeButton->VolumeValue, nullptr) << "a nested blueprint binds its own tree";
	EXPECT_EQ(Player->OpenBar, FindAnimation(Player, TEXT("OpenBar")));
	EXPECT_EQ(Player->Title, TEXT("Lesson"));
	EXPECT_EQ(Player->Speed, 1.5f);
	EXPECT_EQ(Player->PlayTimeText->GetText().ToString(), TEXT("00:00"));
	EXPECT_EQ(Player->ComboPlaySpeed->GetOptionCount(), 2);
	EXPECT_EQ(Player->GetWidgetFromName(TEXT("MediaBarBorder")), Player->MediaBarBorder) << "the tree is searched by designer name";
	EXPECT_EQ(Player->GetWidgetFromName(TEXT("VolumeValue")), nullptr) << "a nested blueprint's tree is its own";

	// The designed layout: the bar is pinned to the bottom, the slider fills what the row leaves.
	FWidgetViewport::Get().SetViewportSize(FVector2D(800.0, 600.0));
	EXPECT_FALSE(Player->IsInViewport());
	Player->AddToViewport();
	EXPECT_TRUE(Player->IsInViewport());
	EXPECT_FALSE(Player->MediaBarBorder->IsInViewport()) << "only the widget added to the viewport stands in it";
	FWidgetViewport::Get().Layout();
	EXPECT_EQ(Player->ImageVideo->GetCachedGeometry().GetLocalSize(), FVector2D(800.0, 600.0));
	const FGeometry Bar = Player->MediaBarBorder->GetCachedGeometry();
	EXPECT_EQ(Bar.GetAbsolutePosition().Y + Bar.GetLocalSize().Y, 600.0);
	EXPECT_EQ(Bar.GetLocalSize().X, 800.0);
	EXPECT_EQ(Player->ButtonBox->GetCachedGeometry().GetLocalSize().X, 40.0);
	const double Others = 40.0 + Player->SuspendButton->GetDesiredSize().X + Player->VideoCacheLoading->GetDesiredSize().X
		+ Player->PlayTimeText->GetDesiredSize().X + Player->ComboPlaySpeed->GetDesiredSize().X + Player->VolumeButton->GetDesiredSize().X;
	EXPECT_NEAR(Player->MovieProgress->GetCachedGeometry().GetLocalSize().X, 800.0 - Others, 1e-6) << "the slot's padding of 0 replaces the border's default";
	World->DestroyWorld();
}

TEST_F(WidgetBlueprintTest, MissingOrMistypedBoundWidgetFailsCreationWithAClearError)
{
	UClass* Missing = Load(TEXT("/Game/UI/WBP_Missing.WBP_Missing_C"));
	ASSERT_NE(Missing, nullptr);
	EXPECT_EQ(CreateWidget<UUserWidget>(GetTransientPackage(), Missing), nullptr);
	const FString MissingError = UmgErrors();
	EXPECT_TRUE(MissingError.Contains(TEXT("/Game/UI/WBP_Missing.WBP_Missing_C"))) << FTCHARToUTF8(*MissingError).Get();
	EXPECT_TRUE(MissingError.Contains(TEXT("'PlayButton'")));
	EXPECT_TRUE(MissingError.Contains(TEXT("expected UButton")));

	UE::Log::ClearCapturedLines();
	EXPECT_EQ(CreateWidget<UUserWidget>(GetTransientPackage(), Load(TEXT("/Game/UI/WBP_Mistyped"))), nullptr);
	const FString MistypedError = UmgErrors();
	EXPECT_TRUE(MistypedError.Contains(TEXT("'PlayButton' is a UTextBlock, but UTestNeedsButton::PlayButton expects UButton"))) << FTCHARToUTF8(*MistypedError).Get();
}

TEST_F(WidgetBlueprintTest, AnimationsAreFoundByInstNameInAssetOrderAndAdvanceWithTheTick)
{
	UClass* Class = Load(TEXT("/Game/UI/WBP_Player.WBP_Player_C"));
	const UWidgetBlueprintGeneratedClass* Generated = Cast<UWidgetBlueprintGeneratedClass>(Class);
	ASSERT_NE(Generated, nullptr);
	ASSERT_EQ(Generated->Animations.Num(), 2);
	EXPECT_EQ(Generated->Animations[0]->GetName(), FString(TEXT("OpenBar_INST")));
	EXPECT_EQ(Generated->Animations[1]->GetName(), FString(TEXT("CloseBar_INST")));
	EXPECT_FLOAT_EQ(Generated->Animations[0]->GetEndTime(), 0.3f);

	UTestBoundPlayer* Player = CreateWidget<UTestBoundPlayer>(GetTransientPackage(), Class);
	ASSERT_NE(Player, nullptr);
	EXPECT_NE(FindAnimation(Player, TEXT("openbar")), nullptr) << "names compare ignoring case";
	EXPECT_EQ(FindAnimation(Player, TEXT("OpenBar_INST")), nullptr);
	Player->AddToViewport();
	FWidgetAnimationLog::Get().Clear();

	UWidgetAnimation* OpenBar = FindAnimation(Player, TEXT("OpenBar"));
	Player->PlayAnimation(OpenBar);
	FWidgetViewport::Get().TickWidgets(0.15f);
	EXPECT_NEAR(Player->ControlBar->GetRenderOpacity(), 0.5f, 1e-4);
	EXPECT_NEAR(Player->ControlBar->GetRenderTransform().Translation.Y, 20.0, 1e-4);
	EXPECT_TRUE(Player->IsAnimationPlaying(OpenBar));
	FWidgetViewport::Get().TickWidgets(0.5f);
	EXPECT_FLOAT_EQ(Player->ControlBar->GetRenderOpacity(), 1.0f);
	EXPECT_FALSE(Player->IsAnimationPlaying(OpenBar)) << "a finished animation stops";

	UWidgetAnimation* CloseBar = FindAnimation(Player, TEXT("CloseBar"));
	Player->PlayAnimation(CloseBar);
	FWidgetViewport::Get().TickWidgets(0.29f);
	EXPECT_EQ(Player->ControlBar->GetVisibility(), ESlateVisibility::Visible) << "visibility steps, it does not blend";
	FWidgetViewport::Get().TickWidgets(0.02f);
	EXPECT_EQ(Player->ControlBar->GetVisibility(), ESlateVisibility::Collapsed);
	EXPECT_EQ(FWidgetAnimationLog::Get().CountPlays(Player, TEXT("OpenBar")), 1);
	EXPECT_EQ(FWidgetAnimationLog::Get().CountPlays(nullptr, TEXT("CloseBar")), 1);
}
