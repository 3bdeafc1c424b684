#include "Animation/WidgetAnimation.h"

FString UWidgetAnimation::GetDisplayName() const
{
	FString Name = GetName();
	Name.RemoveFromEnd(TEXT("_INST"));
	return Name;
}

FVector2D FWidgetAnimationTrack::Evaluate(float Time) const
{
	if (Keys.Num() == 0)
	{
		return FVector2D::ZeroVector;
	}
	if (Time <= Keys[0].Time)
	{
		return Keys[0].Value;
	}
	for (int32 Index = 1; Index < Keys.Num(); ++Index)
	{
		const FWidgetAnimationKey& Next = Keys[Index];
		if (Time < Next.Time)
		{
			const FWidgetAnimationKey& Previous = Keys[Index - 1];
			// Visibility has no in-between: a key holds until the next one.
			if (Property == EWidgetAnimatedProperty::Visibility)
			{
				return Previous.Value;
			}
			const double Alpha = (double(Time) - Previous.Time) / (double(Next.Time) - Previous.Time);
			return Previous.Value + (Next.Value - Previous.Value) * Alpha;
		}
	}
	return Keys.Last().Value;
}
