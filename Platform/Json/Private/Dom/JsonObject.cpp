#include "Dom/JsonObject.h"

#include "JsonGlobals.h"

#include <cmath>
#include <limits>

namespace
{
	// A field name looked up where it stands: the map's keys compare equal to it ignoring case, as
	// they do to each other, so a lookup needs no FString of its own.
	struct FFieldNameView
	{
		FStringView Name;

		friend bool operator==(const FString& Key, const FFieldNameView& View)
		{
			return Key.Len() == View.Name.Len() && FCString::Strnicmp(*Key, View.Name.GetData(), static_cast<SIZE_T>(Key.Len())) == 0;
		}
	};

	template<class NumberType>
	bool TryGetNumberOf(const FJsonObject& Object, FStringView FieldName, NumberType& OutNumber)
	{
		const TSharedPtr<FJsonValue> Field = Object.TryGetField(FieldName);
		return Field.IsValid() && Field->TryGetNumber(OutNumber);
	}
}

const TSharedPtr<FJsonValue>* FJsonObject::FindField(FStringView FieldName) const
{
	// A record's few fields are quicker to walk than to hash the name: most differ in length.
	if (Values.Num() <= 8)
	{
		const FFieldNameView View{FieldName};
		for (const TPair<FString, TSharedPtr<FJsonValue>>& Field : Values)
		{
			if (Field.Key == View)
			{
				return &Field.Value;
			}
		}
		return nullptr;
	}
	const uint32 Hash = UE::Core::Private::HashIgnoringCaseOf(FieldName.GetData(), FieldName.Len());
	return Values.FindByHash(Hash, FFieldNameView{FieldName});
}

TSharedPtr<FJsonValue> FJsonObject::GetFieldOfType(FStringView FieldName, EJson JsonType) const
{
	const TSharedPtr<FJsonValue>* Field = FindField(FieldName);
	if (Field == nullptr || !Field->IsValid())
	{
		UE_LOG(LogJson, Warning, TEXT("Field %s was not found."), *FString(FieldName));
	}
	else if (JsonType != EJson::None && (*Field)->Type != JsonType)
	{
		UE_LOG(LogJson, Warning, TEXT("Field %s is of the wrong type."), *FString(FieldName));
	}
	else
	{
		return *Field;
	}
	// A fresh Null rather than a shared one: callers may keep it, and nobody may change another's.
	return TSharedPtr<FJsonValue>(MakeShared<FJsonValueNull>());
}

const TSharedPtr<FJsonValue>* FJsonObject::FindFieldOfType(FStringView FieldName, EJson JsonType) const
{
	const TSharedPtr<FJsonValue>* Field = FindField(FieldName);
	return Field != nullptr && Field->IsValid() && (JsonType == EJson::None || (*Field)->Type == JsonType) ? Field : nullptr;
}

bool FJsonObject::HasFieldOfType(FStringView FieldName, EJson JsonType) const
{
	const TSharedPtr<FJsonValue>* Field = FindField(FieldName);
	return Field != nullptr && Field->IsValid() && (*Field)->Type == JsonType;
}

TSharedPtr<FJsonValue> FJsonObject::TryGetField(FStringView FieldName) const
{
	const TSharedPtr<FJsonValue>* Field = FindField(FieldName);
	return Field != nullptr ? *Field : TSharedPtr<FJsonValue>();
}

bool FJsonObject::HasField(FStringView FieldName) const
{
	const TSharedPtr<FJsonValue>* Field = FindField(FieldName);
	return Field != nullptr && Field->IsValid();
}

void FJsonObject::SetField(const FString& FieldName, const TSharedPtr<FJsonValue>& Value)
{
	Values.Add(FieldName, Value);
}

void FJsonObject::RemoveField(FStringView FieldName)
{
	Values.Remove(FString(FieldName));
}

// The getters read a present field in place; only a missing or mistyped one goes through
// GetFieldOfType, for its warning and the Null value's error.
double FJsonObject::GetNumberField(FStringView FieldName) const
{
	const TSharedPtr<FJsonValue>* Field = FindFieldOfType(FieldName, EJson::None);
	return Field ? (*Field)->AsNumber() : GetFieldOfType(FieldName, EJson::None)->AsNumber();
}

int32 FJsonObject::GetIntegerField(FStringView FieldName) const
{
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

FString FJsonObject::GetStringField(FStringView FieldName) const
{
	const TSharedPtr<FJsonValue>* Field = FindFieldOfType(FieldName, EJson::None);
	return Field ? (*Field)->AsString() : GetFieldOfType(FieldName, EJson::None)->AsString();
}

bool FJsonObject::GetBoolField(FStringView FieldName) const
{
	return GetFieldOfType(FieldName, EJson::None)->AsBool();
}

const TArray<TSharedPtr<FJsonValue>>& FJsonObject::GetArrayField(FStringView FieldName) const
{
	// The array lives in the field's value, which Values keeps alive after the temporary goes.
	return GetFieldOfType(FieldName, EJson::Array)->AsArray();
}

const TSharedPtr<FJsonObject>& FJsonObject::GetObjectField(FStringView FieldName) const
{
	return GetFieldOfType(FieldName, EJson::Object)->AsObject();
}

bool FJsonObject::TryGetNumberField(FStringView FieldName, double& OutNumber) const
{
	return TryGetNumberOf(*this, FieldName, OutNumber);
}

bool FJsonObject::TryGetNumberField(FStringView FieldName, float& OutNumber) const
{
	return TryGetNumberOf(*this, FieldName, OutNumber);
}

bool FJsonObject::TryGetNumberField(FStringView FieldName, int32& OutNumber) const
{
	return TryGetNumberOf(*this, FieldName, OutNumber);
}

bool FJsonObject::TryGetNumberField(FStringView FieldName, int64& OutNumber) const
{
	return TryGetNumberOf(*this, FieldName, OutNumber);
}

bool FJsonObject::TryGetNumberField(FStringView FieldName, uint32& OutNumber) const
{
	return TryGetNumberOf(*this, FieldName, OutNumber);
}

bool FJsonObject::TryGetStringField(FStringView FieldName, FString& OutString) const
{
	const TSharedPtr<FJsonValue> Field = TryGetField(FieldName);
	return Field.IsValid() && Field->TryGetString(OutString);
}

bool FJsonObject::TryGetBoolField(FStringView FieldName, bool& OutBool) const
{
	const TSharedPtr<FJsonValue> Field = TryGetField(FieldName);
	return Field.IsValid() && Field->TryGetBool(OutBool);
}

bool FJsonObject::TryGetArrayField(FStringView FieldName, const TArray<TSharedPtr<FJsonValue>>*& OutArray) const
{
	const TSharedPtr<FJsonValue> Field = TryGetField(FieldName);
	return Field.IsValid() && Field->TryGetArray(OutArray);
}

bool FJsonObject::TryGetObjectField(FStringView FieldName, const TSharedPtr<FJsonObject>*& OutObject) const
{
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
