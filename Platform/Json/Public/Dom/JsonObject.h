#pragma once

#include "CoreMinimal.h"
#include "Containers/Array.h"
#include "Containers/Map.h"
#include "Containers/StringView.h"
#include "Dom/JsonValue.h"
#include "Serialization/JsonTypes.h"
#include "Templates/SharedPointer.h"

/**
 * A JSON object: named fields, each a TSharedPtr<FJsonValue>. Field names compare ignoring case,
 * as FString keys do. The Get*Field readers never fail: a missing field logs "Field X was not
 * found.", a field of the wrong kind "Field X is of the wrong type.", and the default (0, "",
 * false, an empty array, an invalid object pointer) comes back. Use TryGet*Field to tell.
 * Readers take the name as a view, as the engine's do; a lookup copies it into an FString key.
 */
class JSON_API FJsonObject
{
public:
	/** The fields by name; a later field of the same name replaced an earlier one. */
	TMap<FString, TSharedPtr<FJsonValue>> Values;

	/** The field if it exists and is of JsonType (None: any kind), else a Null value and a warning. */
	template<EJson JsonType>
	TSharedPtr<FJsonValue> GetField(FStringView FieldName) const
	{
		return GetFieldOfType(FieldName, JsonType);
	}

	/** The field, or an invalid pointer when there is none; never logs. */
	TSharedPtr<FJsonValue> TryGetField(FStringView FieldName) const;
	bool HasField(FStringView FieldName) const;

	template<EJson JsonType>
	bool HasTypedField(FStringView FieldName) const
	{
		return HasFieldOfType(FieldName, JsonType);
	}

	void SetField(const FString& FieldName, const TSharedPtr<FJsonValue>& Value);
	void RemoveField(FStringView FieldName);

	double GetNumberField(FStringView FieldName) const;
	/** The number truncated toward zero and clamped to int32. */
	int32 GetIntegerField(FStringView FieldName) const;
	FString GetStringField(FStringView FieldName) const;
	bool GetBoolField(FStringView FieldName) const;
	const TArray<TSharedPtr<FJsonValue>>& GetArrayField(FStringView FieldName) const;
	/** A valid empty object (after a warning and an error) when the field is missing or not an object. */
	const TSharedPtr<FJsonObject>& GetObjectField(FStringView FieldName) const;

	// The TryGet*Field readers convert as FJsonValue::TryGet* does, and never log.
	bool TryGetNumberField(FStringView FieldName, double& OutNumber) const;
	bool TryGetNumberField(FStringView FieldName, float& OutNumber) const;
	bool TryGetNumberField(FStringView FieldName, int32& OutNumber) const;
	bool TryGetNumberField(FStringView FieldName, int64& OutNumber) const;
	bool TryGetNumberField(FStringView FieldName, uint32& OutNumber) const;
	bool TryGetStringField(FStringView FieldName, FString& OutString) const;
	bool TryGetBoolField(FStringView FieldName, bool& OutBool) const;
	bool TryGetArrayField(FStringView FieldName, const TArray<TSharedPtr<FJsonValue>>*& OutArray) const;
	bool TryGetObjectField(FStringView FieldName, const TSharedPtr<FJsonObject>*& OutObject) const;

	void SetNumberField(const FString& FieldName, double Number);
	void SetStringField(const FString& FieldName, const FString& StringValue);
	void SetBoolField(const FString& FieldName, bool bValue);
	void SetArrayField(const FString& FieldName, const TArray<TSharedPtr<FJsonValue>>& Array);
	void SetObjectField(const FString& FieldName, const TSharedPtr<FJsonObject>& JsonObject);

private:
	TSharedPtr<FJsonValue> GetFieldOfType(FStringView FieldName, EJson JsonType) const;
	/** The field if it exists and is of JsonType (None: any kind), else null; never logs, never copies. */
	const TSharedPtr<FJsonValue>* FindFieldOfType(FStringView FieldName, EJson JsonType) const;
	bool HasFieldOfType(FStringView FieldName, EJson JsonType) const;
	/** The field's entry, or null; looked up without making an FString of the name. */
	const TSharedPtr<FJsonValue>* FindField(FStringView FieldName) const;
};
