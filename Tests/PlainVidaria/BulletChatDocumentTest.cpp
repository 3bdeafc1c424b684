// Reading comment records from the host's JSON text: both document forms, and what each kind of
// flaw comes to. A flaw never stops the reading; it only yields fewer or emptier records.

#include "BulletChat/BulletChatDocument.h"

#include <gtest/gtest.h>

namespace
{
	TArray<FBulletChatData> ReadAll(const FString& Text)
	{
		TArray<FBulletChatData> Records;
		FBulletChatDocument::ReadDocument(Text, [&Records](const FBulletChatData& Data) { Records.Add(Data); });
		return Records;
	}

	const TCHAR* FullRecord = TEXT("{ \"id\": 12, \"post_id\": 34, \"bullet_chat_author_id\": 56, \"bullet_chat_author\": \"Ann\", ")
		TEXT("\"bullet_chat_date\": \"2024.05.01-12.30.45\", \"time\": \"00:01:05\", \"bullet_chat_content\": \"你好 world\", ")
		TEXT("\"fabulous\": 78, \"extra\": [1, 2] }");
}

TEST(BulletChatDocument, ReadsAllEightKeysInBothForms)
{
	const TArray<FBulletChatData> Records = ReadAll(FString(TEXT("{ \"datas\": [")) + FullRecord + TEXT("] }"));
	ASSERT_EQ(Records.Num(), 1);
	const FBulletChatData& Record = Records[0];
	EXPECT_EQ(Record.ID, 12);
	EXPECT_EQ(Record.PostID, 34);
	EXPECT_EQ(Record.AuthorID, 56);
	EXPECT_EQ(Record.Author, TEXT("Ann"));
	EXPECT_EQ(Record.Date, FDateTime(2024, 5, 1, 12, 30, 45));
	EXPECT_EQ(Record.Time, FTimespan(0, 1, 5));
	EXPECT_TRUE(Record.Content.Equals(TEXT("你好 world"), ESearchCase::CaseSensitive));
	EXPECT_EQ(Record.Fabulous, 78);

	FBulletChatData Single;
	ASSERT_TRUE(FBulletChatDocument::ReadSingle(TEXT("{ \"id\": 7.9, \"post_id\": -7.9, \"bullet_chat_author_id\": 1e12, \"fabulous\": -1e300 }"), Single));
	EXPECT_EQ(Single.ID, 7) << "cut towards zero";
	EXPECT_EQ(Single.PostID, -7);
	EXPECT_EQ(Single.AuthorID, 2147483647) << "saturated";
	EXPECT_EQ(Single.Fabulous, -2147483647 - 1);
}

TEST(BulletChatDocument, FullDocumentFlawsYieldNoRecord)
{
	EXPECT_EQ(ReadAll(TEXT("not json")).Num(), 0);
	EXPECT_EQ(ReadAll(TEXT("[ { \"id\": 1 } ]")).Num(), 0) << "an array root is no document";
	EXPECT_EQ(ReadAll(TEXT("{ \"data\": [ { \"id\": 1 } ] }")).Num(), 0) << "\"datas\" absent";
	EXPECT_EQ(ReadAll(TEXT("{ \"datas\": { \"id\": 1 } }")).Num(), 0) << "\"datas\" is no array";
	EXPECT_EQ(ReadAll(TEXT("{ \"datas\": [] }")).Num(), 0);

	FBulletChatData Single;
	Single.ID = 99;
	EXPECT_FALSE(FBulletChatDocument::ReadSingle(TEXT("[ { \"id\": 1 } ]"), Single));
	EXPECT_EQ(Single.ID, 99) << "a failed read leaves the record alone";
}

TEST(BulletChatDocument, SkipsNonObjectEntriesAndKeepsDocumentOrder)
{
	const TArray<FBulletChatData> Records = ReadAll(TEXT("{ \"datas\": [ 5, { \"id\": 1, \"time\": \"00:00:05\" }, \"x\", null, ")
		TEXT("{ \"id\": 2, \"time\": \"00:00:05\" }, [ 3 ], { \"id\": 3, \"time\": \"00:00:05.500\" } ] }"));
	ASSERT_EQ(Records.Num(), 3);
	EXPECT_EQ(Records[0].ID, 1);
	EXPECT_EQ(Records[1].ID, 2);
	EXPECT_EQ(Records[0].Time, Records[1].Time) << "the same time text is two records, not one";
	EXPECT_EQ(Records[2].Time, FTimespan(0, 0, 0, 5, 500000000)) << "the fraction is kept as parsed";
}

TEST(BulletChatDocument, FlawedRecordIsStillReadWithZeroes)
{
	const TArray<FBulletChatData> Records = ReadAll(TEXT("{ \"datas\": [ { \"bullet_chat_date\": \"yesterday\", \"time\": \"1:30\", \"bullet_chat_content\": \"hi\" }, ")
		TEXT("{ \"id\": 4, \"time\": 65 } ] }"));
	ASSERT_EQ(Records.Num(), 2);
	EXPECT_EQ(Records[0].ID, 0) << "an absent key";
	EXPECT_TRUE(Records[0].Author.IsEmpty());
	EXPECT_EQ(Records[0].Date, FDateTime()) << "an unreadable date stays zero";
	EXPECT_EQ(Records[0].Time, FTimespan::FromSeconds(90)) << "minutes and seconds, read from the right";
	EXPECT_EQ(Records[0].Content, TEXT("hi"));
	EXPECT_EQ(Records[1].Time, FTimespan()) << "a number is read as its digits, and 65 is no second of a minute";
}
