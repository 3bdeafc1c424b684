// Layout arithmetic of the panels, paint order and opacity, animation players' loops and modes, and
// widget blueprint documents that cannot be read.

#include "Animation/UMGSequencePlayer.h"
#include "Animation/WidgetAnimation.h"
#include "Blueprint/UserWidget.h"
#include "Blueprint/WidgetBlueprintGeneratedClass.h"
#include "Blueprint/WidgetTree.h"
#include "Components/CanvasPanel.h"
#include "Components/CanvasPanelSlot.h"
#include "Components/HorizontalBox.h"
#include "Components/HorizontalBoxSlot.h"
#include "Components/Image.h"
#include "Components/SizeBox.h"
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
	/** An empty blueprint class made in memory: a concrete user widget without an asset. */
	UClass* HostClass()
	{
		static UClass* Class = []
		{
			UWidgetBlueprintGeneratedClass* Made = NewObject<UWidgetBlueprintGeneratedClass>(GetTransientPackage(), UWidgetBlueprintGeneratedClass::StaticClass(),
				FName(TEXT("LayoutHost_C")), RF_Public | RF_Standalone);
			Made->SetSuperStruct(UUserWidget::StaticClass());
			Made->SetStructureSize(UUserWidget::StaticClass()->GetStructureSize());
			return static_cast<UClass*>(Made);
		}();
		return Class;
	}

	class WidgetLayoutTest : public ::testing::Test
	{
	protected:
		void SetUp() override
		{
			FWidgetViewport::Get().Reset();
			FWidgetViewport::Get().SetViewportSize(FVector2D(400.0, 300.0));
			Screen = CreateWidget<UUserWidget>(GetTransientPackage(), HostClass());
			Canvas = Screen->WidgetTree->ConstructWidget<UCanvasPanel>();
			Screen->WidgetTree->RootWidget = Canvas;
			Screen->AddToViewport();
		}

		void TearDown() override { FWidgetViewport::Get().Reset(); }

		UImage* MakeImage(double Width, double Height) const
		{
			UImage* Image = Screen->WidgetTree->ConstructWidget<UImage>();
			FSlateBrush Brush = Image->GetBrush();
			Brush.ImageSize = FVector2D(Width, Height);
			Image->SetBrush(Brush);
			return Image;
		}

		UUserWidget* Screen = nullptr;
		UCanvasPanel* Canvas = nullptr;
	};
}

TEST_F(WidgetLayoutTest, BoxesShareFreeRoomByFillValueAndCollapsedChildrenTakeNone)
{
	UHorizontalBox* Row = Screen->WidgetTree->ConstructWidget<UHorizontalBox>();
	UCanvasPanelSlot* RowSlot = Canvas->AddChildToCanvas(Row);
	RowSlot->SetPosition(FVector2D(10.0, 20.0));
	RowSlot->SetSize(FVector2D(310.0, 50.0));
	UImage* Fixed = MakeImage(40.0, 10.0);
	UImage* One = MakeImage(5.0, 5.0);
	UImage* Two = MakeImage(5.0, 5.0);
	UImage* Gone = MakeImage(100.0, 100.0);
	Row->AddChildToHorizontalBox(Fixed)->SetVerticalAlignment(VAlign_Center);
	UHorizontalBoxSlot* OneSlot = Row->AddChildToHorizontalBox(One);
	OneSlot->SetSize(FSlateChildSize(ESlateSizeRule::Fill));
	OneSlot->SetPadding(FMargin(5.0f));
	UHorizontalBoxSlot* TwoSlot = Row->AddChildToHorizontalBox(Two);
	FSlateChildSize TwoShares(ESlateSizeRule::Fill);
	TwoShares.Value = 2.0f;
	TwoSlot->SetSize(TwoShares);
	Row->AddChildToHorizontalBox(Gone);
	Gone->SetVisibility(ESlateVisibility::Collapsed);
	FWidgetViewport::Get().Layout();

	EXPECT_EQ(Fixed->GetCachedGeometry().GetAbsolutePosition(), FVector2D(10.0, 40.0));
	EXPECT_EQ(Fixed->GetCachedGeometry().GetLocalSize(), FVector2D(40.0, 10.0));
	// 310 - 40 fixed - 10 padding = 260 free: one share is 260 / 3.
	EXPECT_NEAR(One->GetCachedGeometry().GetAbsolutePosition().X, 55.0, 1e-9);
	EXPECT_NEAR(One->GetCachedGeometry().GetLocalSize().X, 260.0 / 3.0, 1e-9);
	EXPECT_EQ(One->GetCachedGeometry().GetLocalSize().Y, 40.0);
	EXPECT_NEAR(Two->GetCachedGeometry().GetLocalSize().X, 520.0 / 3.0, 1e-9);
	EXPECT_NEAR(Two->GetCachedGeometry().GetAbsolutePosition().X + Two->GetCachedGeometry().GetLocalSize().X, 320.0, 1e-9);
	EXPECT_EQ(Row->GetDesiredSize(), FVector2D(60.0, 15.0)) << "a collapsed child adds nothing";

	Gone->SetVisibility(ESlateVisibility::Hidden);
	FWidgetViewport::Get().Layout();
	EXPECT_EQ(Row->GetDesiredSize(), FVector2D(160.0, 100.0)) << "a hidden child keeps its room";
}

