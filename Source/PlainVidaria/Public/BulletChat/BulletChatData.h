#pragma once

#include "CoreMinimal.h"
#include "Misc/DateTime.h"
#include "Misc/Timespan.h"

/**
 * One bullet chat comment: who wrote what, and the moment of the video it belongs to.
 * A plain value: the overlay keeps copies by time and every flying node holds its own copy.
 * Only ID (identity on screen), Time (moment in the video) and Content (the shown text) drive
 * any logic; the rest travels along for host code that reads it back from a node.
 */
struct PLAINVIDARIA_API FBulletChatData
{
	/** Identity of the comment on the screen: one node per ID at a time. */
	int32 ID;
	/** The post the comment was written under; carried only. */
	int32 PostID;
	/** The author's numeric identity; carried only. */
	int32 AuthorID;
	/** The author's display name; carried only. */
	FString Author;
	/** When the comment was written; carried only. */
	FDateTime Date;
	/** The moment of the video the comment belongs to. */
	FTimespan Time;
	/** The text that flies across the video. */
	FString Content;
	/** How many viewers liked the comment; carried only. */
	int32 Fabulous;
};
