#include "Serialization/JsonSerializer.h"

#include "JsonGlobals.h"
#include "Serialization/JsonTextParser.h"

namespace
{
	using UE::Json::Private::EJsonRoot;

	bool ReadDocument(FStringView Text, EJsonRoot AllowedRoot, TSharedPtr<FJsonValue>& OutRoot, FString& OutError)
	{
		OutError.Reset();
		if (!UE::Json::Private::ParseJsonText(Text, AllowedRoot, OutRoot, OutError))
		{
			UE_LOG(LogJson, Warning, TEXT("Could not read the JSON document: %s"), *OutError);
			return false;
		}
		return true;
	}

	void WriteFields(FJsonWriterBase& Writer, const FJsonObject& Object);

	void WriteJsonValue(FJsonWriterBase& Writer, const FString* Identifier, const TSharedPtr<FJsonValue>& Value)
	{
		const EJson Type = Value.IsValid() ? Value->Type : EJson::Null;
		switch (Type)
		{
		case EJson::String:
			Identifier ? Writer.WriteValue(*Identifier, Value->AsString()) : Writer.WriteValue(Value->AsString());
			return;
		case EJson::Number:
			Identifier ? Writer.WriteValue(*Identifier, Value->AsNumber()) : Writer.WriteValue(Value->AsNumber());
			return;
		case EJson::Boolean:
			Identifier ? Writer.WriteValue(*Identifier, Value->AsBool()) : Writer.WriteValue(Value->AsBool());
			return;
		case EJson::Array:
			Identifier ? Writer.WriteArrayStart(*Identifier) : Writer.WriteArrayStart();
			for (const TSharedPtr<FJsonValue>& Element : Value->AsArray())
			{
				WriteJsonValue(Writer, nullptr, Element);
			}
			Writer.WriteArrayEnd();
			return;
		case EJson::Object:
			if (const TSharedPtr<FJsonObject>& Object = Value->AsObject())
			{
				Identifier ? Writer.WriteObjectStart(*Identifier) : Writer.WriteObjectStart();
				WriteFields(Writer, *Object);
				Writer.WriteObjectEnd();
				return;
			}
			break;
		default:
			break;
		}
		// Null, a value that was never set, and an object value holding no object.
		Identifier ? Writer.WriteNull(*Identifier) : Writer.WriteNull();
	}

	void WriteFields(FJsonWriterBase& Writer, const FJsonObject& Object)
	{
		for (const auto& Field : Object.Values)
		{
			WriteJsonValue(Writer, &Field.Key, Field.Value);
		}
	}
}

bool FJsonSerializer::Deserialize(const TSharedRef<TJsonReader<TCHAR>>& Reader, TSharedPtr<FJsonObject>& OutObject, EFlags InOptions)
{
	TSharedPtr<FJsonValue> Root;
	if (!ReadDocument(Reader->Text, EJsonRoot::Object, Root, Reader->ErrorMessage))
	{
		return false;
	}
	OutObject = Root->AsObject();
	return true;
}

bool FJsonSerializer::Deserialize(const TSharedRef<TJsonReader<TCHAR>>& Reader, TArray<TSharedPtr<FJsonValue>>& OutArray, EFlags InOptions)
{
	TSharedPtr<FJsonValue> Root;
	if (!ReadDocument(Reader->Text, EJsonRoot::Array, Root, Reader->ErrorMessage))
	{
		return false;
	}
	OutArray = Root->AsArray();
	return true;
}

bool FJsonSerializer::Deserialize(const TSharedRef<TJsonReader<TCHAR>>& Reader, TSharedPtr<FJsonValue>& OutValue, EFlags InOptions)
{
	TSharedPtr<FJsonValue> Root;
	if (!ReadDocument(Reader->Text, EJsonRoot::ObjectOrArray, Root, Reader->ErrorMessage))
	{
		return false;
	}
	OutValue = MoveTemp(Root);
	return true;
}

bool FJsonSerializer::SerializeObject(const FJsonObject& Object, FJsonWriterBase& Writer, bool bCloseWriter)
{
	Writer.WriteObjectStart();
	WriteFields(Writer, Object);
	Writer.WriteObjectEnd();
	return bCloseWriter ? Writer.Close() : true;
}

bool FJsonSerializer::SerializeArray(const TArray<TSharedPtr<FJsonValue>>& Array, FJsonWriterBase& Writer, bool bCloseWriter)
{
	Writer.WriteArrayStart();
	for (const TSharedPtr<FJsonValue>& Element : Array)
	{
		WriteJsonValue(Writer, nullptr, Element);
	}
	Writer.WriteArrayEnd();
	return bCloseWriter ? Writer.Close() : true;
}

bool FJsonSerializer::SerializeValue(const TSharedPtr<FJsonValue>& Value, const FString& Identifier, FJsonWriterBase& Writer, bool bCloseWriter)
{
	WriteJsonValue(Writer, Identifier.IsEmpty() ? nullptr : &Identifier, Value);
	return bCloseWriter ? Writer.Close() : true;
}
