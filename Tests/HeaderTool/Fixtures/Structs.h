#pragma once

#include "Structs.generated.h"

USTRUCT(BlueprintType)
struct FIXTURES_API FCommentData
{
	GENERATED_BODY()

	UPROPERTY(EditAnywhere, BlueprintReadWrite, Category = "BulletChat")
	FString Text;

	UPROPERTY(SaveGame)
	float Time{0.0f};
};

USTRUCT()
struct FTimedCommentData : public FCommentData
{
	GENERATED_BODY()

private:
	UPROPERTY(BlueprintReadOnly)
	int32 Lane = 0;
};