TEST_F(WidgetLayoutTest, CanvasAnchorsAlignmentAndZOrderPlaceAndStackChildren)
{
	USizeBox* Box = Screen->WidgetTree->ConstructWidget<USizeBox>();
	Box->SetWidthOverride(30.0f);
	Box->SetHeightOverride(20.0f);
	UCanvasPanelSlot* Centered = Canvas->AddChildToCanvas(Box);
	Centered->SetAnchors(FAnchors(0.5f, 0.5f));
	Centered->SetAlignment(FVector2D(0.5, 0.5));
	Centered->SetAutoSize(true);
	UImage* Strip = MakeImage(1.0, 1.0);
	UCanvasPanelSlot* Stretched = Canvas->AddChildToCanvas(Strip);
	Stretched->SetAnchors(FAnchors(0.0f, 1.0f, 1.0f, 1.0f));
	Stretched->SetOffsets(FMargin(10.0f, -40.0f, 10.0f, 30.0f));
	Stretched->SetAlignment(FVector2D(0.0, 1.0));
	Stretched->SetZOrder(-1);
	Box->SetRenderOpacity(0.5f);
	FWidgetViewport::Get().Layout();

	EXPECT_EQ(Box->GetCachedGeometry().GetAbsolutePosition(), FVector2D(185.0, 140.0));
	EXPECT_EQ(Box->GetCachedGeometry().GetLocalSize(), FVector2D(30.0, 20.0));
	EXPECT_EQ(Strip->GetCachedGeometry().GetAbsolutePosition(), FVector2D(10.0, 230.0));
	EXPECT_EQ(Strip->GetCachedGeometry().GetLocalSize(), FVector2D(380.0, 30.0));

	TArray<UWidget*> Painted;
	TArray<float> Opacities;
	FWidgetViewport::Get().ForEachPaintedWidget([&](UWidget& Widget, const FGeometry&, float Opacity)
	{
		Painted.Add(&Widget);
		Opacities.Add(Opacity);
	});
	EXPECT_EQ(Painted, (TArray<UWidget*>{ Screen, Canvas, Strip, Box })) << "a lower ZOrder paints first";
	EXPECT_EQ(Opacities.Last(), 0.5f);
}

