#pragma once

#include "CoreMinimal.h"
#include "ClassMembers.generated.h"

class UMediaPlayer;

UCLASS(Blueprintable, BlueprintType)
class FIXTURES_API UClassMembers : public UObject
{
	GENERATED_BODY()

public:
	UClassMembers(const FObjectInitializer& ObjectInitializer = FObjectInitializer::Get());

	UFUNCTION(BlueprintCallable, Category = "VidariaMedia")
	virtual void Play(const FString& InURL);

	UFUNCTION(BlueprintPure)
	float GetVolume() const { return Volume; }

	UFUNCTION()
	static int32 Add(int32 A, UPARAM(ref) int32& B, const TMap<FString, int32>& Extra = TMap<FString, int32>());

protected:
	UPROPERTY(EditAnywhere, Category = "UI")
	TObjectPtr<UMediaPlayer> MediaPlayer;

	UPROPERTY(meta = (BindWidget, EditInline = "true"))
	TArray<TObjectPtr<UObject>> Tracks;

private:
	UPROPERTY(VisibleDefaultsOnly, Transient)
	float Volume = 1.0f;
};
