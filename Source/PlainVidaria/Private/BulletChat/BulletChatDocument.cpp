#include "BulletChat/BulletChatDocument.h"

#include "Dom/JsonObject.h"
#include "Dom/JsonValue.h"
#include "Serialization/JsonReader.h"
#include "Serialization/JsonSerializer.h"

#include <limits>

namespace
{
	// JSON numbers are doubles; the record's integers take them cut towards zero. Values outside
	// int32 saturate rather than wrap, so an absurd id stays an absurd id instead of a random one.
	int32 ToRecordInteger(double Value)
	{
		constexpr double Highest = static_cast<double>(std::numeric_limits<int32>::max());
		constexpr double Lowest = static_cast<double>(std::numeric_limits<int32>::min());
		return static_cast<int32>(Value >= Highest ? Highest : (Value <= Lowest ? Lowest : Value));
	}

	// The text parsed as one JSON value; null when it is no JSON or its root is neither object nor array.
	TSharedPtr<FJsonObject> ParseRootObject(const FString& Text)
	{
		TSharedPtr<FJsonValue> Root;
		if (!FJsonSerializer::Deserialize(TJsonReaderFactory<>::Create(Text), Root) || !Root.IsValid())
		{
			return nullptr;
		}
		return Root->AsObject();
	}
}

FBulletChatData FBulletChatDocument::ReadRecord(const FJsonObject& Object)
{
	FBulletChatData Record;
	Record.ID = ToRecordInteger(Object.GetNumberField(TEXT("id")));
	Record.PostID = ToRecordInteger(Object.GetNumberField(TEXT("post_id")));
	Record.AuthorID = ToRecordInteger(Object.GetNumberField(TEXT("bullet_chat_author_id")));
	Record.Author = Object.GetStringField(TEXT("bullet_chat_author"));
	// A date or time that does not parse leaves the field at zero; such a record still counts.
	FDateTime::Parse(Object.GetStringField(TEXT("bullet_chat_date")), Record.Date);
	FTimespan::Parse(Object.GetStringField(TEXT("time")), Record.Time);
	Record.Content = Object.GetStringField(TEXT("bullet_chat_content"));
	Record.Fabulous = ToRecordInteger(Object.GetNumberField(TEXT("fabulous")));
	return Record;
}

void FBulletChatDocument::ReadDocument(const FString& Text, TFunctionRef<void(const FBulletChatData&)> OnRecord)
{
	const TSharedPtr<FJsonObject> Root = ParseRootObject(Text);
	if (!Root.IsValid())
	{
		return;
	}
	// A copy of the entry pointers, so that the walk does not depend on the tree staying as it is.
	const TArray<TSharedPtr<FJsonValue>> Entries = Root->GetArrayField(TEXT("datas"));
	for (const TSharedPtr<FJsonValue>& Entry : Entries)
	{
		const TSharedPtr<FJsonObject> RecordObject = Entry.IsValid() ? Entry->AsObject() : nullptr;
		if (!RecordObject.IsValid())
		{
			continue;
		}
		OnRecord(ReadRecord(*RecordObject));
	}
}

bool FBulletChatDocument::ReadSingle(const FString& Text, FBulletChatData& OutRecord)
{
	const TSharedPtr<FJsonObject> Root = ParseRootObject(Text);
	if (!Root.IsValid())
	{
		return false;
	}
	OutRecord = ReadRecord(*Root);
	return true;
}
