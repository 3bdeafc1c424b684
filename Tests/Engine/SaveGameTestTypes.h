#pragma once

// Save-game classes for the slot tests: one with a property of every kind a slot must keep, and
// a second class so a slot can hold something other than what the test asked for.

#include "CoreMinimal.h"
#include "GameFramework/SaveGame.h"
#include "SaveGameTestTypes.generated.h"

UENUM()
enum class ESaveTestSpeed : uint8
{
	Slow,
	Fast,
};

USTRUCT()
struct FSaveTestPoint
{
	GENERATED_BODY()

	UPROPERTY()
	int32 X = 0;

	UPROPERTY()
	FString Label;
};

UCLASS()
class USaveTestSettings : public USaveGame
{
	GENERATED_BODY()

public:
	UPROPERTY()
	float FontSize = 20.f;

	UPROPERTY()
	double SpeedScale = 1.0;

	UPROPERTY()
	bool bIsOpened = true;

	UPROPERTY()
	int64 Big = 0;

	UPROPERTY()
	FString Title = TEXT("default");

	UPROPERTY()
	FName Tag;

	UPROPERTY()
	ESaveTestSpeed Speed = ESaveTestSpeed::Slow;

	UPROPERTY()
	TArray<int32> Numbers;

	UPROPERTY()
	TArray<FSaveTestPoint> Points;

	UPROPERTY()
	FLinearColor Tint = FLinearColor::White;

	UPROPERTY(Transient)
	int32 NotSaved = 7;
};

UCLASS()
class USaveTestOther : public USaveGame
{
	GENERATED_BODY()

public:
	UPROPERTY()
	int32 Level = 1;
};
