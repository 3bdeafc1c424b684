#pragma once

// UMediaSource: where a media comes from. Subclasses say how (a file, a stream URL).

#include "CoreMinimal.h"
#include "UObject/Object.h"
#include "MediaSource.generated.h"

/** An abstract media location; UMediaPlayer opens it through GetUrl. */
UCLASS(Abstract, BlueprintType)
class MEDIAASSETS_API UMediaSource : public UObject
{
	GENERATED_BODY()

public:
	/** The URL a player opens for this source. */
	UFUNCTION(BlueprintCallable, Category = "Media|MediaSource")
	virtual FString GetUrl() const { return FString(); }

	/** True when the source's settings make sense (a file exists, a URL is set). */
	UFUNCTION(BlueprintCallable, Category = "Media|MediaSource")
	virtual bool Validate() const { return false; }
};
