// The lesson player's frame loop: timeline slider, cache bar and clock, and the seek by dragging.

#include "UI_VidariaSystem.h"

#include "Components/Border.h"
#include "Components/CanvasPanelSlot.h"
#include "Components/ProgressBar.h"
#include "Components/Slider.h"
#include "Components/TextBlock.h"
#include "MediaPlayer.h"

namespace
{
	constexpr int64 TicksPerSecond = 10000000;
	constexpr int64 TicksPerMinute = 600000000;
	constexpr int64 TicksPerHour = 36000000000;

	/** "hh:mm:ss/hh:mm:ss"; hours wrap at 24, as there is no day field. */
	FString MakeClockText(int64 TimeTicks, int64 DurationTicks)
	{
		return FString::Printf(TEXT("%02d:%02d:%02d/%02d:%02d:%02d"),
			int32((TimeTicks / TicksPerHour) % 24), int32((TimeTicks / TicksPerMinute) % 60), int32((TimeTicks / TicksPerSecond) % 60),
			int32((DurationTicks / TicksPerHour) % 24), int32((DurationTicks / TicksPerMinute) % 60), int32((DurationTicks / TicksPerSecond) % 60));
	}

	/** A share of the duration as a time, in single precision as the slider's value is. */
	FTimespan ShareOfDuration(const FTimespan& Duration, float Share)
	{
		return FTimespan(static_cast<int64>(static_cast<float>(Duration.GetTicks()) * Share));
	}

	/** Part over whole, or 0 when there is no whole yet (nothing open), rather than a value that is no number. */
	float ShareOf(int64 Part, int64 Whole)
	{
		return Whole == 0 ? 0.0f : static_cast<float>(static_cast<double>(Part) / static_cast<double>(Whole));
	}
}

void UUI_VidariaSystem::NativeTick(const FGeometry& MyGeometry, float InDeltaTime)
{
	Super::NativeTick(MyGeometry, InDeltaTime);
	if (MediaPlayer)
	{
		const int64 DurationTicks = MediaPlayer->GetDuration().GetTicks();
		// While the viewer holds the slider it stays under the pointer.
		if (!bDraggingProgress)
		{
			MovieProgress->SetValue(ShareOf(MediaPlayer->GetTime().GetTicks(), DurationTicks));
		}
		VideoCacheLoading->SetPercent(ShareOf(MediaPlayer->CacheBehind.GetTicks(), DurationTicks));
		// The clock shows the playback time, never the position being dragged.
		PlayTimeText->SetText(FText::FromString(MakeClockText(MediaPlayer->GetTime().GetTicks(), MediaPlayer->GetDuration().GetTicks())));
	}
	TickControlBar(InDeltaTime);
}

void UUI_VidariaSystem::OnMediaProgressMouseCaptureBegin()
{
	// Playback runs on behind the drag; only the slider stops following it.
	bDraggingProgress = true;
}

void UUI_VidariaSystem::OnMediaProgressMouseCaptureEnd()
{
	const float Value = MovieProgress->GetValue();
	if (!MediaPlayer || !MediaPlayer->SupportsSeeking())
	{
		// The next tick puts the slider back at the playback position.
		bDraggingProgress = false;
		return;
	}
	MediaPlayer->Seek(ShareOfDuration(MediaPlayer->GetDuration(), Value));
	const bool bWasPaused = MediaPlayer->IsPaused();
	bDraggingProgress = false;
	// A drag that began paused ends playing at the new place.
	if (bWasPaused)
	{
		bResumeAfterSeek = true;
	}
}

void UUI_VidariaSystem::OnMediaProgressValueChanged(float InValue)
{
	const FTimespan Target = MediaPlayer ? ShareOfDuration(MediaPlayer->GetDuration(), InValue) : FTimespan::Zero();
	FString TipText = Target.ToString(TEXT("%h:%m:%s"));
	TipText.RemoveFromStart(TEXT("+"), 1, ESearchCase::IgnoreCase);
	MediaProgressValueFloat->SetText(FText::FromString(TipText));

	// The tip stands one bar height above the bar, at the slider's share of the bar's width.
	const FVector2D BarSize = MediaBarBorder->GetCachedGeometry().GetLocalSize();
	UCanvasPanelSlot* BarSlot = Cast<UCanvasPanelSlot>(MediaBarBorder->Slot);
	UCanvasPanelSlot* TipSlot = Cast<UCanvasPanelSlot>(MediaProgressValueFloat->Slot);
	if (!BarSlot || !TipSlot)
	{
		return;
	}
	const FVector2D BarPosition = BarSlot->GetPosition();
	TipSlot->SetPosition(FVector2D(static_cast<double>(InValue) * BarSize.X, BarPosition.Y - BarSize.Y));
}
