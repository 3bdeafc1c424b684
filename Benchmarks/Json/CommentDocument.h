#pragma once

// The comment document every Json benchmark reads: Count records shaped as the bullet chat's
// "datas" array, with a non-ASCII content text so that decoding is exercised.

#include "CoreMinimal.h"

namespace JsonBench
{
	/** A full comment document of Count records, as the FString a host hands in. */
	inline FString MakeCommentDocument(int32 Count)
	{
		FString Text = TEXT("{ \"datas\": [");
		for (int32 Index = 0; Index < Count; ++Index)
		{
			Text += FString::Printf(TEXT("%s{ \"id\": %d, \"post_id\": 7, \"bullet_chat_author_id\": %d, \"bullet_chat_author\": \"Ann%d\", ")
				TEXT("\"bullet_chat_date\": \"2024.05.01-12.00.00\", \"time\": \"00:%02d:%02d\", \"bullet_chat_content\": \"Hello 你好 %d\", ")
				TEXT("\"fabulous\": %d }"),
				Index > 0 ? TEXT(", ") : TEXT(""), Index + 1, Index % 1000, Index % 37, (Index / 60) % 60, Index % 60, Index, Index % 50);
		}
		Text += TEXT("] }");
		return Text;
	}

	/** The 100,000-record document, made once per process. */
	inline const FString& HundredThousandRecords()
	{
		static const FString Text = MakeCommentDocument(100000);
		return Text;
	}
}
