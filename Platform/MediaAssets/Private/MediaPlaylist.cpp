#include "MediaPlaylist.h"

#include "FileMediaSource.h"
#include "StreamMediaSource.h"
#include "UObject/UObjectGlobals.h"

bool UMediaPlaylist::Add(UMediaSource* MediaSource)
{
	if (!MediaSource)
	{
		return false;
	}
	Items.Add(MediaSource);
	return true;
}

bool UMediaPlaylist::AddFile(const FString& FilePath)
{
	if (FilePath.IsEmpty())
	{
		return false;
	}
	UFileMediaSource* Source = NewObject<UFileMediaSource>(this);
	Source->SetFilePath(FilePath);
	return Add(Source);
}

bool UMediaPlaylist::AddUrl(const FString& Url)
{
	if (Url.IsEmpty())
	{
		return false;
	}
	UStreamMediaSource* Source = NewObject<UStreamMediaSource>(this);
	Source->StreamUrl = Url;
	return Add(Source);
}

UMediaSource* UMediaPlaylist::Get(int32 Index)
{
	return Items.IsValidIndex(Index) ? Items[Index].Get() : nullptr;
}

UMediaSource* UMediaPlaylist::GetNext(int32& InOutIndex)
{
	if (Items.Num() == 0)
	{
		return nullptr;
	}
	InOutIndex = (InOutIndex < 0 || InOutIndex + 1 >= Items.Num()) ? 0 : InOutIndex + 1;
	return Items[InOutIndex];
}

UMediaSource* UMediaPlaylist::GetPrevious(int32& InOutIndex)
{
	if (Items.Num() == 0)
	{
		return nullptr;
	}
	InOutIndex = (InOutIndex <= 0 || InOutIndex > Items.Num()) ? Items.Num() - 1 : InOutIndex - 1;
	return Items[InOutIndex];
}

void UMediaPlaylist::Insert(UMediaSource* MediaSource, int32 Index)
{
	if (MediaSource)
	{
		Items.Insert(MediaSource, FMath::Clamp(Index, 0, Items.Num()));
	}
}

bool UMediaPlaylist::Remove(UMediaSource* MediaSource)
{
	return Items.Remove(MediaSource) > 0;
}

bool UMediaPlaylist::RemoveAt(int32 Index)
{
	if (!Items.IsValidIndex(Index))
	{
		return false;
	}
	Items.RemoveAt(Index);
	return true;
}

bool UMediaPlaylist::Replace(int32 Index, UMediaSource* Replacement)
{
	if (!Items.IsValidIndex(Index) || !Replacement)
	{
		return false;
	}
	Items[Index] = Replacement;
	return true;
}
