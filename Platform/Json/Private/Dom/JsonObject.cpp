#include "Dom/JsonObject.h"

#include "JsonGlobals.h"

#include <cmath>
#include <limits>

namespace
{
	template<class NumberType>
	bool TryGetNumberOf(const FJsonObject& Object, const FString& FieldName, NumberType& OutNumber)
	{
		const TSharedPtr<FJsonValue> Field = Object.TryGetField(FieldName);
		return Field.IsValid() && Field->TryGetNumber(OutNumber);
	}
}

TSharedPtr<FJsonValue> FJsonObject::GetFieldOfType(const FString& FieldName, EJson JsonType) const
{
	const TSharedPtr<FJsonValue>* Field = Values.Find(FieldName);
	if (Field == nullptr || !Field->IsValid())
	{
		UE_LOG(LogJson, Warning, TEXT("Field %s was not found."), *FieldName);
	}
	else if (JsonType != EJson::None && (*Field)->Type != JsonType)
	{
		UE_LOG(LogJson, Warning, TEXT("Field %s is of the wrong type."), *FieldName);
	}
	else
	{
		return *Field;
	}
	// A fresh Null rather than a shared one: callers may keep it, and nobody may change another's.
	return TSharedPtr<FJsonValue>(MakeShared<FJsonValueNull>());
}

const TSharedPtr<FJsonValue>* FJsonObject::FindFieldOfType(const FString& FieldName, EJson JsonType) const
{
	const TSharedPtr<FJsonValue>* Field = Values.Find(FieldName);
	return Field != nullptr && Field->IsValid() && (JsonType == EJson::None || (*Field)->Type == JsonType) ? Field : nullptr;
}

bool FJsonObject::HasFieldOfType(const FString& FieldName, EJson JsonType) const
{
	const TSharedPtr<FJsonValue>* Field = Values.Find(FieldName);
	return Field != nullptr && Field->IsValid() && (*Field)->Type == JsonType;
}

TSharedPtr<FJsonValue> FJsonObject::TryGetField(FStringView InFieldName) const
{
	const FString FieldName(InFieldName);
	const TSharedPtr<FJsonValue>* Field = Values.Find(FieldName);
	return Field != nullptr ? *Field : TSharedPtr<FJsonValue>();
}

bool FJsonObject::HasField(FStringView InFieldName) const
{
	const FString FieldName(InFieldName);
	const TSharedPtr<FJsonValue>* Field = Values.Find(FieldName);
	return Field != nullptr && Field->IsValid();
}

void FJsonObject::SetField(const FString& FieldName, const TSharedPtr<FJsonValue>& Value)
{
	Values.Add(FieldName, Value);
}

void FJsonObject::RemoveField(FStringView InFieldName)
{
	const FString FieldName(InFieldName);
	Values.Remove(FieldName);
}

// The getters read a present field in place; only a missing or mistyped one goes through
// GetFieldOfType, for its warning and the Null value's own.
double FJsonObject::GetNumberField(FStringView InFieldName) const
{
	const FString FieldName(InFieldName);
	const TSharedPtr<FJsonValue>* Field = FindFieldOfType(FieldName, EJson::None);
	return Field ? (*Field)->AsNumber() : GetFieldOfType(FieldName, EJson::None)->AsNumber();
}

int32 FJsonObject::GetIntegerField(FStringView InFieldName) const
{
	const FString FieldName(InFieldName);
	const double Number = GetNumberField(FieldName);
	if (std::isnan(Number))
	{
		return 0;
	}
	// Clamped first: converting a double outside int32's range is undefined behaviour.
	constexpr double Lowest = static_cast<double>(std::numeric_limits<int32>::min());
	constexpr double Highest = static_cast<double>(std::numeric_limits<int32>::max());
	return static_cast<int32>(Number < Lowest ? Lowest : (Number > Highest ? Highest : Number));
}

FString FJsonObject::GetStringField(FStringView InFieldName) const
{
	const FString FieldName(InFieldName);
	const TSharedPtr<FJsonValue>* Field = FindFieldOfType(FieldName, EJson::None);
	return Field ? (*Field)->AsString() : GetFieldOfType(FieldName, EJson::None)->AsString();
}

bool FJsonObject::GetBoolField(FStringView InFieldName) const
{
	const FString FieldName(InFieldName);
	return GetFieldOfType(FieldName, EJson::None)->AsBool();
}

