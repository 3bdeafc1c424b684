#pragma once

// UMediaPlaylist: an ordered list of media sources that a UMediaPlayer steps through.

#include "CoreMinimal.h"
#include "UObject/Object.h"
#include "UObject/ObjectPtr.h"
#include "MediaPlaylist.generated.h"

class UMediaSource;

/** Media sources in play order; the same source may appear more than once. */
UCLASS(BlueprintType)
class MEDIAASSETS_API UMediaPlaylist : public UObject
{
	GENERATED_BODY()

public:
	/** Appends a source; false for null. */
	UFUNCTION(BlueprintCallable, Category = "Media|MediaPlaylist")
	bool Add(UMediaSource* MediaSource);

	/** Appends a file source for FilePath; false when the path is empty. */
	UFUNCTION(BlueprintCallable, Category = "Media|MediaPlaylist")
	bool AddFile(const FString& FilePath);

	/** Appends a stream source holding Url as given; false when Url is empty. */
	UFUNCTION(BlueprintCallable, Category = "Media|MediaPlaylist")
	bool AddUrl(const FString& Url);

	/** The source at Index, or null when the index doesn't exist. */
	UFUNCTION(BlueprintCallable, Category = "Media|MediaPlaylist")
	UMediaSource* Get(int32 Index);

	/** The source after InOutIndex, wrapping to the first; InOutIndex moves to it. Null when empty. */
	UFUNCTION(BlueprintCallable, Category = "Media|MediaPlaylist")
	UMediaSource* GetNext(int32& InOutIndex);

	/** The source before InOutIndex, wrapping to the last; InOutIndex moves to it. Null when empty. */
	UFUNCTION(BlueprintCallable, Category = "Media|MediaPlaylist")
	UMediaSource* GetPrevious(int32& InOutIndex);

	/** Inserts a source at Index (clamped to the list); a null source is not inserted. */
	UFUNCTION(BlueprintCallable, Category = "Media|MediaPlaylist")
	void Insert(UMediaSource* MediaSource, int32 Index);

	/** Removes every entry of MediaSource; false when there was none. */
	UFUNCTION(BlueprintCallable, Category = "Media|MediaPlaylist")
	bool Remove(UMediaSource* MediaSource);

	/** Removes the entry at Index; false when the index doesn't exist. */
	UFUNCTION(BlueprintCallable, Category = "Media|MediaPlaylist")
	bool RemoveAt(int32 Index);

	/** Replaces the entry at Index; false when the index doesn't exist or the source is null. */
	UFUNCTION(BlueprintCallable, Category = "Media|MediaPlaylist")
	bool Replace(int32 Index, UMediaSource* Replacement);

	/** The number of entries. */
	UFUNCTION(BlueprintCallable, Category = "Media|MediaPlaylist")
	int32 Num() { return Items.Num(); }

protected:
	/** The entries in play order. */
	UPROPERTY(EditAnywhere, Category = "Playlist")
	TArray<TObjectPtr<UMediaSource>> Items;
};
