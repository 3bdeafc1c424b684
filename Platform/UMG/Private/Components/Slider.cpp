#include "Components/Slider.h"
#include "Components/DefaultWidgetStyle.h"
#include "Rendering/SlateDrawList.h"

#include <algorithm>

namespace
{
	/** The default style's bar and thumb, which set the size a slider asks for. */
	const FVector2D SliderDesiredSize(16.0, 16.0);
}

// The slider's own accessors are where its deprecated members may still be named.
PRAGMA_DISABLE_DEPRECATION_WARNINGS

USlider::USlider() = default;

USlider::~USlider() = default;

float USlider::GetValue() const
{
	return Value;
}

void USlider::SetValue(float InValue)
{
	Value = InValue;
}

float USlider::GetMinValue() const
{
	return MinValue;
}

void USlider::SetMinValue(float InValue)
{
	MinValue = InValue;
}

float USlider::GetMaxValue() const
{
	return MaxValue;
}

void USlider::SetMaxValue(float InValue)
{
	MaxValue = InValue;
}

bool USlider::IsLocked() const
{
	return Locked;
}

void USlider::SetLocked(bool InValue)
{
	Locked = InValue;
}

float USlider::GetStepSize() const
{
	return StepSize;
}

void USlider::SetStepSize(float InValue)
{
	StepSize = InValue;
}

PRAGMA_ENABLE_DEPRECATION_WARNINGS

float USlider::GetNormalizedValue() const
{
	const float Min = GetMinValue();
	const float Max = GetMaxValue();
	if (Max == Min)
	{
		return 1.0f;
	}
	return FMath::Clamp((GetValue() - Min) / (Max - Min), 0.0f, 1.0f);
}

FVector2D USlider::ComputeDesiredSize() const
{
	return SliderDesiredSize;
}

bool USlider::HandlePointerPressed(const FGeometry& MyGeometry, const FPointerEvent& Event)
{
	if (IsLocked())
	{
		return false;
	}
	OnMouseCaptureBegin.Broadcast();
	CommitPointerValue(MyGeometry, Event);
	return true;
}

void USlider::HandlePointerDragged(const FGeometry& MyGeometry, const FPointerEvent& Event)
{
	CommitPointerValue(MyGeometry, Event);
}

void USlider::HandlePointerReleased(const FGeometry& MyGeometry, const FPointerEvent& Event, bool bInside)
{
	OnMouseCaptureEnd.Broadcast();
}

void USlider::CommitPointerValue(const FGeometry& MyGeometry, const FPointerEvent& Event)
{
	const double Width = MyGeometry.GetLocalSize().X;
	const double Local = MyGeometry.AbsoluteToLocal(Event.GetScreenSpacePosition()).X;
	const float Fraction = Width > 0.0 ? static_cast<float>(FMath::Clamp(Local / Width, 0.0, 1.0)) : 0.0f;
	const float Min = GetMinValue();
	const float Step = GetStepSize();
	float NewValue = Min + Fraction * (GetMaxValue() - Min);
	if (MouseUsesStep && Step > 0.0f)
	{
		NewValue = Min + FMath::RoundToFloat((NewValue - Min) / Step) * Step;
	}
	if (NewValue != GetValue())
	{
		SetValue(NewValue);
		OnValueChanged.Broadcast(NewValue);
	}
}

void USlider::PaintSelf(FSlateWindowElementList& OutDrawElements, const FGeometry& Geometry, float Opacity) const
{
	const FPaintRect Box = FPaintRect::FromBox(Geometry.GetAbsolutePosition(), Geometry.GetLocalSize());
	const int32 Width = Box.Right - Box.Left;
	const int32 Middle = (Box.Top + Box.Bottom) / 2;
	const int32 ThumbWidth = std::min(8, Width);
	const float Value = FMath::Clamp(GetNormalizedValue(), 0.0f, 1.0f);
	// The thumb's centre travels between half a thumb from each end, so it never leaves the box.
	const int32 ThumbLeft = Box.Left + static_cast<int32>(static_cast<float>(Width - ThumbWidth) * Value + 0.5f);
	FSlateDrawElement::MakeBox(OutDrawElements, {Box.Left, Middle - 2, Box.Right, Middle + 2}, DefaultWidgetStyle::Track, Opacity);
	FSlateDrawElement::MakeBox(OutDrawElements, {Box.Left, Middle - 2, ThumbLeft, Middle + 2}, DefaultWidgetStyle::TrackFill, Opacity);
	FSlateDrawElement::MakeBox(OutDrawElements, {ThumbLeft, Box.Top, ThumbLeft + ThumbWidth, Box.Bottom}, DefaultWidgetStyle::Thumb, Opacity);
}
