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

	// The record keys as strings, made once: a document repeats them for every record.
	struct FRecordKeys
	{
		const FString Id = TEXT("id");
		const FString PostId = TEXT("post_id");
		const FString AuthorId = TEXT("bullet_chat_author_id");
		const FString Author = TEXT("bullet_chat_author");
		const FString Date = TEXT("bullet_chat_date");
		const FString Time = TEXT("time");
		const FString Content = TEXT("bullet_chat_content");
		const FString Fabulous = TEXT("fabulous");
	};

	const FRecordKeys& Keys()
	{
		static const FRecordKeys RecordKeys;
		return RecordKeys;
	}

	// The text parsed as one JSON value; null when it is no JSON or its root is neither object nor
	// array. Read in place: a full document can run to tens of megabytes, and Text outlives the read.
	TSharedPtr<FJsonObject> ParseRootObject(const FString& Text)
	{
		TSharedPtr<FJsonValue> Root;
		if (!FJsonSerializer::Deserialize(TJsonReaderFactory<>::CreateFromView(Text), Root) || !Root.IsValid())
		{
			return nullptr;
		}
		// TryGetObject, not AsObject: for a root of another kind AsObject logs an error and gives a
		// valid empty object, which would read as one record of zeros.
		const TSharedPtr<FJsonObject>* Object = nullptr;
		return Root->TryGetObject(Object) ? *Object : nullptr;
	}
}

FBulletChatData FBulletChatDocument::ReadRecord(const FJsonObject& Object)
{
	const FRecordKeys& Keys = ::Keys();
	FBulletChatData Record;
	Record.ID = ToRecordInteger(Object.GetNumberField(Keys.Id));
	Record.PostID = ToRecordInteger(Object.GetNumberField(Keys.PostId));
	Record.AuthorID = ToRecordInteger(Object.GetNumberField(Keys.AuthorId));
	Record.Author = Object.GetStringField(Keys.Author);
	// A date or time that does not parse leaves the field at zero; such a record still counts.
	FDateTime::Parse(Object.GetStringField(Keys.Date), Record.Date);
	FTimespan::Parse(Object.GetStringField(Keys.Time), Record.Time);
	Record.Content = Object.GetStringField(Keys.Content);
	Record.Fabulous = ToRecordInteger(Object.GetNumberField(Keys.Fabulous));
	return Record;
}

void FBulletChatDocument::ReadDocument(const FString& Text, TFunctionRef<void(const FBulletChatData&)> OnRecord)
{
	const TSharedPtr<FJsonObject> Root = ParseRootObject(Text);
	if (!Root.IsValid())
	{
		return;
	}
	// The tree is this function's alone and nothing changes it during the walk, so the entries are
	// read where they stand, without copying a hundred thousand shared pointers.
	const TArray<TSharedPtr<FJsonValue>>& Entries = Root->GetArrayField(TEXT("datas"));
	for (const TSharedPtr<FJsonValue>& Entry : Entries)
	{
		// Entries of another kind are skipped without a word (AsObject would log and hand out an
		// empty object).
		const TSharedPtr<FJsonObject>* RecordObject = nullptr;
		if (!Entry.IsValid() || !Entry->TryGetObject(RecordObject) || !RecordObject->IsValid())
		{
			continue;
		}
		OnRecord(ReadRecord(**RecordObject));
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
