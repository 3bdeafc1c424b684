#pragma once

#include "CoreMinimal.h"
#include "Containers/Array.h"
#include "Containers/Map.h"
#include "Dom/JsonValue.h"
#include "Serialization/JsonTypes.h"
#include "Templates/SharedPointer.h"

/**
 * A JSON object: named fields, each a TSharedPtr<FJsonValue>. Field names compare ignoring case,
 * as FString keys do. The Get*Field readers never fail: a missing field logs "Field X was not
 * found.", a field of the wrong kind "Field X is of the wrong type.", and the default (0, "",
 * false, an empty array, an invalid object pointer) comes back. Use TryGet*Field to tell.
 */
class JSON_API FJsonObject
{
public:
	/** The fields by name; a later field of the same name replaced an earlier one. */
	TMap<FString, TSharedPtr<FJsonValue>> Values;

	/** The field if it exists and is of JsonType (None: any kind), else a Null value and a warning. */
	template<EJson JsonType>
	TSharedPtr<FJsonValue> GetField(const FString& FieldName) const
	{
		return GetFieldOfType(FieldName, JsonType);
	}

	/** The field, or an invalid pointer when there is none; never logs. */
	TSharedPtr<FJsonValue> TryGetField(const FString& FieldName) const;
	bool HasField(const FString& FieldName) const;

	template<EJson JsonType>
	bool HasTypedField(const FString& FieldName) const
	{
		return HasFieldOfType(FieldName, JsonType);
	}

	void SetField(const FString& FieldName, const TSharedPtr<FJsonValue>& Value);
	void RemoveField(const FString& FieldName);

	double GetNumberField(const FString& FieldName) const;
	/** The number truncated toward zero and clamped to int32. */
	int32 GetIntegerField(const FString& FieldName) const;
	FString GetStringField(const FString& FieldName) const;
	bool GetBoolField(const FString& FieldName) const;
	const TArray<TSharedPtr<FJsonValue>>& GetArrayField(const FString& FieldName) const;
	/** A valid empty object (after a warning and an error) when the field is missing or not an object. */
	const TSharedPtr<FJsonObject>& GetObjectField(const FString& FieldName) const;

	// The TryGet*Field readers convert as FJsonValue::TryGet* does, and never log.
	bool TryGetNumberField(const FString& FieldName, double& OutNumber) const;
	bool TryGetNumberField(const FString& FieldName, float& OutNumber) const;
	bool TryGetNumberField(const FString& FieldName, int32& OutNumber) const;
	bool TryGetNumberField(const FString& FieldName, int64& OutNumber) const;
	bool TryGetNumberField(const FString& FieldName, uint32& OutNumber) const;
	bool TryGetStringField(const FString& FieldName, FString& OutString) const;
	bool TryGetBoolField(const FString& FieldName, bool& OutBool) const;
	bool TryGetArrayField(const FString& FieldName, const TArray<TSharedPtr<FJsonValue>>*& OutArray) const;
	bool TryGetObjectField(const FString& FieldName, const TSharedPtr<FJsonObject>*& OutObject) const;

	void SetNumberField(const FString& FieldName, double Number);
	void SetStringField(const FString& FieldName, const FString& StringValue);
	void SetBoolField(const FString& FieldName, bool bValue);
	void SetArrayField(const FString& FieldName, const TArray<TSharedPtr<FJsonValue>>& Array);
	void SetObjectField(const FString& FieldName, const TSharedPtr<FJsonObject>& JsonObject);

private:
	TSharedPtr<FJsonValue> GetFieldOfType(const FString& FieldName, EJson JsonType) const;
	/** The field if it exists and is of JsonType (None: any kind), else null; never logs, never copies. */
	const TSharedPtr<FJsonValue>* FindFieldOfType(const FString& FieldName, EJson JsonType) const;
	bool HasFieldOfType(const FString& FieldName, EJson JsonType) const;
};
