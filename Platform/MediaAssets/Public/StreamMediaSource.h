#pragma once

// UStreamMediaSource: a media given by URL (what UMediaPlaylist::AddUrl stores).

#include "CoreMinimal.h"
#include "MediaSource.h"
#include "StreamMediaSource.generated.h"

/** A media at a URL (http, https, ftp, or whatever the text names), kept exactly as given. */
UCLASS(BlueprintType)
class MEDIAASSETS_API UStreamMediaSource : public UMediaSource
{
	GENERATED_BODY()

public:
	/** The URL, as given. */
	UPROPERTY(EditAnywhere, BlueprintReadWrite, Category = "Stream")
	FString StreamUrl;

	/** StreamUrl. */
	FString GetUrl() const override { return StreamUrl; }

	/** True when StreamUrl is not empty. */
	bool Validate() const override { return !StreamUrl.IsEmpty(); }
};
