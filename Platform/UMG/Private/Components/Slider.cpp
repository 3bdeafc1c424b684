#include "Components/Slider.h"

namespace
{
	/** The default style's bar and thumb, which set the size a slider asks for. */
	const FVector2D SliderDesiredSize(16.0, 16.0);
}

float USlider::GetNormalizedValue() const
{
	if (MaxValue == MinValue)
	{
		return 1.0f;
	}
	return FMath::Clamp((Value - MinValue) / (MaxValue - MinValue), 0.0f, 1.0f);
}

FVector2D USlider::ComputeDesiredSize() const
{
	return SliderDesiredSize;
}

bool USlider::HandlePointerPressed(const FGeometry& MyGeometry, const FPointerEvent& Event)
{
	if (bLocked)
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
	float NewValue = MinValue + Fraction * (MaxValue - MinValue);
	if (bMouseUsesStep && StepSize > 0.0f)
	{
		NewValue = MinValue + FMath::RoundToFloat((NewValue - MinValue) / StepSize) * StepSize;
	}
	if (NewValue != Value)
	{
		Value = NewValue;
		OnValueChanged.Broadcast(Value);
	}
}
