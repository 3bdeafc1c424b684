#pragma once

// A class for the asset tests whose properties cover every kind a .uasset may set.

#include "CoreMinimal.h"
#include "Materials/Material.h"
#include "Templates/SubclassOf.h"
#include "UObject/ObjectPtr.h"
#include "AssetLoaderTestTypes.generated.h"

UENUM()
enum class EAssetTestMode : uint8
{
	Off,
	Embedded = 4,
};

USTRUCT()
struct FAssetTestRange
{
	GENERATED_BODY()

	UPROPERTY()
	float Min = 0.f;

	UPROPERTY()
	float Max = 1.f;
};

UCLASS()
class UAssetTestThing : public UObject
{
	GENERATED_BODY()

public:
	UPROPERTY()
	int32 Count = 0;

	UPROPERTY()
	float Scale = 1.f;

	UPROPERTY()
	bool bOn = false;

	UPROPERTY()
	FString Title;

	UPROPERTY()
	FName Id;

	UPROPERTY()
	FText Label;

	UPROPERTY()
	EAssetTestMode Mode = EAssetTestMode::Off;

	UPROPERTY()
	TObjectPtr<UMaterial> Material;

	UPROPERTY()
	TArray<int32> Values;

	UPROPERTY()
	TArray<TObjectPtr<UObject>> Things;

	UPROPERTY()
	FAssetTestRange Range;

	UPROPERTY()
	TSubclassOf<UMaterialInterface> MaterialClass;
};