const TArray<TSharedPtr<FJsonValue>>& FJsonObject::GetArrayField(FStringView InFieldName) const
{
	const FString FieldName(InFieldName);
	// The array lives in the field's value, which Values keeps alive after the temporary goes.
	return GetFieldOfType(FieldName, EJson::Array)->AsArray();
}

const TSharedPtr<FJsonObject>& FJsonObject::GetObjectField(FStringView InFieldName) const
{
	const FString FieldName(InFieldName);
	return GetFieldOfType(FieldName, EJson::Object)->AsObject();
}

bool FJsonObject::TryGetNumberField(FStringView InFieldName, double& OutNumber) const
{
	const FString FieldName(InFieldName);
	return TryGetNumberOf(*this, FieldName, OutNumber);
}

bool FJsonObject::TryGetNumberField(FStringView InFieldName, float& OutNumber) const
{
	const FString FieldName(InFieldName);
	return TryGetNumberOf(*this, FieldName, OutNumber);
}

bool FJsonObject::TryGetNumberField(FStringView InFieldName, int32& OutNumber) const
{
	const FString FieldName(InFieldName);
	return TryGetNumberOf(*this, FieldName, OutNumber);
}

bool FJsonObject::TryGetNumberField(FStringView InFieldName, int64& OutNumber) const
{
	const FString FieldName(InFieldName);
	return TryGetNumberOf(*this, FieldName, OutNumber);
}

bool FJsonObject::TryGetNumberField(FStringView InFieldName, uint32& OutNumber) const
{
	const FString FieldName(InFieldName);
	return TryGetNumberOf(*this, FieldName, OutNumber);
}

bool FJsonObject::TryGetStringField(FStringView InFieldName, FString& OutString) const
{
	const FString FieldName(InFieldName);
	const TSharedPtr<FJsonValue> Field = TryGetField(FieldName);
	return Field.IsValid() && Field->TryGetString(OutString);
}

bool FJsonObject::TryGetBoolField(FStringView InFieldName, bool& OutBool) const
{
	const FString FieldName(InFieldName);
	const TSharedPtr<FJsonValue> Field = TryGetField(FieldName);
	return Field.IsValid() && Field->TryGetBool(OutBool);
}

bool FJsonObject::TryGetArrayField(FStringView InFieldName, const TArray<TSharedPtr<FJsonValue>>*& OutArray) const
{
	const FString FieldName(InFieldName);
	const TSharedPtr<FJsonValue> Field = TryGetField(FieldName);
	return Field.IsValid() && Field->TryGetArray(OutArray);
}

bool FJsonObject::TryGetObjectField(FStringView InFieldName, const TSharedPtr<FJsonObject>*& OutObject) const
{
	const FString FieldName(InFieldName);
	const TSharedPtr<FJsonValue> Field = TryGetField(FieldName);
	return Field.IsValid() && Field->TryGetObject(OutObject);
}

void FJsonObject::SetNumberField(const FString& FieldName, double Number)
{
	Values.Add(FieldName, TSharedPtr<FJsonValue>(MakeShared<FJsonValueNumber>(Number)));
}

void FJsonObject::SetStringField(const FString& FieldName, const FString& StringValue)
{
	Values.Add(FieldName, TSharedPtr<FJsonValue>(MakeShared<FJsonValueString>(StringValue)));
}

void FJsonObject::SetBoolField(const FString& FieldName, bool bValue)
{
	Values.Add(FieldName, TSharedPtr<FJsonValue>(MakeShared<FJsonValueBoolean>(bValue)));
}

void FJsonObject::SetArrayField(const FString& FieldName, const TArray<TSharedPtr<FJsonValue>>& Array)
{
	Values.Add(FieldName, TSharedPtr<FJsonValue>(MakeShared<FJsonValueArray>(Array)));
}

void FJsonObject::SetObjectField(const FString& FieldName, const TSharedPtr<FJsonObject>& JsonObject)
{
	// As the engine does: an invalid object is stored as null, so the field still exists.
	if (JsonObject.IsValid())
	{
		Values.Add(FieldName, TSharedPtr<FJsonValue>(MakeShared<FJsonValueObject>(JsonObject)));
	}
	else
	{
		Values.Add(FieldName, TSharedPtr<FJsonValue>(MakeShared<FJsonValueNull>()));
	}
}
