#include "Engine/Engine.h"

#include "UObject/Package.h"
#include "UObject/UObjectGlobals.h"

UEngine* GEngine = nullptr;

namespace
{
	constexpr uint64 KeylessMessage = static_cast<uint64>(-1);

	/** Makes GEngine when the module loads, before any code that tests `if (GEngine)` can run. */
	struct FEngineStartup
	{
		FEngineStartup()
		{
			if (!GEngine)
			{
				GEngine = NewObject<UEngine>(GetTransientPackage(), UEngine::StaticClass(), FName(TEXT("GameEngine")));
				GEngine->AddToRoot();
			}
		}
	};
	FEngineStartup EngineStartup;
}

void UEngine::AddOnScreenDebugMessage(int32 Key, float TimeToDisplay, FColor DisplayColor, const FString& DebugMessage, bool bNewerOnTop,
	const FVector2D& TextScale)
{
	AddOnScreenDebugMessage(Key == INDEX_NONE ? KeylessMessage : static_cast<uint64>(static_cast<uint32>(Key)), TimeToDisplay, DisplayColor, DebugMessage,
		bNewerOnTop, TextScale);
}

void UEngine::AddOnScreenDebugMessage(uint64 Key, float TimeToDisplay, FColor DisplayColor, const FString& DebugMessage, bool bNewerOnTop,
	const FVector2D& TextScale)
{
	FOnScreenMessage Message;
	Message.Key = Key;
	Message.Text = DebugMessage;
	Message.Color = DisplayColor;
	Message.TimeToDisplay = TimeToDisplay;
	Message.TimeLeft = TimeToDisplay;
	Message.TextScale = TextScale;

	if (Key != KeylessMessage)
	{
		// A keyed line keeps its place on screen and takes the new text, colour and time.
		for (FOnScreenMessage& Existing : OnScreenMessages)
		{
			if (Existing.Key == Key)
			{
				Existing = MoveTemp(Message);
				return;
			}
		}
		OnScreenMessages.Add(MoveTemp(Message));
		return;
	}
	// The engine honours bNewerOnTop only for keyless lines.
	if (bNewerOnTop)
	{
		OnScreenMessages.Insert(MoveTemp(Message), 0);
	}
	else
	{
		OnScreenMessages.Add(MoveTemp(Message));
	}
}

bool UEngine::OnScreenDebugMessageExists(uint64 Key) const
{
	return OnScreenMessages.ContainsByPredicate([Key](const FOnScreenMessage& Message) { return Message.Key == Key; });
}

void UEngine::RemoveOnScreenDebugMessage(uint64 Key)
{
	OnScreenMessages.RemoveAll([Key](const FOnScreenMessage& Message) { return Message.Key == Key; });
}

void UEngine::TickOnScreenMessages(float DeltaSeconds)
{
	for (FOnScreenMessage& Message : OnScreenMessages)
	{
		Message.TimeLeft -= DeltaSeconds;
	}
	OnScreenMessages.RemoveAll([](const FOnScreenMessage& Message) { return Message.TimeLeft <= 0.f; });
}