TEST_F(WidgetLayoutTest, AnimationPlayersLoopReverseAndRestore)
{
	UImage* Target = MakeImage(10.0, 10.0);
	Canvas->AddChild(Target);
	UWidgetAnimation* Fade = NewObject<UWidgetAnimation>(Screen, UWidgetAnimation::StaticClass(), FName(TEXT("Fade_INST")));
	Fade->SetLength(1.0f);
	FWidgetAnimationTrack Track;
	Track.WidgetName = Target->GetFName();
	Track.Keys = { { 0.0f, FVector2D(0.0, 0.0) }, { 1.0f, FVector2D(1.0, 0.0) } };
	Fade->SetTracks({ Track });
	EXPECT_EQ(Fade->GetDisplayName(), TEXT("Fade"));

	Screen->PlayAnimation(Fade, 0.0f, 2);
	FWidgetViewport::Get().TickWidgets(1.25f);
	EXPECT_NEAR(Target->GetRenderOpacity(), 0.25f, 1e-5) << "the second loop starts over";
	FWidgetViewport::Get().TickWidgets(1.0f);
	EXPECT_FALSE(Screen->IsAnimationPlaying(Fade));
	EXPECT_FLOAT_EQ(Target->GetRenderOpacity(), 1.0f);

	Screen->PlayAnimation(Fade, 0.0f, 1, EUMGSequencePlayMode::Reverse);
	FWidgetViewport::Get().TickWidgets(0.25f);
	EXPECT_NEAR(Target->GetRenderOpacity(), 0.75f, 1e-5);

	Screen->PlayAnimation(Fade, 0.0f, 2, EUMGSequencePlayMode::PingPong, 2.0f);
	FWidgetViewport::Get().TickWidgets(0.75f);
	EXPECT_NEAR(Target->GetRenderOpacity(), 0.5f, 1e-5) << "there and halfway back at double speed";

	Target->SetRenderOpacity(0.9f);
	Screen->PlayAnimation(Fade, 0.0f, 0, EUMGSequencePlayMode::Forward, 1.0f, true);
	FWidgetViewport::Get().TickWidgets(10.5f);
	EXPECT_TRUE(Screen->IsAnimationPlaying(Fade)) << "zero loops play forever";
	Screen->StopAnimation(Fade);
	EXPECT_FLOAT_EQ(Target->GetRenderOpacity(), 0.9f);
}

TEST(WidgetBlueprintDocument, UnreadableBlueprintsLoadAsNullWithAWarningNamingTheProblem)
{
	std::string Root = (std::filesystem::temp_directory_path() / "WidgetBlueprintDocument_XXXXXX").string();
	ASSERT_NE(mkdtemp(Root.data()), nullptr);
	std::filesystem::create_directories(Root + "/Content/UI");
	const std::pair<const char*, const char*> Documents[] = {
		{ "NoParent", R"({ "Class": "WidgetBlueprint" })" },
		{ "BadParent", R"({ "Class": "WidgetBlueprint", "ParentClass": "CanvasPanel" })" },
		{ "BadWidget", R"({ "Class": "WidgetBlueprint", "ParentClass": "UserWidget", "Tree": { "Name": "A", "Class": "NoSuchWidget" } })" },
		{ "BadKey", R"({ "Class": "WidgetBlueprint", "ParentClass": "UserWidget", "Animations": [ { "Name": "A", "Tracks": [
			{ "Widget": "A", "Property": "RenderOpacity", "Keys": [[0, "high"]] } ] } ] })" },
		{ "Self", R"({ "Class": "WidgetBlueprint", "ParentClass": "UserWidget", "Tree": { "Name": "A", "Class": "/Game/UI/Self.Self_C" } })" },
	};
	for (const auto& [Name, Text] : Documents)
	{
		std::ofstream(Root + "/Content/UI/" + Name + ".uasset", std::ios::binary) << Text;
	}
	FPaths::SetProjectDir(FString(Root.c_str()) + TEXT("/"));
	const TCHAR* Expected[][2] = {
		{ TEXT("/Game/UI/NoParent.NoParent_C"), TEXT("no \"ParentClass\"") },
		{ TEXT("/Game/UI/BadParent.BadParent_C"), TEXT("'CanvasPanel' is not a native user widget class") },
		{ TEXT("/Game/UI/BadWidget.BadWidget_C"), TEXT("'NoSuchWidget', which is no widget class") },
		{ TEXT("/Game/UI/BadKey.BadKey_C"), TEXT("a key must be [time, value] with a number value") },
		{ TEXT("/Game/UI/Self.Self_C"), TEXT("itself") },
	};
	for (const auto& [Path, Problem] : Expected)
	{
		UE::Log::ClearCapturedLines();
		EXPECT_EQ(LoadClass<UUserWidget>(nullptr, Path), nullptr) << FTCHARToUTF8(Path).Get();
		bool bNamed = false;
		for (const UE::Log::FCapturedLine& Line : UE::Log::GetCapturedLines())
		{
			bNamed = bNamed || (Line.Verbosity == ELogVerbosity::Warning && Line.Message.Contains(Problem));
		}
		EXPECT_TRUE(bNamed) << FTCHARToUTF8(Path).Get();
	}
	std::error_code Error;
	std::filesystem::remove_all(Root, Error);
}
