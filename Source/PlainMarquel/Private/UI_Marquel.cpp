#include "UI_Marquel.h"

#include "Blueprint/WidgetTree.h"
#include "Components/CanvasPanel.h"
#include "Components/CanvasPanelSlot.h"
#include "Components/TextBlock.h"
#include "MediaPlayer.h"
#include "UObject/WeakObjectPtrTemplates.h"
#include "UI_MarquelBar.h"
#include "UI_MarquelNodeSetting.h"

namespace
{
	// A jump of the clock larger than this is a seek or an open, not playback: nothing is spawned for it.
	constexpr double MaxPlaybackStepSeconds = 1.0;
	// Lanes fill this share of the canvas from the top, so the lower part of the picture stays clear.
	constexpr double LaneAreaShare = 0.75;
}

void UUI_Marquel::Init(TObjectPtr<UMediaPlayer> InMediaPlayer, TObjectPtr<UUI_MarquelBar> InMarquelBar, TObjectPtr<UUI_MarquelNodeSetting> InNodeSetting)
{
	MediaPlayer = InMediaPlayer;
	NodeSetting = InNodeSetting;
	if (MarquelBar != InMarquelBar)
	{
		if (MarquelBar)
		{
			MarquelBar->OnSendMarquel.RemoveAll(this);
		}
		MarquelBar = InMarquelBar;
		if (MarquelBar)
		{
			MarquelBar->OnSendMarquel.AddUObject(this, &UUI_Marquel::HandleMarquelSent);
		}
	}
	LastSeconds = -1.0;
}

void UUI_Marquel::Pause()
{
	bPaused = true;
}

void UUI_Marquel::Resume()
{
	bPaused = false;
}

void UUI_Marquel::Empty()
{
	for (UTextBlock* Text : FlyingTexts)
	{
		if (Text)
		{
			Text->RemoveFromParent();
		}
	}
	FlyingTexts.Empty();
}

void UUI_Marquel::LoadMarquel(const FString& InMarquels)
{
	Comments.Empty();
	TArray<FString> Lines;
	InMarquels.ParseIntoArray(Lines, TEXT("\n"), true);
	for (const FString& Line : Lines)
	{
		FString Moment;
		FString Text;
		if (!Line.Split(TEXT("|"), &Moment, &Text))
		{
			continue;
		}
		Moment.TrimStartAndEndInline();
		Text.TrimStartAndEndInline();
		if (Moment.IsEmpty() || !Moment.IsNumeric() || Text.IsEmpty())
		{
			continue;
		}
		FMarquelComment& Comment = Comments.AddDefaulted_GetRef();
		Comment.Seconds = FCString::Atod(*Moment);
		Comment.Text = Text;
	}
	Comments.StableSort([](const FMarquelComment& A, const FMarquelComment& B) { return A.Seconds < B.Seconds; });
	LastSeconds = -1.0;
}

void UUI_Marquel::NativeConstruct()
{
	Super::NativeConstruct();
	SetVisibility(ESlateVisibility::HitTestInvisible);
}

void UUI_Marquel::NativeTick(const FGeometry& MyGeometry, float InDeltaTime)
{
	Super::NativeTick(MyGeometry, InDeltaTime);
	const bool bShown = !NodeSetting || NodeSetting->IsMarquelShown();
	MarquelCanvas->SetVisibility(bShown ? ESlateVisibility::HitTestInvisible : ESlateVisibility::Collapsed);
	if (bPaused)
	{
		return;
	}
	if (MediaPlayer && MediaPlayer->IsPlaying())
	{
		const double Now = MediaPlayer->GetTime().GetTotalSeconds();
		if (LastSeconds >= 0.0 && Now >= LastSeconds && Now - LastSeconds <= MaxPlaybackStepSeconds)
		{
			SpawnDueComments(LastSeconds, Now);
		}
		LastSeconds = Now;
	}
	const float SpeedScale = NodeSetting ? NodeSetting->GetSpeedScale() : 1.0f;
	const double Step = double(FlySpeed) * double(SpeedScale) * double(InDeltaTime);
	for (int32 Index = FlyingTexts.Num() - 1; Index >= 0; --Index)
	{
		UTextBlock* Text = FlyingTexts[Index];
		UCanvasPanelSlot* TextSlot = Text ? Cast<UCanvasPanelSlot>(Text->Slot) : nullptr;
		if (!TextSlot)
		{
			FlyingTexts.RemoveAt(Index);
			continue;
		}
		const FVector2D Position = TextSlot->GetPosition() - FVector2D(Step, 0.0);
		TextSlot->SetPosition(Position);
		// A comment leaves once it has crossed the left edge; before its first layout its width reads 0.
		const double Width = Text->GetDesiredSize().X;
		if (Width > 0.0 && Position.X + Width < 0.0)
		{
			Text->RemoveFromParent();
			FlyingTexts.RemoveAt(Index);
		}
	}
}

void UUI_Marquel::SpawnDueComments(double From, double To)
{
	for (const FMarquelComment& Comment : Comments)
	{
		if (Comment.Seconds >= To)
		{
			break;
		}
		if (Comment.Seconds >= From)
		{
			SpawnComment(Comment.Text);
		}
	}
}

void UUI_Marquel::SpawnComment(const FString& Text)
{
	UTextBlock* TextBlock = WidgetTree->ConstructWidget<UTextBlock>();
	const int32 FontSize = NodeSetting ? NodeSetting->GetFontSize() : 20;
	FSlateFontInfo Font = TextBlock->GetFont();
	Font.Size = FontSize;
	TextBlock->SetFont(Font);
	TextBlock->SetText(FText::FromString(Text));
	TextBlock->SetShadowOffset(FVector2D(1.0, 1.0));
	TextBlock->SetShadowColorAndOpacity(FLinearColor(0.f, 0.f, 0.f, 0.8f));
	UCanvasPanelSlot* TextSlot = MarquelCanvas->AddChildToCanvas(TextBlock);
	if (!TextSlot)
	{
		return;
	}
	const FVector2D CanvasSize = MarquelCanvas->GetCachedGeometry().GetLocalSize();
	const double LaneHeight = double(FontSize) * 1.4;
	const int32 LaneCount = FMath::Max(1, int32(CanvasSize.Y * LaneAreaShare / LaneHeight));
	const int32 Lane = NextLane % LaneCount;
	NextLane = (Lane + 1) % LaneCount;
	TextSlot->SetAutoSize(true);
	TextSlot->SetPosition(FVector2D(CanvasSize.X, double(Lane) * LaneHeight));
	FlyingTexts.Add(TextBlock);
}

void UUI_Marquel::HandleMarquelSent(const FString& Text)
{
	SpawnComment(Text);
}
