#pragma once

// UFileMediaSource: a media file on disk.

#include "CoreMinimal.h"
#include "MediaSource.h"
#include "FileMediaSource.generated.h"

/** A local media file: "./" paths are in the project's Content folder, other relative ones from the current folder. */
UCLASS(BlueprintType)
class MEDIAASSETS_API UFileMediaSource : public UMediaSource
{
	GENERATED_BODY()

public:
	/** The file's path: absolute, "./" for the project's Content folder, or relative to the current folder. */
	UPROPERTY(EditAnywhere, BlueprintReadOnly, Category = "File")
	FString FilePath;

	/** Sets the file's path. */
	UFUNCTION(BlueprintCallable, Category = "Media|FileMediaSource")
	void SetFilePath(const FString& Path);

	/** The absolute path of the file. */
	FString GetFullPath() const;

	/** "file://" followed by the absolute path. */
	FString GetUrl() const override;

	/** True when the file exists. */
	bool Validate() const override;
};
