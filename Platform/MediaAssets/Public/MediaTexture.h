#pragma once

// UMediaTexture: the picture of a UMediaPlayer, as the video material samples it. The stand-in
// keeps the player's latest RGBA8 picture (shared, not copied) for the renderer to read.

#include "CoreMinimal.h"
#include "UObject/Object.h"
#include "UObject/ObjectPtr.h"
#if PLAIN_PLATFORM_INTERNALS
// The stand-in's picture type, for its renderer; the engine's texture has a render resource instead.
#include "MediaTextureSample.h"
#endif
#include "MediaTexture.generated.h"

struct FMediaTextureSample;

class UMediaPlayer;

/** Shows a media player's current picture; reads on the game thread see the picture of the last media step. */
UCLASS(BlueprintType)
class MEDIAASSETS_API UMediaTexture : public UObject
{
	GENERATED_BODY()

public:
	/** Sets the player whose picture this texture shows (null shows nothing). */
	UFUNCTION(BlueprintCallable, Category = "Media|MediaTexture")
	void SetMediaPlayer(UMediaPlayer* NewMediaPlayer);

	/** The player whose picture this texture shows. */
	UFUNCTION(BlueprintCallable, Category = "Media|MediaTexture")
	UMediaPlayer* GetMediaPlayer() const { return MediaPlayer; }

	/** Width of the current picture in pixels (0 when there is none). */
	UFUNCTION(BlueprintCallable, Category = "Media|MediaTexture")
	int32 GetWidth() const;

	/** Height of the current picture in pixels (0 when there is none). */
	UFUNCTION(BlueprintCallable, Category = "Media|MediaTexture")
	int32 GetHeight() const;

#if PLAIN_PLATFORM_INTERNALS
	/** Stand-in: the current picture (RGBA8 rows), or null when there is none. */
	TSharedPtr<const FMediaTextureSample> GetSample() const;

	/** Stand-in: how many times the picture changed since the player was set (each new picture, and the clear at Close). */
	uint64 GetFrameCount() const;
#endif

protected:
	/** The player whose picture this texture shows. */
	UPROPERTY(EditAnywhere, BlueprintReadWrite, Category = "Media")
	TObjectPtr<UMediaPlayer> MediaPlayer;

private:
	// Takes the player's picture if it changed since the last look.
	void Sync() const;

	// The picture shown; updated lazily on read, hence mutable.
	mutable TSharedPtr<const FMediaTextureSample> Sample;
	// The player's picture serial last taken.
	mutable uint64 SeenSerial = 0;
	// Picture changes counted so far.
	mutable uint64 FrameCount = 0;
};
