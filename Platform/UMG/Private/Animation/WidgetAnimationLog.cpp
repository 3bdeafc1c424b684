#include "Animation/WidgetAnimationLog.h"

#include "Blueprint/UserWidget.h"

FWidgetAnimationLog& FWidgetAnimationLog::Get()
{
	static FWidgetAnimationLog* Instance = new FWidgetAnimationLog();
	return *Instance;
}

int32 FWidgetAnimationLog::CountPlays(const UUserWidget* Widget, const FString& Name) const
{
	int32 Count = 0;
	for (const FWidgetAnimationPlay& Play : Plays)
	{
		if ((!Widget || Play.Widget.Get() == Widget) && Play.AnimationName == Name)
		{
			++Count;
		}
	}
	return Count;
}
